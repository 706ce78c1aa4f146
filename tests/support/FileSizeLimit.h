#pragma once

#ifndef _WIN32

#include <sys/resource.h>

namespace jlandxml
{

/// Lets no file of the process grow beyond a size, as a full disk does. The system raises a signal for it, which ends
/// the process unless the writer keeps it away.
class FileSizeLimit
{
  public:
    explicit FileSizeLimit(rlim_t size)
    {
        ::getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limit{size, former_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &former_); }

  private:
    rlimit former_{};
};

} // namespace jlandxml

#endif
