#include "cli/CommandLine.h"
#include "support/Rounds.h"
#include "support/RunFixture.h"
#include "support/generator/HostAlignment.h"
#include "support/generator/WorkFolderGenerator.h"

#include <nlohmann/json.hpp>
#include <pugixml.hpp>

#include <cmath>

namespace jlandxml
{
namespace
{

using generator::HorizontalElement;
using generator::HorizontalKind;
using generator::MakeWorkFolder;
using generator::WorkFolder;
using FilledJson = nlohmann::ordered_json;

constexpr std::uint64_t FOLDERS_SEED = 10;
constexpr std::uint32_t FOLDERS = HAS_SANITIZERS ? 50 : 200;

/// A sum over the names and bytes of the files of many folders (FNV-1a).
std::uint64_t Checksum(std::uint64_t seed, std::uint32_t folders)
{
    std::uint64_t sum = 0xCBF29CE484222325U;
    const auto add = [&](const std::string& bytes) {
        for (const char byte : bytes + '\0')
        {
            sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
        }
    };
    for (std::uint32_t number = 1; number <= folders; ++number)
    {
        for (const auto& [name, bytes] : MakeWorkFolder(seed, number).files)
        {
            add(name);
            add(bytes);
        }
    }
    return sum;
}

TEST(WorkFolderGenerator, ASeedGivesTheSameBytesOnEveryPlatform)
{
    EXPECT_EQ(Checksum(1, 50), 8021418577284224974U);
    EXPECT_NE(Checksum(2, 50), Checksum(1, 50));
}

TEST(WorkFolderGenerator, AFolderDoesNotDependOnThoseBeforeIt)
{
    EXPECT_EQ(MakeWorkFolder(1, 7).files, MakeWorkFolder(1, 7).files);
    EXPECT_NE(MakeWorkFolder(1, 7).files, MakeWorkFolder(1, 9).files);
}

/// The end of an element found by many small steps along it.
generator::Point SteppedEnd(const HorizontalElement& element)
{
    constexpr int STEPS = 20000;
    const double step = element.length / STEPS;
    generator::Point point = element.start.point;
    for (int index = 0; index < STEPS; ++index)
    {
        const double distance = (index + 0.5) * step;
        const double growth = (element.endCurvature - element.startCurvature) / element.length;
        const double azimuth =
            element.start.azimuth + element.startCurvature * distance + growth * distance * distance / 2.0;
        point.north += step * std::cos(azimuth);
        point.east += step * std::sin(azimuth);
    }
    return point;
}

TEST(RouteGeometry, ElementsEndWhereTheirCurvatureLeads)
{
    const generator::Pose start{{-99840.0, 29720.0}, 4.0};
    const HorizontalElement elements[] = {{HorizontalKind::Line, 120.5, 0.0, 0.0, start},
                                          {HorizontalKind::Curve, 90.0, -0.005, -0.005, start},
                                          {HorizontalKind::Spiral, 60.0, 0.0, 0.01, start},
                                          {HorizontalKind::Spiral, 60.0, -0.01, 0.0, start},
                                          {HorizontalKind::Spiral, 45.0, 0.005, 0.01, start}};
    for (const HorizontalElement& element : elements)
    {
        const generator::Point end = element.End().point;
        const generator::Point stepped = SteppedEnd(element);
        EXPECT_NEAR(end.north, stepped.north, 1e-6);
        EXPECT_NEAR(end.east, stepped.east, 1e-6);
    }
}

/// Runs of the command line over generated work folders.
class GeneratedFolders : public RunTest
{
  protected:
    struct Outcome
    {
        ExitStatus status;
        std::string out;
        std::string err;
        std::string file;
    };

    /// Writes the work folder anew and runs it with its settings.
    Outcome Run(const WorkFolder& work) const
    {
        const std::filesystem::path path = folder.Path() / "work";
        std::filesystem::remove_all(path);
        std::filesystem::remove(folder.Path() / "out.xml");
        generator::WriteFiles(work.files, path);
        return RunWith({WideName(path), L"-s", WideName(path / "settings.json"), L"-o", folder.Name(L"out.xml")});
    }

    Outcome RunWith(const std::vector<std::wstring>& arguments) const
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const ExitStatus status = RunCommandLine(arguments);
        std::string out = testing::internal::GetCapturedStdout();
        return {status, std::move(out), testing::internal::GetCapturedStderr(), folder.Read(L"out.xml")};
    }
};

TEST_F(GeneratedFolders, EndAsPredictedWithAWellFormedFileAndAgainTheSame)
{
    std::uint32_t finished = 0;
    for (std::uint32_t number = 1; finished < FOLDERS && number <= 2 * FOLDERS; ++number)
    {
        SCOPED_TRACE("folder " + std::to_string(number));
        const WorkFolder work = MakeWorkFolder(FOLDERS_SEED, number);
        const Outcome first = Run(work);
        if (work.hostLike)
        {
            EXPECT_EQ(first.status, ExitStatus::FileWritten) << first.err;
        }
        EXPECT_EQ(first.file.empty(), first.status != ExitStatus::FileWritten);
        if (!first.file.empty())
        {
            ++finished;
            EXPECT_TRUE(pugi::xml_document().load_buffer(first.file.data(), first.file.size()));
        }
        const Outcome second = Run(work);
        EXPECT_EQ(second.status, first.status);
        EXPECT_EQ(second.out, first.out);
        EXPECT_EQ(second.err, first.err);
        EXPECT_EQ(second.file, first.file);
    }
    EXPECT_EQ(finished, FOLDERS);
}

/// Gives every null of printed settings a value: the first that its list offers, or a number, which a text may be too.
/// Nothing is known here of what the keys mean.
void FillNulls(FilledJson& json)
{
    for (auto& [key, value] : json.items())
    {
        if (value.is_null() && !json.is_array())
        {
            const FilledJson choices = json.value("_choices", FilledJson::object()).value(key, FilledJson::array());
            value = choices.empty() ? FilledJson("20") : choices.front();
        }
        else if (value.is_structured() && !key.starts_with('_'))
        {
            FillNulls(value);
        }
    }
}

/// False for a value that came with the input, and for one of a list that offers nothing.
bool CanBeGiven(const FilledJson& settings, const std::string& path)
{
    const std::size_t dot = path.rfind('.');
    const std::string key = path.substr(dot + 1);
    std::string place = "/" + path.substr(0, dot == std::string::npos ? 0 : dot);
    for (std::size_t at = 0; (at = place.find_first_of(".[]", at)) != std::string::npos;)
    {
        place.replace(at, 1, place[at] == ']' ? "" : "/");
    }
    const FilledJson& object = dot == std::string::npos ? settings : settings.at(FilledJson::json_pointer(place));
    const bool offersNothing = object.value("_choices", FilledJson::object()).value(key, FilledJson{0}).empty();
    return object.contains(key) && !offersNothing;
}

TEST_F(GeneratedFolders, PrintedSettingsLeadToAFileOnceEveryNullIsFilled)
{
    std::uint32_t finished = 0;
    for (std::uint32_t number = 1; finished < FOLDERS && number <= 2 * FOLDERS; ++number)
    {
        SCOPED_TRACE("folder " + std::to_string(number));
        const WorkFolder work = MakeWorkFolder(FOLDERS_SEED, number);
        generator::WriteFiles(work.files, folder.Path() / std::to_string(number));
        const std::wstring path = folder.Name(std::to_wstring(number));
        const Outcome printed = RunWith({path, L"--print-settings"});
        if (printed.status == ExitStatus::NoFile && !work.hostLike)
        {
            continue; // a side file that raises
        }
        ASSERT_EQ(printed.status, ExitStatus::FileWritten) << printed.err;
        FilledJson settings = FilledJson::parse(printed.out);
        FillNulls(settings);
        const std::wstring filled = folder.Write(L"filled.json", settings.dump());
        const Outcome outcome = RunWith({path, L"-s", filled, L"--json", L"-o", folder.Name(L"out.xml")});
        finished += outcome.status == ExitStatus::FileWritten ? 1 : 0;
        if (work.hostLike)
        {
            EXPECT_EQ(outcome.status, ExitStatus::FileWritten) << outcome.err;
        }
        const FilledJson told = FilledJson::parse(outcome.out);
        for (const FilledJson& finding : told["findings"])
        {
            EXPECT_FALSE(finding.contains("path") && CanBeGiven(settings, finding["path"])) << finding;
        }
    }
    EXPECT_EQ(finished, FOLDERS);
}

} // namespace
} // namespace jlandxml
