// The manual says what the program says: each control, finding and check has its words there, and no other ones do.

#include "base/Files.h"
#include "base/Text.h"
#include "base/Warnings.h"
#include "dialog/DialogFields.h"
#include "inspect/Printing.h"
#include "inspect/WellFormedness.h"
#include "support/RunFixture.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

namespace jlandxml
{
namespace
{

const std::string& JapaneseManual()
{
    static const std::string manual = ReadWholeFile(std::wstring(JLANDXML_SOURCE_DIR) + L"/docs/manual.ja.md").value();
    return manual;
}

/// What stands below a heading, up to the next one of its level.
std::string SectionOfManual(const std::string& heading)
{
    const std::size_t start = JapaneseManual().find("\n## " + heading + "\n");
    EXPECT_NE(start, std::string::npos) << heading;
    return start == std::string::npos
               ? std::string()
               : JapaneseManual().substr(start, JapaneseManual().find("\n## ", start + 1) - start);
}

/// The cells of each row of the tables in a text, without the rows of headings.
std::vector<std::vector<std::string>> RowsOfTables(const std::string& text)
{
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
    {
        if (!line.starts_with("| "))
        {
            if (line.starts_with("|--") && !rows.empty())
            {
                rows.pop_back(); // the headings
            }
            continue;
        }
        std::vector<std::string> cells;
        std::size_t start = 2;
        for (std::size_t end = line.find(" |", start); end != std::string::npos; end = line.find(" |", start))
        {
            cells.push_back(line.substr(start, end - start));
            start = std::min(end + 3, line.size());
        }
        rows.push_back(std::move(cells));
    }
    return rows;
}

/// A field of one of the dialog's objects.
struct PlacedField
{
    DlgDataItem* object;
    const DialogField* field;
};

class ManualTest : public RunTest
{
  protected:
    /// Data with an object of each kind.
    ManualTest()
    {
        Context().model = FViewLandXML();
        Context().model.alignments.resize(1);
        Context().model.alignments.front().alignments.resize(1);
        Context().model.intermediatePoints.resize(1);
        Context().model.widthStakePoints.resize(1);
        data.SetFromModel();
        DlgDataAlignments& route = *data.alignmentsList.front();
        Add(data, PROJECT_FIELDS);
        Add(data, COORDINATE_SYSTEM_FIELDS);
        Add(route, ROUTE_FIELDS);
        Add(*route.alignments.front(), ALIGNMENT_FIELDS);
        Add(*data.cgPointsList.intermediate.front(), INTERMEDIATE_FIELDS);
        Add(*data.cgPointsList.widthStakes.front(), WIDTH_STAKE_FIELDS);
    }

    void Add(DlgDataItem& object, FieldTable fields)
    {
        for (const DialogField& field : fields)
        {
            if (field.text != nullptr)
            {
                fields_.push_back({&object, &field});
            }
        }
    }

    static std::wstring& TextOf(const PlacedField& one) { return one.object->*one.field->text; }

    void Note()
    {
        data.Validate();
        for (const std::wstring& error : data.errors)
        {
            said_.insert(Utf8FromWide(error));
        }
    }

    /// All that the checks say where a field is empty, holds no number, too small a one or too long a one.
    void NoteWithEachText()
    {
        for (const PlacedField& one : fields_)
        {
            const std::wstring before = TextOf(one);
            for (const wchar_t* const text : {L"", L"x", L"-1", L"0.12345678901"})
            {
                TextOf(one) = text;
                Note();
            }
            TextOf(one) = before;
        }
    }

    static Vocabulary EntriesOf(const PlacedField& one)
    {
        return one.field->vocabulary ? GetDisplayXmlTables().GetVocabulary(*one.field->vocabulary) : Vocabulary();
    }

    /// All that they say of any two entries of the lists together.
    void NoteWithEachPairOfEntries()
    {
        for (const PlacedField& first : fields_)
        {
            for (const PlacedField& second : fields_)
            {
                for (const DisplayXmlDataPair& one : EntriesOf(first))
                {
                    for (const DisplayXmlDataPair& other : EntriesOf(second))
                    {
                        TextOf(first) = one.xml;
                        TextOf(second) = other.xml;
                        Note();
                    }
                }
            }
        }
    }

    std::set<std::string> EveryFinding()
    {
        for (const RouteKindRadio& kind : ROUTE_KIND_RADIOS)
        {
            data.alignmentsList.front()->designGmType = kind.designGmType;
            NoteWithEachText();
            NoteWithEachPairOfEntries();
        }
        return said_;
    }

    JLandXmlConvertDlgData data;

  private:
    std::vector<PlacedField> fields_;
    std::set<std::string> said_;
};

TEST_F(ManualTest, ListsTheFindingsThatTheChecksMake)
{
    std::set<std::string> listed;
    for (const std::vector<std::string>& row : RowsOfTables(SectionOfManual("指摘と対処")))
    {
        ASSERT_EQ(row.size(), 3U) << row.front();
        EXPECT_FALSE(row[1].empty()) << row.front();
        EXPECT_FALSE(row[2].empty()) << row.front();
        EXPECT_TRUE(listed.insert(row.front()).second) << row.front() << " twice";
    }
    EXPECT_EQ(listed, EveryFinding());
}

TEST_F(ManualTest, TellsOfEachFieldWhatItMeansAndWhereItGoes)
{
    const std::vector<std::vector<std::string>> rows = RowsOfTables(SectionOfManual("ダイアログの項目"));
    for (const FieldTable& fields : FIELD_TABLES)
    {
        for (const DialogField& field : fields)
        {
            const std::string key = "`" + std::string(field.key) + "`";
            const auto isOfField = [&](const std::vector<std::string>& row) {
                return row.size() == 6 && row.back() == key &&
                       std::none_of(row.begin(), row.end(), [](const std::string& cell) { return cell.empty(); });
            };
            EXPECT_TRUE(std::any_of(rows.begin(), rows.end(), isOfField)) << key;
        }
    }
}

TEST_F(ManualTest, NamesWhatStandsInTheDialog)
{
    const std::string& manual = JapaneseManual();
    for (const ControlTemplate& control : convert_dlg::TEMPLATE.controls)
    {
        EXPECT_NE(manual.find(Utf8FromWide(control.caption)), std::string::npos) << Utf8FromWide(control.caption);
    }
    EXPECT_NE(manual.find(Utf8FromWide(convert_dlg::TEMPLATE.caption)), std::string::npos);
}

TEST_F(ManualTest, ListsTheWarningsThatAreTold)
{
    std::map<std::string, std::string> listed;
    for (const std::vector<std::string>& row : RowsOfTables(SectionOfManual("警告と対処")))
    {
        ASSERT_EQ(row.size(), 3U) << row.front();
        EXPECT_FALSE(row[2].empty()) << row.front();
        EXPECT_TRUE(listed.emplace(row[0], row[1]).second) << row.front() << " twice";
    }
    std::map<std::string, std::string> told;
    for (const WarningText& warning : WarningTexts())
    {
        told.emplace("`" + std::string(warning.code) + "`", Utf8FromWide(warning.text));
    }
    told.emplace("`setting-skipped`", "設定の誤りの文に（この設定を読み飛ばしました）"); // its text is the error's
    EXPECT_EQ(listed, told);
}

TEST_F(ManualTest, ListsTheChecksOfFinishedFiles)
{
    std::vector<std::vector<std::string>> listed;
    for (const std::vector<std::string>& row : RowsOfTables(SectionOfManual("完成したファイルの検査")))
    {
        if (row.size() == 6 && (inspect::KnowsWhatIsWellFormed() || row.front() != "X07"))
        {
            EXPECT_FALSE(row[4].empty()) << row.front();
            listed.push_back({row[0], row[1], row[2], row[3], row[5]});
        }
    }
    std::vector<std::vector<std::string>> made;
    std::istringstream lines(Utf8FromWide(inspect::ChecksText()));
    for (std::string line; std::getline(lines, line);)
    {
        std::istringstream cells(line);
        std::vector<std::string>& row = made.emplace_back();
        for (std::string cell; row.size() < 5 && std::getline(cells, cell, '\t');)
        {
            row.push_back(cell);
        }
    }
    EXPECT_EQ(listed, made);
}

} // namespace
} // namespace jlandxml
