#include "xml/WcXmDocument.h"

#include "base/Files.h"
#include "base/Text.h"
#include "support/Encodings.h"
#include "support/FailingAllocation.h"
#include "support/TemporaryFolder.h"
#include "support/ToldWarnings.h"
#include "xml/WcXmJournal.h"
#include "xml/WcXmNode.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

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

TEST_F(WcXmDocumentFiles, ALoneSurrogateInUtf16WithoutAMarkIsReplaced)
{
    // In this order of bytes the surrogate and the letter behind it are well-formed UTF-8 by chance.
    const std::wstring lone = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0x0080)};
    EXPECT_TRUE(Load(Utf16(L"<?xml version=\"1.0\"?><a name=\"" + lone + L"\"/>", false)));
    EXPECT_EQ(Utf8FromWide(Name()), "\xEF\xBF\xBD\xC2\x80");
    EXPECT_TRUE(Load(Utf16(L"<a name=\"" + lone + L"\"/>", true)));
    EXPECT_EQ(Utf8FromWide(Name()), "\xEF\xBF\xBD\xC2\x80");
}

std::string Utf32(const std::u32string& text, bool bigEndian)
{
    std::string bytes;
    for (const char32_t unit : text)
    {
        for (const unsigned int shift : {0U, 8U, 16U, 24U})
        {
            bytes += static_cast<char>(unit >> (bigEndian ? 24U - shift : shift) & 0xFF);
        }
    }
    return bytes;
}

TEST_F(WcXmDocumentFiles, Utf32IsReadInBothByteOrdersAndWhatUnicodeLacksIsReplaced)
{
    std::u32string name = U"路😀";
    name += {0xD83D, 0x110000, 0xFFFFFFFF};
    for (const bool bigEndian : {false, true})
    {
        EXPECT_TRUE(Load(Utf32(U"<a name=\"" + name + U"\"/>", bigEndian)));
        EXPECT_EQ(Utf8FromWide(Name()), "路😀\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
    }
}

struct ReferenceCase
{
    const char* name;
    const char* reference;
    const char* text; ///< in UTF-8
};

/// A character reference in files of every encoding, and what is saved of it.
class CharacterReference : public WcXmDocumentFiles, public testing::WithParamInterface<ReferenceCase>
{
  protected:
    static std::string Xml(const std::string& start, const std::string& reference)
    {
        return start + "<a name=\"" + reference + "\">" + reference + "<![CDATA[" + reference + "]]></a>";
    }

    void ExpectSaved(const std::string& bytes)
    {
        EXPECT_TRUE(Load(bytes));
        EXPECT_TRUE(document.appDocument->EnsureDeclaration());
        const std::string text = GetParam().text;
        EXPECT_EQ(Saved(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a name=\"" + text + "\">" + text +
                               "<![CDATA[" + GetParam().reference + "]]></a>\n");
    }
};

TEST_P(CharacterReference, GivesTheSameInEveryEncoding)
{
    const std::string reference = GetParam().reference;
    ExpectSaved(Xml("", reference));
    ExpectSaved(Xml("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>", reference));
    ExpectSaved(Xml("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n", reference));
    const std::string plain = Xml("<!-- <![CDATA[ -->", reference);
    ExpectSaved(plain);
    for (const bool bigEndian : {false, true})
    {
        ExpectSaved(Utf16(WideFromUtf8(plain), bigEndian));
        ExpectSaved(Utf32(std::u32string(plain.begin(), plain.end()), bigEndian));
    }
}

INSTANTIATE_TEST_SUITE_P(
    WcXmDocument, CharacterReference,
    testing::Values(ReferenceCase{"Ascii", "&#x41;&#65;", "AA"},
                    ReferenceCase{"BasicPlane", "&#x8def;&#36335;", "路路"},
                    ReferenceCase{"BeyondTheBasicPlane", "&#x1F600;&#128512;", "😀😀"},
                    ReferenceCase{"HalvesOfACharacter", "&#xD83D;&#xDE00;", "😀"},
                    ReferenceCase{"LoneHalf", "&#xD83D;x&#xDE00;", "\xEF\xBF\xBDx\xEF\xBF\xBD"},
                    ReferenceCase{"LastCharacter", "&#x10FFFF;&#1114111;", "\xF4\x8F\xBF\xBF\xF4\x8F\xBF\xBF"},
                    ReferenceCase{"AboveTheLast", "&#x110000;&#1114112;", "\xEF\xBF\xBD\xEF\xBF\xBD"},
                    ReferenceCase{"FarAbove", "&#xFfFfFfFf;&#4294967295;&#x000000080000041;",
                                  "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
                    ReferenceCase{"BeyondThirtyTwoBits", "&#x100000041;&#4294967361;", "AA"},
                    ReferenceCase{"WithoutAnEnd", "&#x110000", "&amp;#x110000"},
                    ReferenceCase{"WithoutANumber", "&#;&#x;", "&amp;#;&amp;#x;"},
                    ReferenceCase{"WithACapitalX", "&#X110000;", "&amp;#X110000;"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(WcXmDocumentFiles, WhatIsMissingOrBrokenIsRefused)
{
    EXPECT_FALSE(document.appDocument->LoadDocument(folder.Name(L"missing.xml")));
    EXPECT_FALSE(document.appDocument->LoadDocument(folder.Name()));
    EXPECT_FALSE(Load(""));
    EXPECT_FALSE(Load("no xml"));
    EXPECT_FALSE(Load("<a><b></a>"));
    EXPECT_FALSE(Load("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n<a>"));
    EXPECT_FALSE(Load("<?xml version=\"1.0\""));
    EXPECT_FALSE(Load("<a>&#65"));
    EXPECT_FALSE(Load("<a>&#x"));
}

struct DeclarationCase
{
    const char* title;
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

INSTANTIATE_TEST_SUITE_P(
    WcXmDocument, Declaration,
    testing::Values(DeclarationCase{"ShiftJis", "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>", "\x98\x48"},
                    DeclarationCase{"ShiftJisInSmallLetters", "<?xml version=\"1.0\" encoding=\"shift_jis\"?>",
                                    "\x98\x48"},
                    DeclarationCase{"AnotherCaseOfXml", "<?XML version=\"1.0\" encoding=\"Shift_JIS\"?>", "\x98\x48"},
                    DeclarationCase{"AnotherCaseOfEncoding", "<?xml version=\"1.0\" Encoding=\"Shift_JIS\"?>", "路"},
                    DeclarationCase{"AnotherNameOfShiftJis", "<?xml version=\"1.0\" encoding=\"SJIS\"?>", "路"},
                    DeclarationCase{"Utf8", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "路"},
                    DeclarationCase{"None", "<?xml version=\"1.0\"?>", "路"}),
    [](const auto& row) { return std::string(row.param.title); });

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

TEST_F(WcXmDocumentFiles, ADeclarationThatDoesNotComeFirstIsFoundToo)
{
    EXPECT_TRUE(Load("<a/><?xml version=\"1.0\" encoding=\"Shift_JIS\"?><?xml version=\"1.1\"?>"));
    EXPECT_TRUE(document.appDocument->EnsureDeclaration());
    EXPECT_EQ(Saved(), "<a />\n<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<?xml version=\"1.1\"?>\n");
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
    EXPECT_TRUE(
        Load("<?xml version=\"1.0\" encoding=\"Shift_JIS\"?><a name=\"" + Cp932FromWide(L"路線～①") + "\"><b/></a>"));
    EXPECT_EQ(Saved(), "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n<a name=\"" + Cp932FromWide(L"路線～①") +
                           "\">\n\t<b />\n</a>\n");
}

TEST_F(WcXmDocumentFiles, ATreeThatIsDeclaredUtf16IsSavedInTheMachinesByteOrder)
{
    EXPECT_TRUE(Load("<?xml version=\"1.0\" encoding=\"utf-16\"?><a><b/></a>"));
    EXPECT_EQ(Saved(), Utf16(L"<?xml version=\"1.0\" encoding=\"utf-16\"?>\n<a>\n\t<b />\n</a>\n", false));
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

/// Files that need every step of reading, each with what is saved of it.
std::vector<std::pair<std::string, std::string>> FilesOfEachKind()
{
    std::string many;
    for (int index = 0; index < 2000; ++index)
    {
        many += "<P id=\"" + std::to_string(index) + "\">路線</P>";
    }
    std::string saved;
    for (int index = 0; index < 2000; ++index)
    {
        saved += "\t<P id=\"" + std::to_string(index) + "\">路線</P>\n";
    }
    const std::string shiftJis = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n";
    const std::string utf8 = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    return {
        {shiftJis + "<a name=\"" + Cp932FromWide(L"路線") + "\"/>", utf8 + "<a name=\"路線\" />\n"},
        {utf8 + "<a name=\"\xFF\"/>", utf8 + "<a name=\"\xEF\xBF\xBD\" />\n"},
        {"<a>" + many + "</a>", utf8 + "<a>\n" + saved + "</a>\n"},
        {"<L><Surfaces><Surface><Definition><Pnts><P id=\"1\">1 2 3</P></Pnts></Definition></Surface></Surfaces></L>",
         utf8 +
             "<L>\n\t<Surfaces>\n\t\t<Surface>\n\t\t\t<Definition>\n\t\t\t\t<Pnts>\n\t\t\t\t\t<P id=\"1\">1 2 3</P>\n"
             "\t\t\t\t</Pnts>\n\t\t\t</Definition>\n\t\t</Surface>\n\t</Surfaces>\n</L>\n"},
        {Utf16(WideFromUtf8("<?xml version=\"1.0\"?><a>" + many + "</a>"), true), utf8 + "<a>\n" + saved + "</a>\n"},
    };
}

TEST(WcXmDocument, WithoutMemoryNoTreeIsCreated)
{
    WcXmDocument document;
    {
        const FailingParserAllocation failing(0);
        EXPECT_FALSE(document.Create());
    }
    EXPECT_FALSE(WcXmNode(document).HasNode());
    EXPECT_TRUE(document.Create());
}

TEST_F(WcXmDocumentFiles, NoStepOfReadingOrWritingRaises)
{
    constexpr std::size_t STEPS = 30;
    const std::wstring out = folder.Name(L"out.xml");
    std::size_t failed = 0;
    for (const auto& [bytes, saved] : FilesOfEachKind())
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

/// What becomes of a file while memory fails at one place after another; `Failing` is made of the allocations allowed.
class WcXmDocumentMemory : public WcXmDocumentFiles
{
  protected:
    /// How many allocations were let through before the file was read without a failure.
    template <class MakeFailing>
    std::size_t ExpectWholeOrRefused(const std::string& bytes, const std::string& saved, MakeFailing makeFailing)
    {
        const std::wstring in = folder.Write(L"in.xml", bytes);
        bool hasFailed = true;
        std::size_t allowed = 0;
        for (; hasFailed; ++allowed)
        {
            bool isLoaded = false;
            {
                const auto failing = makeFailing(allowed);
                isLoaded = document.appDocument->LoadDocument(in);
                hasFailed = failing->HasFailed();
            }
            if (isLoaded)
            {
                EXPECT_TRUE(document.appDocument->EnsureDeclaration());
                EXPECT_EQ(Saved(), saved) << allowed;
            }
            else
            {
                // What was refused for want of memory isn't written either, in whatever state it is.
                EXPECT_FALSE(document.appDocument->SaveDocument(folder.Name(L"out.xml"))) << allowed;
                EXPECT_THROW(document.appDocument->EnsureDeclaration(), std::bad_alloc) << allowed;
            }
        }
        return allowed - 1;
    }
};

TEST_F(WcXmDocumentMemory, AFileIsReadWholeOrRefused)
{
    // Some kinds of files ask nobody but the parser for memory.
    std::size_t ofTheLanguage = 0;
    for (const auto& [bytes, saved] : FilesOfEachKind())
    {
        ofTheLanguage += ExpectWholeOrRefused(bytes, saved, [](std::size_t allowed) {
            return std::make_unique<FailingAllocation>(allowed, FailOtherwise);
        });
        EXPECT_GT(
            ExpectWholeOrRefused(
                bytes, saved, [](std::size_t allowed) { return std::make_unique<FailingParserAllocation>(allowed); }),
            0U);
    }
    EXPECT_GT(ofTheLanguage, 0U);
}

TEST_F(WcXmDocumentFiles, WithoutParserMemoryADeclarationIsWholeOrItsWantIsRaised)
{
    // The parser asks for memory by the page: however full one is, something is the first to need another.
    constexpr int ATTRIBUTES_OF_A_PAGE = 900;
    int raised = 0;
    for (int filled = 0; filled < ATTRIBUTES_OF_A_PAGE; ++filled)
    {
        WcXmDocument crowded;
        crowded.Create();
        pugi::xml_node element = crowded.appDocument->xmlDocument->append_child(L"a");
        for (int index = 0; index < filled; ++index)
        {
            element.append_attribute(L"");
        }
        WcXmAppDocument& tree = *crowded.appDocument;
        bool isRaised = false;
        try
        {
            const FailingParserAllocation failing(0);
            tree.EnsureDeclaration();
        }
        catch (const std::bad_alloc&)
        {
            isRaised = true;
            ++raised;
            EXPECT_THROW(tree.EnsureDeclaration(), std::bad_alloc);
        }
        EXPECT_EQ(tree.SaveDocument(folder.Write(L"out.xml", "")), !isRaised);
        EXPECT_EQ(folder.Read(L"out.xml").substr(0, 41),
                  isRaised ? "" : "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a");
    }
    EXPECT_GT(raised, 3);
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

TEST_F(WcXmDocumentFiles, OfAFaultInAVeryLargeFileThePlaceIsNotLookedFor)
{
    const auto told = [this](std::size_t blanks) {
        return WarningsOf([&] { EXPECT_FALSE(Load("<a>\n<b></a>" + std::string(blanks, ' '))); });
    };
    const std::wstring file = folder.Name(L"in.xml");
    const Told small = told(0);
    ASSERT_EQ(small.size(), 1U);
    EXPECT_EQ(small[0].substr(0, small[0].rfind(L"（")), L"malformed-xml " + file + L" 2行目");
    EXPECT_EQ(told(std::size_t{16} << 20), (Told{L"malformed-xml " + file}));
}

TEST(WcXmDocument, WithoutATreeAStepJustRuns)
{
    WcXmDocument document;
    EXPECT_EQ(document.Change([] { return 7; }), 7);
    EXPECT_EQ(document.appDocument, nullptr);
}

TEST_F(WcXmDocumentFiles, AJournalThatMemoryEndsInIsRaisedAndTheTreeIsNotWritten)
{
    std::string many;
    for (int index = 0; index < 2000; ++index)
    {
        many += "<P/>";
    }
    EXPECT_TRUE(Load("<a>" + many + "</a>"));
    {
        const FailingParserAllocation failing(1);
        EXPECT_THROW(document.appDocument->KeepJournal(), std::bad_alloc);
    }
    EXPECT_EQ(document.appDocument->journal, nullptr);
    EXPECT_FALSE(document.appDocument->SaveDocument(folder.Name(L"out.xml")));
}

} // namespace
} // namespace jlandxml
