#include "xml/WcXmJournal.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

#include <vector>

namespace jlandxml
{
namespace
{

using Lines = std::vector<std::wstring>;

constexpr const wchar_t* KINDS[] = {L"added", L"removed", L"moved", L"attribute added", L"attribute", L"text"};

/// A document that keeps its journal from the start.
struct WcXmJournalTest : testing::Test
{
    explicit WcXmJournalTest(const wchar_t* text = L"<LandXML><Alignments><Alignment name=\"線形1\"><Profile staStart="
                                                   L"\"0\"><ProfAlign name=\"計画線\"><PVI>0 100</PVI><PVI>20 101</PVI>"
                                                   L"</ProfAlign></Profile><Feature name=\"Interval\"><Property label="
                                                   L"\"main\" value=\"20\"/></Feature><Feature name=\"Horizontal\"/>"
                                                   L"</Alignment></Alignments></LandXML>")
        : xml(text)
    {
        xml.document.appDocument->KeepJournal();
    }

    /// The element at the end of a way by names.
    WcXmNode At(const std::vector<const wchar_t*>& way)
    {
        WcXmNode node = xml.Root();
        for (const wchar_t* const name : way)
        {
            EXPECT_TRUE(node.SelectFirstChild(name)) << Utf8(name);
        }
        return node;
    }

    WcXmNode Alignment() { return At({L"Alignments", L"Alignment"}); }

    WcXmNode AppendFeature(const wchar_t* name, const wchar_t* label, const wchar_t* value)
    {
        WcXmNode feature = Alignment();
        WcXmNode property = feature;
        Alignment().AppendChildElement(L"Feature", &feature);
        feature.SetAttribute(L"name", name);
        feature.AppendChildElement(L"Property", &property);
        property.SetAttribute(L"label", label);
        property.SetAttribute(L"value", value);
        return feature;
    }

    static std::string Utf8(const wchar_t* text)
    {
        return std::string(text, text + std::char_traits<wchar_t>::length(text));
    }

    /// Each change in one line: kind, object, paths, name, texts, and ~ where they are the same numbers.
    Lines Changes() const
    {
        Lines lines;
        xml.document.appDocument->journal->ForEachChange([&](const WcXmChange& change) {
            lines.push_back(std::wstring(KINDS[static_cast<std::size_t>(change.kind)]) + L"|" + change.object + L"|" +
                            change.path + L"|" + change.newPath + L"|" + change.name + L"|" + change.oldText + L"|" +
                            change.newText + (change.sameNumbers ? L"|~" : L""));
        });
        return lines;
    }

    XmlText xml;
};

TEST_F(WcXmJournalTest, ADocumentThatNobodyEditsHasNoChanges)
{
    Alignment().MoveToFirstChild();
    EXPECT_EQ(Changes(), Lines());
}

TEST_F(WcXmJournalTest, AttributesAndTextsAreToldByTheNamesOfTheirElements)
{
    At({L"Alignments", L"Alignment", L"Profile"}).SetAttribute(L"staStart", L"0.");
    At({L"Alignments", L"Alignment", L"Profile", L"ProfAlign"}).SetAttribute(L"desc", L"新");
    At({L"Alignments", L"Alignment", L"Profile", L"ProfAlign", L"PVI"}).SetTextContent(L"0. 100.5");
    EXPECT_EQ(Changes(), (Lines{L"attribute|線形1／縦断|/*[1]/*[1]/*[1]/*[1]||staStart|0|0.|~",
                                L"attribute added|線形1／縦断／計画線|/*[1]/*[1]/*[1]/*[1]/*[1]||desc||新",
                                L"text|線形1／縦断／計画線／縦断変化点1|/*[1]/*[1]/*[1]/*[1]/*[1]/*[1]||PVI|0 100|0. "
                                L"100.5"}));
}

TEST_F(WcXmJournalTest, OfSeveralValuesTheFirstAndTheLastCount)
{
    const WcXmNode profile = At({L"Alignments", L"Alignment", L"Profile"});
    profile.SetAttribute(L"staStart", L"5");
    profile.SetAttribute(L"staStart", L"0");
    EXPECT_EQ(Changes(), Lines());
    profile.SetAttribute(L"staStart", L"7");
    EXPECT_EQ(Changes(), (Lines{L"attribute|線形1／縦断|/*[1]/*[1]/*[1]/*[1]||staStart|0|7"}));
}

TEST_F(WcXmJournalTest, ElementsAreToldWithAllThatLiesInThem)
{
    Alignment().RemoveChild(At({L"Alignments", L"Alignment", L"Profile"}).appNode);
    AppendFeature(L"SlopeList", L"slopeValue", L"1 2");
    WcXmNode system = xml.Root();
    xml.Root().InsertElementBefore(L"Alignments", L"CoordinateSystem", &system);
    EXPECT_EQ(
        Changes(),
        (Lines{L"added|座標参照系||/*[1]/*[1]|CoordinateSystem||<CoordinateSystem/>",
               L"removed|線形1／縦断|/*[1]/*[1]/*[1]/*[1]||Profile|<Profile staStart=\"0\"><ProfAlign name=\"計画線"
               L"\"><PVI>0 100</PVI><PVI>20 101</PVI></ProfAlign></Profile>|",
               L"added|線形1／SlopeList||/*[1]/*[2]/*[1]/*[3]|Feature||<Feature name=\"SlopeList\"><Property label="
               L"\"slopeValue\" value=\"1 2\"/></Feature>"}));
}

TEST_F(WcXmJournalTest, WhatIsAddedAndRemovedAgainIsNoChange)
{
    const WcXmNode feature = AppendFeature(L"SlopeList", L"slopeValue", L"1 2");
    Alignment().RemoveChild(feature.appNode);
    EXPECT_EQ(Changes(), Lines());
}

TEST_F(WcXmJournalTest, AFeatureThatIsRebuiltAsItWasIsNoChange)
{
    Alignment().RemoveChild(At({L"Alignments", L"Alignment", L"Feature"}).appNode);
    WcXmNode horizontal = At({L"Alignments", L"Alignment", L"Feature"});
    Alignment().RemoveChild(horizontal.appNode);
    AppendFeature(L"Interval", L"main", L"20");
    Alignment().AppendChildElement(L"Feature", &horizontal);
    horizontal.SetAttribute(L"name", L"Horizontal");
    EXPECT_EQ(Changes(), Lines());
}

TEST_F(WcXmJournalTest, AFeatureThatIsRebuiltBehindOthersHasMovedAndItsValuesAreCompared)
{
    Alignment().RemoveChild(At({L"Alignments", L"Alignment", L"Feature"}).appNode);
    AppendFeature(L"Interval", L"main", L"20.");
    EXPECT_EQ(Changes(), (Lines{L"moved|線形1／Interval|/*[1]/*[1]/*[1]/*[2]|/*[1]/*[1]/*[1]/*[3]|Feature||",
                                L"attribute|線形1／Interval／main|/*[1]/*[1]/*[1]/*[2]/*[1]||value|20|20.|~"}));
}

TEST_F(WcXmJournalTest, WhatCanNotBecomeAnotherByItsValuesIsRemovedAndAdded)
{
    Alignment().RemoveChild(At({L"Alignments", L"Alignment", L"Feature"}).appNode);
    WcXmNode feature = AppendFeature(L"Interval", L"main", L"20");
    feature.SetTextContent(L"text");
    const Lines changes = Changes();
    ASSERT_EQ(changes.size(), 2U);
    EXPECT_TRUE(changes[0].starts_with(L"removed|線形1／Interval|"));
    EXPECT_TRUE(changes[1].starts_with(L"added|線形1／Interval|"));
}

TEST_F(WcXmJournalTest, AFeatureThatIsRebuiltInFrontOfOthersHasMovedToo)
{
    Alignment().RemoveChild(At({L"Alignments", L"Alignment", L"Feature"}).appNode);
    WcXmNode feature = Alignment();
    Alignment().InsertElementBefore(L"Profile", L"Feature", &feature);
    feature.SetAttribute(L"name", L"Interval");
    WcXmNode property = feature;
    feature.AppendChildElement(L"Property", &property);
    property.SetAttribute(L"label", L"main");
    property.SetAttribute(L"value", L"20");
    EXPECT_EQ(Changes(), (Lines{L"moved|線形1／Interval|/*[1]/*[1]/*[1]/*[2]|/*[1]/*[1]/*[1]/*[1]|Feature||"}));
}

TEST_F(WcXmJournalTest, AFrameWithoutANameIsCalledByItsKindWhereItIsAllThatChanges)
{
    xml.Root().SetAttribute(L"version", L"1.2");
    EXPECT_EQ(Changes(), (Lines{L"attribute added|LandXML|/*[1]||version||1.2"}));
    WcXmNode surfaces = xml.Root();
    xml.Root().AppendChildElement(L"Surfaces", &surfaces);
    EXPECT_EQ(Changes(), (Lines{L"attribute added|LandXML|/*[1]||version||1.2",
                                L"added|Surfaces||/*[1]/*[2]|Surfaces||<Surfaces/>"}));
}

/// How a text lies in the `Feature` that stands before and in the one that is built in its place.
struct TextCase
{
    const char* rule;
    const wchar_t* before;
    const wchar_t* after;
    bool changes; ///< false: the one goes and the other comes
};

class TextOfRebuilt : public testing::TestWithParam<TextCase>
{};

TEST_P(TextOfRebuilt, ChangesWhereItLiesInTheSameWay)
{
    XmlText xml(std::wstring(L"<LandXML><Feature name='F'>") + GetParam().before + L"</Feature></LandXML>");
    xml.document.appDocument->KeepJournal();
    xml.Root().RemoveChild(xml.Child(L"Feature").appNode);
    pugi::xml_node root = xml.document.appDocument->xmlDocument->document_element();
    pugi::xml_node feature = root.append_child(L"Feature");
    feature.append_attribute(L"name").set_value(L"F");
    const std::wstring after = GetParam().after;
    EXPECT_TRUE(feature.append_buffer(after.data(), after.size() * sizeof(wchar_t),
                                      pugi::parse_default | pugi::parse_fragment, pugi::encoding_wchar));
    std::vector<WcXmChange::Kind> kinds;
    xml.document.appDocument->journal->ForEachChange([&](const WcXmChange& change) { kinds.push_back(change.kind); });
    using Kind = WcXmChange::Kind;
    EXPECT_EQ(kinds, GetParam().changes ? std::vector{Kind::TextChanged}
                                        : (std::vector{Kind::ElementRemoved, Kind::ElementAdded}));
}

INSTANTIATE_TEST_SUITE_P(WcXmJournal, TextOfRebuilt,
                         testing::Values(TextCase{"Section", L"<![CDATA[1]]>", L"<![CDATA[2]]>", true},
                                         TextCase{"SectionForAText", L"1", L"<![CDATA[2]]>", false},
                                         TextCase{"SectionForNothing", L"", L"<![CDATA[2]]>", false},
                                         TextCase{"ElementForASection", L"<![CDATA[1]]>", L"<x/>", false},
                                         TextCase{"TextBesideAnElement", L"1<x/>", L"2<x/>", false},
                                         TextCase{"TextAroundASection", L"1<![CDATA[2]]>", L"1<![CDATA[3]]>", false}),
                         [](const auto& row) { return std::string(row.param.rule); });

TEST_F(WcXmJournalTest, NumbersAreTheSameHoweverTheyAreSpelt)
{
    struct Row
    {
        const wchar_t* value;
        bool same;
    };
    const WcXmNode profile = At({L"Alignments", L"Alignment", L"Profile"});
    for (const Row& row : {Row{L"0.000", true}, Row{L"-0.", true}, Row{L"0e5", true}, Row{L"0. 0.", false},
                           Row{L"0.0001", false}, Row{L"", false}, Row{L"0m", false}})
    {
        profile.SetAttribute(L"staStart", row.value);
        EXPECT_EQ(Changes().front().ends_with(L"|~"), row.same) << Utf8(row.value);
    }
}

TEST_F(WcXmJournalTest, ADeepTreeNeedsNoMoreStackThanAFlatOne)
{
    constexpr std::size_t DEPTH = 20000;
    WcXmNode node = Alignment();
    for (std::size_t depth = 0; depth < DEPTH; ++depth)
    {
        WcXmNode child = node;
        node.AppendChildElement(L"a", &child);
        node = child;
    }
    xml.document.appDocument->KeepJournal();
    node.SetAttribute(L"b", L"c");
    const Lines changes = Changes();
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_TRUE(changes.front().ends_with(L"||b||c"));
}

TEST_F(WcXmJournalTest, AFileThatIsLoadedAnewHasNone)
{
    xml.document.appDocument->LoadDocument(L"/there/is/none");
    EXPECT_EQ(xml.document.appDocument->journal, nullptr);
}

} // namespace
} // namespace jlandxml
