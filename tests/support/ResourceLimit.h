#pragma once

#ifndef _WIN32

#include <sys/resource.h>

namespace jlandxml
{

/// Lowers one of the process's limits for as long as the object lives: RLIMIT_NOFILE is the first number that no open
/// file may have; RLIMIT_FSIZE the size in bytes beyond which no file may grow, as on a full disk. For the latter the
/// system raises a signal, which ends the process unless the writer keeps it away.
class ResourceLimit
{
  public:
    using Resource = decltype(RLIMIT_NOFILE); // a type of its own with some C libraries, an int with others

    ResourceLimit(Resource resource, rlim_t most) : resource_(resource)
    {
        ::getrlimit(resource_, &former_);
        const rlimit limit{most, former_.rlim_max};
        ::setrlimit(resource_, &limit);
    }
    ResourceLimit(const ResourceLimit&) = delete;
    ResourceLimit& operator=(const ResourceLimit&) = delete;
    ~ResourceLimit() { ::setrlimit(resource_, &former_); }

  private:
    Resource resource_;
    rlimit former_{};
};

} // namespace jlandxml

#endif
