#include "framework/Text.h"
#include <gtest/gtest.h>
TEST(Text, x)
{
    EXPECT_EQ(jlandxml::Trim(L" a "), L"a");
}
