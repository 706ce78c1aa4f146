#pragma once

#include <cstdint>

/// The module's one exported function. Loads the work file and the side files of `routeCount` routes from the work
/// folder, lets the user complete the data and writes the finished file. Returns when the user is done. Whatever went
/// wrong on the way was told to the user; the host learns nothing.
extern "C" void ExecuteQuorvane(const wchar_t* workFolder, std::int32_t routeCount);
