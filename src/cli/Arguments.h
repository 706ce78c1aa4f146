#pragma once

#include <optional>
#include <string>
#include <vector>

namespace jlandxml
{

/// What a program's arguments are made of when the system hands them over: UTF-16 on Windows, to `wmain`, since `main`
/// gets them in the user's code page; UTF-8 elsewhere.
#ifdef _WIN32
using ArgumentUnit = wchar_t;
#else
using ArgumentUnit = char;
#endif

/// The arguments of a program without its name. Nothing if one isn't well formed: a file named by it would be another
/// one.
std::optional<std::vector<std::wstring>> Arguments(int count, const ArgumentUnit* const* values);

/// What is told of arguments that aren't well formed.
inline constexpr const wchar_t* ILL_FORMED_ARGUMENT =
#ifdef _WIN32
    L"引数がUTF-16として正しくありません。ファイル名を変更してください\n";
#else
    L"引数がUTF-8ではありません。ファイル名を変更してください\n";
#endif

} // namespace jlandxml
