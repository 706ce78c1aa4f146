#pragma once

#include "cli/Arguments.h"

#include <string>
#include <vector>

namespace jlandxml
{

/// Runs a program with its arguments, as the system hands them over, and gives what the process ends with. Arguments
/// that no file's name can be taken from exactly, since they aren't UTF-8 (on Windows: UTF-16), are refused with
/// status 2. Want of memory is told in one line and is status 3, also where no exception can be caught any more.
int RunProgram(int count, const ArgumentUnit* const* values, int (*run)(const std::vector<std::wstring>& arguments));

/// What is told where a program ends without a file and nothing else says why.
inline constexpr const wchar_t* NO_FILE_TEXT = L"ファイルは出力されませんでした。";
/// The same as a line of its own, which asks for no memory.
inline constexpr const wchar_t* NO_FILE_LINE = L"ファイルは出力されませんでした。\n";

/// What is told where a program can only end: the file may be there or not.
inline constexpr const wchar_t* NO_MEMORY_LINE = L"メモリーが足りないため、終了しました。\n";

} // namespace jlandxml
