// The finished files of the whole runs, and what is known to be found in them.

#include "inspect/Checks.h"

#include "SoundFile.h"

#include <algorithm>
#include <filesystem>

namespace jlandxml::inspect
{
namespace
{

/// A finding that is no fault of the checks.
struct Explained
{
    std::string example; ///< the beginning of the folder's name
    const wchar_t* code;
    std::string object; ///< the beginning of it
    const char* why;
};
const Explained EXPLAINED[] = {
    {"river", L"H05", "堤防法線／直線 EC.1～IP.2", "the river's line bends there"},
    {"river", L"T03", "堤防法線／測点定義", "the example's equations don't stand in the order of stations"},
    {"river", L"T04", "堤防法線／測点定義", "a lawful overlap of the count"},
    {"two-routes", L"X02", "tangentDirectionAngle",
     "a direction that the side file leaves empty is written as a point"},
    {"two-routes", L"C01", "本線／片勾配すりつけ 311.",
     "the second transition's stations are out of order in the example"},
    {"two-routes", L"C05", "本線／横断面", "a subgrade across the centre line gets the side of its first point"},
    {"日本語のフォルダー", L"R12", "単位系", "the work file has no units"},
};

bool IsExplained(const std::string& example, const Finding& finding)
{
    return std::any_of(std::begin(EXPLAINED), std::end(EXPLAINED), [&](const Explained& one) {
        return example.starts_with(one.example) && one.code == std::wstring(finding.check->code) &&
               Utf8FromWide(finding.object).starts_with(one.object);
    });
}

TEST(FinishedFiles, ShowNothingThatIsNotExplained)
{
    const std::vector<const Check*> checks = EveryCheck();
    std::size_t count = 0;
    const std::filesystem::path cases = std::filesystem::path(JLANDXML_SOURCE_DIR) / "tests" / "e2e";
    for (const auto& folder : std::filesystem::directory_iterator(cases))
    {
        const std::filesystem::path path = folder.path() / "expected.xml";
        if (!std::filesystem::exists(path))
        {
            continue;
        }
        ++count;
        const std::u8string utf8Name = folder.path().filename().u8string();
        const std::string example(utf8Name.begin(), utf8Name.end());
        const std::u8string utf8Path = path.u8string();
        const LandXmlFile file = ReadLandXmlFile(WideFromUtf8(std::string(utf8Path.begin(), utf8Path.end())));
        for (const Finding& finding : Inspect(file, checks))
        {
            EXPECT_TRUE(IsExplained(example, finding))
                << example << ": "
                << Utf8FromWide(finding.check->code + (L" " + finding.object) + L": " + finding.text);
        }
    }
    EXPECT_GE(count, 9U);
}

} // namespace
} // namespace jlandxml::inspect
