#include "model/FViewSuperelevation.h"

#include "support/ParserRoom.h"
#include "support/RowName.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

struct SuperelevationCase
{
    const wchar_t* rule;
    const wchar_t* in;
    const wchar_t* out;
};

class Superelevation : public testing::TestWithParam<SuperelevationCase>
{};

TEST_P(Superelevation, IsEditedInPlace)
{
    EXPECT_EQ(Written<FViewSuperelevation>(std::wstring(L"<Superelevation") + GetParam().in + L"</Superelevation>"),
              std::wstring(L"<Superelevation") + GetParam().out + L"</Superelevation>")
        << testing::PrintToString(GetParam().rule);
}

INSTANTIATE_TEST_SUITE_P(
    FViewSuperelevation, Superelevation,
    testing::Values(
        SuperelevationCase{
            L"full superelevation gives both attributes",
            L"><FullSuperSta>150.5</FullSuperSta><RunoffSta>270</RunoffSta>",
            L" staStart=\"150.5\" staEnd=\"270.\"><FullSuperSta>150.5</FullSuperSta><RunoffSta>270</RunoffSta>"},
        SuperelevationCase{L"what is no number gives 0", L"><FullSuperSta>abc</FullSuperSta>",
                           L" staStart=\"0.\"><FullSuperSta>abc</FullSuperSta>"},
        SuperelevationCase{L"unset stations leave the attributes", L" STASTART='7' staEnd='8'><x/>",
                           L" STASTART=\"7\" staEnd=\"8\"><x/>"},
        SuperelevationCase{L"an attribute in another case gets the value",
                           L" STASTART='7'><FullSuperSta>1</FullSuperSta>",
                           L" STASTART=\"1.\"><FullSuperSta>1</FullSuperSta>"},
        SuperelevationCase{L"a one-sided run-out moves one place",
                           L"><BeginRunoffSta>10</BeginRunoffSta><StartofRunoutSta>20</StartofRunoutSta>",
                           L"><StartofRunoutSta>10.</StartofRunoutSta><EndofRunoutSta>20.</"
                           L"EndofRunoutSta><AdverseSE>adverse</AdverseSE>"},
        SuperelevationCase{
            L"a begin on both sides stays", L"><BeginRunoutSta>1</BeginRunoutSta><BeginRunoffSta>2</BeginRunoffSta>",
            L"><BeginRunoutSta>1</BeginRunoutSta><BeginRunoffSta>2</BeginRunoffSta><AdverseSE>adverse</AdverseSE>"},
        SuperelevationCase{
            L"an end on both sides stays", L"><StartofRunoutSta>1</StartofRunoutSta><EndofRunoutSta>2</EndofRunoutSta>",
            L"><StartofRunoutSta>1</StartofRunoutSta><EndofRunoutSta>2</EndofRunoutSta><AdverseSE>adverse</AdverseSE>"},
        SuperelevationCase{L"the adverse flag goes without a run-out",
                           L"><AdverseSE>adverse</AdverseSE><FullSuperSta>1</FullSuperSta>",
                           L" staStart=\"1.\"><FullSuperSta>1</FullSuperSta>"},
        SuperelevationCase{
            L"the adverse flag goes behind the others",
            L"><AdverseSE>non-adverse</AdverseSE><BeginRunoutSta>1</BeginRunoutSta><BeginRunoffSta>2</BeginRunoffSta>",
            L"><BeginRunoutSta>1</BeginRunoutSta><BeginRunoffSta>2</BeginRunoffSta><AdverseSE>non-adverse</AdverseSE>"},
        SuperelevationCase{L"a run-out of three is no repair",
                           L"><BeginRunoutSta>0</BeginRunoutSta><BeginRunoffSta>10</"
                           L"BeginRunoffSta><StartofRunoutSta>20</StartofRunoutSta>",
                           L"><BeginRunoutSta>0</BeginRunoutSta><BeginRunoffSta>10</"
                           L"BeginRunoffSta><StartofRunoutSta>20</StartofRunoutSta>"
                           L"<AdverseSE>adverse</AdverseSE>"},
        SuperelevationCase{L"a run-out of three at the end is no repair",
                           L"><BeginRunoffSta>10</BeginRunoffSta><StartofRunoutSta>20</StartofRunoutSta>"
                           L"<EndofRunoutSta>30</EndofRunoutSta>",
                           L"><BeginRunoffSta>10</BeginRunoffSta><StartofRunoutSta>20</StartofRunoutSta>"
                           L"<EndofRunoutSta>30</EndofRunoutSta><AdverseSE>adverse</AdverseSE>"},
        SuperelevationCase{L"a lone begin of run-out has no adverse flag",
                           L"><AdverseSE>adverse</AdverseSE><BeginRunoutSta>1</BeginRunoutSta>",
                           L"><BeginRunoutSta>1</BeginRunoutSta>"},
        SuperelevationCase{L"a lone begin of run-off has no adverse flag",
                           L"><AdverseSE>adverse</AdverseSE><BeginRunoffSta>1</BeginRunoffSta>",
                           L"><BeginRunoffSta>1</BeginRunoffSta>"},
        SuperelevationCase{
            L"the outer ends alone have no adverse flag",
            L"><AdverseSE>adverse</AdverseSE><BeginRunoutSta>1</BeginRunoutSta><EndofRunoutSta>2</EndofRunoutSta>",
            L"><BeginRunoutSta>1</BeginRunoutSta><EndofRunoutSta>2</EndofRunoutSta>"},
        SuperelevationCase{L"the attributes have eight decimals",
                           L"><FullSuperSta>150.123456789</FullSuperSta><RunoffSta>0.000000004</RunoffSta>",
                           L" staStart=\"150.12345679\" staEnd=\"0.\"><FullSuperSta>150.123456789</FullSuperSta>"
                           L"<RunoffSta>0.000000004</RunoffSta>"},
        SuperelevationCase{L"stations may be negative", L"><RunoffSta>-5.250</RunoffSta>",
                           L" staEnd=\"-5.25\"><RunoffSta>-5.250</RunoffSta>"},
        SuperelevationCase{L"of two adverse flags the second stays",
                           L"><AdverseSE>adverse</AdverseSE><AdverseSE>non-adverse</AdverseSE>",
                           L"><AdverseSE>non-adverse</AdverseSE>"},
        SuperelevationCase{
            L"of two adverse flags the second takes the word of the first",
            L"><AdverseSE>non-adverse</AdverseSE><AdverseSE>adverse</AdverseSE>"
            L"<BeginRunoutSta>1</BeginRunoutSta><BeginRunoffSta>2</BeginRunoffSta>",
            L"><AdverseSE>non-adverse</AdverseSE><BeginRunoutSta>1</BeginRunoutSta><BeginRunoffSta>2</BeginRunoffSta>"},
        SuperelevationCase{
            L"an adverse flag in another case counts and goes",
            L"><adversese>non-adverse</adversese><BeginRunoutSta>1</BeginRunoutSta><BeginRunoffSta>2</BeginRunoffSta>",
            L"><BeginRunoutSta>1</BeginRunoutSta><BeginRunoffSta>2</BeginRunoffSta><AdverseSE>non-adverse</AdverseSE>"},
        SuperelevationCase{L"the repair takes the first of two begins of run-off",
                           L"><BeginRunoffSta>10</BeginRunoffSta><BeginRunoffSta>11</BeginRunoffSta>"
                           L"<StartofRunoutSta>20</StartofRunoutSta>",
                           L"><BeginRunoffSta>11</BeginRunoffSta><StartofRunoutSta>10.</StartofRunoutSta>"
                           L"<EndofRunoutSta>20.</EndofRunoutSta><AdverseSE>adverse</AdverseSE>"},
        SuperelevationCase{L"of what the repair adds the end of run-out stands in front of its start",
                           L"><BeginRunoffSta>10</BeginRunoffSta><startofrunoutsta>20</startofrunoutsta>",
                           L"><startofrunoutsta>20</startofrunoutsta><EndofRunoutSta>20.</EndofRunoutSta>"
                           L"<StartofRunoutSta>10.</StartofRunoutSta><AdverseSE>adverse</AdverseSE>"},
        SuperelevationCase{L"the repair takes a begin of run-off in any case away",
                           L"><beginrunoffsta>10</beginrunoffsta><StartofRunoutSta>20</StartofRunoutSta>",
                           L"><StartofRunoutSta>10.</StartofRunoutSta><EndofRunoutSta>20.</EndofRunoutSta>"
                           L"<AdverseSE>adverse</AdverseSE>"},
        SuperelevationCase{L"the repair takes the first begin of run-off away whatever its case",
                           L"><beginrunoffsta>10</beginrunoffsta><BeginRunoffSta>11</BeginRunoffSta>"
                           L"<StartofRunoutSta>20</StartofRunoutSta>",
                           L"><BeginRunoffSta>11</BeginRunoffSta><StartofRunoutSta>10.</StartofRunoutSta>"
                           L"<EndofRunoutSta>20.</EndofRunoutSta><AdverseSE>adverse</AdverseSE>"},
        SuperelevationCase{L"the repair keeps the word of the input",
                           L"><AdverseSE>non-adverse</AdverseSE><BeginRunoffSta>10</BeginRunoffSta>"
                           L"<StartofRunoutSta>20.123456789</StartofRunoutSta>",
                           L"><StartofRunoutSta>10.</StartofRunoutSta><EndofRunoutSta>20.12345679</EndofRunoutSta>"
                           L"<AdverseSE>non-adverse</AdverseSE>"},
        SuperelevationCase{L"only stations of the reversed crown are rewritten",
                           L"><Feature name='ReverseCrown'><Property label='sta' value='9.50'/><Property label='x' "
                           L"value='1'/></Feature><y/>",
                           L"><y/><Feature name=\"ReverseCrown\"><Property label=\"sta\" value=\"9.50\"/></Feature>"},
        SuperelevationCase{
            L"reversed before flat, whatever the input's order",
            L"><Feature name='FlatSta'><Property label='sta' value='1'/></Feature><Feature name='ReverseCrown'>"
            L"<Property label='sta' value='2'/><Property label='sta' value='2'/></Feature>",
            L"><Feature name=\"ReverseCrown\"><Property label=\"sta\" value=\"2\"/><Property label=\"sta\" "
            L"value=\"2\"/></Feature>"
            L"<Feature name=\"FlatSta\"><Property label=\"sta\" value=\"1\"/></Feature>"},
        SuperelevationCase{
            L"a second feature of the name is added to",
            L"><Feature name='ReverseCrown'><Property label='sta' value='1'/></Feature><Feature name='ReverseCrown'>"
            L"<Property label='sta' value='2'/></Feature>",
            L"><Feature name=\"ReverseCrown\"><Property label=\"sta\" value=\"2\"/><Property label=\"sta\" "
            L"value=\"2\"/></Feature>"},
        SuperelevationCase{
            L"a second feature of the flat crown is added to",
            L"><Feature name='FlatSta'><Property label='sta' value='1'/></Feature><Feature name='FlatSta'>"
            L"<Property label='sta' value='2'/></Feature>",
            L"><Feature name=\"FlatSta\"><Property label=\"sta\" value=\"2\"/><Property label=\"sta\" "
            L"value=\"2\"/></Feature>"},
        SuperelevationCase{
            L"a feature whose element is in another case stays",
            L"><feature name='ReverseCrown'><Property label='sta' value='1'/></feature><Feature name='ReverseCrown'>"
            L"<Property label='sta' value='2'/></Feature><x/>",
            L"><feature name=\"ReverseCrown\"><Property label=\"sta\" value=\"1\"/></feature><x/>"
            L"<Feature name=\"ReverseCrown\"><Property label=\"sta\" value=\"2\"/></Feature>"},
        SuperelevationCase{L"a feature whose name is in another case is another one",
                           L"><Feature name='reversecrown'><Property label='sta' value='1'/></Feature><x/>",
                           L"><Feature name=\"reversecrown\"><Property label=\"sta\" value=\"1\"/></Feature><x/>"},
        SuperelevationCase{L"an empty feature goes", L"><Feature name='FlatSta'/><x/>", L"><x/>"},
        SuperelevationCase{L"other features stay",
                           L"><Feature name='Other'><Property label='sta' value='1'/></Feature>",
                           L"><Feature name=\"Other\"><Property label=\"sta\" value=\"1\"/></Feature>"}),
    BY_RULE);

void ExpectEmpty(const FViewSuperelevation& superelevation)
{
    for (const double station :
         {superelevation.beginRunoutSta, superelevation.endofRunoutSta, superelevation.fullSuperSta,
          superelevation.runoffSta, superelevation.beginRunoffSta, superelevation.startofRunoutSta})
    {
        EXPECT_EQ(station, UNSET_DOUBLE);
    }
    EXPECT_TRUE(superelevation.adverse);
    EXPECT_TRUE(superelevation.reverseCrownStations.empty());
    EXPECT_TRUE(superelevation.flatStations.empty());
}

TEST(FViewSuperelevation, WithoutChildrenAllIsUnsetAndNothingIsAdded)
{
    ExpectEmpty(FViewSuperelevation());
    ExpectEmpty(Read<FViewSuperelevation>(L"<Superelevation staStart='5'/>"));
    EXPECT_EQ(Written<FViewSuperelevation>(L"<Superelevation/>"), L"<Superelevation/>");
}

TEST(FViewSuperelevation, ReadingAndClearingLeaveNothingOfTheFormerElement)
{
    XmlText full(L"<Superelevation><BeginRunoutSta>1</BeginRunoutSta><BeginRunoffSta>2</BeginRunoffSta>"
                 L"<StartofRunoutSta>3</StartofRunoutSta><EndofRunoutSta>4</EndofRunoutSta>"
                 L"<FullSuperSta>5</FullSuperSta><RunoffSta>6</RunoffSta><AdverseSE>non-adverse</AdverseSE>"
                 L"<Feature name='ReverseCrown'><Property label='sta' value='7'/></Feature>"
                 L"<Feature name='FlatSta'><Property label='sta' value='8'/></Feature></Superelevation>");
    XmlText empty(L"<Superelevation/>");
    FViewSuperelevation superelevation;
    EXPECT_TRUE(superelevation.ReadElement(full.Root()));
    EXPECT_EQ(superelevation.beginRunoutSta, 1.0);
    EXPECT_EQ(superelevation.beginRunoffSta, 2.0);
    EXPECT_EQ(superelevation.startofRunoutSta, 3.0);
    EXPECT_EQ(superelevation.endofRunoutSta, 4.0);
    EXPECT_EQ(superelevation.fullSuperSta, 5.0);
    EXPECT_EQ(superelevation.runoffSta, 6.0);
    EXPECT_FALSE(superelevation.adverse);
    EXPECT_EQ(superelevation.reverseCrownStations, PiCmCopyList<WcStString>{L"7"});
    EXPECT_EQ(superelevation.flatStations, PiCmCopyList<WcStString>{L"8"});
    FViewSuperelevation cleared = superelevation;
    cleared.Clear();
    ExpectEmpty(cleared);
    EXPECT_TRUE(superelevation.WriteElement(full.Root()));
    EXPECT_TRUE(superelevation.ReadElement(empty.Root()));
    ExpectEmpty(superelevation);
}

TEST(FViewSuperelevation, WritingFailsWhereAChildItNeedsCanNotStand)
{
    FViewSuperelevation superelevation;
    superelevation.fullSuperSta = 5.0;
    EXPECT_TRUE(WrittenOntoText(superelevation));
    superelevation.beginRunoffSta = 10.0;
    EXPECT_TRUE(WrittenOntoText(superelevation));
    FViewSuperelevation adverse = superelevation;
    adverse.beginRunoutSta = 5.0;
    EXPECT_FALSE(WrittenOntoText(adverse));
    superelevation.startofRunoutSta = 20.0;
    EXPECT_FALSE(WrittenOntoText(superelevation));
}

TEST(FViewSuperelevation, TheFirstChildOfANameCountsInAnyCaseAndOrder)
{
    const auto superelevation = Read<FViewSuperelevation>(
        L"<Superelevation><runoffsta>1</runoffsta><RunoffSta>2</RunoffSta><AdverseSE>non-adverse</AdverseSE>"
        L"<BeginRunoutSta>3</BeginRunoutSta></Superelevation>");
    EXPECT_EQ(superelevation.runoffSta, 1.0);
    EXPECT_EQ(superelevation.beginRunoutSta, 3.0);
    EXPECT_FALSE(superelevation.adverse);
}

TEST(FViewSuperelevation, ALaterFeatureReplacesAnEarlierOne)
{
    const auto superelevation = Read<FViewSuperelevation>(
        L"<Superelevation><Feature name='FlatSta'><Property label='sta' value='1'/></Feature>"
        L"<Feature name='FlatSta'><Property label='sta' value=''/><Property label='Sta' value='3'/></Feature>"
        L"</Superelevation>");
    EXPECT_EQ(superelevation.flatStations, PiCmCopyList<WcStString>{L""});
}

TEST(FViewSuperelevation, ALaterFeatureWithoutAStationEmptiesTheList)
{
    const auto superelevation = Read<FViewSuperelevation>(
        L"<Superelevation><Feature name='FlatSta'><Property label='sta' value='1'/></Feature>"
        L"<Feature name='ReverseCrown'><Property label='sta' value='2'/></Feature>"
        L"<Feature name='FlatSta'><Property label='x' value='3'/></Feature><Feature name='ReverseCrown'/>"
        L"</Superelevation>");
    EXPECT_TRUE(superelevation.flatStations.empty());
    EXPECT_TRUE(superelevation.reverseCrownStations.empty());
}

TEST(FViewSuperelevation, StationsKeepTheirOrder)
{
    const std::wstring xml = L"<Superelevation><Feature name=\"FlatSta\"><Property label=\"sta\" value=\"9\"/>"
                             L"<Property label=\"sta\" value=\"10.0\"/><Property label=\"sta\" value=\"1\"/>"
                             L"</Feature></Superelevation>";
    EXPECT_EQ(Read<FViewSuperelevation>(xml).flatStations, (PiCmCopyList<WcStString>{L"9", L"10.0", L"1"}));
    EXPECT_EQ(Written<FViewSuperelevation>(xml), xml);
}

TEST(FViewSuperelevation, AssignmentTakesEveryFieldAndReplacesBothLists)
{
    FViewSuperelevation source;
    source.version = 3;
    source.beginRunoutSta = 1.0;
    source.beginRunoffSta = 2.0;
    source.fullSuperSta = 3.0;
    source.runoffSta = 4.0;
    source.startofRunoutSta = 5.0;
    source.endofRunoutSta = 6.0;
    source.adverse = false;
    source.reverseCrownStations = {L"7"};
    source.flatStations = {L"8"};
    FViewSuperelevation assigned;
    assigned.reverseCrownStations = {L"a", L"b"};
    assigned.flatStations = {L"c", L"d"};
    assigned = source;
    EXPECT_EQ(assigned.version, 3);
    EXPECT_EQ(assigned.beginRunoutSta, 1.0);
    EXPECT_EQ(assigned.beginRunoffSta, 2.0);
    EXPECT_EQ(assigned.fullSuperSta, 3.0);
    EXPECT_EQ(assigned.runoffSta, 4.0);
    EXPECT_EQ(assigned.startofRunoutSta, 5.0);
    EXPECT_EQ(assigned.endofRunoutSta, 6.0);
    EXPECT_FALSE(assigned.adverse);
    EXPECT_EQ(assigned.reverseCrownStations, PiCmCopyList<WcStString>{L"7"});
    EXPECT_EQ(assigned.flatStations, PiCmCopyList<WcStString>{L"8"});
}

TEST(FViewSuperelevation, TheFieldsDoNotChangeByTheRepair)
{
    XmlText xml(
        L"<Superelevation><BeginRunoffSta>10</BeginRunoffSta><StartofRunoutSta>20</StartofRunoutSta></Superelevation>");
    FViewSuperelevation superelevation;
    superelevation.ReadElement(xml.Root());
    superelevation.WriteElement(xml.Root());
    EXPECT_EQ(superelevation.beginRunoffSta, 10.0);
    EXPECT_EQ(superelevation.startofRunoutSta, 20.0);
    EXPECT_EQ(superelevation.endofRunoutSta, UNSET_DOUBLE);
}

TEST(FViewSuperelevation, WithoutTheParsersMemoryItIsWrittenWholeOrItsWantIsRaised)
{
    FViewSuperelevation superelevation;
    superelevation.beginRunoffSta = 10.0;
    superelevation.startofRunoutSta = 20.0;
    superelevation.flatStations.push_back(L"30");
    bool isFirstAlone = false;
    const int raised = RefusedPages(L"<Superelevation/>", [&](XmlText& xml) {
        const bool isWritten = superelevation.WriteElement(xml.Root());
        isFirstAlone = isFirstAlone || (!isWritten && xml.Root().HasChild());
        return isWritten;
    });
    EXPECT_GT(raised, 10);
    EXPECT_TRUE(isFirstAlone) << "the end of run-out found a place, and its start did not";
}

} // namespace
} // namespace jlandxml
