#include "base/ByteBlocks.h"

#include <gtest/gtest.h>
#include <string>

namespace jlandxml
{
namespace
{

TEST(ByteBlocks, HandOutWhatWasAppendedHoweverMuchComesAtOnce)
{
    constexpr std::size_t MORE_THAN_A_BLOCK = std::size_t{600} << 10;
    std::string out;
    std::size_t parts = 0;
    ByteBlocks blocks([&](std::string_view bytes) {
        out += bytes;
        ++parts;
    });
    blocks.Append('<');
    blocks.Append(MORE_THAN_A_BLOCK, '\t');
    blocks.Append(std::string(MORE_THAN_A_BLOCK, 'x'));
    blocks.Append(2, '!');
    EXPECT_TRUE(blocks.EndsWith("x!!"));
    EXPECT_EQ(blocks.Position(), 2 * MORE_THAN_A_BLOCK + 3);
    blocks.TakeBack(1);
    blocks.Flush();
    EXPECT_TRUE(out == "<" + std::string(MORE_THAN_A_BLOCK, '\t') + std::string(MORE_THAN_A_BLOCK, 'x') + "!");
    EXPECT_GT(parts, 2U);
}

} // namespace
} // namespace jlandxml
