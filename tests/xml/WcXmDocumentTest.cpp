#include "xml/WcXmDocument.h"

#include "base/Files.h"
#include "base/Text.h"
#include "support/FailingAllocation.h"
#include "support/TemporaryFolder.h"
#include "xml/WcXmNode.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

/// A document on files of a test's own.
class WcXmDocumentFiles : public testing::Test
{
  protected:
    WcXmDocumentFiles() { document.Create(); }

    bool Load(const std::string& bytes) { return document.appDocument->LoadDocument(folder.Write(L"in.xml", bytes)); }

    std::wstring Name() { return std::wstring(WcXmNode(document).FindAttribute(L"name").value_or(L"")); }

    /// What a saved file holds.
    std::string Saved()
    {
        EXPECT_TRUE(document.appDocument->SaveDocument(folder.Write(L"out.xml", "former content")));
        return folder.Read(L"out.xml");
    }

    TestFolder folder;
    WcXmDocument document;
};

std::string Utf16(const std::wstring& text, bool bigEndian)
{
    std::string bytes;
    for (const wchar_t unit : text)
    {
        const auto low = static_cast<char>(unit & 0xFF);
        const auto high = static_cast<char>((unit >> 8) & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

TEST_F(WcXmDocumentFiles, Utf8WithoutAMarkIsRead)
{
    EXPECT_TRUE(Load("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a name=\"路線～①㈱\"/>"));
    EXPECT_EQ(Name(), L"路線～①㈱");
}

TEST_F(WcXmDocumentFiles, Utf8WithAMarkIsRead)
{
    EXPECT_TRUE(Load("\xEF\xBB\xBF<a name=\"路線\"/>"));
    EXPECT_EQ(Name(), L"路線");
}

TEST_F(WcXmDocumentFiles, Utf16WithAMarkIsReadInBothByteOrders)
{
    for (const bool bigEndian : {false, true})
    {
        EXPECT_TRUE(Load(Utf16(L"\xFEFF<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<a name=\"路線\"/>", bigEndian)));
        EXPECT_EQ(Name(), L"路線");
    }
}

TEST_F(WcXmDocumentFiles, Utf16ThatNamesShiftJisIsStillUtf16)
{
    EXPECT_TRUE(Load(Utf16(L"\xFEFF<?xml version=\"1.0\" encoding=\"SHIFT_JIS\"?><a name=\"路線\"/>", false)));
    EXPECT_EQ(Name(), L"路線");
}

TEST_F(WcXmDocumentFiles, ShiftJisIsReadInAnySpellingOfItsName)
{
    for (const char* const spelling : {"Shift_JIS", "shift_jis", "SHIFT_JIS", "sHiFt_JiS"})
    {
        EXPECT_TRUE(Load("<?xml version=\"1.0\" encoding=\"" + std::string(spelling) + "\"?>\n<a name=\"" +
                         Cp932FromWide(L"路線～①㈱―髙\\") + "\"/>"));
        EXPECT_EQ(Name(), L"路線～①㈱―髙\\") << spelling;
    }
}

TEST_F(WcXmDocumentFiles, ShiftJisNamedAnywhereInTheFirstLineCounts)
{
    EXPECT_TRUE(Load("<a name=\"" + Cp932FromWide(L"路線") + "\" note=\"shift_jis\"/>\n"));
    EXPECT_EQ(Name(), L"路線");
}

TEST_F(WcXmDocumentFiles, ShiftJisNamedOnTheSecondLineDoesNotCount)
{
    EXPECT_TRUE(Load("<!-- host -->\n<a name=\"路線\" note=\"SHIFT_JIS\"/>"));
    EXPECT_EQ(Name(), L"路線");
}

TEST_F(WcXmDocumentFiles, ShiftJisWithoutADeclarationIsTakenAsUtf8)
{
    EXPECT_TRUE(Load("<a name=\"" + Cp932FromWide(L"路") + "x\"/>"));
    EXPECT_EQ(Name(), L"\xFFFDHx");
}

TEST_F(WcXmDocumentFiles, AFileThatIsNotReallyShiftJisIsTriedAgain)
{
    // 路線 in UTF-8 ends in a byte that opens a character of the code page, and the quote behind it can't close one.
    EXPECT_TRUE(Load("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n<a name=\"\xE7\xB7\x80\"/>"));
    EXPECT_EQ(Name(), L"緀");
}

TEST_F(WcXmDocumentFiles, ATextOfTheCodePageThatTheParserRefusesIsTriedAgain)
{
    // The last byte of 線 and the bracket behind it are a character of the code page, so the section never ends.
    EXPECT_TRUE(Load("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n<a><![CDATA[線]]></a>"));
    EXPECT_EQ(WcXmNode(document).GetTextContent(), L"線");
}

TEST_F(WcXmDocumentFiles, MalformedUtf8IsReplacedAndNothingElseIsLost)
{
    EXPECT_TRUE(Load("<a name=\"\xE8\xB7\xAF\xFF\xE7\xB7\" b=\"\"/>"));
    EXPECT_EQ(Name(), L"路\xFFFD\xFFFD");
}

TEST_F(WcXmDocumentFiles, ALoneSurrogateInUtf16IsReplaced)
{
    for (const bool bigEndian : {false, true})
    {
        const std::wstring pair = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
        const std::wstring lone = {static_cast<wchar_t>(0xD83D), L'z', static_cast<wchar_t>(0xDE00)};
        EXPECT_TRUE(Load(Utf16(L"\xFEFF<a name=\"" + pair + lone + L"\"/>", bigEndian)));
        EXPECT_EQ(Utf8FromWide(Name()), "\xF0\x9F\x98\x80\xEF\xBF\xBDz\xEF\xBF\xBD");
    }
}

TEST_F(WcXmDocumentFiles, AReferenceToASurrogateLeavesWellFormedUtf8)
{
    EXPECT_TRUE(Load("<a name=\"&#xD83D;x\"/>"));
    EXPECT_EQ(Saved(), "<a name=\"\xEF\xBF\xBDx\" />\n");
}

TEST_F(WcXmDocumentFiles, WhatIsMissingOrBrokenIsRefused)
{
    EXPECT_FALSE(document.appDocument->LoadDocument(folder.Name(L"missing.xml")));
    EXPECT_FALSE(document.appDocument->LoadDocument(folder.Name()));
    EXPECT_FALSE(Load(""));
    EXPECT_FALSE(Load("no xml"));
    EXPECT_FALSE(Load("<a><b></a>"));
    EXPECT_FALSE(Load("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n<a>"));
    EXPECT_FALSE(Load("<?xml version=\"1.0\""));
}

struct DeclarationCase
{
    const char* declaration;
    const char* name; ///< how 路 is saved
};

class Declaration : public WcXmDocumentFiles, public testing::WithParamInterface<DeclarationCase>
{};

TEST_P(Declaration, NamesTheEncodingOfTheSavedFile)
{
    const std::string declaration = GetParam().declaration;
    EXPECT_TRUE(Load(declaration + "<a name=\"&#x8DEF;\"/>"));
    EXPECT_EQ(Saved(), declaration + "\n<a name=\"" + GetParam().name + "\" />\n");
}

INSTANTIATE_TEST_SUITE_P(WcXmDocument, Declaration,
                         testing::Values(DeclarationCase{"<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>", "\x98\x48"},
                                         DeclarationCase{"<?xml version=\"1.0\" encoding=\"shift_jis\"?>", "\x98\x48"},
                                         DeclarationCase{"<?XML version=\"1.0\" encoding=\"Shift_JIS\"?>", "\x98\x48"},
                                         DeclarationCase{"<?xml version=\"1.0\" Encoding=\"Shift_JIS\"?>", "路"},
                                         DeclarationCase{"<?xml version=\"1.0\" encoding=\"SJIS\"?>", "路"},
                                         DeclarationCase{"<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "路"},
                                         DeclarationCase{"<?xml version=\"1.0\"?>", "路"}));

TEST_F(WcXmDocumentFiles, AnEarlierTreeIsDroppedAlsoByAFileThatFails)
{
    EXPECT_TRUE(Load("<a name=\"1\"/>"));
    EXPECT_FALSE(document.appDocument->LoadDocument(folder.Name(L"missing.xml")));
    EXPECT_FALSE(WcXmNode(document).HasNode());
}

TEST_F(WcXmDocumentFiles, CommentsInstructionsDoctypeAndWhiteSpaceAreNotKept)
{
    EXPECT_TRUE(Load("<!DOCTYPE a><!-- c --><a>\n  <?p i?>\n<b>  </b><c> x </c><![CDATA[ ]]></a>"));
    EXPECT_EQ(Saved(), "<a>\n\t<b />\n\t<c> x </c><![CDATA[ ]]></a>\n");
}

TEST_F(WcXmDocumentFiles, AttributeWhiteSpaceAndLineEndsAreNormalised)
{
    EXPECT_TRUE(Load("<a name=\"1\r\n2\t3\">x\r\ny\rz&amp;</a>"));
    EXPECT_EQ(Saved(), "<a name=\"1 2 3\">x\ny\nz&amp;</a>\n");
}

TEST_F(WcXmDocumentFiles, ANewDeclarationHasVersionThenEncoding)
{
    EXPECT_TRUE(Load("<a/>"));
    EXPECT_TRUE(document.appDocument->EnsureDeclaration());
    EXPECT_EQ(Saved(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a />\n");
}

TEST_F(WcXmDocumentFiles, AnExistingDeclarationKeepsItsAttributesAndTheirNames)
{
    EXPECT_TRUE(Load("<?xml version=\"1.1\" Encoding=\"shift_jis\" standalone=\"no\"?><a/>"));
    EXPECT_TRUE(document.appDocument->EnsureDeclaration());
    EXPECT_EQ(Saved(), "<?xml version=\"1.1\" Encoding=\"UTF-8\" standalone=\"no\"?>\n<a />\n");
}

TEST_F(WcXmDocumentFiles, ADeclarationWithoutEncodingGetsItBehindTheOthers)
{
    EXPECT_TRUE(Load("<?xml version=\"1.0\" standalone=\"yes\"?><a/>"));
    EXPECT_TRUE(document.appDocument->EnsureDeclaration());
    EXPECT_EQ(Saved(), "<?xml version=\"1.0\" standalone=\"yes\" encoding=\"UTF-8\"?>\n<a />\n");
}

TEST_F(WcXmDocumentFiles, WithoutADeclarationTheFileHasNone)
{
    EXPECT_TRUE(Load("<a name=\"路線\"/>"));
    EXPECT_EQ(Saved(), "<a name=\"路線\" />\n");
}

TEST_F(WcXmDocumentFiles, ATreeThatIsDeclaredShiftJisIsSavedInIt)
{
    EXPECT_TRUE(Load("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?><a name=\"" + Cp932FromWide(L"路線～①") + "\"/>"));
    EXPECT_EQ(Saved(),
              "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n<a name=\"" + Cp932FromWide(L"路線～①") + "\" />\n");
}

TEST_F(WcXmDocumentFiles, ATreeThatIsDeclaredUtf16IsSavedInTheMachinesByteOrder)
{
    EXPECT_TRUE(Load("<?xml version=\"1.0\" encoding=\"utf-16\"?><a/>"));
    EXPECT_EQ(Saved(), Utf16(L"<?xml version=\"1.0\" encoding=\"utf-16\"?>\n<a />\n", false));
}

TEST_F(WcXmDocumentFiles, OnlyADeclarationThatComesFirstNamesTheEncoding)
{
    const std::string name = Cp932FromWide(L"路線");
    EXPECT_TRUE(Load("<a name=\"" + name + "\"/><?xml version=\"1.0\" encoding=\"Shift_JIS\"?>"));
    EXPECT_EQ(Saved(), "<a name=\"路線\" />\n<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n");
}

TEST_F(WcXmDocumentFiles, AFileThatDoesNotExistYetIsMade)
{
    for (const char* const encoding : {"UTF-8", "UTF-16", "Shift_JIS"})
    {
        EXPECT_TRUE(Load("<?xml version=\"1.0\" encoding=\"" + std::string(encoding) + "\"?><a/>"));
        const std::string saved = Saved();
        const std::wstring made = L"new " + WideFromUtf8(encoding);
        EXPECT_TRUE(document.appDocument->SaveDocument(folder.Name(made)));
        EXPECT_EQ(folder.Read(made), saved);
    }
}

TEST_F(WcXmDocumentFiles, AFileThatCanNotBeWrittenIsAFailure)
{
    for (const char* const encoding : {"UTF-8", "UTF-16"})
    {
        EXPECT_TRUE(Load("<?xml version=\"1.0\" encoding=\"" + std::string(encoding) + "\"?><a/>"));
        EXPECT_FALSE(document.appDocument->SaveDocument(folder.Name(L"missing") + L"/out.xml"));
    }
}

TEST_F(WcXmDocumentFiles, AShiftJisFileThatCanNotBeWrittenIsNotTold)
{
    EXPECT_TRUE(Load("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?><a/>"));
    EXPECT_TRUE(document.appDocument->SaveDocument(folder.Name(L"missing") + L"/out.xml"));
    EXPECT_TRUE(document.appDocument->SaveDocument(folder.Name()));
}

/// Gives the parser no memory while it lives.
class NoParserMemory
{
  public:
    NoParserMemory() : former_(pugi::get_memory_allocation_function())
    {
        pugi::set_memory_management_functions([](std::size_t) -> void* { return nullptr; },
                                              pugi::get_memory_deallocation_function());
    }
    NoParserMemory(const NoParserMemory&) = delete;
    NoParserMemory& operator=(const NoParserMemory&) = delete;
    ~NoParserMemory() { pugi::set_memory_management_functions(former_, pugi::get_memory_deallocation_function()); }

  private:
    pugi::allocation_function former_;
};

TEST_F(WcXmDocumentFiles, AFileThatDoesNotFitIntoMemoryIsRefused)
{
    EXPECT_TRUE(Load("<a/>"));
    const NoParserMemory none;
    EXPECT_FALSE(document.appDocument->LoadDocument(folder.Name(L"in.xml")));
    EXPECT_FALSE(WcXmNode(document).HasNode());
}

TEST_F(WcXmDocumentFiles, NoStepOfReadingOrWritingRaises)
{
    constexpr std::size_t STEPS = 20;
    std::size_t failed = 0;
    const std::wstring out = folder.Name(L"out.xml");
    for (const std::string& bytes :
         {"<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n<a name=\"" + Cp932FromWide(L"路線") + "\"/>",
          std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a name=\"\xFF\"/>")})
    {
        const std::wstring in = folder.Write(L"in.xml", bytes);
        for (std::size_t allowed = 0; allowed < STEPS; ++allowed)
        {
            EXPECT_NO_THROW({
                const FailingAllocation failing(allowed, FailOtherwise);
                failed += document.appDocument->LoadDocument(in) ? 0 : 1;
            });
            EXPECT_NO_THROW({
                const FailingAllocation failing(allowed, FailOtherwise);
                document.appDocument->SaveDocument(out);
            });
        }
        EXPECT_TRUE(document.appDocument->LoadDocument(in));
    }
    EXPECT_GT(failed, 0U);
}

TEST_F(WcXmDocumentFiles, TextBeyondTheBasicPlaneAndOfAnyLengthIsSaved)
{
    std::string content;
    for (int index = 0; index < 70000; ++index)
    {
        content += index % 3 == 0 ? "😀" : index % 3 == 1 ? "a" : "線";
    }
    EXPECT_TRUE(Load("<a>" + content + "</a>"));
    EXPECT_EQ(Saved(), "<a>" + content + "</a>\n");
}

TEST(WcXmDocument, CloseLeavesNoTreeAndMayBeRepeated)
{
    WcXmDocument document;
    document.Close();
    EXPECT_TRUE(document.Create());
    EXPECT_TRUE(document.Create());
    document.Close();
    EXPECT_EQ(document.appDocument, nullptr);
    document.Close();
}

TEST(WcXmDocument, WithoutAParserDocumentNothingIsReadOrWritten)
{
    const TestFolder folder;
    WcXmAppDocument document;
    document.xmlDocument.reset();
    EXPECT_FALSE(document.LoadDocument(folder.Write(L"in.xml", "<a/>")));
    EXPECT_FALSE(document.EnsureDeclaration());
    EXPECT_FALSE(document.SaveDocument(folder.Name(L"out.xml")));
}

} // namespace
} // namespace jlandxml
