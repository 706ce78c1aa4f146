#include "base/Text.h"
#include "run/ExportRun.h"
#include "run/LoadRun.h"
#include "support/Encodings.h"
#include "support/RunFixture.h"

#include "base/Files.h"

namespace jlandxml
{
namespace
{

/// The road example as a host would write it in one of the encodings of LandXML files.
struct EncodedExample
{
    const char* name;
    const wchar_t* declared;
    std::string (*encode)(const std::wstring& text);
};

const EncodedExample ENCODINGS[] = {
    {"Utf8", L"UTF-8", [](const std::wstring& text) { return Utf8FromWide(text); }},
    {"Utf8WithMark", L"UTF-8", [](const std::wstring& text) { return Utf8FromWide(L'\xFEFF' + text); }},
    {"Utf16LittleEndian", L"UTF-16", [](const std::wstring& text) { return Utf16(L'\xFEFF' + text, false); }},
    {"Utf16BigEndian", L"UTF-16", [](const std::wstring& text) { return Utf16(L'\xFEFF' + text, true); }},
    {"ShiftJis", L"Shift_JIS", [](const std::wstring& text) { return Cp932FromWide(text); }},
};

class ExampleEncodings : public RunTest, public testing::WithParamInterface<EncodedExample>
{
  protected:
    static std::wstring Example()
    {
        const auto bytes = ReadWholeFile(JLANDXML_SOURCE_DIR L"/examples/road/Landxml_temp.xml");
        return WideFromUtf8(bytes.value());
    }

    std::string Exported(const std::string& bytes)
    {
        LoadRun(WorkFile(bytes));
        ExportRun(folder.Name(L"out.xml"));
        return folder.Read(L"out.xml");
    }
};

TEST_P(ExampleEncodings, GiveTheSameFinishedFile)
{
    const std::wstring example = Example();
    const std::wstring declared =
        ReplaceAll(example, L"encoding=\"UTF-8\"", L"encoding=\"" + std::wstring(GetParam().declared) + L"\"");
    const std::string finished = Exported(GetParam().encode(declared));
    EXPECT_EQ(finished, Exported(Utf8FromWide(example)));
    EXPECT_NE(finished.find("第3種第2級"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Run, ExampleEncodings, testing::ValuesIn(ENCODINGS),
                         [](const auto& encoding) { return encoding.param.name; });

} // namespace
} // namespace jlandxml
