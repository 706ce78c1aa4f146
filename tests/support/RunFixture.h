#pragma once

#include "run/ConversionContext.h"
#include "support/TemporaryFolder.h"
#include "windows/scripted/ScriptedWindowSystem.h"

#include <gtest/gtest.h>

namespace jlandxml
{

/// A run of the module in a work folder and a temporary folder of its own, with its message boxes recorded.
class RunTest : public testing::Test
{
  protected:
    RunTest() : temporary_(temporaryFolder.Path()), former_(SetWindowSystem(&windows)) {}
    RunTest(const RunTest&) = delete;
    RunTest& operator=(const RunTest&) = delete;
    ~RunTest() override { SetWindowSystem(former_); }

    static ConversionContext& Context() { return GetConversionContext(); }

    /// Puts the work file into the work folder and gives its path.
    std::wstring WorkFile(const std::string& xml) const { return folder.Write(L"Landxml_temp.xml", xml); }

    TestFolder folder;
    TestFolder temporaryFolder;
    ScriptedWindowSystem windows;

  private:
    TemporaryFolderOverride temporary_;
    WindowSystem* former_;
};

} // namespace jlandxml
