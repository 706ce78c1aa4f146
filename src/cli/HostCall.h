#pragma once

#include <cstdint>
#include <string>

namespace jlandxml
{

/// The path of the module: beside the program.
std::wstring ModulePath();

/// Loads the module as a host does and calls its exported function. False if it can't be loaded or doesn't export it.
bool CallModule(const std::wstring& workFolder, std::int32_t routeCount);

} // namespace jlandxml
