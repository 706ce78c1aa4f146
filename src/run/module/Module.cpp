// What only the loaded module has: the native windows of its platform, put in place when the module is loaded. No
// window class and nothing else is registered with the system for it, so there is nothing to take back when it goes.

#include "windows/NativeWindowSystem.h"

namespace jlandxml
{

namespace
{

/// Attaches the native windows for as long as the module is loaded.
class NativeWindows
{
  public:
    NativeWindows() { SetWindowSystem(&system_); }
    NativeWindows(const NativeWindows&) = delete;
    NativeWindows& operator=(const NativeWindows&) = delete;
    ~NativeWindows() { SetWindowSystem(nullptr); }

  private:
    NativeWindowSystem system_;
};

const NativeWindows nativeWindows;

} // namespace

} // namespace jlandxml
