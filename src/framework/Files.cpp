#include "framework/Files.h"

#include "framework/Exceptions.h"
#include "framework/Text.h"

namespace jlandxml
{

namespace
{

#ifdef _WIN32
constexpr std::wstring_view SEPARATORS = L"/\\:";
#else
constexpr std::wstring_view SEPARATORS = L"/";
#endif

std::size_t FileNameStart(std::wstring_view path)
{
    const std::size_t separator = path.find_last_of(SEPARATORS);
    return separator == std::wstring_view::npos ? 0 : separator + 1;
}

} // namespace

std::optional<std::string> ReadWholeFile(const std::wstring& path)
{
    const FileHandle file = OpenForReading(path);
    const std::optional<std::size_t> length = file ? FileLength(file.get()) : std::nullopt;
    if (!length)
    {
        return std::nullopt;
    }
    std::string content(*length, '\0');
    content.resize(std::fread(content.data(), 1, content.size(), file.get()));
    if (std::ferror(file.get()) != 0)
    {
        return std::nullopt;
    }
    return content;
}

std::wstring_view FileNameOf(std::wstring_view path)
{
    return path.substr(FileNameStart(path));
}

std::wstring_view FolderOf(std::wstring_view path)
{
    return path.substr(0, FileNameStart(path));
}

void OutputFile::Write(std::string_view bytes)
{
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size())
    {
        throw CFileException(L"ファイルに書き込めません: " + path_);
    }
}

void OutputFile::Close()
{
    const bool flushed = std::fflush(file_.get()) == 0;
    if (std::fclose(file_.release()) != 0 || !flushed)
    {
        throw CFileException(L"ファイルに書き込めません: " + path_);
    }
}

} // namespace jlandxml
