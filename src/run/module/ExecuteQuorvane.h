#pragma once

#include <cstdint>

#ifdef _WIN32
#define JLANDXML_EXPORT
#else
#define JLANDXML_EXPORT __attribute__((visibility("default")))
#endif

/// The module's one exported function. Loads the work file and the side files of `routeCount` routes from the work
/// folder, lets the user complete the data and writes the finished file. Returns when the user is done. Whatever went
/// wrong on the way was told to the user; the host learns nothing.
extern "C" JLANDXML_EXPORT void ExecuteQuorvane(const wchar_t* workFolder, std::int32_t routeCount);
