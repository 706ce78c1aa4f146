#include "xml/WcXmSharedTexts.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

namespace jlandxml
{
namespace
{

constexpr std::array ELEMENTS = {L"Feature", L"Property"};
constexpr auto ATTRIBUTES = std::to_array<WcXmSharedTexts::Attribute>({
    {L"label"},
    {L"label", L"heightType"},
    {L"side", L"left"},
});

struct WcXmSharedTextsTest : testing::Test
{
    XmlText xml{L"<a><b/><b/>text</a>"};
    std::unique_ptr<WcXmSharedTexts> shared = std::make_unique<WcXmSharedTexts>(xml.document, ELEMENTS, ATTRIBUTES);

    WcXmNode Append(const wchar_t* name)
    {
        WcXmNode element = xml.Root();
        xml.Root().AppendChildElement(name, &element);
        return element;
    }
};

const wchar_t* NameOf(const WcXmNode& element)
{
    return element.appNode.node.name();
}

pugi::xml_attribute FirstAttribute(const WcXmNode& element)
{
    return element.appNode.node.first_attribute();
}

TEST_F(WcXmSharedTextsTest, TheTreeIsThatOfARunThatSharesNothing)
{
    const auto write = [](XmlText& text) {
        WcXmNode feature = text.Root();
        text.Root().AppendChildElement(L"Feature", &feature);
        feature.SetAttribute(L"label", L"heightType");
        feature.SetAttribute(L"side", L"right");
        feature.SetAttribute(L"LABEL", L"other");
        feature.SetAttribute(L"desc", L"<&\">");
        feature.AppendChildElement(L"Property", &feature);
        feature.SetAttribute(L"label", L"");
        feature.AppendChildElement(L"attributes");
        feature.SetTextContent(L"text");
    };
    XmlText plain(L"<a><b/><b/>text</a>");
    write(plain);
    write(xml);
    shared.reset();
    EXPECT_EQ(xml.Text(), plain.Text());
}

TEST_F(WcXmSharedTextsTest, ANameLiesInMemoryOnce)
{
    const WcXmNode first = Append(L"Feature");
    const WcXmNode second = Append(L"Feature");
    first.SetAttribute(L"label", L"a");
    second.SetAttribute(L"label", L"b");
    EXPECT_EQ(NameOf(first), NameOf(second));
    EXPECT_EQ(FirstAttribute(first).name(), FirstAttribute(second).name());
}

TEST_F(WcXmSharedTextsTest, AValueAmongThePatternsLiesInMemoryOnce)
{
    const WcXmNode first = Append(L"Feature");
    const WcXmNode second = Append(L"Feature");
    first.SetAttribute(L"label", L"heightType");
    second.SetAttribute(L"label", L"heightType");
    EXPECT_EQ(FirstAttribute(first).value(), FirstAttribute(second).value());
}

TEST_F(WcXmSharedTextsTest, ANewValueOfOneLeavesTheOthers)
{
    const WcXmNode first = Append(L"Feature");
    const WcXmNode second = Append(L"Feature");
    first.SetAttribute(L"label", L"heightType");
    second.SetAttribute(L"label", L"heightType");
    first.SetAttribute(L"label", L"sta");
    EXPECT_EQ(second.FindAttribute(L"label"), L"heightType");
}

TEST_F(WcXmSharedTextsTest, WhatWasCopiedOutlivesThePatterns)
{
    Append(L"Feature").SetAttribute(L"side", L"left");
    shared.reset();
    Append(L"Feature").SetAttribute(L"side", L"left");
    EXPECT_EQ(xml.Text(), L"<a><b/><b/>text<Feature side=\"left\"/><Feature side=\"left\"/></a>");
}

TEST_F(WcXmSharedTextsTest, ANodeWithoutChildrenAndAttributesStaysSo)
{
    const pugi::xml_node text = xml.document.appDocument->xmlDocument->document_element().last_child();
    EXPECT_FALSE(shared->AppendElement(text, L"Feature"));
    EXPECT_FALSE(shared->AppendAttribute(text, L"side", L"left"));
    EXPECT_FALSE(shared->AppendAttribute(text, L"label", L"sta"));
    EXPECT_FALSE(shared->AppendAttribute(text, L"desc", L"x"));
}

TEST(WcXmSharedTexts, ADocumentWithoutAnElementSharesNothing)
{
    XmlText xml(L"");
    const WcXmSharedTexts shared(xml.document, ELEMENTS, ATTRIBUTES);
    EXPECT_EQ(xml.document.appDocument->sharedTexts, nullptr);
    EXPECT_EQ(xml.Text(), L"");
}

TEST(WcXmSharedTexts, ADocumentThatWasNeverCreatedSharesNothing)
{
    WcXmDocument document;
    EXPECT_NO_THROW(WcXmSharedTexts(document, ELEMENTS, ATTRIBUTES));
}

} // namespace
} // namespace jlandxml
