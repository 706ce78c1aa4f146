#include "support/FailingAllocation.h"

#include <cstdlib>
#include <new>
#include <utility>

#ifdef _WIN32
#include <malloc.h>
#endif

namespace
{

std::size_t allocationsAllowed = 0;
void (*failure)() = nullptr;

std::size_t parserAllocationsAllowed = 0;
bool parserIsToFail = false;

/// True for the one allocation of the parser's that is to fail.
bool IsParserRefused()
{
    const bool isRefused = parserIsToFail && parserAllocationsAllowed-- == 0;
    parserIsToFail = parserIsToFail && !isRefused;
    return isRefused;
}

void* AlignedMemory(std::size_t size, std::size_t alignment)
{
#ifdef _WIN32
    return _aligned_malloc(size, alignment);
#else
    void* memory = nullptr;
    return posix_memalign(&memory, alignment, size) == 0 ? memory : nullptr;
#endif
}

void FreeAligned(void* memory)
{
#ifdef _WIN32
    _aligned_free(memory);
#else
    std::free(memory);
#endif
}

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
    return IsParserRefused() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t& /*tag*/) noexcept
{
    return IsParserRefused() ? nullptr : AlignedMemory(size, static_cast<std::size_t>(alignment));
}

void* operator new(std::size_t size, std::align_val_t alignment)
{
    if (void* const memory = AlignedMemory(size, static_cast<std::size_t>(alignment)))
    {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept
{
    FreeAligned(memory);
}

void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept
{
    FreeAligned(memory);
}

void operator delete(void* memory, std::align_val_t /*alignment*/, const std::nothrow_t& /*tag*/) noexcept
{
    FreeAligned(memory);
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
