#pragma once

#include "inspect/LandXmlFile.h"

#include <string>

namespace jlandxml::inspect
{

/// Reads a file. Throws CFileException if it can't be opened, isn't well formed or holds no LandXML; the message is for
/// the user.
LandXmlFile ReadLandXmlFile(const std::wstring& path);

/// Reads the bytes of a file; `path` is its name for the user.
LandXmlFile ReadLandXmlBytes(std::string bytes, const std::wstring& path);

} // namespace jlandxml::inspect
