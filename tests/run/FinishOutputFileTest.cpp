#include "run/FinishOutputFile.h"

#include "base/Exceptions.h"
#include "run/LoadRun.h"
#include "support/FailingAllocation.h"
#include "support/MountedFolder.h"
#include "support/RunFixture.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace jlandxml
{
namespace
{

const std::string FINISHED = "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<LandXML />\r\n";

class FinishOutputFileTest : public RunTest
{
  protected:
    FinishOutputFileTest() { LoadRun(WorkFile("<LandXML/>")); }
};

TEST_F(FinishOutputFileTest, AnExistingTargetIsReplacedWithoutAsking)
{
    EXPECT_TRUE(FinishOutputFile(folder.Write(L"out.xml", std::string(100000, 'x')), Context()));
    EXPECT_EQ(folder.Read(L"out.xml"), FINISHED);
    EXPECT_TRUE(temporaryFolder.Files().empty());
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(FinishOutputFileTest, AMissingTargetFolderFailsInSilence)
{
    EXPECT_FALSE(FinishOutputFile(folder.Name(L"missing") + L"/out.xml", Context()));
    EXPECT_TRUE(temporaryFolder.Files().empty());
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(FinishOutputFileTest, ATargetInTheTemporaryFolderEndsUpWhole)
{
    const std::wstring target = temporaryFolder.Write(L"out.xml", "old");
    EXPECT_TRUE(FinishOutputFile(target, Context()));
    EXPECT_EQ(temporaryFolder.Read(L"out.xml"), FINISHED);
    EXPECT_EQ(temporaryFolder.Files(), std::vector<std::wstring>{L"out.xml"});
}

TEST_F(FinishOutputFileTest, TheWorkFileItselfMayBeTheTarget)
{
    EXPECT_TRUE(FinishOutputFile(folder.Name(L"Landxml_temp.xml"), Context()));
    EXPECT_EQ(folder.Read(L"Landxml_temp.xml"), FINISHED);
}

TEST_F(FinishOutputFileTest, AJapaneseFileNameIsKept)
{
    EXPECT_TRUE(FinishOutputFile(folder.Name(L"路線　①.xml"), Context()));
    EXPECT_EQ(folder.Read(L"路線　①.xml"), FINISHED);
}

TEST_F(FinishOutputFileTest, WithoutATemporaryFolderTheUserIsTold)
{
    const TemporaryFolderOverride none(temporaryFolder.Path() / "missing");
    folder.Write(L"out.xml", "old");
    EXPECT_FALSE(FinishOutputFile(folder.Name(L"out.xml"), Context()));
    EXPECT_EQ(windows.Messages(), (std::vector<ShownMessage>{{L"作業用ファイルへのアクセスに失敗しました。"}}));
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
}

TEST_F(FinishOutputFileTest, ATemporaryFolderOfATooLongNameIsToldTheUser)
{
    const TemporaryFolderOverride tooLong(temporaryFolder.Path() / std::string(300, 'x'));
    EXPECT_FALSE(FinishOutputFile(folder.Name(L"out.xml"), Context()));
    EXPECT_EQ(windows.Messages(), (std::vector<ShownMessage>{{L"作業用ファイルへのアクセスに失敗しました。"}}));
    EXPECT_EQ(folder.Files(), std::vector<std::wstring>{L"Landxml_temp.xml"});
}

TEST_F(FinishOutputFileTest, AFolderInThePlaceOfTheTargetFailsInSilence)
{
    std::filesystem::create_directory(folder.Path() / "out.xml");
    EXPECT_FALSE(FinishOutputFile(folder.Name(L"out.xml"), Context()));
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "out.xml"));
    EXPECT_TRUE(temporaryFolder.Files().empty());
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(FinishOutputFileTest, AFileOfNearlyNothingButIndentationIsAFailureBeforeItFillsTheDisk)
{
    constexpr std::size_t DEPTH = 100000; // 10 GB
    std::string xml;
    for (std::size_t level = 0; level < DEPTH; ++level)
    {
        xml += "<a>";
    }
    xml += "<b/>";
    for (std::size_t level = 0; level < DEPTH; ++level)
    {
        xml += "</a>";
    }
    LoadRun(WorkFile(xml));
    folder.Write(L"out.xml", "old");
    try
    {
        FinishOutputFile(folder.Name(L"out.xml"), Context());
        FAIL();
    }
    catch (const CException& exception)
    {
        EXPECT_EQ(ErrorText(exception), L"要素の入れ子が深すぎるため、ファイルを出力できません。");
        EXPECT_EQ(dynamic_cast<const CFileException*>(&exception), nullptr);
    }
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
    EXPECT_EQ(folder.Files(), (std::vector<std::wstring>{L"Landxml_temp.xml", L"out.xml"}));
    EXPECT_TRUE(temporaryFolder.Files().empty());
}

TEST_F(FinishOutputFileTest, AReadOnlyTargetFailsInSilence)
{
    const std::filesystem::path target = NativePath(folder.Write(L"out.xml", "old"));
    std::filesystem::permissions(target, std::filesystem::perms::owner_read);
    if (std::ofstream(target, std::ios::app))
    {
        GTEST_SKIP() << "an administrator may write it all the same";
    }
    EXPECT_FALSE(FinishOutputFile(folder.Name(L"out.xml"), Context()));
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
    EXPECT_EQ(folder.Files(), (std::vector<std::wstring>{L"Landxml_temp.xml", L"out.xml"}));
    EXPECT_TRUE(temporaryFolder.Files().empty());
    EXPECT_TRUE(windows.Messages().empty());
    std::filesystem::permissions(target, std::filesystem::perms::owner_all);
}

TEST_F(FinishOutputFileTest, AFailureBesideTheTargetIsMadeGoodInTheTemporaryFolder)
{
    bool failed = true;
    bool madeGood = false;
    for (std::size_t allowed = 0; failed; ++allowed)
    {
        folder.Write(L"out.xml", "old");
        bool written = false;
        try
        {
            const FailingAllocation failing(allowed, FailAsFile);
            written = FinishOutputFile(folder.Name(L"out.xml"), Context());
            failed = failing.HasFailed();
            EXPECT_TRUE(written) << allowed;
            madeGood = madeGood || failed;
        }
        catch (const CFileException&)
        {
            // What fails in the temporary folder has nothing in its place. It is told, and the target stays as it was.
        }
        EXPECT_EQ(folder.Read(L"out.xml"), written ? FINISHED : "old");
    }
    EXPECT_TRUE(madeGood);
}

TEST_F(FinishOutputFileTest, WithoutADocumentItEndsInSilenceAndTheFirstWorkFileStays)
{
    Context().document.Close();
    EXPECT_FALSE(FinishOutputFile(folder.Write(L"out.xml", "old"), Context()));
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
    EXPECT_EQ(temporaryFolder.Files().size(), 1U);
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(FinishOutputFileTest, WithoutATreeItEndsInSilenceAndTheFirstWorkFileStays)
{
    Context().document.appDocument->xmlDocument.reset();
    EXPECT_FALSE(FinishOutputFile(folder.Write(L"out.xml", "old"), Context()));
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
    EXPECT_EQ(temporaryFolder.Files().size(), 1U);
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(FinishOutputFileTest, AFileOfTheTargetsNameInTheTemporaryFolderStays)
{
    temporaryFolder.Write(L"out.xml", "somebody's");
    EXPECT_TRUE(FinishOutputFile(folder.Name(L"out.xml"), Context()));
    EXPECT_EQ(folder.Read(L"out.xml"), FINISHED);
    EXPECT_EQ(temporaryFolder.Read(L"out.xml"), "somebody's");
    EXPECT_EQ(temporaryFolder.Files(), std::vector<std::wstring>{L"out.xml"});
}

#ifdef _WIN32

TEST_F(FinishOutputFileTest, ATargetThatIsOpenElsewhereFailsInSilence)
{
    const std::wstring target = folder.Write(L"out.xml", "old");
    const HANDLE open = CreateFileW(target.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_FALSE(FinishOutputFile(target, Context()));
    CloseHandle(open);
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
    EXPECT_EQ(folder.Files(), (std::vector<std::wstring>{L"Landxml_temp.xml", L"out.xml"}));
    EXPECT_TRUE(temporaryFolder.Files().empty());
    EXPECT_TRUE(windows.Messages().empty());
}

#else

TEST_F(FinishOutputFileTest, ADeviceThatTakesNothingFailsInSilence)
{
    EXPECT_FALSE(FinishOutputFile(L"/dev/full", Context()));
    EXPECT_TRUE(temporaryFolder.Files().empty());
    EXPECT_TRUE(windows.Messages().empty());
}

class FullVolumeTest : public RunTest
{
  protected:
    FullVolumeTest() : mounted_(volume.Path(), "size=64k") {}

    void SetUp() override
    {
        if (!mounted_)
        {
            GTEST_SKIP() << "mounting is refused";
        }
    }

    /// Loads a tree whose finished file is larger than `size`.
    void LoadTreeOf(std::size_t size) { LoadRun(WorkFile("<LandXML><a>" + std::string(size, 'x') + "</a></LandXML>")); }

    TestFolder volume;
    std::vector<std::wstring> former = temporaryFolder.Files();

  private:
    MountedFolder mounted_;
};

TEST_F(FullVolumeTest, AVolumeWithRoomForTheFileAloneTakesIt)
{
    LoadTreeOf(40000);
    EXPECT_TRUE(FinishOutputFile(volume.Write(L"out.xml", std::string(40000, 'o')), Context()));
    EXPECT_EQ(volume.Read(L"out.xml"), "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<LandXML>\r\n\t<a>" +
                                           std::string(40000, 'x') + "</a>\r\n</LandXML>\r\n");
    EXPECT_EQ(volume.Files(), std::vector<std::wstring>{L"out.xml"});
    EXPECT_EQ(temporaryFolder.Files(), former);
}

TEST_F(FullVolumeTest, AVolumeWithoutRoomFailsInSilenceAndKeepsTheTarget)
{
    LoadTreeOf(100000);
    EXPECT_FALSE(FinishOutputFile(volume.Write(L"out.xml", "old"), Context()));
    EXPECT_FALSE(FinishOutputFile(volume.Name(L"new.xml"), Context()));
    EXPECT_EQ(volume.Read(L"out.xml"), "old");
    EXPECT_EQ(volume.Files(), std::vector<std::wstring>{L"out.xml"});
    EXPECT_EQ(temporaryFolder.Files(), former);
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(FinishOutputFileTest, APlantedLinkInTheTemporaryFolderIsNotFollowed)
{
    folder.Write(L"victim", "precious");
    std::filesystem::create_symlink(folder.Path() / "victim", temporaryFolder.Path() / "out.xml");
    EXPECT_TRUE(FinishOutputFile(folder.Name(L"out.xml"), Context()));
    EXPECT_EQ(folder.Read(L"victim"), "precious");
    EXPECT_EQ(folder.Read(L"out.xml"), FINISHED);
}

#endif

} // namespace
} // namespace jlandxml
