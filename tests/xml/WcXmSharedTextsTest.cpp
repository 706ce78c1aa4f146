#include "xml/WcXmSharedTexts.h"

#include "support/FailingAllocation.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace jlandxml
{
namespace
{

struct WcXmSharedTextsTest : testing::Test
{
    XmlText xml{L"<a><b/><b/>text</a>"};
    std::optional<WcXmSharedTexts> shared{std::in_place, xml.document};

    WcXmNode Append(const wchar_t* name)
    {
        WcXmNode element = xml.Root();
        xml.Root().AppendChildElement(name, &element);
        return element;
    }

    /// A new element that has one attribute.
    WcXmNode AppendWith(const wchar_t* name, std::wstring_view value)
    {
        WcXmNode element = Append(L"Feature");
        element.SetAttribute(name, value);
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
        for (int round = 0; round < 3; ++round)
        {
            WcXmNode feature = text.Root();
            text.Root().AppendChildElement(L"Feature", &feature);
            feature.SetAttribute(L"label", L"heightType");
            feature.SetAttribute(L"side", L"right");
            feature.SetAttribute(L"LABEL", L"other");
            feature.SetAttribute(L"desc", L"<&\"'>\n &amp;");
            feature.SetAttribute(L"code", L"<&'> \t表層");
            feature.AppendChildElement(L"Property", &feature);
            feature.SetAttribute(L"label", L"");
            feature.SetAttribute(L"value", std::wstring(100, L'値'));
            feature.AppendChildElement(L"attribute");
            feature.SetTextContent(L"text");
        }
    };
    XmlText plain(L"<a><b/><b/>text</a>");
    write(plain);
    write(xml);
    shared.reset();
    EXPECT_EQ(xml.Text(), plain.Text());
}

TEST_F(WcXmSharedTextsTest, ANameLiesInMemoryOnceFromItsFirstUseOn)
{
    const WcXmNode first = AppendWith(L"label", L"a");
    const WcXmNode second = AppendWith(L"label", L"b");
    EXPECT_EQ(NameOf(first), NameOf(second));
    EXPECT_EQ(FirstAttribute(first).name(), FirstAttribute(second).name());
}

TEST_F(WcXmSharedTextsTest, AValueLiesInMemoryOnceFromItsSecondUseOn)
{
    const WcXmNode first = AppendWith(L"label", L"heightType");
    const WcXmNode second = AppendWith(L"label", L"heightType");
    const WcXmNode third = AppendWith(L"label", L"heightType");
    EXPECT_NE(FirstAttribute(first).value(), FirstAttribute(second).value());
    EXPECT_EQ(FirstAttribute(second).value(), FirstAttribute(third).value());
}

TEST_F(WcXmSharedTextsTest, AValueIsSharedUnderItsOwnNameOnly)
{
    for (int round = 0; round < 3; ++round)
    {
        AppendWith(L"label", L"x");
        AppendWith(L"value", L"x");
    }
    shared.reset();
    EXPECT_EQ(xml.Text(), L"<a><b/><b/>text<Feature label=\"x\"/><Feature value=\"x\"/><Feature label=\"x\"/>"
                          L"<Feature value=\"x\"/><Feature label=\"x\"/><Feature value=\"x\"/></a>");
}

TEST_F(WcXmSharedTextsTest, ALongValueIsNotKept)
{
    const std::wstring longest(32, L'x');
    AppendWith(L"desc", longest);
    EXPECT_EQ(FirstAttribute(AppendWith(L"desc", longest)).value(),
              FirstAttribute(AppendWith(L"desc", longest)).value());
    AppendWith(L"desc", longest + L"x");
    EXPECT_NE(FirstAttribute(AppendWith(L"desc", longest + L"x")).value(),
              FirstAttribute(AppendWith(L"desc", longest + L"x")).value());
}

TEST_F(WcXmSharedTextsTest, HoweverManyTextsComeTheyArePutDownAsTheyAre)
{
    constexpr int COUNT = 3000;
    const auto name = [](int number) { return L"n" + std::to_wstring(number % 400); };
    for (int number = 0; number < 3 * COUNT; ++number)
    {
        Append(name(number).c_str()).SetAttribute(name(number + 7).c_str(), std::to_wstring(number % COUNT));
    }
    shared.reset();
    WcXmNode element = xml.Child(L"n0");
    for (int number = 0; number < 3 * COUNT; ++number)
    {
        ASSERT_EQ(element.NodeName(), name(number));
        ASSERT_EQ(element.FindAttribute(name(number + 7)), std::to_wstring(number % COUNT));
        element.MoveToNextSibling();
    }
}

TEST_F(WcXmSharedTextsTest, ANewValueOfOneLeavesTheOthers)
{
    AppendWith(L"label", L"heightType");
    const WcXmNode first = AppendWith(L"label", L"heightType");
    const WcXmNode second = AppendWith(L"label", L"heightType");
    first.SetAttribute(L"label", L"sta");
    EXPECT_EQ(second.FindAttribute(L"label"), L"heightType");
    EXPECT_EQ(AppendWith(L"label", L"heightType").FindAttribute(L"label"), L"heightType");
}

TEST_F(WcXmSharedTextsTest, WhatWasCopiedOutlivesThePatterns)
{
    AppendWith(L"side", L"left");
    AppendWith(L"side", L"left");
    shared.reset();
    AppendWith(L"side", L"left");
    EXPECT_EQ(xml.Text(),
              L"<a><b/><b/>text<Feature side=\"left\"/><Feature side=\"left\"/><Feature side=\"left\"/></a>");
}

TEST_F(WcXmSharedTextsTest, ANodeWithoutChildrenAndAttributesStaysSo)
{
    const pugi::xml_node text = xml.document.appDocument->xmlDocument->document_element().last_child();
    EXPECT_FALSE(shared->AppendElement(text, L"Feature"));
    for (int round = 0; round < 3; ++round)
    {
        EXPECT_FALSE(shared->AppendAttribute(text, L"side", L"left"));
    }
}

void ExpectNoPatternsLeft(const std::function<void(const std::function<void()>&)>& failing)
{
    XmlText xml(L"<a/>");
    try
    {
        failing([&] {
            const WcXmSharedTexts shared(xml.document);
            xml.Root().AppendChildElement(L"Feature");
            xml.Root().SetAttribute(L"label", L"x");
        });
    }
    catch (const std::bad_alloc&)
    {
        // Whether it is raised is the document's affair.
    }
    EXPECT_EQ(xml.document.appDocument->sharedTexts, nullptr);
    EXPECT_EQ(xml.document.appDocument->xmlDocument->first_child(),
              xml.document.appDocument->xmlDocument->last_child());
}

TEST(WcXmSharedTexts, WithoutMemoryThePatternsStillGo)
{
    for (std::size_t allowed = 0; allowed < 20; ++allowed)
    {
        ExpectNoPatternsLeft([&](const auto& write) {
            const FailingAllocation failure(allowed, FailOtherwise);
            write();
        });
        ExpectNoPatternsLeft([&](const auto& write) {
            const FailingParserAllocation failure(allowed);
            write();
        });
    }
}

TEST(WcXmSharedTexts, ADocumentWithoutAnElementSharesNothing)
{
    XmlText xml(L"");
    const WcXmSharedTexts shared(xml.document);
    EXPECT_EQ(xml.document.appDocument->sharedTexts, nullptr);
    EXPECT_EQ(xml.Text(), L"");
}

TEST(WcXmSharedTexts, WhatIsAddedWithoutPatternsIsThereAllTheSame)
{
    XmlText xml(L"");
    WcXmSharedTexts shared(xml.document);
    const pugi::xml_node element = shared.AppendElement(*xml.document.appDocument->xmlDocument, L"a");
    for (const wchar_t* const name : {L"b", L"c", L"d"})
    {
        EXPECT_TRUE(shared.AppendAttribute(element, name, L"1"));
    }
    EXPECT_EQ(xml.Text(), L"<a b=\"1\" c=\"1\" d=\"1\"/>");
}

TEST(WcXmSharedTexts, ADocumentThatFoundNoMemorySharesNothing)
{
    WcXmDocument document;
    {
        const FailingParserAllocation failing(0);
        EXPECT_FALSE(document.Create());
    }
    const WcXmSharedTexts shared(document);
    EXPECT_EQ(document.appDocument->sharedTexts, nullptr);
}

TEST_F(WcXmSharedTextsTest, HoweverManyNamesHaveOneValueEachKeepsItsOwn)
{
    constexpr int FAR_MORE_THAN_PLACES = 3000;
    for (int index = 0; index < FAR_MORE_THAN_PLACES; ++index)
    {
        const std::wstring name = L"n" + std::to_wstring(index);
        for (int round = 0; round < 3; ++round)
        {
            const pugi::xml_attribute attribute = FirstAttribute(AppendWith(name.c_str(), L"1"));
            ASSERT_EQ(attribute.name(), name);
            ASSERT_EQ(std::wstring(attribute.value()), L"1") << index;
        }
    }
}

TEST_F(WcXmSharedTextsTest, AValueWithANullCharacterIsTakenUpToItEachTime)
{
    for (int round = 0; round < 4; ++round)
    {
        EXPECT_EQ(std::wstring(FirstAttribute(AppendWith(L"code", std::wstring_view(L"a\0b", 3))).value()), L"a");
    }
}

TEST(WcXmSharedTexts, ADocumentThatWasNeverCreatedSharesNothing)
{
    WcXmDocument document;
    EXPECT_NO_THROW(const WcXmSharedTexts shared(document));
}

TEST_F(WcXmSharedTextsTest, AValueWithQuotationMarksIsNotTriedAgainAndAgain)
{
    for (int round = 0; round < 100; ++round)
    {
        AppendWith(L"name", L"\"左\"");
    }
    const auto patterns = xml.document.appDocument->xmlDocument->last_child().children();
    EXPECT_LE(std::distance(patterns.begin(), patterns.end()), 4);
}

} // namespace
} // namespace jlandxml
