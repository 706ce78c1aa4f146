#pragma once

#include "base/Exceptions.h"
#include "support/RunFixture.h"

#include <string>

namespace jlandxml
{

/// A model with alignments of its own, on which a loader works, and a side file for it.
class SideFileTest : public RunTest
{
  protected:
    SideFileTest()
    {
        Context().model = FViewLandXML();
        GetCurrentRouteName() = L"R1";
    }
    SideFileTest(const SideFileTest&) = delete;
    SideFileTest& operator=(const SideFileTest&) = delete;
    ~SideFileTest() override { GetCurrentRouteName().clear(); }

    static FViewLandXML& Model() { return Context().model; }

    /// A new alignment in a new route.
    static FViewAlignment& AddAlignment(const std::wstring& name)
    {
        FViewAlignment& alignment = Model().alignments.emplace_back().alignments.emplace_back();
        alignment.name = name;
        return alignment;
    }

    template <class Loader>
    bool Load(const std::string& content)
    {
        return Loader().Load(folder.Write(L"side.csv", content));
    }

    /// The message with which a loader fails.
    template <class Loader, class Exception>
    std::wstring Failure(const std::string& content)
    {
        return FailureAt<Loader, Exception>(folder.Write(L"side.csv", content));
    }

    template <class Loader, class Exception>
    static std::wstring FailureAt(const std::wstring& path)
    {
        try
        {
            Loader().Load(path);
        }
        catch (const Exception& exception)
        {
            return ErrorText(exception);
        }
        return L"no failure";
    }
};

inline const std::wstring COLUMN_FAILURE = L"General exception occurred: %s, 引数が正しくありません: ";

} // namespace jlandxml
