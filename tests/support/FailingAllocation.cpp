#include "support/FailingAllocation.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace
{

std::size_t allocationsAllowed = 0;
void (*failure)() = nullptr;

std::size_t parserAllocationsAllowed = 0;
bool parserIsToFail = false;

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

FailingParserAllocation::FailingParserAllocation(std::size_t allowed)
{
    parserAllocationsAllowed = allowed;
    parserIsToFail = true;
}

FailingParserAllocation::~FailingParserAllocation()
{
    parserIsToFail = false;
}

bool FailingParserAllocation::HasFailed() const
{
    return !parserIsToFail;
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

/// The XML parser's memory is asked for in this way, and nearly nothing else.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept
{
    if (parserIsToFail && parserAllocationsAllowed-- == 0)
    {
        parserIsToFail = false;
        return nullptr;
    }
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
