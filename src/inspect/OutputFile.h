#pragma once

#include <string>

namespace jlandxml::inspect
{

/// Writes a file whole or not at all, in the place of one that is there. Throws CFileException.
void WriteOutputFile(const std::wstring& path, const std::string& bytes);

} // namespace jlandxml::inspect
