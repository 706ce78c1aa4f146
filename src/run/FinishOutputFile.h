#pragma once

#include <string>

namespace jlandxml
{

struct ConversionContext;

/// Saves the edited tree, rewrites it into the form that the authorities accept and puts it in the place of the target:
/// UTF-8 with a byte-order mark, lines that end with carriage return and line feed, a bare declaration where the host's
/// was "standalone", and no empty namespace attributes. Until the file is complete the target isn't touched. False if
/// no file was produced, of which only a missing temporary folder is told to the user. Throws CFileException if a work
/// file can't be read or written.
bool FinishOutputFile(const std::wstring& targetPath, ConversionContext& context);

} // namespace jlandxml
