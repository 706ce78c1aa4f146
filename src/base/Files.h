#pragma once

#include "base/NativeFile.h"

#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jlandxml
{

/// True if a file or folder of that name exists.
bool PathExists(const std::wstring& path);

/// The names of all that a folder holds, in no order. Nothing if they can't all be read: some of them would look like
/// all.
std::optional<std::vector<std::wstring>> FileNames(const std::wstring& folder);

/// The whole content of a file; nothing if it can't be opened. Throws CFileException if the system then refuses its
/// content.
std::optional<std::string> ReadWholeFile(const std::wstring& path);

/// Gives room for that many bytes.
using MakeRoom = std::function<char*(std::size_t size)>;

/// Reads a whole file into memory of the caller's, who is asked for it once the size is known. The number of bytes that
/// were read; nothing if the file can't be opened. Throws CFileException if the system then refuses its content.
std::optional<std::size_t> ReadWholeFile(const std::wstring& path, const MakeRoom& makeRoom);

/// Closes a file that is read; what could fail there doesn't matter any more.
struct FileCloser
{
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

/// Opens a file for reading bytes; null if it can't be opened. Opening never waits: what is no plain file, such as a
/// folder, a pipe or a device, counts as one that can't be opened.
FileHandle OpenForReading(const std::wstring& path);

/// The same for a file of known length; null too if the system doesn't say how long it is.
FileHandle OpenForReading(const std::wstring& path, std::size_t& length);

/// The length of an open file in bytes; nothing if the system doesn't say.
std::optional<std::size_t> FileLength(std::FILE* file);

/// Goes to a place of an open file, counted in bytes. False if the system refuses.
bool SeekTo(std::FILE* file, std::size_t position);

/// The user's temporary folder with a separator at its end. Nothing if there is none or its name, with the separator
/// and a terminator, exceeds 260 characters.
std::optional<std::wstring> TemporaryFolder();

/// The part up to and with the last separator; empty if there is none.
std::wstring_view FolderOf(std::wstring_view path);

/// What the names of one file have in common: on a system that doesn't tell capitals from small letters, the capitals.
std::wstring FileNameKey(const std::wstring& name);

/// Removes a file. False if it could not be removed.
bool RemoveFile(const std::wstring& path) noexcept;

/// A file of the converter's own: new, empty and private to the user, with a name that begins with "tsx". It is open
/// for writing, and it goes with its scope unless it is kept. Whoever makes one removes those of the same user that a
/// process left behind when it was killed: of the converter's making, older than a day and held by nobody.
class WorkFile
{
  public:
    /// Whom the file serves once it is complete.
    enum class Purpose
    {
        Own,      ///< the converter alone
        NewTarget ///< takes the name of a target that doesn't exist yet, with the permissions of any new file
    };

    /// Makes a file in a folder, whose name ends with a separator. Nothing if the folder takes none; then nothing is
    /// left there.
    static std::optional<WorkFile> Make(const std::wstring& folder, Purpose purpose = Purpose::Own);

    WorkFile(WorkFile&& other) noexcept;
    WorkFile& operator=(WorkFile&& other) noexcept;
    ~WorkFile();

    const std::wstring& Path() const { return path_; }
    NativeFile& File() { return file_; }
    /// The permissions of any new file of the folder; 0 if the file is the converter's own.
    unsigned Permissions() const { return permissions_; }

    /// Leaves the file behind. One that nobody asks for goes with a later run.
    void Keep() { path_.clear(); }
    /// Leaves the file behind for its user: it can't be written any more, and no later run removes it.
    void Leave();

  private:
    WorkFile(std::wstring path, NativeFile file, unsigned permissions);

    std::wstring path_;
    NativeFile file_;
    unsigned permissions_;
};

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
    NativeFile file_;
};

/// Where the new content of a target is gathered.
enum class GatherPlace
{
    BesideTarget,
    TemporaryFolder,
};

/// The new content of a target, which keeps its owner, group, permissions and links. The content is gathered in a file
/// beside the target, which then takes its name: at any moment the old file or the new one stands there whole.
/// Where that can't be (the target is a device, has other names too, is somebody else's or in use, the folder takes no
/// new file or its volume has no room for a second one), the target is written over from a complete work file. Even
/// then it isn't touched before its old content is safe in the temporary folder, or the room for the new one is set
/// aside for certain, and the old content is put back if the new one fails; only the end of the process in that moment
/// leaves a mixture of both. Uncommitted content leaves nothing behind.
class ReplacementFile
{
  public:
    /// Throws CFileException if there is no place to gather the content in.
    explicit ReplacementFile(const std::wstring& target, GatherPlace place = GatherPlace::BesideTarget);

    /// Throws CFileException if the system refuses it.
    void Write(std::string_view bytes);

    /// Puts the content in the target's place. False if the target doesn't take it; then it is as it was. Throws
    /// CFileException if the content isn't complete.
    bool Commit();

  private:
    std::wstring target_;
    WorkFile::Purpose purpose_;
    bool canBeRenamedOver_;
    bool beside_ = false;
    std::optional<WorkFile> work_;
};

} // namespace jlandxml
