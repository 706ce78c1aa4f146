#include "model/FViewProperty.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>
#include <iterator>
#include <random>

namespace jlandxml
{
namespace
{

TEST(FViewProperty, ReadsLabelAndValue)
{
    const auto property = Read<FViewProperty>(L"<Property label='main' value='20'/>");
    EXPECT_EQ(property.label, L"main");
    EXPECT_EQ(property.value, L"20");
    EXPECT_TRUE(property.replaceExisting);
}

TEST(FViewProperty, AttributesInAnotherCaseAreNotRead)
{
    const auto property = Read<FViewProperty>(L"<Property Label='main' VALUE='20'/>");
    EXPECT_EQ(property.label, L"");
    EXPECT_EQ(property.value, L"");
}

TEST(FViewProperty, ClearEmptiesTheTextsAndReplacesAgain)
{
    FViewProperty property(L"main", L"20", false);
    property.Clear();
    EXPECT_EQ(property.label, L"");
    EXPECT_EQ(property.value, L"");
    EXPECT_TRUE(property.replaceExisting);
}

TEST(FViewProperty, UpdatesTheElementOfTheSameLabelInPlace)
{
    EXPECT_EQ(WrittenInto(FViewProperty(L"main", L"25"),
                          L"<F><Property value='1' label='sub'/><Property value='20' label='main' x='y'/></F>"),
              L"<F><Property value=\"1\" label=\"sub\"/><Property value=\"25\" label=\"main\" x=\"y\"/></F>");
}

TEST(FViewProperty, OfTwoElementsWithTheLabelTheFirstIsUpdated)
{
    EXPECT_EQ(WrittenInto(FViewProperty(L"a", L"3"),
                          L"<F><Property label='a' value='1'/><Property label='a' value='2'/></F>"),
              L"<F><Property label=\"a\" value=\"3\"/><Property label=\"a\" value=\"2\"/></F>");
}

TEST(FViewProperty, WithoutTheLabelANewElementIsAppended)
{
    EXPECT_EQ(WrittenInto(FViewProperty(L"main", L"20"), L"<F><Property label='Main' value='1'/><x/></F>"),
              L"<F><Property label=\"Main\" value=\"1\"/><x/><Property label=\"main\" value=\"20\"/></F>");
}

TEST(FViewProperty, ARowOfAListIsAlwaysAppended)
{
    EXPECT_EQ(WrittenInto(FViewProperty(L"sta", L"2", false), L"<F><Property label='sta' value='1'/></F>"),
              L"<F><Property label=\"sta\" value=\"1\"/><Property label=\"sta\" value=\"2\"/></F>");
}

TEST(FViewProperty, AnEmptyValueNeverErasesAnOldOne)
{
    EXPECT_EQ(WrittenInto(FViewProperty(L"a", L""), L"<F><Property label='a' value='1'/></F>"),
              L"<F><Property label=\"a\" value=\"1\"/></F>");
    EXPECT_EQ(WrittenInto(FViewProperty(L"b", L""), L"<F/>"), L"<F><Property label=\"b\"/></F>");
}

TEST(FViewProperty, AnElementInLowerCaseIsPassedOver)
{
    EXPECT_EQ(WrittenInto(FViewProperty(L"a", L"2"),
                          L"<F><property label='a' value='1'/><Property label='a' value='1'/></F>"),
              L"<F><property label=\"a\" value=\"1\"/><Property label=\"a\" value=\"2\"/></F>");
}

/// A text of so many elements of random labels, some of another case or without a label.
std::wstring RandomElements(std::mt19937& random, std::size_t count)
{
    static constexpr const wchar_t* ELEMENTS[] = {
        L"<Property label='a' value='1'/>",
        L"<Property label='b'/>",
        L"<Property label='c' value='2' x='y'/>",
        L"<Property value='3'/>",
        L"<property label='a' value='4'/>",
        L"<Property LABEL='q' label='a'/>",
        L"<Property label='A' VALUE='5'/>",
        L"<x label='b'/>",
        L"text",
    };
    std::wstring xml;
    for (std::size_t element = 0; element < count; ++element)
    {
        xml += ELEMENTS[random() % std::size(ELEMENTS)];
    }
    return xml;
}

TEST(FViewProperty, AListIsWrittenAsItsPropertiesWouldBeOneAfterTheOther)
{
    std::mt19937 random(10);
    for (int round = 0; round < 3000; ++round)
    {
        const std::wstring xml = L"<F>" + RandomElements(random, random() % 12) + L"</F>";
        PiCmCopyList<FViewProperty> properties;
        for (auto count = random() % 25; count > 0; --count)
        {
            static constexpr const wchar_t* LABELS[] = {L"a", L"b", L"c", L"d", L"A", L""};
            static constexpr const wchar_t* VALUES[] = {L"", L"7", L"8"};
            properties.emplace_back(LABELS[random() % std::size(LABELS)], VALUES[random() % std::size(VALUES)],
                                    random() % 3 != 0);
        }
        XmlText expected(xml);
        for (FViewProperty& property : properties)
        {
            property.WriteElement(expected.Root());
        }
        XmlText written(xml);
        EXPECT_TRUE(WriteProperties(written.Root(), properties));
        ASSERT_EQ(written.Text(), expected.Text()) << testing::PrintToString(xml);
    }
}

TEST(FViewProperty, AnElementWithoutALabelHasTheEmptyLabel)
{
    EXPECT_EQ(WrittenInto(FViewProperty(L"", L"2"), L"<F><Property value='1'/></F>"),
              L"<F><Property value=\"2\"/></F>");
}

} // namespace
} // namespace jlandxml
