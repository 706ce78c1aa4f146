#include "run/FinishOutputFile.h"

#include "framework/Exceptions.h"
#include "run/LoadRun.h"
#include "support/RunFixture.h"

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
    EXPECT_EQ(windows.Messages(),
              (std::vector<ShownMessage>{{L"作業用ファイルへのアクセスに失敗しました。", MessageIcon::Exclamation}}));
    EXPECT_EQ(folder.Read(L"out.xml"), "old");
}

TEST_F(FinishOutputFileTest, WithoutADocumentItEndsInSilenceAndTheFirstWorkFileStays)
{
    Context().document.Close();
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

#ifndef _WIN32

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
