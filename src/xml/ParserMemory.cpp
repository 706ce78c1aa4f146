#include "xml/ParserMemory.h"

#include <atomic>
#include <new>
#include <pugixml.hpp>

namespace jlandxml
{

namespace
{

std::atomic<std::size_t> refusals = 0;

void* Allocate(std::size_t size)
{
    void* const memory = ::operator new(size, std::nothrow);
    if (memory == nullptr)
    {
        ++refusals;
    }
    return memory;
}

void Deallocate(void* memory)
{
    ::operator delete(memory);
}

/// Before anything is parsed, since what was allocated one way can't be freed another way.
[[maybe_unused]] const bool WATCHED = [] {
    pugi::set_memory_management_functions(Allocate, Deallocate);
    return true;
}();

} // namespace

std::size_t ParserMemoryRefusals() noexcept
{
    return refusals;
}

} // namespace jlandxml
