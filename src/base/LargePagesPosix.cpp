#ifndef _WIN32

#include "base/LargePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace jlandxml
{

void PreferLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) noexcept
{
#ifdef MADV_HUGEPAGE
    const auto start = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t first = (start + LARGE_PAGE - 1) / LARGE_PAGE * LARGE_PAGE;
    const std::uintptr_t end = (start + size) / LARGE_PAGE * LARGE_PAGE;
    if (first < end)
    {
        // What it asks for is no more than a wish.
        ::madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
    }
#endif
}

} // namespace jlandxml

#endif
