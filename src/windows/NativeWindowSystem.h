#pragma once

// The window layer of the platform that is built for.

#ifdef _WIN32

#include "windows/win32/Win32WindowSystem.h"

namespace jlandxml
{
using NativeWindowSystem = Win32WindowSystem;
}

#else

#include "windows/qt/QtWindowSystem.h"

namespace jlandxml
{
using NativeWindowSystem = QtWindowSystem;
}

#endif
