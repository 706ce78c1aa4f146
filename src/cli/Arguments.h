#pragma once

#include <string>
#include <vector>

namespace jlandxml
{

/// The arguments of a program without its name, from those of `main`. Windows hands over `main`'s in the user's code
/// page, so there they come from the system.
std::vector<std::wstring> Arguments(int count, char** values);

} // namespace jlandxml
