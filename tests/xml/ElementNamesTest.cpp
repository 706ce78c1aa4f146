#include "xml/ElementNames.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace jlandxml
{
namespace
{

/// Every element of a document in order, as `tell` puts it.
template <class Tell>
std::vector<std::wstring> EachElement(const wchar_t* text, Tell&& tell)
{
    XmlText xml(text);
    std::vector<std::wstring> told;
    ForEachElement(xml.Root(), [&](const WcXmNode& element) { told.push_back(tell(element.appNode.node)); });
    return told;
}

TEST(ElementNames, APathGoesByNamesLabelsAndStations)
{
    EXPECT_EQ(
        EachElement(L"<LandXML><Alignments name='市道'><Alignment name='線形1'><CrossSects><CrossSect sta='20'>"
                    L"<Feature><Property label='clOffset'/></Feature></CrossSect></CrossSects></Alignment>"
                    L"</Alignments></LandXML>",
                    NamedPath),
        (std::vector<std::wstring>{L"LandXML", L"市道", L"市道／線形1", L"市道／線形1／横断", L"市道／線形1／横断／20",
                                   L"市道／線形1／横断／20／Feature", L"市道／線形1／横断／20／Feature／clOffset"}));
}

TEST(ElementNames, WhatBearsNoNameIsCalledByItsKindAndNumberedWhereThereAreSeveral)
{
    EXPECT_EQ(
        EachElement(L"<LandXML><Alignments><Alignment name=''><CoordGeom><Line/><Spiral/><Line/></CoordGeom>"
                    L"</Alignment></Alignments></LandXML>",
                    NamedPath),
        (std::vector<std::wstring>{L"LandXML", L"Alignments", L"線形", L"線形／平面線形", L"線形／平面線形／直線1",
                                   L"線形／平面線形／クロソイド", L"線形／平面線形／直線2"}));
    EXPECT_EQ(EachElement(L"<LandXML><Alignments/><Alignments/></LandXML>", NamedPath),
              (std::vector<std::wstring>{L"LandXML", L"路線1", L"路線2"}));
    EXPECT_EQ(EachElement(L"<a><LandXML/><LandXML/></a>", NamedPath),
              (std::vector<std::wstring>{L"a", L"a／LandXML1", L"a／LandXML2"}));
}

TEST(ElementNames, AnXPathCountsElementsAlone)
{
    EXPECT_EQ(EachElement(L"<a>text<b/>text<c><d/></c></a>", PositionPath),
              (std::vector<std::wstring>{L"/*[1]", L"/*[1]/*[1]", L"/*[1]/*[2]", L"/*[1]/*[2]/*[1]"}));
}

TEST(ElementNames, OnlyWhatLiesInAnElementIsVisited)
{
    XmlText xml(L"<a><b><c/></b><d/></a>");
    std::wstring names;
    ForEachElement(xml.Child(L"b"), [&](const WcXmNode& element) { names += element.NodeName(); });
    EXPECT_EQ(names, L"bc");
    names.clear();
    ForEachElement(xml.Child(L"d"), [&](const WcXmNode& element) { names += element.NodeName(); });
    EXPECT_EQ(names, L"d");
}

TEST(ElementNames, AWarningNamesTheFirstElementsOnly)
{
    TakeWarnings();
    XmlText xml(L"<LandXML><Surfaces><Surface name='1'/><Surface name='2'/><Surface name='3'/><Surface name='4'/>"
                L"</Surfaces></LandXML>");
    int remarks = 0;
    ForEachElement(xml.Child(L"Surfaces"), [&](const WcXmNode& element) {
        if (element.HasName(L"Surface"))
        {
            WarnOfElement(WarningCause::NoSuchAlignment, element, [&] { return std::to_wstring(++remarks); });
        }
    });
    const std::vector<Warning> warnings = TakeWarnings();
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings[0].object, L"1、2、3ほか1件");
    EXPECT_EQ(warnings[0].path, L"/*[1]/*[1]/*[1]");
    EXPECT_EQ(warnings[0].detail, L"1（1）、2（2）、3（3）ほか1件");
    EXPECT_EQ(remarks, 3);
}

TEST(ElementNames, OfTheChildrenOfAnElementTextsAreNotVisited)
{
    XmlText xml(L"<a>x<b><c/></b>y<d/></a>");
    std::wstring names;
    ForEachElementIn(xml.Root(), [&](const WcXmNode& element) { names += element.NodeName(); });
    EXPECT_EQ(names, L"bd");
}

TEST(ElementNames, AWarningOfADocumentWithoutATreeHasNoPlace)
{
    TakeWarnings();
    WcXmDocument never;
    WarnOfElement(WarningCause::NoRoute, WcXmNode(never));
    const std::vector<Warning> warnings = TakeWarnings();
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings[0].code, "no-route");
    EXPECT_EQ(warnings[0].file + warnings[0].object + warnings[0].path + warnings[0].detail, L"");
}

} // namespace
} // namespace jlandxml
