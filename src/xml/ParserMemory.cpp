#include "xml/ParserMemory.h"

#include "xml/PagePool.h"

#include <atomic>
#include <pugixml.hpp>

namespace jlandxml
{

namespace
{

std::atomic<std::size_t> refusedAllocations = 0;

/// The parser cuts its nodes from pages of this size.
constexpr std::size_t PARSER_PAGE = PUGIXML_MEMORY_PAGE_SIZE;

/// Never destroyed: documents may outlive all else.
PagePool& Pages()
{
    static PagePool& pool = *new PagePool(PARSER_PAGE);
    return pool;
}

void* Allocate(std::size_t size)
{
    void* const memory = Pages().Allocate(size);
    if (memory == nullptr)
    {
        ++refusedAllocations;
    }
    return memory;
}

void Deallocate(void* memory)
{
    Pages().Deallocate(memory);
}

/// Before anything is parsed, since what was allocated one way can't be freed another way.
[[maybe_unused]] const bool WATCHED = [] {
    pugi::set_memory_management_functions(Allocate, Deallocate);
    return true;
}();

} // namespace

std::size_t ParserMemoryRefusals() noexcept
{
    return refusedAllocations;
}

} // namespace jlandxml
