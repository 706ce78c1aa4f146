#include "sidefiles/CSVLoaderBase.h"

#include "sidefiles/CgPointIntermediateCSVLoader.h"
#include "sidefiles/CgPointWidthStakeCSVLoader.h"
#include "sidefiles/SuperElevationCSVLoader.h"
#include "sidefiles/WideningCSVLoader.h"
#include "support/SideFileFixture.h"
#include "support/UnreadableFile.h"

#include <functional>

namespace jlandxml
{
namespace
{

class TestLoadException : public CException
{
  public:
    using CException::CException;
};

/// A loader whose walk is the test's.
class TestLoader final : public CSVLoaderBase
{
  public:
    explicit TestLoader(std::function<void(CsvRows&)> walk) : walk_(std::move(walk)) {}
    bool Load(const std::wstring& path) override
    {
        return LoadRows<TestLoadException>(path, [this] { walk_(rows); });
    }

  private:
    std::function<void(CsvRows&)> walk_;
};

class CSVLoaderBaseTest : public SideFileTest
{};

TEST_F(CSVLoaderBaseTest, AMissingFileIsNoFailureAndNothingIsDone)
{
    TestLoader loader([](CsvRows&) { FAIL(); });
    EXPECT_FALSE(loader.Load(folder.Name(L"missing.csv")));
}

TEST_F(CSVLoaderBaseTest, TheWalkRunsAlsoForAnEmptyFile)
{
    int walks = 0;
    TestLoader loader([&](CsvRows& rows) {
        CsvRow row;
        EXPECT_FALSE(rows.Next(row));
        ++walks;
    });
    EXPECT_TRUE(loader.Load(folder.Write(L"empty.csv", "")));
    EXPECT_EQ(walks, 1);
}

TEST_F(CSVLoaderBaseTest, WhatCanNotBeOpenedHasNoRows)
{
    int walks = 0;
    TestLoader loader([&](CsvRows&) { ++walks; });
    EXPECT_TRUE(loader.Load(folder.Name()));
    EXPECT_EQ(walks, 1);
}

TEST_F(CSVLoaderBaseTest, EachLoaderFailsByItsOwnExceptionWhereAFileOpensButCanNotBeRead)
{
    const auto file = UnreadableFile();
    if (!file)
    {
        GTEST_SKIP();
    }
    const std::wstring message = L"File operation failed: %s, ファイルを読み込めません: " + *file;
    EXPECT_EQ((FailureAt<CgPointIntermediateCSVLoader, IntermediateCSVLoadException>(*file)), message);
    EXPECT_EQ((FailureAt<CgPointWidthStakeCSVLoader, WidthStakeCSVLoadException>(*file)), message);
    EXPECT_EQ((FailureAt<SuperElevationCSVLoader, SuperElevationCSVLoadException>(*file)), message);
    EXPECT_EQ((FailureAt<WideningCSVLoader, WideningCSVLoadException>(*file)), message);
    EXPECT_TRUE(Model().intermediatePoints.empty());
}

struct FailureCase
{
    const char* name;
    void (*fails)(CsvRows&);
    const wchar_t* message;
};

class LoaderFailure : public CSVLoaderBaseTest, public testing::WithParamInterface<FailureCase>
{};

TEST_P(LoaderFailure, LeavesWithTheLoadersWords)
{
    TestLoader loader(GetParam().fails);
    try
    {
        loader.Load(folder.Write(L"side.csv", "a"));
        FAIL();
    }
    catch (const TestLoadException& exception)
    {
        EXPECT_EQ(ErrorText(exception), GetParam().message);
    }
}

INSTANTIATE_TEST_SUITE_P(CSVLoaderBase, LoaderFailure,
                         testing::Values(FailureCase{"FileFailure", [](CsvRows&) { throw CFileException(L"x"); },
                                                     L"File operation failed: %s, x"},
                                         FailureCase{"OtherFailure", [](CsvRows&) { throw CException(L"x"); },
                                                     L"General exception occurred: %s, x"},
                                         FailureCase{"NoMemory", [](CsvRows&) { throw std::bad_alloc(); },
                                                     L"Unknown exception occurred while loading the CSV file."}),
                         [](const auto& test) { return test.param.name; });

} // namespace
} // namespace jlandxml
