#include "model/PiGmPoint.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

TEST(PiGmPoint, OneThatHoldsNothingIsUnsetInBothCoordinates)
{
    EXPECT_EQ(PiGmPoint().x, UNSET_DOUBLE);
    EXPECT_EQ(PiGmPoint().y, UNSET_DOUBLE);
}

} // namespace
} // namespace jlandxml
