#include "inspect/AlignmentReferences.h"

#include "SoundFile.h"

#include <algorithm>

namespace jlandxml::inspect
{
namespace
{

/// A file of alignments with the names.
LandXmlFile FileOf(const std::vector<std::string>& names)
{
    std::string text = "<LandXML><Alignments>";
    for (const std::string& name : names)
    {
        text += "<Alignment name=\"" + name + "\"/>";
    }
    return ReadLandXmlBytes(text + "</Alignments></LandXML>", L"named.xml");
}

struct ReferencesCase
{
    const char* name;
    std::vector<std::string> alignments;
    const wchar_t* references;
    std::vector<std::size_t> named; ///< by their places
    std::vector<std::wstring_view> missing;
};
const ReferencesCase REFERENCES_CASES[] = {
    {"OneName", {"線形1", "線形2"}, L"線形2", {1}, {}},
    {"OneNameWithBlanksRoundIt", {"線形1"}, L" 線形1\n", {0}, {}},
    {"AListInItsOwnOrder", {"線形1", "線形2"}, L"線形2 線形1", {1, 0}, {}},
    {"ANameWithABlankIsNoList", {"線形", "線形 1", "1"}, L"線形 1", {1}, {}},
    {"AMissingNameAmongOthers", {"線形1"}, L"線形9 線形1 線形8", {0}, {L"線形9", L"線形8"}},
    {"ANameTwice", {"線形1"}, L"線形1 線形1", {0}, {}},
    {"TheFirstOfTwoOfOneName", {"線形1", "線形1"}, L"線形1", {0}, {}},
    {"NoName", {"", "線形1"}, L" ", {}, {}},
    {"AnAlignmentNamedWithBlanksRoundIt", {" 線形1 "}, L"線形1", {0}, {}},
};

class AlignmentReferencesOf : public testing::TestWithParam<ReferencesCase>
{};

TEST_P(AlignmentReferencesOf, LeadToAlignmentsOrAreMissing)
{
    const ReferencesCase& one = GetParam();
    const LandXmlFile file = FileOf(one.alignments);
    const std::vector<Alignment>& alignments = file.routes.front().alignments;
    const AlignmentReferences references(file);
    std::vector<std::size_t> named;
    for (const Alignment* const alignment : references.Named(one.references))
    {
        named.push_back(static_cast<std::size_t>(alignment - alignments.data()));
    }
    EXPECT_EQ(named, one.named);
    EXPECT_EQ(references.Missing(one.references), one.missing);
    for (std::size_t index = 0; index < alignments.size(); ++index)
    {
        EXPECT_EQ(references.LeadTo(one.references, alignments[index]),
                  std::find(one.named.begin(), one.named.end(), index) != one.named.end());
    }
}

TEST(AlignmentReferences, KnowTheGroupsOfEachAlignment)
{
    LandXmlFile file = FileOf({"線形1", "線形2", "線形3"});
    for (const wchar_t* const references : {L"線形2", L"", L"線形1 線形2", L"線形9"})
    {
        file.pointGroups.emplace_back().alignmentRefs = references;
    }
    const std::vector<PointGroup>& groups = file.pointGroups;
    const std::vector<Alignment>& alignments = file.routes.front().alignments;
    const AlignmentReferences references(file);
    using Groups = std::vector<const PointGroup*>;
    EXPECT_EQ(references.GroupsOf(alignments[0]), (Groups{&groups[2]}));
    EXPECT_EQ(references.GroupsOf(alignments[1]), (Groups{&groups[0], &groups[2]}));
    EXPECT_EQ(references.GroupsOf(alignments[2]), Groups());
}

INSTANTIATE_TEST_SUITE_P(Inspect, AlignmentReferencesOf, testing::ValuesIn(REFERENCES_CASES),
                         [](const auto& one) { return std::string(one.param.name); });

} // namespace
} // namespace jlandxml::inspect
