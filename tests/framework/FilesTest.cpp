#include "framework/Files.h"

#include "framework/Exceptions.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace jlandxml
{
namespace
{

TEST(Files, AFileIsReadWhole)
{
    const TestFolder folder;
    const std::string bytes("a\r\n\0\x1A\xFF", 6);
    EXPECT_EQ(ReadWholeFile(folder.Write(L"線形.csv", bytes)), bytes);
    EXPECT_EQ(ReadWholeFile(folder.Write(L"empty", "")), "");
    EXPECT_EQ(ReadWholeFile(folder.Name(L"missing")), std::nullopt);
    EXPECT_EQ(ReadWholeFile(folder.Name()), std::nullopt);
}

TEST(Files, AFileThatOpensButCanNotBeReadIsAFailure)
{
    const auto file = UnreadableFile();
    if (!file)
    {
        GTEST_SKIP();
    }
    EXPECT_THROW(ReadWholeFile(*file), CFileException);
}

TEST(Files, PathsAreSplitAtTheLastSeparator)
{
    EXPECT_EQ(FileNameOf(L"a/b/路線.xml"), L"路線.xml");
    EXPECT_EQ(FolderOf(L"a/b/路線.xml"), L"a/b/");
    EXPECT_EQ(FileNameOf(L"路線.xml"), L"路線.xml");
    EXPECT_EQ(FolderOf(L"路線.xml"), L"");
    EXPECT_EQ(FileNameOf(L"a/"), L"");
#ifdef _WIN32
    EXPECT_EQ(FileNameOf(L"C:\\a\\路線.xml"), L"路線.xml");
    EXPECT_EQ(FolderOf(L"C:路線.xml"), L"C:");
#endif
}

TEST(Files, FilesAndFoldersExist)
{
    const TestFolder folder;
    EXPECT_TRUE(PathExists(folder.Name()));
    EXPECT_TRUE(PathExists(folder.Write(L"a", "")));
    EXPECT_FALSE(PathExists(folder.Name(L"b")));
}

TEST(Files, AUniqueFileIsNewEmptyAndPrefixed)
{
    const TestFolder folder;
    const std::wstring inside = folder.Name() + L"/";
    const auto first = CreateUniqueFile(inside, L"tsx");
    const auto second = CreateUniqueFile(inside, L"tsx");
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    EXPECT_EQ(FileNameOf(*first).substr(0, 3), L"tsx");
    EXPECT_EQ(ReadWholeFile(*first), "");
    EXPECT_EQ(CreateUniqueFile(folder.Name(L"missing") + L"/", L"tsx"), std::nullopt);
}

TEST(Files, SameFilesAreKnownByTheirIdentity)
{
    const TestFolder folder;
    const std::wstring file = folder.Write(L"a", "");
    EXPECT_TRUE(IsSameFile(file, folder.Name() + L"/./a"));
    EXPECT_TRUE(IsSameFile(folder.Name(), folder.Name() + L"/"));
    EXPECT_FALSE(IsSameFile(file, folder.Write(L"b", "")));
    EXPECT_FALSE(IsSameFile(file, folder.Name(L"missing")));
}

/// Replaces a target by some content.
bool Replace(const std::wstring& target, const std::string& content)
{
    ReplacementFile file(target);
    file.Write(content);
    return file.Commit();
}

TEST(Files, NewContentTakesThePlaceOfTheTargetAndLeavesNothingBeside)
{
    const TestFolder folder;
    folder.Write(L"target", "old");
    EXPECT_TRUE(Replace(folder.Name(L"target"), std::string(3000000, 'n')));
    EXPECT_TRUE(Replace(folder.Name(L"新規"), "new"));
    EXPECT_EQ(folder.Read(L"target"), std::string(3000000, 'n'));
    EXPECT_EQ(folder.Read(L"新規"), "new");
    EXPECT_EQ(folder.Files(), (std::vector<std::wstring>{L"target", L"新規"}));
}

TEST(Files, UncommittedContentLeavesTheTargetAndNothingElse)
{
    const TestFolder folder;
    const std::wstring target = folder.Write(L"target", "old");
    {
        ReplacementFile file(target);
        file.Write("half of the ");
    }
    EXPECT_EQ(folder.Read(L"target"), "old");
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
}

TEST(Files, AMissingFolderTakesNoTarget)
{
    const TestFolder folder;
    const TestFolder temporary;
    const TemporaryFolderOverride inUse(temporary.Path());
    EXPECT_FALSE(Replace(folder.Name(L"missing") + L"/target", "new"));
    EXPECT_FALSE(Replace(folder.Name() + L"/", "new"));
    EXPECT_TRUE(folder.Files().empty());
    EXPECT_TRUE(temporary.Files().empty());
}

TEST(Files, AFolderInThePlaceOfTheTargetStays)
{
    const TestFolder folder;
    const TestFolder temporary;
    const TemporaryFolderOverride inUse(temporary.Path());
    std::filesystem::create_directory(folder.Path() / "target");
    EXPECT_FALSE(Replace(folder.Name(L"target"), "new"));
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "target"));
    EXPECT_TRUE(temporary.Files().empty());
}

TEST(Files, AnOutputFileThatCanNotBeOpenedThrows)
{
    const TestFolder folder;
    EXPECT_THROW(OutputFile(folder.Name(L"missing") + L"/a"), CFileException);
    EXPECT_THROW(OutputFile(folder.Name()), CFileException);
}

TEST(Files, AnOutputFileStartsAfresh)
{
    const TestFolder folder;
    OutputFile file(folder.Write(L"a", "a long former content"));
    file.Write("new");
    file.Write("\r\n");
    file.Close();
    EXPECT_EQ(folder.Read(L"a"), "new\r\n");
}

#ifndef _WIN32

mode_t ModeOf(const std::filesystem::path& path)
{
    struct stat status
    {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

TEST(Files, WorkFilesArePrivateToTheUser)
{
    const TestFolder folder;
    const auto unique = CreateUniqueFile(folder.Name() + L"/", L"tsx");
    EXPECT_EQ(ModeOf(*unique), 0600U);
}

TEST(Files, ContentIsPrivateUntilItIsComplete)
{
    const TestFolder folder;
    const ReplacementFile file(folder.Name(L"target"));
    ASSERT_EQ(folder.Files().size(), 1U);
    EXPECT_EQ(ModeOf(folder.Path() / NativePath(folder.Files().front())), 0600U);
}

TEST(Files, APlantedLinkIsNotFollowed)
{
    const TestFolder folder;
    folder.Write(L"victim", "precious");
    std::filesystem::create_symlink(folder.Path() / "victim", folder.Path() / "link");
    EXPECT_THROW(OutputFile(folder.Name(L"link")), CFileException);
    EXPECT_EQ(folder.Read(L"victim"), "precious");
}

TEST(Files, AReplacedFileKeepsItsModeAndItsLink)
{
    const TestFolder folder;
    folder.Write(L"target", "old");
    ::chmod((folder.Path() / "target").c_str(), 0640);
    std::filesystem::create_symlink("target", folder.Path() / "link");
    EXPECT_TRUE(Replace(folder.Name(L"link"), "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "link"));
    EXPECT_EQ(folder.Read(L"target"), "new");
    EXPECT_EQ(ModeOf(folder.Path() / "target"), 0640U);
}

TEST(Files, ANewFileHasTheModeThatTheUsersMaskLeaves)
{
    const TestFolder folder;
    const mode_t former = ::umask(027);
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    ::umask(former);
    EXPECT_EQ(ModeOf(folder.Path() / "target"), 0640U);
}

TEST(Files, WhatIsNoPlainFileIsWrittenTo)
{
    EXPECT_TRUE(Replace(L"/dev/null", "new"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_FALSE(Replace(L"/dev/full", "new"));
}

TEST(Files, AFullDeviceIsAFailure)
{
    OutputFile file(L"/dev/full");
    EXPECT_THROW(
        {
            file.Write(std::string(100000, 'x'));
            file.Close();
        },
        CFileException);
}

TEST(Files, ATemporaryFolderBeyond260CharactersIsNone)
{
    const TemporaryFolderOverride longName("/tmp/" + std::string(300, 'x'));
    EXPECT_EQ(TemporaryFolder(), std::nullopt);
}

#endif

TEST(Files, TheTemporaryFolderEndsWithASeparator)
{
    const TestFolder folder;
    const TemporaryFolderOverride temporary(folder.Path());
    const auto name = TemporaryFolder();
    ASSERT_TRUE(name);
    EXPECT_TRUE(FileNameOf(*name).empty());
    EXPECT_TRUE(IsSameFile(*name, folder.Name()));
}

} // namespace
} // namespace jlandxml
