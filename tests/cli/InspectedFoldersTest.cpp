// Finished files of generated work folders, and what the checks say of them.

#include "base/Exceptions.h"
#include "cli/CommandLine.h"
#include "inspect/Checks.h"
#include "inspect/ReadLandXml.h"
#include "support/RunFixture.h"
#include "support/generator/WorkFolderGenerator.h"

#include <algorithm>
#include <optional>
#include <set>

namespace jlandxml
{
namespace
{

using generator::MakeWorkFolder;
using generator::WorkFolder;
using inspect::Finding;
using inspect::LandXmlFile;

constexpr std::uint64_t INSPECTED_SEED = 14;
constexpr std::size_t FILES = 200;

// Findings in files of folders as hosts write them: each follows from something that is so on purpose.

/// The alignment that a finding's object names; null if it names none.
const inspect::Alignment* AlignmentOf(const LandXmlFile& file, const Finding& finding)
{
    const inspect::Alignment* found = nullptr;
    ForEachAlignment(file, [&](const inspect::Alignment& alignment) {
        found = finding.object.starts_with(std::wstring(alignment.name) + L"／") ? &alignment : found;
    });
    return found;
}

bool IsOfARiver(const LandXmlFile& file, const Finding& finding)
{
    const inspect::Alignment* const alignment = AlignmentOf(file, finding);
    return alignment != nullptr && alignment->isRiver && finding.severity == inspect::Severity::Information;
}

/// The transition's stations as the converter gives them: without a beginning of the run-out, the beginning of the
/// run-off leaves as the start of the run-out, in front of the curve.
bool HasMovedRunout(const LandXmlFile& file, const Finding& finding)
{
    const inspect::Alignment* const alignment = AlignmentOf(file, finding);
    if (alignment == nullptr || finding.text.find(L"、StartofRunoutSta") == std::wstring::npos)
    {
        return false;
    }
    return std::any_of(alignment->superelevations.begin(), alignment->superelevations.end(), [&](const auto& one) {
        const auto has = [&](std::wstring_view kind) {
            return std::any_of(one.stations.begin(), one.stations.end(),
                               [&](const auto& station) { return station.kind == kind; });
        };
        return finding.object.ends_with(L" " + std::wstring(one.staStart.text)) && has(L"StartofRunoutSta") &&
               !has(L"BeginRunoutSta") && !has(L"BeginRunoffSta");
    });
}

/// Every route has its own left and right stakes.
bool NamesStakesOfAnotherRoute(const LandXmlFile& file, const Finding& finding)
{
    const auto isNamed = [&](const inspect::PointGroup& group) {
        return group.IsWidthStakes() && finding.object == L"CgPoints " + std::wstring(group.name);
    };
    std::set<std::wstring_view> alignments;
    std::size_t groups = 0;
    for (const inspect::PointGroup& group : file.pointGroups)
    {
        if (isNamed(group))
        {
            alignments.insert(group.alignmentRefs);
            ++groups;
        }
    }
    return groups > 1 && alignments.size() == groups;
}

/// An alignment that is shorter than its sections' intervals has all of them at its start.
bool HasAllSectionsAtItsStart(const LandXmlFile& file, const Finding& finding)
{
    const inspect::Alignment* const alignment = AlignmentOf(file, finding);
    const auto isAtStart = [&](const inspect::CrossSect& section) {
        return section.station.value == alignment->staStart.value;
    };
    return alignment != nullptr && alignment->crossSects.size() == 1 &&
           std::all_of(alignment->crossSects.front().sections.begin(), alignment->crossSects.front().sections.end(),
                       isAtStart);
}

/// The generator draws coordinates of any size, with any zone.
bool IsAnyPlace(const LandXmlFile&, const Finding&)
{
    return true;
}

/// A station equation that counts on from less than it came to.
bool IsAnEquation(const LandXmlFile&, const Finding& finding)
{
    return finding.object.find(L"／測点定義 ") != std::wstring::npos;
}

struct Explained
{
    const wchar_t* code;
    bool (*explains)(const LandXmlFile& file, const Finding& finding);
};
constexpr Explained OF_HOSTS[] = {
    {L"H05", IsOfARiver},
    {L"T04", IsAnEquation},
    {L"C01", HasMovedRunout},
    {L"R04", NamesStakesOfAnotherRoute},
    {L"R08", IsAnyPlace},
    {L"R09", IsAnyPlace},
    {L"T05", HasAllSectionsAtItsStart},
    {L"C02", HasAllSectionsAtItsStart},
    {L"R04", HasAllSectionsAtItsStart},
};

// Findings in files of folders in which something is amiss.

/// What of the generator's oddities brings a finding about.
struct Oddity
{
    const wchar_t* codes;
    const char* what;
};
constexpr Oddity ODDITIES[] = {
    {L"X01", "an element's name in another case, or an element that is none of its parent's"},
    {L"X02", "an odd number"},
    {L"H01", "a point that is dropped, is named in another case, or has an odd number"},
    {L"H02 H03 H04 H05 H07", "an element or a point that is dropped, doubled, shuffled or has an odd number"},
    {L"H06 H09", "a length that is odd or of an element that is dropped, doubled or has another name"},
    {L"H08", "a rot that is dropped or odd"},
    {L"H10 H11 H12", "points without names follow from elements and points that are dropped, doubled or shuffled"},
    {L"T01", "a staStart that is dropped or odd"},
    {L"T02 T03 T04", "equations that are dropped, doubled, shuffled or odd; those that go back are the host's"},
    {L"T05 C02", "a cross section that is doubled, or sections that are shuffled"},
    {L"T06", "an odd station or an odd length"},
    {L"T07 T08", "odd fields of points, and points beside an alignment of which an element is odd"},
    {L"V01 V02 V03 V04", "points of a profile that are dropped, doubled, shuffled or odd"},
    {L"V05", "a name of a profile that is odd or shuffled"},
    {L"C01", "stations of a transition that are dropped, doubled or odd, and the converter's own exchange of them"},
    {L"C03 C04 C05 C06 C07", "points of cross sections that are dropped, doubled, shuffled or odd"},
    {L"C08", "a name of a surface that is odd"},
    {L"F01 F02 F03 F04 F05 F06 F07", "points and faces that are dropped, doubled, shuffled or odd"},
    {L"R01", "a name of an alignment that is odd, or side files in another encoding or with shifted rows"},
    {L"R02 R03", "references to what was dropped"},
    {L"R04", "rows, points, surfaces or alignments that are doubled, and stakes of several routes"},
    {L"R05 R06 R07 R11", "a coordinate system that is dropped or odd"},
    {L"R08 R09", "coordinates are drawn with any zone, and odd ones"},
    {L"R10", "an odd direction"},
    {L"R12", "units that are dropped or have another name"},
};

bool ComesFromAnOddity(const Finding& finding)
{
    return std::any_of(std::begin(ODDITIES), std::end(ODDITIES), [&](const Oddity& oddity) {
        return std::wstring_view(oddity.codes).find(finding.check->code) != std::wstring_view::npos;
    });
}

class InspectedFolders : public RunTest
{
  protected:
    /// The finished file of a folder; nothing if its run makes none, or one whose outermost element has an odd name.
    std::optional<LandXmlFile> Finished(const WorkFolder& work) const
    {
        const std::filesystem::path path = folder.Path() / "work";
        const std::wstring output = folder.Name(L"out.xml");
        std::filesystem::remove_all(path);
        generator::WriteFiles(work.files, path);
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const ExitStatus status =
            RunCommandLine({WideName(path), L"-s", WideName(path / "settings.json"), L"-o", output});
        testing::internal::GetCapturedStdout();
        testing::internal::GetCapturedStderr();
        if (status != ExitStatus::FileWritten)
        {
            return {};
        }
        try
        {
            return inspect::ReadLandXmlFile(output);
        }
        catch (const CException& exception)
        {
            EXPECT_TRUE(ErrorText(exception).starts_with(L"LandXMLのファイルではありません"));
            return {};
        }
    }
};

bool IsExplained(const LandXmlFile& file, const Finding& finding, bool isHostLike)
{
    if (!isHostLike)
    {
        return ComesFromAnOddity(finding);
    }
    return std::any_of(std::begin(OF_HOSTS), std::end(OF_HOSTS), [&](const Explained& one) {
        return one.code == std::wstring_view(finding.check->code) && one.explains(file, finding);
    });
}

TEST_F(InspectedFolders, ShowNothingButWhatTheGeneratorMeant)
{
    const std::vector<const inspect::Check*> checks = inspect::EveryCheck();
    std::size_t finished = 0;
    std::set<std::wstring> saidOfHosts;
    for (std::uint32_t number = 1; finished < FILES; ++number)
    {
        const WorkFolder work = MakeWorkFolder(INSPECTED_SEED, number);
        const std::optional<LandXmlFile> file = Finished(work);
        if (!file)
        {
            EXPECT_FALSE(work.hostLike) << number;
            continue;
        }
        ++finished;
        for (const Finding& finding : Inspect(*file, checks))
        {
            EXPECT_TRUE(IsExplained(*file, finding, work.hostLike))
                << "folder " << number << (work.hostLike ? " (as hosts write it): " : ": ")
                << Utf8FromWide(finding.check->code + (L" " + finding.object) + L": " + finding.text);
            if (work.hostLike)
            {
                saidOfHosts.insert(finding.check->code);
            }
        }
    }
    for (const Explained& one : OF_HOSTS)
    {
        EXPECT_EQ(saidOfHosts.count(one.code), 1U) << Utf8FromWide(one.code) << " is explained for nothing";
    }
}

} // namespace
} // namespace jlandxml
