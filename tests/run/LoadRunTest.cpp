#include "run/LoadRun.h"

#include "base/Warnings.h"
#include "support/FailingAllocation.h"
#include "support/RunFixture.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace jlandxml
{
namespace
{

class LoadRunTest : public RunTest
{};

TEST_F(LoadRunTest, TakesTheWorkFileIntoTheModelAndKeepsACopy)
{
    LoadRun(WorkFile("<LandXML><CoordinateSystem name=\"座標系\"/></LandXML>"));
    EXPECT_EQ(Context().model.coordinateSystem.name, L"座標系");
    Context().model.coordinateSystem.name = L"changed";
    EXPECT_EQ(Context().loadedModel.coordinateSystem.name, L"座標系");
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(LoadRunTest, TheDocumentElementMayHaveAnyName)
{
    LoadRun(WorkFile("<Other><CoordinateSystem name=\"c\"/></Other>"));
    EXPECT_EQ(Context().model.coordinateSystem.name, L"c");
}

TEST_F(LoadRunTest, AMissingFileGivesAnEmptyModelAndNoMessage)
{
    LoadRun(WorkFile("<LandXML><CoordinateSystem name=\"c\"/></LandXML>"));
    LoadRun(folder.Name(L"missing.xml"));
    EXPECT_EQ(Context().model.coordinateSystem.name, L"");
    EXPECT_EQ(Context().loadedModel.coordinateSystem.name, L"");
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(LoadRunTest, ABrokenFileGivesAnEmptyModelAndNoMessage)
{
    LoadRun(WorkFile("<LandXML><CoordinateSystem name=\"c\"/>"));
    EXPECT_EQ(Context().model.coordinateSystem.name, L"");
    EXPECT_TRUE(windows.Messages().empty());
}

TEST_F(LoadRunTest, WithoutMemoryForATreeTheModelIsEmptyAndTheFileIsToldOf)
{
    const std::wstring work = WorkFile("<LandXML><CoordinateSystem name=\"c\"/></LandXML>");
    LoadRun(work);
    {
        const FailingParserAllocation failing(0);
        LoadRun(work);
        EXPECT_TRUE(failing.HasFailed());
    }
    EXPECT_EQ(Context().model.coordinateSystem.name, L"");
    EXPECT_TRUE(windows.Messages().empty());
    const std::vector<Warning> warnings = TakeWarnings();
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings[0].code, "no-memory-for-file");
    EXPECT_EQ(warnings[0].file, work);
}

TEST_F(LoadRunTest, ASecondLoadSeesOnlyItsOwnInput)
{
    LoadRun(WorkFile(
        "<LandXML><Project><Feature><Property label=\"projectPhase\" value=\"予備\"/></Feature></Project></LandXML>"));
    EXPECT_EQ(Context().model.project.projectPhase, L"予備");
    LoadRun(WorkFile("<LandXML><CoordinateSystem name=\"c\"/></LandXML>"));
    EXPECT_EQ(Context().model.project.projectPhase, L"");
    EXPECT_EQ(Context().model.coordinateSystem.name, L"c");
}

TEST_F(LoadRunTest, WhatTheLastRunWroteIsForgotten)
{
    Context().fileWritten = true;
    LoadRun(WorkFile("<LandXML/>"));
    EXPECT_FALSE(Context().fileWritten);
    Context().fileWritten = true;
    LoadRun(folder.Name(L"missing.xml"));
    EXPECT_FALSE(Context().fileWritten);
}

TEST_F(LoadRunTest, APipeInThePlaceOfTheWorkFileIsAMissingOne)
{
#ifndef _WIN32
    ASSERT_EQ(::mkfifo((folder.Path() / "pipe").c_str(), 0600), 0);
#endif
    LoadRun(folder.Name(L"pipe"));
    EXPECT_EQ(Context().model.coordinateSystem.name, L"");
    EXPECT_TRUE(windows.Messages().empty());
}

struct LoadFailureCase
{
    const char* name;
    void (*fail)();
    const wchar_t* message;
};

class LoadFailure : public LoadRunTest, public testing::WithParamInterface<LoadFailureCase>
{};

TEST_P(LoadFailure, IsToldInTheWordsOfTheRun)
{
    const std::wstring path = WorkFile("<LandXML><CoordinateSystem name=\"a name of some length\"/></LandXML>");
    const auto prepare = [] { Context().document.Close(); };
    EXPECT_EQ(MessagesOfAllFailures<LandXMLLoadException>(GetParam().fail, prepare, [&] { LoadRun(path); }),
              Messages{GetParam().message});
    EXPECT_EQ(Context().model.coordinateSystem.name, L"a name of some length");
    EXPECT_TRUE(windows.Messages().empty());
}

INSTANTIATE_TEST_SUITE_P(LoadRun, LoadFailure,
                         testing::Values(LoadFailureCase{"OfAFile", FailAsFile, L"File operation failed: %s, cause"},
                                         LoadFailureCase{"OfTheFramework", FailAsFramework,
                                                         L"General exception occurred: %s, cause"},
                                         LoadFailureCase{"OfAnythingElse", FailOtherwise,
                                                         L"Unknown exception occurred while loading the CSV file."}),
                         [](const auto& row) { return row.param.name; });

TEST_F(LoadRunTest, TheContextAndTheRouteNameAreOneForTheProcess)
{
    EXPECT_EQ(&GetConversionContext(), &GetConversionContext());
    EXPECT_EQ(&GetCurrentRouteName(), &GetCurrentRouteName());
    EXPECT_EQ(GetCurrentRouteName(), L"");
}

} // namespace
} // namespace jlandxml
