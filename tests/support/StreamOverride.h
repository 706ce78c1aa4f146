#pragma once

#ifndef _WIN32

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace jlandxml
{

/// Puts another open file in the place of a standard stream for as long as the object lives.
class StreamOverride
{
  public:
    StreamOverride(int stream, int file) : stream_(stream), former_(::dup(stream))
    {
        std::fflush(stdout);
        ::dup2(file, stream_);
    }
    StreamOverride(const StreamOverride&) = delete;
    StreamOverride& operator=(const StreamOverride&) = delete;
    ~StreamOverride()
    {
        ::dup2(former_, stream_);
        ::close(former_);
    }

  private:
    int stream_;
    int former_;
};

#ifdef __linux__

/// Puts a device that is full in the place of standard output for as long as the object lives.
class FullStandardOutput
{
  public:
    FullStandardOutput() = default;
    FullStandardOutput(const FullStandardOutput&) = delete;
    FullStandardOutput& operator=(const FullStandardOutput&) = delete;
    ~FullStandardOutput() { ::close(full_); }

  private:
    const int full_ = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    const StreamOverride output_{STDOUT_FILENO, full_};
};

#endif

} // namespace jlandxml

#endif
