#pragma once

#include <optional>
#include <string>
#include <vector>

namespace jlandxml
{

/// The arguments of a program without its name, from those of `main`. Windows hands over `main`'s in the user's code
/// page, so there they come from the system. Nothing if one isn't well formed: a file named by it would be another one.
std::optional<std::vector<std::wstring>> Arguments(int count, char** values);

/// What is told of arguments that aren't well formed.
inline constexpr const wchar_t* ILL_FORMED_ARGUMENT =
#ifdef _WIN32
    L"引数がUTF-16として正しくありません。ファイル名を変更してください\n";
#else
    L"引数がUTF-8ではありません。ファイル名を変更してください\n";
#endif

} // namespace jlandxml
