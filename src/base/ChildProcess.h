#pragma once

#include "base/NativeFile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace jlandxml
{

/// Another program that runs beside this one, its standard streams being pipes. What the user's interrupt ends is this
/// program alone. Each process must be waited for.
class ChildProcess
{
  public:
    /// Starts a program. Nothing if it can't be started.
    static std::optional<ChildProcess> Start(const std::wstring& program, const std::vector<std::wstring>& arguments);

    /// Waits for the end. The exit status; nothing if it didn't end by itself.
    std::optional<int> Wait();

    NativeFile input;  ///< what is written here it reads
    NativeFile output; ///< here its standard output is read
    NativeFile error;  ///< here its standard error is read

  private:
#ifdef _WIN32
    NativeFile process_;
#else
    std::int64_t process_ = 0;
#endif
};

/// All that can be read up to the end.
std::string ReadToEnd(NativeFile& file);

/// As long as it stands, the user's first interrupt (Ctrl-C, or on Linux the request to terminate) is only noted; a
/// second one ends the process as ever. One for the process at a time.
class InterruptScope
{
  public:
    InterruptScope();
    InterruptScope(const InterruptScope&) = delete;
    InterruptScope& operator=(const InterruptScope&) = delete;
    ~InterruptScope();

    static bool IsInterrupted();
};

} // namespace jlandxml
