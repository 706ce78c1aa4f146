#pragma once

#ifdef __linux__

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace jlandxml
{

/// Puts a device that is full in the place of standard output for as long as the object lives.
class FullStandardOutput
{
  public:
    FullStandardOutput() : former_(::dup(STDOUT_FILENO))
    {
        std::fflush(stdout);
        const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
        ::dup2(full, STDOUT_FILENO);
        ::close(full);
    }
    FullStandardOutput(const FullStandardOutput&) = delete;
    FullStandardOutput& operator=(const FullStandardOutput&) = delete;
    ~FullStandardOutput()
    {
        ::dup2(former_, STDOUT_FILENO);
        ::close(former_);
    }

  private:
    int former_;
};

} // namespace jlandxml

#endif
