#include "xml/PlainMarkup.h"

#include <gtest/gtest.h>
#include <string>

namespace jlandxml
{
namespace
{

/// An element as it is read: its name, its attributes and its text, and whether it is spelt as it is printed.
std::string ReadElement(std::string_view bytes)
{
    MarkupReader reader(bytes);
    PlainElement element;
    std::string told;
    if (!TakeElement(reader, element, [&](std::string_view attribute) { told += "|" + std::string(attribute); }))
    {
        return "not plain";
    }
    told = std::string(element.name) + told + ">" + std::string(element.text);
    return told + (element.isAsPrinted ? " as printed" : "") + (reader.AtEnd() ? "" : " rest");
}

TEST(PlainMarkup, AnElementHasANameAttributesAndAText)
{
    EXPECT_EQ(ReadElement("<P id=\"1\" code=\"点\">1.5 2 3</P>"), "P|id=\"1\"|code=\"点\">1.5 2 3 as printed");
    EXPECT_EQ(ReadElement("<F>1 2 3</F><F>"), "F>1 2 3 as printed rest");
    EXPECT_EQ(ReadElement("<P />"), "P> as printed");
}

TEST(PlainMarkup, WhatIsSpeltInAnotherWayIsReadAllTheSame)
{
    EXPECT_EQ(ReadElement("<P\n\tid=\"1\" >1</P >"), "P|id=\"1\">1");
    EXPECT_EQ(ReadElement("<P/>"), "P>");
    EXPECT_EQ(ReadElement("<P></P>"), "P>");
    EXPECT_EQ(ReadElement("<P xmlns=\"\">1</P>"), "P|xmlns=\"\">1");
}

TEST(PlainMarkup, WhatTheParserWouldDecodeOrThePrinterEscapeIsNotPlain)
{
    for (const std::string_view bytes : {"<P>&amp;</P>",
                                         "<P>a>b</P>",
                                         "<P>\"</P>",
                                         "<P>\t</P>",
                                         "<P>1\r\n</P>",
                                         "<P>\x7F</P>",
                                         "<P>\xE7</P>",
                                         "<P a='1'>1</P>",
                                         "<P a=\"1\"b=\"2\">1</P>",
                                         "<P a>1</P>",
                                         "<1>1</1>",
                                         "<P>1</Q>",
                                         "<P>1<Q/></P>",
                                         "<P> </P>",
                                         "<P>1",
                                         "<P ",
                                         "<P",
                                         "<",
                                         "P",
                                         ""})
    {
        EXPECT_EQ(ReadElement(bytes), "not plain") << bytes;
    }
}

TEST(PlainMarkup, APlainTextEndsWhereverItsFirstOtherCharacterStands)
{
    for (std::size_t length = 0; length < 40; ++length)
    {
        const std::string plain(length, '7');
        const std::string bytes = plain + "<";
        MarkupReader reader(bytes);
        std::string_view text;
        EXPECT_TRUE(reader.TakeText(text));
        EXPECT_EQ(text, plain);
        EXPECT_TRUE(reader.Skip('<'));
        EXPECT_TRUE(reader.AtEnd());
    }
}

} // namespace
} // namespace jlandxml
