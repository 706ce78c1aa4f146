#pragma once

#include <cstddef>

namespace jlandxml
{

/// How large a page is where the system has large ones, in bytes.
inline constexpr std::size_t LARGE_PAGE = std::size_t{1} << 21;

/// Asks the system to back a stretch of memory by large pages when it is first written to. Clearing and entering them
/// one by one costs a good part of the time that a large document takes. A system that has none does as ever.
void PreferLargePages(void* memory, std::size_t size) noexcept;

} // namespace jlandxml
