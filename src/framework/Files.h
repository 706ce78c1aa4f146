#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace jlandxml
{

/// True if a file or folder of that name exists.
bool PathExists(const std::wstring& path);

/// The whole content of a file; nothing if it can't be opened or read.
std::optional<std::string> ReadWholeFile(const std::wstring& path);

/// Opens a file for reading bytes; null if it can't be opened.
struct FileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;
FileHandle OpenForReading(const std::wstring& path);

/// The length of an open file in bytes, its position back at the start; nothing for what has no length, such as a pipe.
std::optional<std::size_t> FileLength(std::FILE* file);

/// The user's temporary folder with a separator at its end. Nothing if there is none or its name exceeds 260
/// characters.
std::optional<std::wstring> TemporaryFolder();

/// Creates an empty file with a new name that begins with `prefix` in `folder`; only the user can read it. Nothing on
/// failure.
std::optional<std::wstring> CreateUniqueFile(const std::wstring& folder, const std::wstring& prefix);

/// The part behind the last separator.
std::wstring_view FileNameOf(std::wstring_view path);

/// The part up to and with the last separator; empty if there is none.
std::wstring_view FolderOf(std::wstring_view path);

/// True if both names lead to the same file, also through links, another spelling or another case where the system
/// folds it.
bool IsSameFile(const std::wstring& first, const std::wstring& second);

/// Removes a file. False if it could not be removed.
bool RemoveFile(const std::wstring& path);

/// Puts a copy of `source` in the place of `target`. The file that stood there is whole at any moment, the old one or
/// the new one: the copy is made beside it and renamed. Where the folder takes no new file it is copied over. False if
/// the target could not be replaced.
bool ReplaceWithCopy(const std::wstring& source, const std::wstring& target);

/// A file that is written from its start, private to the user. Every operation throws CFileException if the system
/// refuses it.
class OutputFile
{
  public:
    enum class Kind
    {
        Existing, ///< a file that this process made with CreateUniqueFile
        New       ///< a file that replaces whatever has the name; a link isn't followed
    };

    OutputFile(const std::wstring& path, Kind kind);

    void Write(std::string_view bytes);
    /// Hands everything to the system. A file that isn't closed so may be short.
    void Close();

  private:
    std::wstring path_;
    FileHandle file_;
};

} // namespace jlandxml
