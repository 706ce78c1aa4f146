#pragma once

#include "base/Files.h"

#include <string>

namespace jlandxml
{

// What each platform does in its own way for Files.cpp.

/// Opens a file for writing from its start, a new one private to the user; null if it can't be opened or is a link.
FileHandle OpenForWriting(const std::wstring& path);

/// The file that a chain of links leads to, so that a link at the target stays a link.
std::wstring FollowLinks(const std::wstring& path);

/// True for a target that is missing or a plain file that the user may write, with no other name and no other owner:
/// a renamed file would part from its other names and change hands. Renaming asks for no permission on the file itself,
/// but one that the user may not write is not his to replace.
bool CanBeRenamedOver(const std::wstring& target);

/// Gives a finished work file the target's name, and the permissions of the file that stood there or of a new file.
bool RenameOver(const std::wstring& work, const std::wstring& target);

/// Writes a copy of a file into a target that takes no other. False if it could not be written: a target for which the
/// volume visibly has no room stays as it was, and no new one is left half written.
bool CopyOver(const std::wstring& work, const std::wstring& target);

} // namespace jlandxml
