#include "model/FViewSurfaces.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

TEST(FViewSurface, TakesNameAndDescription)
{
    const auto surface =
        Read<FViewSurface>(L"<Surface name='現況' desc='ExistingGround 線形名=R1'><Definition/></Surface>");
    EXPECT_EQ(surface.name, L"現況");
    EXPECT_EQ(surface.desc, L"ExistingGround 線形名=R1");
    EXPECT_EQ(surface.alignmentRefs, L"");
}

TEST(FViewSurfaces, ReadingAndClearingLeaveNothingOfTheFormerElement)
{
    XmlText full(
        L"<Surfaces><Surface name='n' desc='d'><Feature><Property value='R1'/></Feature></Surface></Surfaces>");
    XmlText empty(L"<Surfaces><Surface/></Surfaces>");
    FViewSurface surface;
    EXPECT_TRUE(surface.ReadElement(full.Child(L"Surface")));
    EXPECT_EQ(surface.alignmentRefs, L"R1");
    surface.used = true;
    EXPECT_TRUE(surface.ReadElement(empty.Child(L"Surface")));
    EXPECT_EQ(surface.name + surface.desc + surface.alignmentRefs, L"");
    EXPECT_FALSE(surface.used);
    FViewSurfaces set;
    EXPECT_TRUE(set.ReadElement(full.Root()));
    EXPECT_TRUE(set.ReadElement(empty.Root()));
    ASSERT_EQ(set.surfaces.size(), 1U);
    EXPECT_EQ(set.surfaces[0].name, L"");
    set.Clear();
    EXPECT_TRUE(set.surfaces.empty());
}

struct ReferenceCase
{
    const char* name;
    const wchar_t* children;
    const wchar_t* alignmentRefs;
};

class SurfaceReference : public testing::TestWithParam<ReferenceCase>
{};

TEST_P(SurfaceReference, IsTheFirstPropertyOfTheFirstFeature)
{
    EXPECT_EQ(Read<FViewSurface>(std::wstring(L"<Surface>") + GetParam().children + L"</Surface>").alignmentRefs,
              GetParam().alignmentRefs);
}

INSTANTIATE_TEST_SUITE_P(
    FViewSurfaces, SurfaceReference,
    testing::Values(
        ReferenceCase{"WhateverTheirNames", L"<Feature name='f'><Property label='x' value='A'/></Feature>", L"A"},
        ReferenceCase{"InAnyCase", L"<feature><property VALUE='A'/></feature>", L"A"},
        ReferenceCase{"OfTheFirstFeatureAlone", L"<Feature/><Feature><Property value='A'/></Feature>", L""},
        ReferenceCase{"OfTheFirstPropertyAlone", L"<Feature><Property label='x'/><Property value='A'/></Feature>", L""},
        ReferenceCase{"NoFeature", L"<Definition/>", L""}),
    [](const auto& one) { return one.param.name; });

struct NoteCase
{
    const char* name;
    const wchar_t* desc;
    const wchar_t* stripped;
};

class AlignmentNote : public testing::TestWithParam<NoteCase>
{};

TEST_P(AlignmentNote, IsCutWithAllBehindIt)
{
    XmlText xml(std::wstring(L"<Surfaces><Surface desc='") + GetParam().desc + L"'/></Surfaces>");
    FViewSurfaces::StripAlignmentNote(xml.Root());
    EXPECT_EQ(xml.Child(L"Surface").FindAttribute(L"desc"), std::wstring_view(GetParam().stripped));
}

INSTANTIATE_TEST_SUITE_P(FViewSurfaces, AlignmentNote,
                         testing::Values(NoteCase{"BehindABlank", L"ABC 線形名=R1", L"ABC"},
                                         NoteCase{"BehindALineEnd", L"ABC&#13;&#10;線形名=R1", L"ABC"},
                                         NoteCase{"BehindALineEndAndABlank", L"ABC&#13;&#10; 線形名=R1&#10;x", L"ABC"},
                                         NoteCase{"Alone", L"線形名=R1", L""},
                                         NoteCase{"OneOfTwoBlanksStays", L"ABC  線形名=R1", L"ABC "},
                                         NoteCase{"ABlankBeforeTheLineEndStays", L"ABC &#13;&#10;線形名=", L"ABC "},
                                         NoteCase{"SeveralLineEnds", L"ABC&#10;&#13;&#10;線形名=R1", L"ABC"},
                                         NoteCase{"TheFirstOfTwo", L"a線形名=b 線形名=c", L"a"},
                                         NoteCase{"WithoutItsSignItIsNone", L"ABC 線形名 R1", L"ABC 線形名 R1"},
                                         NoteCase{"NoText", L"", L""},
                                         NoteCase{"LineEndsWithoutANoteStay", L"ABC&#13;&#10;", L"ABC\r\n"}),
                         [](const auto& one) { return one.param.name; });

TEST(FViewSurfaces, ASurfaceWithoutADescriptionGetsNone)
{
    XmlText xml(L"<Surfaces><Surface/><surface desc='x線形名='/><Surface desc='y線形名='/></Surfaces>");
    FViewSurfaces::StripAlignmentNote(xml.Root());
    EXPECT_EQ(xml.Text(), L"<Surfaces><Surface/><surface desc=\"x線形名=\"/><Surface desc=\"y\"/></Surfaces>");
}

TEST(FViewSurfaces, ReferencesGoToTheSurfacesByPosition)
{
    XmlText xml(L"<Surfaces><Surface/><surface/><Surface><Definition/><Feature name='f'><Property label='x' "
                L"value='A'/></Feature></Surface>"
                L"<Surface><Feature><Property label='x' value='B'/></Feature></Surface><Surface/></Surfaces>");
    FViewSurfaces set;
    set.ReadElement(xml.Root());
    ASSERT_EQ(set.surfaces.size(), 4U);
    set.surfaces[0].alignmentRefs = L"R1";
    set.WriteAlignmentRefs(xml.Root());
    EXPECT_EQ(
        xml.Text(),
        L"<Surfaces><Surface><Feature><Property label=\"alignmentRefs\" value=\"R1\"/></Feature></Surface><surface/>"
        L"<Surface><Definition/><Feature name=\"f\"><Property label=\"x\" value=\"A\"/></Feature>"
        L"<Feature><Property label=\"alignmentRefs\" value=\"A\"/></Feature></Surface>"
        L"<Surface><Feature><Property label=\"x\" value=\"B\"/><Property label=\"alignmentRefs\" "
        L"value=\"B\"/></Feature></Surface>"
        L"<Surface/></Surfaces>");
}

TEST(FViewSurfaces, AReferenceThatStandsThereIsReplaced)
{
    FViewSurface surface;
    surface.alignmentRefs = L"R2";
    XmlText xml(L"<Surface><Feature><Property label='alignmentRefs' value='R1'/></Feature></Surface>");
    surface.WriteAlignmentRef(xml.Root());
    EXPECT_EQ(xml.Text(), L"<Surface><Feature><Property label=\"alignmentRefs\" value=\"R2\"/></Feature></Surface>");
}

TEST(FViewSurfaces, TheTableKnowsExistingGroundByItsWord)
{
    FViewSurfacesList list;
    list.push_back(Read<FViewSurfaces>(
        L"<Surfaces><Surface name='a' desc='xExistingGroundy'/><Surface name='b' desc='existingground'/></Surfaces>"));
    list.push_back(Read<FViewSurfaces>(L"<Surfaces><Surface name='c'/></Surfaces>"));
    list[0].stringArray.push_back(L"x");
    list.FillOutPutCSS();
    ASSERT_EQ(list.outPutCSS.size(), 3U);
    EXPECT_TRUE(list.outPutCSS[0].flagFirst && list.outPutCSS[0].flagSecond);
    EXPECT_FALSE(list.outPutCSS[1].flagFirst || list.outPutCSS[1].flagSecond);
    EXPECT_EQ(list.outPutCSS[2].name, L"c");
    EXPECT_TRUE(list[0].stringArray.empty());
    list.FillOutPutCSS();
    EXPECT_EQ(list.outPutCSS.size(), 6U);
}

TEST(FViewSurfaces, ACopyDoesNotCarryTheStringArray)
{
    FViewSurfaces set;
    set.stringArray.push_back(L"x");
    set.surfaces.emplace_back().name = L"a";
    const FViewSurfaces copy = set;
    FViewSurfaces assigned;
    assigned.stringArray.push_back(L"y");
    assigned = set;
    EXPECT_TRUE(copy.stringArray.empty());
    EXPECT_EQ(copy.surfaces[0].name, L"a");
    EXPECT_EQ(assigned.stringArray, PiCmCopyArray<std::wstring>{L"y"});
    assigned = FViewSurfaces(set);
    EXPECT_EQ(assigned.stringArray, PiCmCopyArray<std::wstring>{L"y"});
    EXPECT_EQ(assigned.surfaces[0].name, L"a");
}

TEST(FViewSurfaces, WriteElementSetsNamesAndDescriptions)
{
    FViewSurfaces set;
    EXPECT_EQ(WrittenInto(set, L"<Surfaces><Surface name='a'/></Surfaces>"),
              L"<Surfaces><Surface name=\"a\"/></Surfaces>");
    set.surfaces.emplace_back().name = L"n";
    set.surfaces.emplace_back().desc = L"d";
    EXPECT_EQ(WrittenInto(set, L"<Surfaces><Surface name='a' desc='b'/><Surface name='a' desc='b'/></Surfaces>"),
              L"<Surfaces><Surface name=\"n\" desc=\"b\"/><Surface name=\"a\" desc=\"d\"/></Surfaces>");
}

TEST(FViewSurfaces, SurfacesAreClaimedInListOrder)
{
    FViewSurfacesList list;
    list.push_back(Read<FViewSurfaces>(L"<Surfaces><Surface name='EG'/><Surface name='G'/></Surfaces>"));
    list.push_back(Read<FViewSurfaces>(L"<Surfaces><Surface name='E'/><Surface name='EG_1'/><Surface/></Surfaces>"));
    EXPECT_EQ(list.Claim(L"EG_1"), &list[0].surfaces[0]);
    EXPECT_EQ(list.Claim(L"EG_1"), &list[0].surfaces[1]);
    EXPECT_EQ(list.Claim(L"EG_1"), &list[1].surfaces[0]);
    EXPECT_EQ(list.Claim(L"EG_1"), &list[1].surfaces[2]);
    EXPECT_EQ(list.Claim(L"EG_1"), nullptr);
    list.ReleaseAll();
    EXPECT_EQ(list.Claim(L"xG"), &list[0].surfaces[1]);
    EXPECT_EQ(list.Claim(L""), nullptr);
}

TEST(FViewSurfaces, TextsOfAnyLengthAreClaimedFor)
{
    FViewSurfacesList list;
    list.push_back(Read<FViewSurfaces>(L"<Surfaces><Surface name='A'/><Surface name='AAAA'/></Surfaces>"));
    EXPECT_EQ(list.Claim(L"AB"), &list[0].surfaces[0]);
    EXPECT_EQ(list.Claim(L"AAAAAAAAAA"), &list[0].surfaces[1]);
    // Surfaces stay claimed while names are prepared for longer texts.
    EXPECT_EQ(list.Claim(std::wstring(1000, L'A')), nullptr);
    list.ReleaseAll();
    EXPECT_EQ(list.Claim(std::wstring(1000, L'A')), &list[0].surfaces[0]);
}

TEST(FViewSurfaces, ASurfaceThatWasUsedBeforeTheFirstClaimIsReleasedToo)
{
    FViewSurfacesList list;
    list.push_back(Read<FViewSurfaces>(L"<Surfaces><Surface name='EG'/></Surfaces>"));
    list[0].surfaces[0].used = true;
    EXPECT_EQ(list.Claim(L"EG_1"), nullptr);
    list.ReleaseAll();
    EXPECT_FALSE(list[0].surfaces[0].used);
    EXPECT_EQ(list.Claim(L"EG_1"), &list[0].surfaces[0]);
}

TEST(FViewSurfaces, ForgottenNamesAreTakenAnew)
{
    FViewSurfacesList list;
    list.push_back(Read<FViewSurfaces>(L"<Surfaces><Surface name='EG'/></Surfaces>"));
    EXPECT_EQ(list.Claim(L"FG_1"), nullptr);
    list[0].surfaces.emplace_back().name = L"FG";
    list.ForgetNames();
    EXPECT_EQ(list.Claim(L"FG_1"), &list[0].surfaces[1]);
}

TEST(FViewSurfaces, ACopyClaimsItsOwnSurfaces)
{
    FViewSurfacesList list;
    list.push_back(Read<FViewSurfaces>(L"<Surfaces><Surface name='EG'/></Surfaces>"));
    EXPECT_EQ(list.Claim(L"EG_1"), &list[0].surfaces[0]);
    list.ReleaseAll();
    FViewSurfacesList copy = list;
    list.clear();
    EXPECT_EQ(copy.Claim(L"EG_1"), &copy[0].surfaces[0]);
}

/// The first unused surface whose name is part of a text, looked for as plainly as it can be put.
FViewSurface* NaiveClaim(FViewSurfacesList& list, const std::wstring& text)
{
    for (FViewSurfaces& set : list)
    {
        for (FViewSurface& surface : set.surfaces)
        {
            if (!surface.used && surface.name != text && text.find(surface.name) != std::wstring::npos)
            {
                surface.used = true;
                return &surface;
            }
        }
    }
    return nullptr;
}

TEST(FViewSurfaces, RandomNamesAreClaimedAsByAPlainSearch)
{
    unsigned state = 7;
    const auto random = [&state](unsigned limit) { return (state = state * 1664525U + 1013904223U) / 65536U % limit; };
    const auto word = [&](unsigned longest) {
        std::wstring text;
        for (unsigned count = random(longest + 1); count > 0; --count)
        {
            text += L"AB地"[random(3)];
        }
        return text;
    };
    for (int round = 0; round < 500; ++round)
    {
        FViewSurfacesList list;
        list.resize(2);
        for (unsigned count = random(8); count > 0; --count)
        {
            list[random(2)].surfaces.emplace_back().name = word(3);
        }
        FViewSurfacesList plain = list;
        for (int claim = 0; claim < 8; ++claim)
        {
            const std::wstring text = word(5);
            const FViewSurface* const expected = NaiveClaim(plain, text);
            const FViewSurface* const actual = list.Claim(text);
            ASSERT_EQ(expected == nullptr, actual == nullptr);
            for (std::size_t set = 0; set < 2; ++set)
            {
                for (std::size_t surface = 0; surface < list[set].surfaces.size(); ++surface)
                {
                    ASSERT_EQ(list[set].surfaces[surface].used, plain[set].surfaces[surface].used);
                }
            }
        }
    }
}

TEST(FViewSurfaces, RowsThatAreAppendedLaterAreFoundToo)
{
    FViewSurfacesList list;
    list.outPutCSS = {{L"a", true, true}};
    EXPECT_EQ(list.FindRow(L"b"), nullptr);
    list.outPutCSS.push_back({L"b", true, true});
    EXPECT_EQ(list.FindRow(L"b"), &list.outPutCSS[1]);
}

TEST(FViewSurfaces, OfRowsWithOneNameTheFirstCounts)
{
    FViewSurfacesList list;
    list.outPutCSS = {{L"a", true, true}, {L"a", false, false}, {L"b", false, false}};
    EXPECT_EQ(list.FindRow(L"a"), &list.outPutCSS[0]);
    EXPECT_EQ(list.FindRow(L"b"), &list.outPutCSS[2]);
    EXPECT_EQ(list.FindRow(L"A"), nullptr);
}

} // namespace
} // namespace jlandxml
