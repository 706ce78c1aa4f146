#include "base/Files.h"

#include "base/Exceptions.h"
#include "base/Warnings.h"
#include "support/FailingAllocation.h"
#include "support/FailingCalls.h"
#include "support/MountedFolder.h"
#include "support/ResourceLimit.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

#include <array>
#include <gtest/gtest.h>
#include <new>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
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

TEST(Files, AFileIsReadIntoMemoryOfTheCallers)
{
    const TestFolder folder;
    std::array<char, 8> memory{};
    const auto taken = ReadWholeFile(folder.Write(L"a", "a\r\nb"), [&](std::size_t size) {
        EXPECT_EQ(size, 4U);
        return memory.data();
    });
    EXPECT_EQ(taken, 4U);
    EXPECT_STREQ(memory.data(), "a\r\nb");
    EXPECT_EQ(ReadWholeFile(folder.Name(L"missing"), [](std::size_t) -> char* { throw 1; }), std::nullopt);
}

TEST(Files, TheNamesOfAFolderAreToldWithoutItsOwn)
{
    const TestFolder folder;
    folder.Write(L"路線.csv", "");
    EXPECT_EQ(FileNames(folder.Name()), std::vector<std::wstring>{L"路線.csv"});
    std::filesystem::create_directory(folder.Path() / "empty");
    EXPECT_EQ(FileNames(folder.Name(L"empty")), std::vector<std::wstring>());
}

TEST(Files, WhatIsNoFolderTellsNoNames)
{
    const TestFolder folder;
    EXPECT_EQ(FileNames(folder.Name(L"missing")), std::nullopt);
    EXPECT_EQ(FileNames(folder.Write(L"路線.csv", "")), std::nullopt);
}

TEST(Files, ADeviceCanNotBeOpened)
{
#ifdef _WIN32
    EXPECT_EQ(ReadWholeFile(L"NUL"), std::nullopt);
#else
    EXPECT_EQ(ReadWholeFile(L"/dev/zero"), std::nullopt);
#endif
}

TEST(Files, AFoldersNameEndsWithTheLastSeparator)
{
    EXPECT_EQ(FolderOf(L"a/b/路線.xml"), L"a/b/");
    EXPECT_EQ(FolderOf(L"路線.xml"), L"");
    EXPECT_EQ(FolderOf(L"a/"), L"a/");
#ifdef _WIN32
    EXPECT_EQ(FolderOf(L"C:\\a\\路線.xml"), L"C:\\a\\");
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

TEST(Files, AWorkFileIsNewEmptyAndPrefixed)
{
    const TestFolder folder;
    const std::wstring inside = folder.Name() + L"/";
    const auto first = WorkFile::Make(inside);
    const auto second = WorkFile::Make(inside);
    ASSERT_TRUE(first && second);
    EXPECT_NE(first->Path(), second->Path());
    ASSERT_EQ(folder.Files().size(), 2U);
    for (const std::wstring& name : folder.Files())
    {
        EXPECT_EQ(name.substr(0, 3), L"tsx");
        EXPECT_EQ(folder.Read(name), "");
    }
    EXPECT_FALSE(WorkFile::Make(folder.Name(L"missing") + L"/"));
}

TEST(Files, AWorkFileGoesWithItsScopeUnlessItIsKept)
{
    const TestFolder folder;
    const std::wstring inside = folder.Name() + L"/";
    EXPECT_TRUE(WorkFile::Make(inside));
    EXPECT_TRUE(folder.Files().empty());
    {
        std::optional<WorkFile> kept = WorkFile::Make(inside);
        kept->Keep();
    }
    EXPECT_EQ(folder.Files().size(), 1U);
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

/// Whom a file belongs to and who may do what with it.
std::string SecurityOf(const std::wstring& path)
{
    constexpr SECURITY_INFORMATION ALL =
        OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), ALL, nullptr, 0, &size);
    std::string descriptor(size, '\0');
    EXPECT_NE(GetFileSecurityW(path.c_str(), ALL, descriptor.data(), size, &size), 0);
    return descriptor;
}

TEST(Files, AReplacedFileKeepsItsPermissionsAndAttributes)
{
    const TestFolder folder;
    const std::wstring target = folder.Write(L"target", "old");
    const std::string usual = SecurityOf(target);
    // Nobody but the owner of the process has the file.
    std::string wanted = usual;
    SECURITY_DESCRIPTOR nobody{};
    ACL empty{};
    InitializeAcl(&empty, sizeof(empty), ACL_REVISION);
    InitializeSecurityDescriptor(&nobody, SECURITY_DESCRIPTOR_REVISION);
    PSID owner = nullptr;
    BOOL defaulted = FALSE;
    ASSERT_NE(GetSecurityDescriptorOwner(wanted.data(), &owner, &defaulted), 0);
    std::array<char, 256> memory{};
    ACL* const list = reinterpret_cast<ACL*>(memory.data());
    ASSERT_NE(InitializeAcl(list, static_cast<DWORD>(memory.size()), ACL_REVISION), 0);
    ASSERT_NE(AddAccessAllowedAce(list, ACL_REVISION, FILE_ALL_ACCESS, owner), 0);
    ASSERT_NE(SetSecurityDescriptorDacl(&nobody, TRUE, list, FALSE), 0);
    ASSERT_NE(SetFileSecurityW(target.c_str(), DACL_SECURITY_INFORMATION, &nobody), 0);
    ASSERT_NE(SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
    wanted = SecurityOf(target);
    EXPECT_NE(wanted, usual);
    EXPECT_TRUE(Replace(target, "new"));
    EXPECT_EQ(folder.Read(L"target"), "new");
    EXPECT_EQ(SecurityOf(target), wanted);
    EXPECT_NE(GetFileAttributesW(target.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
}

TEST(Files, APipeCanNotBeOpened)
{
    constexpr const wchar_t* NAME = L"\\\\.\\pipe\\jlandxml-test";
    const HANDLE pipe = CreateNamedPipeW(NAME, PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE, 1, 0, 0, 0, nullptr);
    ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
    EXPECT_EQ(ReadWholeFile(NAME), std::nullopt);
    CloseHandle(pipe);
}

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
    const auto unique = WorkFile::Make(folder.Name() + L"/");
    EXPECT_EQ(ModeOf(NativePath(unique->Path())), 0600U);
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

/// The mode of a new file under a user's mask.
unsigned ModeOfNewFile(mode_t mask)
{
    const TestFolder folder;
    const mode_t former = ::umask(mask);
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    ::umask(former);
    return ModeOf(folder.Path() / "target");
}

TEST(Files, ANewFileHasTheModeThatTheUsersMaskLeaves)
{
    EXPECT_EQ(ModeOfNewFile(027), 0640U);
}

TEST(Files, AMaskThatLeavesNobodyAnyPermissionIsNotObeyed)
{
    EXPECT_EQ(ModeOfNewFile(0777), 0600U);
}

TEST(Files, TheUsersMaskIsNeverTouched)
{
    const TestFolder folder;
    const int before = UserMaskCalls();
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    EXPECT_TRUE(Replace(folder.Name(L"target"), "newer"));
    EXPECT_EQ(UserMaskCalls(), before);
}

TEST(Files, OpeningAPipeNeverWaits)
{
    const TestFolder folder;
    const std::wstring pipe = folder.Name(L"pipe");
    ASSERT_EQ(::mkfifo(NativePath(pipe).c_str(), 0600), 0);
    EXPECT_EQ(OpenForReading(pipe), nullptr);
    EXPECT_EQ(ReadWholeFile(pipe), std::nullopt);
    // Nobody reads it, so it takes nothing.
    EXPECT_FALSE(Replace(pipe, "new"));
    EXPECT_TRUE(std::filesystem::is_fifo(NativePath(pipe)));
}

TEST(Files, APipeThatSomebodyReadsIsWrittenTo)
{
    const TestFolder folder;
    const std::wstring pipe = folder.Name(L"pipe");
    ASSERT_EQ(::mkfifo(NativePath(pipe).c_str(), 0600), 0);
    const NativeFile reader(::open(NativePath(pipe).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    EXPECT_TRUE(Replace(pipe, "new"));
    std::array<char, 8> taken{};
    EXPECT_EQ(::read(reader.Get(), taken.data(), taken.size()), 3);
    EXPECT_STREQ(taken.data(), "new");
}

constexpr const char* ACCESS_LIST = "system.posix_acl_access";
constexpr const char* DEFAULT_LIST = "system.posix_acl_default";
constexpr unsigned short READ = 4;
constexpr unsigned short READ_AND_WRITE = 6;

/// An access control list as the system takes it: the owner, one more user, the group, the mask and the others.
std::string AccessListWithAnotherUser()
{
    constexpr unsigned int NOBODY = 0xFFFFFFFF;
    constexpr unsigned int OTHER_USER = 12345;
    std::string list;
    const auto add = [&](auto number) { list.append(reinterpret_cast<const char*>(&number), sizeof(number)); };
    const auto addEntry = [&](unsigned short tag, unsigned short permissions, unsigned int who) {
        add(tag);
        add(permissions);
        add(who);
    };
    add(2U);
    addEntry(0x01, READ_AND_WRITE, NOBODY);
    addEntry(0x02, READ_AND_WRITE, OTHER_USER);
    addEntry(0x04, READ, NOBODY);
    addEntry(0x10, READ_AND_WRITE, NOBODY);
    addEntry(0x20, 0, NOBODY);
    return list;
}

std::string AccessListOf(const std::filesystem::path& path)
{
    std::array<char, 256> list{};
    const ssize_t size = ::getxattr(path.c_str(), ACCESS_LIST, list.data(), list.size());
    return {list.data(), size > 0 ? static_cast<std::size_t>(size) : 0};
}

bool SetList(const std::filesystem::path& path, const char* kind)
{
    const std::string list = AccessListWithAnotherUser();
    return ::setxattr(path.c_str(), kind, list.data(), list.size(), 0) == 0;
}

TEST(Files, AReplacedFileKeepsItsAccessControlList)
{
    const TestFolder folder;
    const std::filesystem::path target = NativePath(folder.Write(L"target", "old"));
    if (!SetList(target, ACCESS_LIST))
    {
        GTEST_SKIP() << "the volume keeps no access control lists";
    }
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    EXPECT_EQ(folder.Read(L"target"), "new");
    EXPECT_EQ(AccessListOf(target), AccessListWithAnotherUser());
    EXPECT_EQ(ModeOf(target), 0660U);
}

TEST(Files, AReplacedFileWithoutAnAccessControlListGetsNoneFromItsFolder)
{
    const TestFolder folder;
    const std::filesystem::path target = NativePath(folder.Write(L"target", "old"));
    ::chmod(target.c_str(), 0640);
    if (!SetList(folder.Path(), DEFAULT_LIST))
    {
        GTEST_SKIP() << "the volume keeps no access control lists";
    }
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    EXPECT_EQ(AccessListOf(target), "");
    EXPECT_EQ(ModeOf(target), 0640U);
}

TEST(Files, ANewFileHasTheAccessControlListOfItsFolder)
{
    const TestFolder folder;
    if (!SetList(folder.Path(), DEFAULT_LIST))
    {
        GTEST_SKIP() << "the volume keeps no access control lists";
    }
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    folder.Write(L"other", "made as any program makes one");
    EXPECT_NE(AccessListOf(folder.Path() / "target"), "");
    EXPECT_EQ(AccessListOf(folder.Path() / "target"), AccessListOf(folder.Path() / "other"));
    EXPECT_EQ(ModeOf(folder.Path() / "target"), ModeOf(folder.Path() / "other"));
}

TEST(Files, ALinkWhoseTargetDoesNotExistYetStaysALink)
{
    const TestFolder folder;
    std::filesystem::create_directory(folder.Path() / "deliveries");
    std::filesystem::create_symlink("second", folder.Path() / "first");
    std::filesystem::create_symlink(folder.Path() / "deliveries" / "target", folder.Path() / "second");
    EXPECT_TRUE(Replace(folder.Name(L"first"), "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "first"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "second"));
    EXPECT_EQ(folder.Read(L"deliveries/target"), "new");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path() / "deliveries"), {}), 1);
}

TEST(Files, ALinkThatLeadsNowhereStays)
{
    const TestFolder folder;
    std::filesystem::create_symlink("ring", folder.Path() / "ring");
    std::filesystem::create_symlink("missing/target", folder.Path() / "lost");
    EXPECT_FALSE(Replace(folder.Name(L"ring"), "new"));
    EXPECT_FALSE(Replace(folder.Name(L"lost"), "new"));
    EXPECT_EQ(folder.Files(), (std::vector<std::wstring>{L"lost", L"ring"}));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "ring"));
}

ino_t IdentityOf(const std::filesystem::path& path)
{
    struct stat status
    {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_ino;
}

TEST(Files, ContentGatheredInTheTemporaryFolderTakesTheTargetsNameAllTheSame)
{
    const TestFolder folder;
    const std::filesystem::path target = NativePath(folder.Write(L"target", "old"));
    // What is open keeps its identity from being given anew.
    const NativeFile open(::open(target.c_str(), O_RDONLY | O_CLOEXEC));
    const ino_t former = IdentityOf(target);
    ReplacementFile file(folder.Name(L"target"), GatherPlace::TemporaryFolder);
    file.Write("new");
    EXPECT_TRUE(file.Commit());
    EXPECT_NE(IdentityOf(target), former);
    EXPECT_EQ(folder.Read(L"target"), "new");
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
}

/// A target that no other file can take the name of, since it has one more itself.
class TargetOfTwoNames : public testing::Test
{
  protected:
    TargetOfTwoNames() : inUse_(temporary.Path())
    {
        folder.Write(L"target", OLD);
        std::filesystem::create_hard_link(folder.Path() / "target", folder.Path() / "other");
        replacement_.emplace(folder.Name(L"target"));
        replacement_->Write(std::string(3000000, 'n'));
    }

    bool Commit()
    {
        const bool taken = replacement_->Commit();
        replacement_.reset();
        return taken;
    }

    const std::string OLD = std::string(2000000, 'o');
    TestFolder folder;
    TestFolder temporary;

  private:
    TemporaryFolderOverride inUse_;
    std::optional<ReplacementFile> replacement_;
};

TEST_F(TargetOfTwoNames, IsWrittenOver)
{
    EXPECT_TRUE(Commit());
    EXPECT_TRUE(folder.Read(L"other") == std::string(3000000, 'n'));
    EXPECT_TRUE(temporary.Files().empty());
}

struct FailureInPlace
{
    const char* name;
    SystemCall call;
    int error;
    /// Calls before the one that fails; two and three megabytes are copied in blocks of one.
    int allowed;
};

class TargetOfTwoNamesFailure : public TargetOfTwoNames, public testing::WithParamInterface<FailureInPlace>
{};

TEST_P(TargetOfTwoNamesFailure, PutsTheOldContentBack)
{
    bool taken = true;
    {
        FailingCalls failing(GetParam().call, GetParam().error, GetParam().allowed);
        failing.Times(1);
        taken = Commit();
    }
    EXPECT_FALSE(taken);
    EXPECT_TRUE(folder.Read(L"target") == OLD);
    EXPECT_TRUE(folder.Read(L"other") == OLD);
    EXPECT_TRUE(temporary.Files().empty());
}

INSTANTIATE_TEST_SUITE_P(Files, TargetOfTwoNamesFailure,
                         testing::Values(FailureInPlace{"AtTheFirstBlock", SystemCall::Write, ENOSPC, 2},
                                         FailureInPlace{"AtTheLastBlock", SystemCall::Write, ENOSPC, 4},
                                         FailureInPlace{"AtTheLength", SystemCall::Shorten, EIO, 0},
                                         FailureInPlace{"AtTheVolume", SystemCall::Sync, EIO, 0},
                                         FailureInPlace{"WithoutRoom", SystemCall::Reserve, ENOSPC, 0}),
                         [](const auto& failure) { return failure.param.name; });

TEST_F(TargetOfTwoNames, ThatCanNotBePutBackLeavesItsOldContentInTheTemporaryFolder)
{
    bool taken = true;
    {
        const FailingCalls failing(SystemCall::Write, EIO, 3);
        taken = Commit();
    }
    EXPECT_FALSE(taken);
    ASSERT_EQ(temporary.Files().size(), 1U);
    EXPECT_TRUE(temporary.Read(temporary.Files().front()) == OLD);
}

TEST_F(TargetOfTwoNames, ThatCanNotBeEmptiedLeavesItsOldContentInTheTemporaryFolder)
{
    bool taken = true;
    {
        FailingCalls failing(SystemCall::Write, EIO, 3);
        failing.Times(2);
        const FailingCalls longer(SystemCall::Shorten, EIO);
        taken = Commit();
    }
    EXPECT_FALSE(taken);
    ASSERT_EQ(temporary.Files().size(), 1U);
    EXPECT_TRUE(temporary.Read(temporary.Files().front()) == OLD);
}

TEST_F(TargetOfTwoNames, IsNotTouchedWhereNeitherItsContentNorTheRoomIsSafe)
{
    const TemporaryFolderOverride none(temporary.Path() / "missing");
    {
        const FailingCalls failing(SystemCall::Reserve, EOPNOTSUPP);
        EXPECT_FALSE(Commit());
    }
    EXPECT_TRUE(folder.Read(L"target") == OLD);
}

TEST_F(TargetOfTwoNames, IsWrittenOverWhereTheRoomIsCertain)
{
    const MountedFolder mounted(folder.Path(), "size=8m");
    if (!mounted)
    {
        GTEST_SKIP() << "mounting is refused";
    }
    folder.Write(L"target", OLD);
    std::filesystem::create_hard_link(folder.Path() / "target", folder.Path() / "other");
    const TemporaryFolderOverride none(temporary.Path() / "missing");
    EXPECT_TRUE(Commit());
    EXPECT_TRUE(folder.Read(L"other") == std::string(3000000, 'n'));
}

TEST(Files, ATargetThatTakesNoOtherFilesOwnerIsWrittenOver)
{
    const TestFolder folder;
    const std::filesystem::path target = NativePath(folder.Write(L"target", "old"));
    if (::chown(target.c_str(), 12345, 12345) != 0)
    {
        GTEST_SKIP() << "only an administrator can give a file away";
    }
    const ino_t former = IdentityOf(target);
    const FailingCalls failing(SystemCall::ChangeOwner, EPERM);
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    EXPECT_EQ(folder.Read(L"target"), "new");
    EXPECT_EQ(IdentityOf(target), former);
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
}

TEST(Files, AVolumeWithoutPermissionsTakesNewFilesByName)
{
    const TestFolder folder;
    const std::filesystem::path target = NativePath(folder.Write(L"target", "old"));
    ::chmod(target.c_str(), 0600);
    const ino_t former = IdentityOf(target);
    const NativeFile open(::open(target.c_str(), O_RDONLY | O_CLOEXEC));
    const FailingCalls failing(SystemCall::ChangeMode, EPERM);
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    EXPECT_NE(IdentityOf(target), former);
    EXPECT_TRUE(Replace(folder.Name(L"made"), "new"));
    EXPECT_EQ(folder.Read(L"made"), "new");
}

TEST(Files, AFolderThatLetsNoFileBeRenamedTakesANewOneWholeOrNotAtAll)
{
    const TestFolder folder;
    const FailingCalls failing(SystemCall::Rename, EPERM);
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    EXPECT_EQ(folder.Read(L"target"), "new");
    const FailingCalls full(SystemCall::Sync, ENOSPC);
    EXPECT_FALSE(Replace(folder.Name(L"other"), "new"));
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
}

/// A file in a folder as a killed process leaves it: private, and older than a day.
void WriteStale(const TestFolder& folder, const std::wstring& name, mode_t mode = 0600, std::time_t age = 90000)
{
    const std::filesystem::path path = NativePath(folder.Write(name, "left"));
    ::chmod(path.c_str(), mode);
    const timespec then{std::time(nullptr) - age, 0};
    const timespec times[] = {then, then};
    ::utimensat(AT_FDCWD, path.c_str(), times, 0);
}

TEST(Files, WorkFilesThatKilledProcessesLeftAreRemoved)
{
    const TestFolder folder;
    WriteStale(folder, L"tsx0AZ9XY.tmp");
    WriteStale(folder, L"tsxAAAAAA.tmp");
    EXPECT_TRUE(Replace(folder.Name(L"target"), "new"));
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
}

TEST(Files, OnlyOldFilesOfTheConvertersMakingThatNobodyHoldsAreRemoved)
{
    const TestFolder folder;
    WriteStale(folder, L"tsx0AZ9XY.tmp", 0600, 80000); // of today
    WriteStale(folder, L"tsx1AZ9XY.tmp", 0400);        // left for its user
    WriteStale(folder, L"tsx2AZ9XY.tmp", 0644);        // not private
    WriteStale(folder, L"tsx3AZ9X.tmp");               // shorter
    WriteStale(folder, L"tsx4az9xy.tmp");              // no letter of ours
    WriteStale(folder, L"tsx5AZ9XY.xml");
    WriteStale(folder, L"abc6AZ9XY.tmp");
    WriteStale(folder, L"tsx7AZ9XY.tmp"); // has another name too
    std::filesystem::create_hard_link(folder.Path() / "tsx7AZ9XY.tmp", folder.Path() / "other");
    WriteStale(folder, L"tsx8AZ9XY.tmp"); // held
    const NativeFile held(::open((folder.Path() / "tsx8AZ9XY.tmp").c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(::flock(held.Get(), LOCK_EX), 0);
    std::filesystem::create_symlink("tsx8AZ9XY.tmp", folder.Path() / "tsx9AZ9XY.tmp");
    WriteStale(folder, L"tsxAAZ9XY.tmp"); // somebody else's, where the test may give it away
    static_cast<void>(::chown((folder.Path() / "tsxAAZ9XY.tmp").c_str(), 12345, 12345));
    if (::geteuid() != 0)
    {
        std::filesystem::remove(folder.Path() / "tsxAAZ9XY.tmp");
    }
    ASSERT_EQ(::mkfifo((folder.Path() / "tsxBAZ9XY.tmp").c_str(), 0600), 0);
    const std::vector<std::wstring> before = folder.Files();
    ASSERT_GE(before.size(), 12U);
    EXPECT_NE(WorkFile::Make(folder.Name() + L"/"), std::nullopt);
    EXPECT_EQ(folder.Files(), before);
}

TEST(Files, AnOldFileWhoseNameIsNoLongerItsOwnIsNotRemoved)
{
    const TestFolder folder;
    WriteStale(folder, L"tsx0AZ9XY.tmp");
    const FailingCalls gone(SystemCall::StatusOfName, ENOENT);
    EXPECT_NE(WorkFile::Make(folder.Name() + L"/"), std::nullopt);
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"tsx0AZ9XY.tmp"});
}

TEST(Files, AWorkFileIsHeldAsLongAsItsMakerLives)
{
    const TestFolder folder;
    const std::optional<WorkFile> work = WorkFile::Make(folder.Name() + L"/");
    ASSERT_NE(work, std::nullopt);
    const NativeFile other(::open(Utf8FromWide(work->Path()).c_str(), O_RDWR | O_CLOEXEC));
    EXPECT_NE(::flock(other.Get(), LOCK_EX | LOCK_NB), 0);
}

TEST(Files, APathThatIsTooLongIsNoneOfAFile)
{
    EXPECT_FALSE(RemoveFile(std::wstring(100000, L'x')));
}

TEST(Files, NamesThatCanNotAllBeReadAreNotTold)
{
    const TestFolder folder;
    folder.Write(L"a", "");
    folder.Write(L"b", "");
    // With "." and ".." at least one name comes before the failure.
    const FailingCalls failing(SystemCall::ReadFolder, EIO, 3);
    EXPECT_EQ(FileNames(folder.Name()), std::nullopt);
}

TEST(Files, ContentThatIsLostOnItsWayToTheVolumeIsAFailure)
{
    const TestFolder folder;
    ReplacementFile file(folder.Write(L"target", "old"));
    file.Write("new");
    {
        FailingCalls failing(SystemCall::Close, EIO);
        failing.Times(1);
        EXPECT_THROW(file.Commit(), CFileException);
    }
    OutputFile other(folder.Name(L"other"));
    {
        FailingCalls failing(SystemCall::Close, EIO);
        failing.Times(1);
        EXPECT_THROW(other.Close(), CFileException);
    }
    EXPECT_EQ(folder.Read(L"target"), "old");
}

/// A target before its new content comes, and where that is gathered.
struct TargetKind
{
    const char* name;
    bool exists;
    bool hasAnotherName;
    bool hasAccessControlList;
    GatherPlace place;
};

constexpr TargetKind TARGET_OF_TWO_NAMES{"OfTwoNames", true, true, false, GatherPlace::BesideTarget};
constexpr TargetKind TARGET_KINDS[] = {
    TARGET_OF_TWO_NAMES,
    {"Plain", true, false, false, GatherPlace::BesideTarget},
    {"Missing", false, false, false, GatherPlace::BesideTarget},
    {"WithAccessControlList", true, false, true, GatherPlace::BesideTarget},
    {"PlainFromElsewhere", true, false, false, GatherPlace::TemporaryFolder},
    {"MissingFromElsewhere", false, false, false, GatherPlace::TemporaryFolder},
};

struct CallFailure
{
    const char* name;
    SystemCall call;
    int error;
};

constexpr CallFailure CALL_FAILURES[] = {
    {"Write", SystemCall::Write, ENOSPC},
    {"WriteInterrupted", SystemCall::Write, EINTR},
    {"Read", SystemCall::Read, EIO},
    {"ReadInterrupted", SystemCall::Read, EINTR},
    {"Sync", SystemCall::Sync, EIO},
    {"Shorten", SystemCall::Shorten, EIO},
    {"ReserveOnFullVolume", SystemCall::Reserve, ENOSPC},
    {"ReserveBeyondQuota", SystemCall::Reserve, EDQUOT},
    {"ReserveBeyondLimit", SystemCall::Reserve, EFBIG},
    {"ReserveUnknown", SystemCall::Reserve, EOPNOTSUPP},
    {"Rename", SystemCall::Rename, EPERM},
    {"ChangeOwner", SystemCall::ChangeOwner, EPERM},
    {"ChangeMode", SystemCall::ChangeMode, EPERM},
    {"Close", SystemCall::Close, EIO},
    {"ReadFolder", SystemCall::ReadFolder, EIO},
    {"Status", SystemCall::Status, EIO},
    {"StatusOfName", SystemCall::StatusOfName, EIO},
    {"OpenMode", SystemCall::OpenMode, EIO},
    {"Seek", SystemCall::Seek, EIO},
    {"Volume", SystemCall::Volume, EIO},
    {"GetAttribute", SystemCall::GetAttribute, EIO},
    {"SetAttribute", SystemCall::SetAttribute, EPERM},
    {"Access", SystemCall::Access, EROFS},
    {"Random", SystemCall::Random, ENOSYS},
    {"Duplicate", SystemCall::Duplicate, EMFILE},
};

/// A target in a folder of its own, whose content is replaced while something fails.
class ReplacedTarget
{
  public:
    explicit ReplacedTarget(const TargetKind& kind) : inUse_(temporary.Path()), kind_(kind)
    {
        if (kind.exists)
        {
            folder.Write(L"target", OLD);
            standing_.push_back(L"target");
        }
        if (kind.hasAnotherName)
        {
            std::filesystem::create_hard_link(folder.Path() / "target", folder.Path() / "other");
            standing_.insert(standing_.begin(), L"other");
        }
        if (kind.hasAccessControlList)
        {
            SetList(folder.Path() / "target", ACCESS_LIST);
        }
    }

    bool Replace()
    {
        ReplacementFile file(folder.Name(L"target"), kind_.place);
        file.Write(NEW);
        return file.Commit();
    }

    bool IsNew() const { return folder.Read(L"target") == NEW; }
    bool IsOld() const { return folder.Files() == standing_ && folder.Read(L"target") == (kind_.exists ? OLD : ""); }

    /// True if nothing stands beside the target that didn't before.
    bool IsAlone() const
    {
        const std::vector<std::wstring> files = folder.Files();
        return files == standing_ || files == std::vector<std::wstring>{L"target"};
    }

    static inline const std::string OLD = std::string(20000, 'o');
    static inline const std::string NEW = std::string(30000, 'n');
    TestFolder folder;
    TestFolder temporary;

  private:
    TemporaryFolderOverride inUse_;
    TargetKind kind_;
    std::vector<std::wstring> standing_;
};

class CallThatFails : public testing::TestWithParam<std::tuple<TargetKind, CallFailure>>
{
  protected:
    static constexpr int ENOUGH = 100000;

    /// Makes each of the calls fail in turn, so many from there on, and looks at what has become of the target.
    template <class Check>
    void FailEach(int times, Check check)
    {
        const auto& [kind, failure] = GetParam();
        for (int allowed = 0; allowed < ENOUGH; ++allowed)
        {
            SCOPED_TRACE(allowed);
            ReplacedTarget target(kind);
            bool failed = false;
            bool replaced = false;
            {
                FailingCalls failing(failure.call, failure.error, allowed);
                failing.Times(times);
                try
                {
                    replaced = target.Replace();
                }
                catch (const CFileException&)
                {}
                failed = failing.HasFailed();
            }
            check(target, replaced);
            if (!failed)
            {
                EXPECT_TRUE(replaced);
                return;
            }
        }
        FAIL() << "the calls have no end";
    }
};

TEST_P(CallThatFails, LeavesTheTargetOldOrNewAndNothingBeside)
{
    FailEach(1, [](const ReplacedTarget& target, bool replaced) {
        EXPECT_TRUE(replaced ? target.IsNew() : target.IsOld());
        EXPECT_TRUE(target.IsAlone());
        EXPECT_TRUE(target.temporary.Files().empty());
    });
}

TEST_P(CallThatFails, TwiceLeavesTheOldContentSomewhereAtLeast)
{
    FailEach(2, [](const ReplacedTarget& target, bool replaced) {
        EXPECT_TRUE(target.IsAlone());
        EXPECT_TRUE(!replaced || target.IsNew());
        if (!replaced && !target.IsOld())
        {
            ASSERT_EQ(target.temporary.Files().size(), 1U);
            EXPECT_TRUE(target.temporary.Read(target.temporary.Files().front()) == ReplacedTarget::OLD);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Files, CallThatFails,
                         testing::Combine(testing::ValuesIn(TARGET_KINDS), testing::ValuesIn(CALL_FAILURES)),
                         [](const auto& row) {
                             return std::string(std::get<0>(row.param).name) + "_" + std::get<1>(row.param).name;
                         });

class AllocationThatFails : public testing::TestWithParam<TargetKind>
{};

TEST_P(AllocationThatFails, LeavesTheTargetOldOrNewAndNothingBeside)
{
    for (std::size_t allowed = 0;; ++allowed)
    {
        SCOPED_TRACE(allowed);
        ReplacedTarget target(GetParam());
        bool failed = false;
        std::optional<bool> replaced;
        {
            const FailingAllocation failing(allowed, FailOtherwise);
            try
            {
                replaced = target.Replace();
            }
            catch (const std::bad_alloc&)
            {}
            failed = failing.HasFailed();
        }
        EXPECT_TRUE(replaced == true ? target.IsNew() : target.IsOld());
        EXPECT_TRUE(target.IsAlone());
        EXPECT_TRUE(target.temporary.Files().empty());
        if (!failed)
        {
            EXPECT_EQ(replaced, true);
            return;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Files, AllocationThatFails, testing::ValuesIn(TARGET_KINDS),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Files, ATargetThatCanNotBePutBackForWantOfMemoryLeavesItsOldContentInTheTemporaryFolder)
{
    int left = 0;
    for (std::size_t allowed = 0;; ++allowed)
    {
        SCOPED_TRACE(allowed);
        ReplacedTarget target(TARGET_OF_TWO_NAMES);
        bool failed = false;
        {
            FailingCalls failing(SystemCall::Sync, EIO);
            failing.Times(1);
            const FailingAllocation noMemory(allowed, FailOtherwise);
            try
            {
                EXPECT_FALSE(target.Replace());
            }
            catch (const std::bad_alloc&)
            {}
            failed = noMemory.HasFailed();
        }
        if (!target.IsOld())
        {
            ++left;
            ASSERT_EQ(target.temporary.Files().size(), 1U);
            EXPECT_TRUE(target.temporary.Read(target.temporary.Files().front()) == ReplacedTarget::OLD);
        }
        else
        {
            EXPECT_TRUE(target.temporary.Files().empty());
        }
        if (!failed)
        {
            break;
        }
    }
    EXPECT_EQ(left, 1);
}

TEST_F(TargetOfTwoNames, MayBecomeEmpty)
{
    ReplacementFile file(folder.Name(L"target"));
    EXPECT_TRUE(file.Commit());
    EXPECT_EQ(folder.Read(L"other"), "");
    EXPECT_EQ(folder.Read(L"target"), "");
}

TEST(Files, AWorkFileTakesThePlaceOfAnother)
{
    const TestFolder folder;
    std::optional<WorkFile> first = WorkFile::Make(folder.Name() + L"/");
    std::optional<WorkFile> second = WorkFile::Make(folder.Name() + L"/");
    ASSERT_TRUE(first && second);
    const std::wstring kept = second->Path();
    first = std::move(second);
    second.reset();
    EXPECT_EQ(first->Path(), kept);
    EXPECT_TRUE(PathExists(kept));
    EXPECT_EQ(folder.Files().size(), 1U);
}

TEST(Files, AnOpenPipeIsWrittenToByTheSystemsNameForIt)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const NativeFile reader(ends[0]);
    const NativeFile writer(ends[1]);
    EXPECT_TRUE(Replace(L"/dev/fd/" + std::to_wstring(writer.Get()), "new"));
    std::array<char, 8> taken{};
    EXPECT_EQ(::read(reader.Get(), taken.data(), taken.size()), 3);
    EXPECT_STREQ(taken.data(), "new");
}

TEST(Files, ATargetWithoutAFolderStandsInTheCurrentOne)
{
    const TestFolder folder;
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    const bool made = Replace(L"target", "new");
    const bool replaced = Replace(L"target", "newer");
    std::filesystem::current_path(former);
    EXPECT_TRUE(made && replaced);
    EXPECT_EQ(folder.Read(L"target"), "newer");
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"target"});
}

TEST(Files, WithoutAVariableTheTemporaryFolderIsTheSystems)
{
    const TemporaryFolderOverride none("");
    EXPECT_EQ(TemporaryFolder(), L"/tmp/");
}

TEST(Files, AnEmptyVariableIsNone)
{
    const TestFolder folder;
    const TemporaryFolderOverride inUse(folder.Path());
    ::setenv("TMPDIR", "", 1);
    EXPECT_EQ(TemporaryFolder(), L"/tmp/");
}

TEST(Files, AWorkFileTakesNoNameThatIsTaken)
{
    const TestFolder folder;
    const RepeatedRandom random(3);
    const std::optional<WorkFile> first = WorkFile::Make(folder.Name() + L"/");
    const std::optional<WorkFile> second = WorkFile::Make(folder.Name() + L"/");
    ASSERT_TRUE(first && second);
    EXPECT_NE(first->Path(), second->Path());
    EXPECT_EQ(folder.Files().size(), 2U);
}

TEST(Files, ATargetWhoseNameIsLongerThanAnyIsRefused)
{
    const TestFolder folder;
    const TestFolder temporary;
    const TemporaryFolderOverride inUse(temporary.Path());
    EXPECT_TRUE(Replace(folder.Name(std::wstring(255, L'x')), "new"));
    EXPECT_FALSE(Replace(folder.Name(std::wstring(256, L'x')), "new"));
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{std::wstring(255, L'x')});
    EXPECT_TRUE(temporary.Files().empty());
}

TEST(Files, AnotherFileUnderTheNameOfTheContentDoesNotTakeTheTargetsPlace)
{
    const TestFolder folder;
    ReplacementFile file(folder.Write(L"target", "old"));
    file.Write("new");
    std::wstring work;
    for (const std::wstring& name : folder.Files())
    {
        work = name != L"target" ? name : work;
    }
    std::filesystem::remove(folder.Path() / NativePath(work));
    folder.Write(work, "planted");
    EXPECT_TRUE(file.Commit());
    EXPECT_EQ(folder.Read(L"target"), "new");
}

TEST(Files, AFileWhoseKindOrLengthTheSystemDoesNotTellIsNotRead)
{
    const TestFolder folder;
    const std::wstring path = folder.Write(L"線形.csv", "a");
    for (int allowed = 0; allowed < 3; ++allowed)
    {
        TakeWarnings();
        FailingCalls failing(SystemCall::Status, EIO, allowed);
        failing.Times(1);
        std::size_t length = 7;
        const bool opened = OpenForReading(path, length) != nullptr;
        EXPECT_EQ(opened, !failing.HasFailed());
        EXPECT_EQ(length, failing.HasFailed() ? 0U : 1U);
        EXPECT_EQ(TakeWarnings().size(), failing.HasFailed() ? 1U : 0U);
    }
}

TEST(Files, WhatCanNotBeLookedAtIsMissingAndToldOf)
{
    TakeWarnings();
    EXPECT_FALSE(PathExists(std::wstring(300, L'x')));
    const std::vector<Warning> warnings = TakeWarnings();
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings.front().text, L"ファイルを読み込めません。");
    const TestFolder folder;
    EXPECT_FALSE(PathExists(folder.Write(L"a", "") + L"/b"));
    EXPECT_TRUE(TakeWarnings().empty());
}

TEST(Files, AFileThatOutgrowsItsLimitIsAFailureAndNoSignal)
{
    const TestFolder folder;
    EXPECT_EXIT(
        {
            const ResourceLimit limit(RLIMIT_FSIZE, 10);
            OutputFile file(folder.Name(L"a"));
            try
            {
                file.Write(std::string(11, 'x'));
            }
            catch (const CFileException&)
            {
                std::_Exit(0);
            }
            std::_Exit(1);
        },
        testing::ExitedWithCode(0), "");
}

TEST(Files, WhatIsNoPlainFileIsWrittenTo)
{
    EXPECT_TRUE(Replace(L"/dev/null", "new"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_FALSE(Replace(L"/dev/full", "new"));
    const FailingCalls failing(SystemCall::Seek, EIO);
    EXPECT_FALSE(Replace(L"/dev/null", "new"));
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
    ASSERT_EQ(::chown(target.c_str(), ::getuid(), OTHER), 0);
    EXPECT_TRUE(Replace(folder.Name(L"target"), "newer"));
    ASSERT_EQ(::stat(target.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, ::getuid());
    EXPECT_EQ(status.st_gid, OTHER);
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

TEST(Files, NamesThatAreOneToTheSystemHaveOneKey)
{
#ifdef _WIN32
    EXPECT_EQ(FileNameKey(L"out/Route Ａ路線.xml"), FileNameKey(L"OUT/route ａ路線.XML"));
#else
    EXPECT_NE(FileNameKey(L"A"), FileNameKey(L"a"));
#endif
    EXPECT_EQ(FileNameKey(L"路線1"), FileNameKey(L"路線1"));
    EXPECT_NE(FileNameKey(L"路線1"), FileNameKey(L"路線2"));
    EXPECT_EQ(FileNameKey(L""), L"");
}

TEST(Files, TheTemporaryFolderEndsWithASeparator)
{
    const TestFolder folder;
    const TemporaryFolderOverride temporary(folder.Path());
    const auto name = TemporaryFolder();
    ASSERT_TRUE(name);
    EXPECT_EQ(FolderOf(*name), *name);
    EXPECT_TRUE(std::filesystem::equivalent(NativePath(*name).parent_path(), folder.Path()));
}

} // namespace
} // namespace jlandxml
