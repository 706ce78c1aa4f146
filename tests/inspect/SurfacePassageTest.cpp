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

/// Elements as programs write them, and others that say the same: what is read is the same.
struct SpeltAlike
{
    const char* name;
    const char* one;
    const char* other;
};

class AlikeElements : public testing::TestWithParam<SpeltAlike>
{};

/// Far from the end of the file, where elements are read without looking for it.
SurfacePassage ReadInFront(const std::string& element)
{
    const std::string rest = "</Pnts>" + std::string(200, ' ');
    return ReadSurfacePassage("\n" + element + rest, 1).value_or(SurfacePassage());
}

TEST_P(AlikeElements, AreReadAlike)
{
    const SurfacePassage one = ReadInFront(GetParam().one);
    const SurfacePassage other = ReadInFront(GetParam().other);
    ASSERT_EQ(one.points.size() + one.faces.size(), 1U);
    ASSERT_EQ(one.points.size(), other.points.size());
    for (std::size_t index = 0; index < one.points.size(); ++index)
    {
        EXPECT_EQ(one.points[index].north, other.points[index].north);
        EXPECT_EQ(one.points[index].east, other.points[index].east);
        EXPECT_EQ(one.points[index].height, other.points[index].height);
        EXPECT_EQ(one.points[index].id, other.points[index].id);
        EXPECT_EQ(one.points[index].line, 2U);
    }
    ASSERT_EQ(one.faces.size(), other.faces.size());
    for (std::size_t index = 0; index < one.faces.size(); ++index)
    {
        EXPECT_EQ(one.faces[index].corners, other.faces[index].corners);
        EXPECT_EQ(one.faces[index].cornerCount, other.faces[index].cornerCount);
        EXPECT_EQ(one.faces[index].line, 2U);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Inspect, AlikeElements,
    testing::Values(SpeltAlike{"APoint", "<P id=\"7\">1.25 -2.5 3</P>", "<P id='7' >+1.25  -2.50e0 3.0</P>"},
                    SpeltAlike{"FifteenDigits", "<P id=\"7\">123456789.012345 0.00000000000001 -.5</P>",
                               "<P id='7'> 123456789.012345 1e-14 -0.5 </P>"},
                    SpeltAlike{"MoreDigits", "<P id=\"7\">1234567890.1234567 1. 2.</P>",
                               "<P id='7'>+1234567890.1234567 1 2</P>"},
                    SpeltAlike{"ALongNumber", "<P id=\"4294967295\">1 2 3</P>", "<P id='4294967295'>1 2 3</P>"},
                    SpeltAlike{"ATooLongNumber", "<P id=\"4294967296\">1 2 3</P>", "<P id='x'>1 2 3</P>"},
                    SpeltAlike{"AFace", "<F>1 20 300</F>", "<F > 1\t20 300 </F>"},
                    SpeltAlike{"AFaceOfFour", "<F>1 20 300 4000</F>", "<F n='x'>1 20 300 4000</F>"},
                    SpeltAlike{"AFaceOfFive", "<F>1 20 300 4000 5</F>", "<F n='x'>1 20 300 4000 6</F>"},
                    SpeltAlike{"AFaceOfNothing", "<F>1 20 x</F>", "<F n='x'>1 20 0</F>"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SurfacePassage, HoldsEachOfManyElements)
{
    std::string bytes;
    for (int number = 1; number <= 5000; ++number)
    {
        bytes += "<P id=\"" + std::to_string(number) + "\">" + std::to_string(number) + ".5 2 3</P>\n";
    }
    const std::optional<SurfacePassage> passage = ReadSurfacePassage(bytes + "</Pnts>", 1);
    ASSERT_NE(passage, std::nullopt);
    ASSERT_EQ(passage->points.size(), 5000U);
    EXPECT_EQ(passage->points.back().north, 5000.5);
    EXPECT_EQ(passage->points.back().line, 5000U);
    EXPECT_EQ(passage->lines, 5000U);
}

TEST(SurfacePassage, GivesBackTheRoomThatAShortOneDoesNotNeed)
{
    std::string bytes;
    for (int number = 0; number < 300; ++number)
    {
        bytes += "<F>1 2 3</F>\n";
    }
    const std::optional<SurfacePassage> passage = ReadSurfacePassage(bytes + "</Faces>" + std::string(100000, ' '), 1);
    ASSERT_NE(passage, std::nullopt);
    EXPECT_EQ(passage->faces.size(), 300U);
    EXPECT_LE(passage->faces.capacity(), 1300U);
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
                    NoPassage{"NoQuote", "<P id=1>1</P></Pnts>"},
                    NoPassage{"BytesThatAreNoUtf8", "<P id='1' n='\xFF'>1</P></Pnts>"},
                    NoPassage{"ATagInAValue", "<P id='<'>1</P></Pnts>"},
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
