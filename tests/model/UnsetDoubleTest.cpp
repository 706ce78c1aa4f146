#include "model/UnsetDouble.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

namespace jlandxml
{
namespace
{

TEST(UnsetDouble, IsTheSmallestPositiveNormalDouble)
{
    EXPECT_EQ(UNSET_DOUBLE, 2.2250738585072014e-308);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(UNSET_DOUBLE), 0x0010000000000000U);
}

} // namespace
} // namespace jlandxml
