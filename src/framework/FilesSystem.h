#pragma once

#include "framework/Files.h"

#include <string>

namespace jlandxml
{

// What each platform does in its own way for Files.cpp.

/// Opens an existing file of this process for writing from its start; null if it can't be opened or is a link.
FileHandle OpenForWriting(const std::wstring& path);

/// The file that a chain of links leads to, so that a link at the target stays a link.
std::wstring FollowLinks(const std::wstring& path);

/// True for a target that is missing or a plain file that the user may write. Renaming asks for no permission on the
/// file itself, but one that the user may not write is not his to replace.
bool CanBeRenamedOver(const std::wstring& target);

/// Gives a finished work file the target's name, and the permissions of the file that stood there or of a new file.
bool RenameOver(const std::wstring& work, const std::wstring& target);

/// Writes a copy of a file into a target that takes no other.
bool CopyOver(const std::wstring& work, const std::wstring& target);

} // namespace jlandxml
