#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jlandxml
{

/// True if a file or folder of that name exists.
bool PathExists(const std::wstring& path);

/// The names of what a folder holds, in no order; none if it can't be read.
std::vector<std::wstring> FileNames(const std::wstring& folder);

/// The whole content of a file; nothing if it can't be opened or has no length, as a folder hasn't. Throws
/// CFileException if the system then refuses its content.
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

/// The user's temporary folder with a separator at its end. Nothing if there is none or its name, with the separator
/// and a terminator, exceeds 260 characters.
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
bool RemoveFile(const std::wstring& path) noexcept;

/// A file that is written from its start; one that doesn't exist yet is made, and only the user can read it. Every
/// operation throws CFileException if the system refuses it.
class OutputFile
{
  public:
    explicit OutputFile(const std::wstring& path);

    void Write(std::string_view bytes);
    /// Hands everything to the system. A file that isn't closed so may be short.
    void Close();

  private:
    std::wstring path_;
    FileHandle file_;
};

/// Where the new content of a target is gathered.
enum class GatherPlace
{
    BesideTarget,
    TemporaryFolder,
};

/// The new content of a target. What stood there is whole at any moment, the old file or the new one: the content is
/// gathered in a file beside the target, which then takes its name. A target that doesn't take another file's place
/// without losing something, such as a device, a file of other names too or somebody else's, gets a copy of content
/// that is gathered in the temporary folder; so does one whose folder takes no new file. Uncommitted content leaves
/// nothing behind.
class ReplacementFile
{
  public:
    /// Throws CFileException if there is no place to gather the content in.
    explicit ReplacementFile(const std::wstring& target, GatherPlace place = GatherPlace::BesideTarget);
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;
    ~ReplacementFile();

    /// Throws CFileException if the system refuses it.
    void Write(std::string_view bytes);

    /// Puts the content in the target's place, by a copy if it can't take the name. False if the target takes neither;
    /// then it is as it was, unless the system fails in the middle of the copy. Throws CFileException if the content
    /// isn't complete.
    bool Commit();

  private:
    std::wstring target_;
    std::wstring work_;
    std::optional<OutputFile> file_;
    bool beside_ = false;
};

} // namespace jlandxml
