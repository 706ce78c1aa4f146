// Finished files of generated work folders, and what the checks say of them.

#include "base/Exceptions.h"
#include "cli/CommandLine.h"
#include "inspect/Checks.h"
#include "inspect/ReadLandXml.h"
#include "support/Rounds.h"
#include "support/RunFixture.h"
#include "support/generator/WorkFolderGenerator.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace jlandxml
{
namespace
{

using generator::MakeWorkFolder;
using generator::Oddity;
using generator::WorkFolder;
using inspect::Finding;
using inspect::LandXmlFile;

constexpr std::uint64_t INSPECTED_SEED = 14;
constexpr std::size_t FILES = HAS_SANITIZERS ? 60 : 200;

// Findings in files of folders as hosts write them: each follows from something that is so on purpose.

/// The alignment that a finding's object names; null if it names none.
const inspect::Alignment* AlignmentOf(const LandXmlFile& file, const Finding& finding)
{
    const inspect::Alignment* found = nullptr;
    ForEachAlignment(file, [&](const inspect::Alignment& alignment) {
        found = finding.object.japanese.starts_with(std::wstring(alignment.name) + L"／") ? &alignment : found;
    });
    return found;
}

bool IsOfARiver(const LandXmlFile& file, const Finding& finding)
{
    const inspect::Alignment* const alignment = AlignmentOf(file, finding);
    return alignment != nullptr && alignment->isRiver && finding.severity == inspect::Severity::Information;
}

/// The superelevation transition that a finding's object names; null if it names none.
const inspect::Superelevation* TransitionOf(const LandXmlFile& file, const Finding& finding)
{
    const inspect::Alignment* const alignment = AlignmentOf(file, finding);
    const inspect::Superelevation* found = nullptr;
    for (std::size_t index = 0; alignment != nullptr && index < alignment->superelevations.size(); ++index)
    {
        const inspect::Superelevation& one = alignment->superelevations[index];
        found = finding.object.japanese.ends_with(L" " + std::wstring(one.staStart.text)) ? &one : found;
    }
    return found;
}

/// The transition's stations as the converter gives them: without a beginning of the run-out, the beginning of the
/// run-off leaves as the start of the run-out, in front of the curve.
bool HasMovedRunout(const LandXmlFile& file, const Finding& finding)
{
    const inspect::Superelevation* const transition = TransitionOf(file, finding);
    const auto has = [&](std::wstring_view kind) {
        return std::any_of(transition->stations.begin(), transition->stations.end(),
                           [&](const auto& station) { return station.kind == kind; });
    };
    return transition != nullptr && finding.text.find(L"、StartofRunoutSta") != std::wstring::npos &&
           has(L"StartofRunoutSta") && !has(L"BeginRunoutSta") && !has(L"BeginRunoffSta");
}

/// The side file of cross slopes gives reverse crowns by regions, and what a region holds goes to one transition:
/// crowns of the next curves lie behind its end.
bool NamesACrownOfARegion(const LandXmlFile& file, const Finding& finding)
{
    const auto isNamedBehind = [&](const inspect::Superelevation& one) {
        double end = one.staEnd.value;
        for (const inspect::TransitionStation& station : one.stations)
        {
            end = std::max(end, station.station.value);
        }
        return std::any_of(one.features.begin(), one.features.end(), [&](const inspect::Feature& feature) {
            const std::vector<inspect::TransitionStation> crowns = StationsOf(feature);
            return std::any_of(crowns.begin(), crowns.end(), [&](const inspect::TransitionStation& crown) {
                return crown.station.value > end &&
                       finding.text.find(L"ReverseCrown " + std::wstring(crown.station.text)) != std::wstring::npos;
            });
        });
    };
    const inspect::Superelevation* const transition = TransitionOf(file, finding);
    return transition != nullptr && isNamedBehind(*transition);
}

/// Every route has its own left and right stakes.
bool NamesStakesOfAnotherRoute(const LandXmlFile& file, const Finding& finding)
{
    const auto isNamed = [&](const inspect::PointGroup& group) {
        return group.IsWidthStakes() && finding.object.japanese == L"CgPoints " + std::wstring(group.name);
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

/// Hosts put the alignment's name behind a surface's, and make none of a line of rock.
bool IsAGroundLine(const LandXmlFile&, const Finding& finding)
{
    return finding.object.japanese.find(L"／縦断地盤線 ") != std::wstring::npos;
}

/// A station equation that counts on from less than it came to.
bool IsAnEquation(const LandXmlFile&, const Finding& finding)
{
    return finding.object.japanese.find(L"／測点定義 ") != std::wstring::npos;
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
    {L"C01", NamesACrownOfARegion},
    {L"R04", NamesStakesOfAnotherRoute},
    {L"C08", IsAGroundLine},
    {L"T05", HasAllSectionsAtItsStart},
    {L"C02", HasAllSectionsAtItsStart},
    {L"R04", HasAllSectionsAtItsStart},
};

// Findings in files of folders in which something is amiss.

/// The elements and files by which a finding of one of the codes can be brought about, when something is amiss in one
/// of them, or just around it.
struct Cause
{
    const wchar_t* codes;
    const char* tags;
};
constexpr Cause CAUSES[] = {
    {L"H01 H02 H03 H04 H05 H06 H07 H08 H09 H13 X04",
     "Alignment CoordGeom Line Curve Spiral IrregularLine Start End Center PI PntList2D"},
    {L"H10 H11 H12", "Alignment CoordGeom Line Curve Spiral IrregularLine Start End"},
    {L"T01 T02 T03 T04", "Alignment StaEquation Profile"},
    {L"T05 C02 R04", "Alignments Alignment CrossSects CrossSect"},
    {L"T06", "widening superElevation Alignment CoordGeom Line Curve Spiral Start End Center PI StaEquation CrossSects "
             "CrossSect "
             "Superelevation Feature Property"},
    {L"T06 T07 T08 R10", "Alignment CoordGeom Line Curve Spiral Start End Center PI Units Metric intermediatePts"},
    {L"V01 V02 V03 V04 V05 C06", "Alignment Profile ProfAlign ProfSurf PVI ParaCurve CircCurve PntList2D CrossSects"},
    {L"C01", "Superelevation Feature Property superElevation"},
    {L"C03 C04 C05 C06 C07",
     "CrossSects CrossSect CrossSectSurf DesignCrossSectSurf CrossSectPnt PntList2D Feature Property"},
    {L"C08", "Surfaces Surface ProfSurf ProfAlign CrossSectSurf"},
    {L"X05", "CgPoints CgPoint Alignment CoordGeom Line Curve Spiral IrregularLine Start End Center PI PntList2D "
             "StaEquation Profile ProfAlign ProfSurf PVI ParaCurve CircCurve UnsymParaCurve Superelevation CrossSects "
             "CrossSect CrossSectSurf DesignCrossSectSurf CrossSectPnt Surface Definition Feature Property widening "
             "superElevation intermediatePts widthStake"},
    {L"X06",
     "Alignment CoordGeom Line Curve Spiral IrregularLine Profile ProfAlign ParaCurve CircCurve UnsymParaCurve"},
    {L"C09", "Alignment Feature Property widening superElevation"},
    {L"F01 F02 F03 F04 F05 F06 F07 R04", "Surface Definition Pnts Faces P F"},
    {L"R01 R02 R03",
     "Alignments Alignment Feature Property CgPoints Roadways Roadway Surface intermediatePts widthStake"},
    {L"R04", "Alignments Surfaces Surface CgPoints CgPoint Roadways Roadway intermediatePts widthStake"},
    {L"R05 R06 R07 R11", "LandXML CoordinateSystem Feature Property settings"},
    {L"R08 R09", "LandXML CoordinateSystem Alignment CoordGeom Line Curve Spiral Start End Surface Pnts P CgPoint "
                 "intermediatePts widthStake"},
    {L"R12 R13 T08", "LandXML Units Metric"},
};

bool Holds(std::string_view tags, std::string_view tag)
{
    return (" " + std::string(tags) + " ").find(" " + std::string(tag) + " ") != std::string::npos;
}

std::string LowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
    });
    return text;
}

/// True if an oddity was put in where a finding of that element can come from.
bool IsThere(const LandXmlFile& file, const Finding& finding, const Oddity& oddity)
{
    const std::wstring owner = WideFromUtf8(oddity.owner);
    if (owner.empty() || finding.object.japanese.find(owner) != std::wstring::npos)
    {
        return true;
    }
    // What lies on an alignment is judged by it.
    return std::any_of(file.pointGroups.begin(), file.pointGroups.end(), [&](const inspect::PointGroup& group) {
        return group.alignmentRefs == owner && finding.object.japanese.starts_with(group.name);
    });
}

bool BringsAbout(const LandXmlFile& file, const Finding& finding, const Oddity& oddity)
{
    if (oddity.what == "Damage")
    {
        return true;
    }
    const std::wstring_view code = finding.check->code;
    if (code == L"X01" || code == L"X02")
    {
        // The finding names the element itself, in the file's own words. A ground line's points leave as one list.
        const std::string object = LowerCase(Utf8FromWide(finding.object.japanese));
        return oddity.tags.empty() || oddity.tags.front().ends_with(".csv") ||
               std::any_of(oddity.tags.begin(), oddity.tags.end(), [&](const std::string& tag) {
                   return (tag == "PVI" && finding.object.japanese == L"PntList2D") || tag == "Property" ||
                          tag == "Feature" || object.find(LowerCase(tag)) != std::string::npos;
               });
    }
    return IsThere(file, finding, oddity) && std::any_of(std::begin(CAUSES), std::end(CAUSES), [&](const Cause& cause) {
               return std::wstring_view(cause.codes).find(code) != std::wstring_view::npos &&
                      std::any_of(oddity.tags.begin(), oddity.tags.end(), [&](const std::string& tag) {
                          return Holds(cause.tags, tag.substr(0, tag.find_first_of("_.")));
                      });
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

bool IsOfHosts(const LandXmlFile& file, const Finding& finding)
{
    return std::any_of(std::begin(OF_HOSTS), std::end(OF_HOSTS), [&](const Explained& one) {
        return one.code == std::wstring_view(finding.check->code) && one.explains(file, finding);
    });
}

bool IsExplained(const LandXmlFile& file, const Finding& finding, const WorkFolder& work)
{
    return IsOfHosts(file, finding) ||
           std::any_of(work.oddities.begin(), work.oddities.end(),
                       [&](const Oddity& oddity) { return BringsAbout(file, finding, oddity); });
}

/// What was done to a folder, for a failure.
std::string Told(const std::vector<Oddity>& oddities)
{
    std::string text;
    for (const Oddity& oddity : oddities)
    {
        text += "\n    " + oddity.what + " [" + oddity.owner + "]";
        for (const std::string& tag : oddity.tags)
        {
            text += " " + tag;
        }
    }
    return text;
}

TEST_F(InspectedFolders, ShowNothingButWhatTheGeneratorMeant)
{
    const std::vector<const inspect::Check*> checks = inspect::EveryCheck();
    std::size_t finished = 0;
    std::set<std::wstring> saidOfHosts;
    std::map<std::string, int> counts; // for --gtest_output: how often each check spoke, and of what
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
            EXPECT_TRUE(IsExplained(*file, finding, work))
                << "folder " << number << (work.hostLike ? " (as hosts write it): " : ": ")
                << Utf8FromWide(finding.check->code + (L" " + finding.object.japanese) + L": " + finding.text)
                << Told(work.oddities);
            ++counts[Utf8FromWide(finding.check->code) + (IsOfHosts(*file, finding) ? "-of-hosts" : "-put-in")];
            if (work.hostLike)
            {
                saidOfHosts.insert(finding.check->code);
            }
        }
    }
    for (const auto& [code, count] : counts)
    {
        RecordProperty(code, count);
    }
    for (const Explained& one : OF_HOSTS)
    {
        // Few files, as the sanitizers see, don't show each of them.
        EXPECT_TRUE(HAS_SANITIZERS || saidOfHosts.contains(one.code))
            << Utf8FromWide(one.code) << " is explained for nothing";
    }
}

} // namespace
} // namespace jlandxml
