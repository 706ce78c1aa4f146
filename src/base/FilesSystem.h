#pragma once

#include "base/Files.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace jlandxml
{

// What each platform does in its own way for Files.cpp.

/// A work file that is older than that isn't one that a process has just made and not yet taken hold of.
inline constexpr std::uint64_t STALE_AFTER_SECONDS = std::uint64_t{24} * 60 * 60;

/// A file that was just made, open for writing and reading.
struct NewFile
{
    std::wstring path;
    NativeFile file;
    unsigned permissions;
};

/// Makes an empty work file in a folder, with the meaning of WorkFile::Make. Without a file the folder took none.
NewFile MakeNewFile(const std::wstring& folder, WorkFile::Purpose purpose);

/// Opens a file for writing from its start, a new one private to the user; none if it can't be opened or is a link.
NativeFile OpenForWriting(const std::wstring& path);

/// The file that a chain of links leads to, so that a link at the target stays a link, whether or not the file exists.
std::wstring FollowLinks(const std::wstring& path);

/// True for a target that is missing or a plain file that the user may write, with no other name: a renamed file would
/// part from its other names. Renaming asks for no permission on the file itself, but one that the user may not write
/// is not his to replace.
bool CanBeRenamedOver(const std::wstring& target);

/// Gives a finished work file the target's name, with the owner, group and permissions of the file that stood there or
/// the permissions of a new file. False if it can't have all of them; then the target is as it was.
bool RenameOver(WorkFile& work, const std::wstring& target);

/// What is known of the room that a file needs on its volume.
enum class Room
{
    None,
    Unknown,
    Certain ///< it is set aside, and writing over what stands there needs no more
};

/// Sets room aside for a file of a length where the volume can, so that a full one is found before anything is lost.
/// What is set aside in vain is given back.
Room ReserveRoom(NativeFile& file, std::uint64_t length);

/// Opens what stands under a name for writing over it, or to read it; none if it can't be opened. Neither makes a file
/// nor waits, and reading takes plain files alone.
NativeFile OpenStanding(const std::wstring& path);
NativeFile OpenStandingToRead(const std::wstring& path);

/// What an open file is.
enum class FileKind
{
    Plain, ///< its content can be put back
    Other, ///< a device or a pipe
    Unknown
};
FileKind KindOf(const NativeFile& file);

/// Takes away the permission to write a file, by which it is no stale one.
void Protect(const NativeFile& file);

/// Removes the work files of killed processes from a folder, as far as that can be done; see WorkFile.
void RemoveStaleFiles(const std::wstring& folder) noexcept;

/// Opens a target that doesn't exist, with the permissions of any new file; none if it can't be made.
NativeFile OpenNew(const std::wstring& path);

} // namespace jlandxml
