#include "run/FinishedText.h"

#include <gtest/gtest.h>
#include <random>

namespace jlandxml
{
namespace
{

const std::string MARK = "\xEF\xBB\xBF";

std::string Finished(std::string_view text, std::size_t blockSize = std::string::npos)
{
    std::string result;
    FinishedText finished([&](std::string_view bytes) { result += bytes; });
    while (!text.empty())
    {
        finished.Add(text.substr(0, blockSize));
        text.remove_prefix(std::min(blockSize, text.size()));
    }
    finished.End();
    return result;
}

TEST(FinishedText, AStandaloneDeclarationBecomesBare)
{
    EXPECT_EQ(Finished("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n<a/>\n"),
              MARK + "<?xml version=\"1.0\"?>\r\n<a/>\r\n");
}

TEST(FinishedText, ADeclarationWithVersionAndEncodingStays)
{
    EXPECT_EQ(Finished("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a/>\n"),
              MARK + "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a/>\r\n");
}

TEST(FinishedText, AnotherOrderOrAnotherValueStays)
{
    for (const std::string line : {"<?xml version=\"1.0\" standalone=\"no\" encoding=\"UTF-8\"?>",
                                   "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>",
                                   "<?xml version=\"1.0\" Encoding=\"UTF-8\" standalone=\"no\"?>"})
    {
        EXPECT_EQ(Finished(line + "\n"), MARK + line + "\r\n");
    }
}

TEST(FinishedText, OnlyTheFirstLineLosesTheDeclarationsEnd)
{
    const std::string end = " encoding=\"UTF-8\" standalone=\"no\"?>";
    EXPECT_EQ(Finished("a" + end + "b" + end + "\nc" + end + "\n"), MARK + "a?>b?>\r\nc" + end + "\r\n");
}

TEST(FinishedText, ADeclarationThatComesLaterThanTheFirstLineStays)
{
    const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>";
    EXPECT_EQ(Finished("\n" + declaration + "\n"), MARK + "\r\n" + declaration + "\r\n");
    EXPECT_EQ(Finished("\n" + declaration + "\n", 1), MARK + "\r\n" + declaration + "\r\n");
}

TEST(FinishedText, EmptyNamespacesGoFromEveryLineTheFirstIncluded)
{
    EXPECT_EQ(Finished("<a xmlns=\"\" b=\"\" xmlns=\"\"/>\n\t<c xmlns=\"\">\n"), MARK + "<a b=\"\"/>\r\n\t<c>\r\n");
}

TEST(FinishedText, ANamespaceWithAValueStays)
{
    const std::string line = "<a xmlns=\"u\" xmlns:x=\"\" yxmlns=\"\" Xmlns=\"\"/>";
    EXPECT_EQ(Finished(line + "\n"), MARK + line + "\r\n");
}

TEST(FinishedText, TheSameCharactersInTextGoToo)
{
    EXPECT_EQ(Finished("<a>x xmlns=\"\" y<![CDATA[ xmlns=\"\"]]></a>\n"), MARK + "<a>x y<![CDATA[]]></a>\r\n");
}

TEST(FinishedText, WhatARemovalFormsIsNotLookedAtAgain)
{
    EXPECT_EQ(Finished("x xml xmlns=\"\"ns=\"\"\n"), MARK + "x xmlns=\"\"\r\n");
    EXPECT_EQ(Finished(" xmlns=\"\" xmlns=\"\"\n"), MARK + "\r\n");
}

TEST(FinishedText, EveryLineEndsWithCarriageReturnAndLineFeed)
{
    EXPECT_EQ(Finished("a\r\nb\n\nc"), MARK + "a\r\nb\r\n\r\nc\r\n");
    EXPECT_EQ(Finished(""), MARK);
}

TEST(FinishedText, BlocksMayBeCutAnywhere)
{
    std::mt19937 random(5);
    const std::string pieces[] = {" xmlns=\"\"", "\n",  "\r\n",      "線",
                                  " 1.5",        "<P>", " xmlns=\"", " encoding=\"UTF-8\" standalone=\"no\"?>"};
    for (int round = 0; round < 300; ++round)
    {
        std::string text;
        for (int count = static_cast<int>(random() % 20); count > 0; --count)
        {
            text += pieces[random() % std::size(pieces)];
        }
        EXPECT_EQ(Finished(text, 1 + random() % 7), Finished(text)) << text;
    }
}

TEST(FinishedText, AMillionLinesStreamThrough)
{
    std::string text;
    std::string expected = MARK;
    for (int line = 0; line < 1000000; ++line)
    {
        text += "<P>1 2</P>\n";
        expected += "<P>1 2</P>\r\n";
    }
    EXPECT_TRUE(Finished(text, 1 << 16) == expected);
}

} // namespace
} // namespace jlandxml
