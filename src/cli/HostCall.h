#pragma once

#include <cstdint>
#include <string>

namespace jlandxml
{

/// The path of this program.
std::wstring ProgramPath();

/// The path of the module: beside the program, else where it is installed. Neither is found by way of the current
/// folder. Where it is in none of the places: the path beside the program.
std::wstring ModulePath();

/// What became of a call of the module.
enum class ModuleCall
{
    Made,
    NotLoaded, ///< the module isn't there or doesn't export the function
    NoDisplay  ///< there was none for the dialog, which the module has told on standard error
};

/// Loads the module as a host does and calls its exported function.
ModuleCall CallModule(const std::wstring& workFolder, std::int32_t routeCount);

} // namespace jlandxml
