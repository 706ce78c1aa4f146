#pragma once

#include <cstddef>

namespace jlandxml
{

/// While it lives, the allocation that follows `allowed` others fails once with what `fail` throws. With texts too long
/// to be kept inside their objects every step of a run allocates, so that each can be made to fail in the middle.
class FailingAllocation
{
  public:
    FailingAllocation(std::size_t allowed, void (*fail)());
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    ~FailingAllocation();
};

} // namespace jlandxml
