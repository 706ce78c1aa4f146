#ifdef _WIN32

#include "base/LargePages.h"

namespace jlandxml
{

/// Large pages are for programs with a privilege of their own, and they can't be given back in parts.
void PreferLargePages(void* /*memory*/, std::size_t /*size*/) noexcept {}

} // namespace jlandxml

#endif
