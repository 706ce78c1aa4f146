#include "base/Files.h"

#include "base/Exceptions.h"
#include "support/MountedFolder.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <windows.h>
#else
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

TEST(Files, AnOutputFileThatDoesNotExistYetIsMade)
{
    const TestFolder folder;
    OutputFile file(folder.Name(L"新規"));
    file.Write("new");
    file.Close();
    EXPECT_EQ(folder.Read(L"新規"), "new");
}

TEST(Files, ContentGatheredInTheTemporaryFolderIsCopiedOver)
{
    const TestFolder folder;
    const TestFolder temporary;
    const TemporaryFolderOverride inUse(temporary.Path());
    for (const std::string& old : {std::string(), std::string(9, 'o'), std::string(3000000, 'o')})
    {
        ReplacementFile file(folder.Write(L"target", old), GatherPlace::TemporaryFolder);
        file.Write("the new content");
        EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
        EXPECT_TRUE(file.Commit());
        EXPECT_EQ(folder.Read(L"target"), "the new content");
    }
    EXPECT_TRUE(temporary.Files().empty());
}

TEST(Files, ATargetOfOtherNamesKeepsThem)
{
    const TestFolder folder;
    folder.Write(L"target", "old");
    std::filesystem::create_hard_link(folder.Path() / "target", folder.Path() / "other");
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    EXPECT_EQ(folder.Read(L"target"), "new");
    EXPECT_EQ(folder.Read(L"other"), "new");
}

#ifdef _WIN32

TEST(Files, ATargetThatIsOpenForReadingAndWritingIsCopiedOver)
{
    const TestFolder folder;
    const std::wstring target = folder.Write(L"target", "old");
    const HANDLE open = CreateFileW(target.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_TRUE(Replace(target, "new"));
    CloseHandle(open);
    EXPECT_EQ(folder.Read(L"target"), "new");
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
}

#else

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
    const OutputFile made(folder.Name(L"made"));
    EXPECT_EQ(ModeOf(folder.Path() / "made"), 0600U);
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

TEST(Files, ATargetOfAnotherOwnerKeepsHim)
{
    const TestFolder folder;
    const TestFolder temporary;
    const TemporaryFolderOverride inUse(temporary.Path());
    const std::filesystem::path target = NativePath(folder.Write(L"target", "old"));
    constexpr uid_t OTHER = 12345;
    if (::chown(target.c_str(), OTHER, OTHER) != 0)
    {
        GTEST_SKIP() << "only an administrator can give a file away";
    }
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    EXPECT_EQ(folder.Read(L"target"), "new");
    struct stat status
    {};
    ASSERT_EQ(::stat(target.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, OTHER);
    EXPECT_TRUE(temporary.Files().empty());
}

TEST(Files, ATargetThatTakesNoOtherNameIsCopiedOver)
{
    const TestFolder folder;
    folder.Write(L"target", "old");
    folder.Write(L"mounted", "old");
    const MountedFolder mounted(folder.Path() / "target", folder.Path() / "mounted");
    if (!mounted)
    {
        GTEST_SKIP() << "mounting is refused";
    }
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    EXPECT_EQ(folder.Read(L"target"), "new");
    EXPECT_EQ(folder.Read(L"mounted"), "new");
    EXPECT_EQ(folder.Files(), (std::vector<std::wstring>{L"mounted", L"target"}));
}

TEST(Files, AVolumeWithoutRoomForTheCopyKeepsWhatItHolds)
{
    const TestFolder folder;
    const TestFolder temporary;
    const TemporaryFolderOverride inUse(temporary.Path());
    const MountedFolder mounted(folder.Path(), "size=64k");
    if (!mounted)
    {
        GTEST_SKIP() << "mounting is refused";
    }
    folder.Write(L"target", "old");
    const auto room = std::filesystem::space(folder.Path()).available;
    for (const wchar_t* const target : {L"target", L"missing"})
    {
        ReplacementFile file(folder.Name(target), GatherPlace::TemporaryFolder);
        file.Write(std::string(100000, 'n'));
        EXPECT_FALSE(file.Commit());
    }
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
    EXPECT_EQ(folder.Read(L"target"), "old");
    EXPECT_EQ(std::filesystem::space(folder.Path()).available, room);
}

TEST(Files, ATemporaryFolderHas259CharactersAtMost)
{
    const auto folderOf = [](std::size_t size) {
        const TemporaryFolderOverride named("/tmp/" + std::string(size - 6, 'x'));
        return TemporaryFolder();
    };
    EXPECT_EQ(folderOf(259), L"/tmp/" + std::wstring(253, L'x') + L"/");
    EXPECT_EQ(folderOf(260), std::nullopt);
    const TemporaryFolderOverride closed("/tmp/" + std::string(254, 'x') + "/");
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
