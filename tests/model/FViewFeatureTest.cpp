#include "model/FViewFeature.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

FViewFeature Feature(std::wstring name, PiCmCopyList<FViewProperty> properties)
{
    FViewFeature feature(std::move(name));
    feature.properties = std::move(properties);
    return feature;
}

TEST(FViewFeature, ReadsItsNameAndItsPropertiesInOrder)
{
    const auto feature = Read<FViewFeature>(L"<Feature name='Interval'><Property label='main' value='20'/>x<property "
                                            L"label='no'/><Property label='sub'/></Feature>");
    EXPECT_EQ(feature.name, L"Interval");
    ASSERT_EQ(feature.properties.size(), 2U);
    EXPECT_EQ(feature.properties[0].label, L"main");
    EXPECT_EQ(feature.properties[0].value, L"20");
    EXPECT_EQ(feature.properties[1].label, L"sub");
    EXPECT_EQ(feature.properties[1].value, L"");
}

TEST(FViewFeature, APropertyInLowerCaseStartsTheWalkButIsSkipped)
{
    EXPECT_EQ(Read<FViewFeature>(L"<Feature><property label='a'/><Property label='b'/></Feature>").properties.size(),
              1U);
    EXPECT_EQ(Read<FViewFeature>(L"<Feature><property label='a'/></Feature>").properties.size(), 0U);
}

TEST(FViewFeature, AllPropertiesWithoutValuesWriteNothing)
{
    EXPECT_EQ(WrittenInto(Feature(L"f", {{L"a", L""}, {L"", L"1"}}), L"<x/>"), L"<x/>");
    EXPECT_EQ(WrittenInto(Feature(L"f", {}), L"<x/>"), L"<x/>");
}

TEST(FViewFeature, OnePropertyWithAValueTakesTheOthersAlong)
{
    EXPECT_EQ(
        WrittenInto(Feature(L"f", {{L"a", L"1"}, {L"b", L""}, {L"", L"2"}}), L"<x/>"),
        L"<x><Feature name=\"f\"><Property label=\"a\" value=\"1\"/><Property label=\"b\"/><Property value=\"2\"/>"
        L"</Feature></x>");
}

TEST(FViewFeature, MergesIntoTheFirstFeatureOfItsName)
{
    EXPECT_EQ(WrittenInto(Feature(L"f", {{L"a", L"2"}, {L"b", L"3"}}),
                          L"<x><Feature name='g'/><Feature name='f'><Property label='a' value='1'/><y/></Feature>"
                          L"<Feature name='f'/></x>"),
              L"<x><Feature name=\"g\"/><Feature name=\"f\"><Property label=\"a\" value=\"2\"/><y/>"
              L"<Property label=\"b\" value=\"3\"/></Feature><Feature name=\"f\"/></x>");
}

TEST(FViewFeature, ANamelessOneMergesIntoTheFeatureWithoutAName)
{
    EXPECT_EQ(WrittenInto(Feature(L"", {{L"a", L"1"}}), L"<x><Feature name='f'/><Feature><y/></Feature></x>"),
              L"<x><Feature name=\"f\"/><Feature><y/><Property label=\"a\" value=\"1\"/></Feature></x>");
}

TEST(FViewFeature, AnEmptyNameAttributeCountsAsNameless)
{
    EXPECT_EQ(WrittenInto(Feature(L"", {{L"a", L"1"}}), L"<x><Feature name=''><y/></Feature><Feature/></x>"),
              L"<x><Feature name=\"\"><y/><Property label=\"a\" value=\"1\"/></Feature><Feature/></x>");
}

TEST(FViewFeature, WithoutOneOfItsNameANewOneIsAppended)
{
    EXPECT_EQ(WrittenInto(Feature(L"", {{L"a", L"1"}}), L"<x><Feature name='f'/><y/></x>"),
              L"<x><Feature name=\"f\"/><y/><Feature><Property label=\"a\" value=\"1\"/></Feature></x>");
}

TEST(FViewFeature, OneThatReplacesNothingIsAlwaysAppended)
{
    FViewFeature feature = Feature(L"f", {{L"a", L"1"}});
    feature.replaceExisting = false;
    EXPECT_EQ(WrittenInto(feature, L"<x><Feature name='f'/></x>"),
              L"<x><Feature name=\"f\"/><Feature name=\"f\"><Property label=\"a\" value=\"1\"/></Feature></x>");
}

TEST(FViewFeature, AFeatureInLowerCaseIsSkippedAndTheExactOneBehindItTaken)
{
    EXPECT_EQ(WrittenInto(Feature(L"", {{L"a", L"1"}}), L"<x><feature/><Feature/></x>"),
              L"<x><feature/><Feature><Property label=\"a\" value=\"1\"/></Feature></x>");
}

TEST(FViewFeature, RemovingTakesTheFirstOfItsName)
{
    XmlText xml(L"<x><feature name='f'/><Feature name='g'/><Feature name='f'><y/></Feature><Feature name='f'/></x>");
    EXPECT_TRUE(RemoveFirstFeature(xml.Root(), L"f"));
    EXPECT_EQ(xml.Text(), L"<x><feature name=\"f\"/><Feature name=\"g\"/><Feature name=\"f\"/></x>");
    EXPECT_FALSE(RemoveFirstFeature(xml.Root(), L"h"));
}

void ExpectEmpty(const FViewFeature& feature)
{
    EXPECT_EQ(feature.name, L"");
    EXPECT_TRUE(feature.replaceExisting);
    EXPECT_TRUE(feature.properties.empty());
}

TEST(FViewFeature, ClearEmptiesItAndLetsItReplaceAgain)
{
    FViewFeature feature = Feature(L"f", {{L"a", L"1"}});
    feature.replaceExisting = false;
    feature.Clear();
    ExpectEmpty(feature);
}

TEST(FViewFeature, ReadingASecondElementKeepsNothingOfTheFirst)
{
    FViewFeature feature = Feature(L"f", {{L"a", L"1"}});
    feature.replaceExisting = false;
    EXPECT_TRUE(feature.ReadElement(XmlText(L"<Feature/>").Root()));
    ExpectEmpty(feature);
}

} // namespace
} // namespace jlandxml
