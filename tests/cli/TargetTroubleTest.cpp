#include "cli/TargetTrouble.h"

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

TEST(TargetTrouble, NamesWhatKeepsTheTargetFromBeingWritten)
{
    const TestFolder folder;
    const TestFolder temporary;
    const TemporaryFolderOverride inUse(temporary.Path());
    const std::wstring target = folder.Name(L"out.xml");
    EXPECT_EQ(TargetTrouble(target, 100), target) << "nothing does";
    EXPECT_EQ(TargetTrouble(folder.Name(), 100), folder.Name() + L"（通常のファイルではありません）");
    EXPECT_EQ(TargetTrouble(folder.Name(L"missing") + L"/out.xml", 100), folder.Name(L"missing") + L"/（ありません）");
    EXPECT_EQ(TargetTrouble(target, std::uintmax_t{1} << 60),
              target.substr(0, target.size() - std::wstring_view(L"out.xml").size()) + L"（空き容量がありません）");
}

#ifndef _WIN32

TEST(TargetTrouble, TheCurrentFolderHasNoName)
{
    const std::filesystem::path former = std::filesystem::current_path();
    const TestFolder gone;
    std::filesystem::current_path(gone.Path());
    std::filesystem::remove(gone.Path());
    const std::wstring trouble = TargetTrouble(L"out.xml", 0);
    std::filesystem::current_path(former);
    EXPECT_EQ(trouble, L"out.xml（ありません）");
}

TEST(TargetTrouble, ATemporaryFolderThatNoRunCanUseIsNotLookedAt)
{
    const TestFolder folder;
    const TemporaryFolderOverride tooLong(std::string(300, 'x'));
    EXPECT_EQ(TargetTrouble(folder.Name(L"out.xml"), 0), folder.Name(L"out.xml"));
}

#endif

} // namespace
} // namespace jlandxml
