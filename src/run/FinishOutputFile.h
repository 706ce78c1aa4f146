#pragma once

#include <string>

namespace jlandxml
{

struct ConversionContext;

/// Prints the edited tree in the form that the authorities accept (see PrintFinished) into a new file beside the target
/// or, where there is no room for it, in the temporary folder, and gives it the target's name. Until the new file is
/// complete the target isn't touched. False if no file was produced, of which only a missing temporary folder is told
/// to the user. Throws CFileException if the new file can't be written.
bool FinishOutputFile(const std::wstring& targetPath, ConversionContext& context);

} // namespace jlandxml
