#include "model/FViewProperty.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

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

TEST(FViewProperty, AnElementWithoutALabelHasTheEmptyLabel)
{
    EXPECT_EQ(WrittenInto(FViewProperty(L"", L"2"), L"<F><Property value='1'/></F>"),
              L"<F><Property value=\"2\"/></F>");
}

} // namespace
} // namespace jlandxml
