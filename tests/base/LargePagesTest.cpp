#include "base/LargePages.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace jlandxml
{
namespace
{

TEST(LargePages, WhatStandsInMemoryStays)
{
    constexpr std::size_t SIZE = 5 * LARGE_PAGE;
    const std::unique_ptr<char[]> memory(new char[SIZE]);
    std::fill_n(memory.get(), SIZE, 'a');
    for (const std::size_t offset : {std::size_t{0}, std::size_t{1}, LARGE_PAGE})
    {
        for (const std::size_t size : {std::size_t{0}, std::size_t{1}, LARGE_PAGE, SIZE - LARGE_PAGE})
        {
            PreferLargePages(memory.get() + offset, size);
        }
    }
    PreferLargePages(nullptr, 0);
    EXPECT_EQ(std::count(memory.get(), memory.get() + SIZE, 'a'), static_cast<std::ptrdiff_t>(SIZE));
}

} // namespace
} // namespace jlandxml
