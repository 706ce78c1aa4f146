#ifndef _WIN32

#include "base/LargePages.h"

#include <memory>
#include <sys/mman.h>

namespace jlandxml
{

void PreferLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) noexcept
{
#ifdef MADV_HUGEPAGE
    void* first = memory;
    std::size_t rest = size;
    if (std::align(LARGE_PAGE, LARGE_PAGE, first, rest) != nullptr)
    {
        // What it asks for is no more than a wish.
        ::madvise(first, rest / LARGE_PAGE * LARGE_PAGE, MADV_HUGEPAGE);
    }
#endif
}

} // namespace jlandxml

#endif
