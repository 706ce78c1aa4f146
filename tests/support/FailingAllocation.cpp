#include "support/FailingAllocation.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace
{

std::size_t allocationsAllowed = 0;
void (*failure)() = nullptr;

} // namespace

namespace jlandxml
{

FailingAllocation::FailingAllocation(std::size_t allowed, void (*fail)())
{
    allocationsAllowed = allowed;
    failure = fail;
}

FailingAllocation::~FailingAllocation()
{
    failure = nullptr;
}

bool FailingAllocation::HasFailed() const
{
    return failure == nullptr;
}

} // namespace jlandxml

void* operator new(std::size_t size)
{
    if (failure != nullptr && allocationsAllowed-- == 0)
    {
        // What is thrown allocates for itself.
        std::exchange(failure, nullptr)();
    }
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
    {
        return memory;
    }
    throw std::bad_alloc();
}

/// Who asks so is prepared for nothing, and gets what there is.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept
{
    return std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept
{
    std::free(memory);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}
