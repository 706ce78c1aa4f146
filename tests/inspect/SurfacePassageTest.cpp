#include "inspect/SurfacePassage.h"

#include <gtest/gtest.h>
#include <string>

namespace jlandxml::inspect
{
namespace
{

TEST(SurfacePassage, EndsBeforeTheEndTag)
{
    const auto passage = ReadSurfacePassage("\n<P id='1'\n>1 2\n3</P>\n<P>4 5 6</P ></Pnts>", 7);
    EXPECT_EQ(passage, std::nullopt); // an end tag with a blank is the parser's
    const auto points = ReadSurfacePassage("\n<P id='1'\n>1 2\n3</P>\n<P>4 5</P></Pnts><P", 7);
    ASSERT_NE(points, std::nullopt);
    EXPECT_EQ(points->lines, 4U);
    EXPECT_EQ(points->length, 32U);
    ASSERT_EQ(points->points.size(), 2U);
    EXPECT_EQ(points->points[0].line, 8U);
    EXPECT_EQ(points->points[0].id, 1U);
    EXPECT_EQ(points->points[0].height, 3);
    EXPECT_EQ(points->points[1].line, 11U);
    EXPECT_EQ(points->points[1].id, 0U);
    EXPECT_NE(points->points[1].height, points->points[1].height);
}

TEST(SurfacePassage, NumbersWithSomethingBehindThemAreNone)
{
    const SurfacePoint point = ReadSurfacePoint("1a", "1x 2 3", 1);
    EXPECT_EQ(point.id, 0U);
    EXPECT_NE(point.north, point.north);
    EXPECT_EQ(point.east, 2);
}

TEST(SurfacePassage, AFaceCountsItsCornersBeyondTheFourthUpTo255)
{
    const SurfaceFace five = ReadSurfaceFace("1", "1 2 3 4 5", 1);
    EXPECT_EQ(five.cornerCount, 5);
    EXPECT_EQ(five.corners, (std::array<std::uint32_t, 4>{1, 2, 3, 4}));
    EXPECT_TRUE(five.isHidden);
    std::string many;
    for (int corner = 0; corner < 300; ++corner)
    {
        many += "1 ";
    }
    EXPECT_EQ(ReadSurfaceFace("", many, 1).cornerCount, 255);
}

/// Content that isn't plain, or not well formed.
struct NoPassage
{
    const char* name;
    const char* bytes;
};

class ContentOfTheParsers : public testing::TestWithParam<NoPassage>
{};

TEST_P(ContentOfTheParsers, IsNoPassage)
{
    EXPECT_EQ(ReadSurfacePassage(GetParam().bytes, 1), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Inspect, ContentOfTheParsers,
    testing::Values(NoPassage{"Nothing", ""}, NoPassage{"Blanks", " \n"}, NoPassage{"Text", "1 2 3</Pnts>"},
                    NoPassage{"AnotherElement", "<Q/></Pnts>"}, NoPassage{"ALongerName", "<Pt>1</Pt></Pnts>"},
                    NoPassage{"CutInTheTag", "<P"}, NoPassage{"CutBehindABlank", "<P "},
                    NoPassage{"CutInAName", "<P id"}, NoPassage{"CutBehindTheSign", "<P id="},
                    NoPassage{"CutInAValue", "<P id='1"}, NoPassage{"CutBehindAValue", "<P id='1'"},
                    NoPassage{"CutInTheText", "<P id='1'>1 2"}, NoPassage{"CutBehindTheText", "<P id='1'>1 2<"},
                    NoPassage{"NoName", "<P ='1'>1</P></Pnts>"}, NoPassage{"NoSign", "<P id '1'>1</P></Pnts>"},
                    NoPassage{"NoQuote", "<P id=1>1</P></Pnts>"}, NoPassage{"ATagInAValue", "<P id='<'>1</P></Pnts>"},
                    NoPassage{"AnEntityInAValue", "<P id='&#49;'>1</P></Pnts>"},
                    NoPassage{"ALineEndInAValue", "<P id='1\n'>1</P></Pnts>"},
                    NoPassage{"AnEntityInTheText", "<P>&#49;</P></Pnts>"},
                    NoPassage{"AttributesSideBySide", "<P id='1'n='2'>1</P></Pnts>"},
                    NoPassage{"AnEmptyElement", "<P id='1'/></Pnts>"},
                    NoPassage{"AnotherElementsEnd", "<P>1</F></Pnts>"}, NoPassage{"NoEndTag", "<P>1</P> "}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SurfacePassage, ABlankBeforeTheEndOfATagIsPlain)
{
    const auto faces = ReadSurfacePassage("<F i='1' n=\"a>b\" >1 2 3</F></Faces>", 1);
    ASSERT_NE(faces, std::nullopt);
    ASSERT_EQ(faces->faces.size(), 1U);
    EXPECT_TRUE(faces->faces[0].isHidden);
}

} // namespace
} // namespace jlandxml::inspect
