#include "inspect/Report.h"

#include "inspect/CheckSheet.h"
#include "inspect/Names.h"
#include "inspect/Summary.h"
#include "inspect/Tables.h"

#include <algorithm>

namespace jlandxml::inspect
{

namespace
{

// A page with more than this is none that a browser turns or a person reads; what is left out is said.
constexpr std::size_t MOST_ALIGNMENTS = 100;
constexpr std::size_t MOST_SECTIONS = 2000;
constexpr std::size_t MOST_ROWS = 3000;

/// Headings of the calculation sheets and their columns in English, for the switch.
constexpr std::pair<std::wstring_view, const char*> ENGLISH_WORDS[] = {
    {L"線形計算書", "Alignment"},
    {L"測点座標一覧", "Stations"},
    {L"縦断計算書", "Profile"},
    {L"片勾配・拡幅表", "Cross slopes and widening"},
    {L"中間点・幅杭一覧", "Points"},
    {L"線形", "Alignment"},
    {L"主要点", "Main point"},
    {L"測点（m）", "Station (m)"},
    {L"測点", "Station"},
    {L"方向角", "Azimuth"},
    {L"要素", "Element"},
    {L"半径（始点）", "Radius (start)"},
    {L"半径（終点）", "Radius (end)"},
    {L"長さ", "Length"},
    {L"向き", "Turn"},
    {L"計画高", "Design height"},
    {L"地盤高", "Ground height"},
    {L"縦断線形", "Profile"},
    {L"高さ", "Height"},
    {L"勾配（手前）％", "Gradient in (%)"},
    {L"勾配（先）％", "Gradient out (%)"},
    {L"縦断曲線長", "Curve length"},
    {L"縦断曲線半径", "Curve radius"},
    {L"曲線始点（m）", "Curve start (m)"},
    {L"曲線終点（m）", "Curve end (m)"},
    {L"種別", "Kind"},
    {L"片勾配％", "Superelevation (%)"},
    {L"左", "Left"},
    {L"右", "Right"},
    {L"組", "Group"},
    {L"注記", "Note"},
    {L"点名", "Name"},
    {L"接線方向角", "Direction"},
};

std::string English(std::wstring_view word)
{
    const auto* const found = std::find_if(std::begin(ENGLISH_WORDS), std::end(ENGLISH_WORDS),
                                           [&](const auto& one) { return one.first == word; });
    // X, Y and A are the same in both languages.
    return found != std::end(ENGLISH_WORDS) ? found->second : std::string(word.begin(), word.end());
}

class PageWriter
{
  public:
    PageWriter(const LandXmlFile& file, const std::vector<Finding>& findings) : file_(file), findings_(findings) {}

    std::string Write()
    {
        OpenPage();
        WriteSummary();
        DrawSurfaces(drawing_, file_);
        std::size_t number = 0;
        ForEachAlignment(file_, [&](const Alignment& alignment) {
            if (++number <= MOST_ALIGNMENTS)
            {
                WriteAlignment(alignment);
            }
        });
        TellLeftOut(number, MOST_ALIGNMENTS, L"線形");
        for (const Table& table : AllTables(file_))
        {
            WriteTable(table);
        }
        // Behind the drawings, since only then it is known where findings can lead.
        WriteFindings();
        WriteCheckSheet();
        page_.Raw("<script>").Raw(REPORT_SCRIPT).Raw("</script></body></html>\n");
        return page_.Take();
    }

  private:
    void OpenPage()
    {
        page_.Raw(
            "<!DOCTYPE html>\n<html lang=\"ja\"><head><meta charset=\"utf-8\">"
            "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'unsafe-inline'; "
            "script-src 'unsafe-inline'; img-src data:\"><link rel=\"icon\" href=\"data:,\"><title>");
        page_.Text(NameOr(file_.projectName, file_.path)).Raw("</title><style>").Raw(REPORT_STYLE);
        page_.Raw("</style></head><body><header><h1>").Text(NameOr(file_.projectName, file_.path));
        page_.Raw("</h1><button id=\"language\" type=\"button\">English</button></header>");
        page_.Raw("<nav><a href=\"#findings\">").Words("span", L"検査結果", "Findings");
        page_.Raw("</a> <a href=\"#checksheet\">").Words("span", L"チェックシート", "Check sheet");
        page_.Raw("</a>");
        std::size_t number = 0;
        ForEachAlignment(file_, [&](const Alignment& alignment) {
            if (number < MOST_ALIGNMENTS)
            {
                page_.Raw(" <a href=\"#alignment").Number(static_cast<double>(number++), 0).Raw("\">");
                page_.Text(NameOf(alignment)).Raw("</a>");
            }
        });
        page_.Raw("</nav>");
    }

    void WriteSummary()
    {
        page_.Raw("<section>").Words("h2", L"概要", "Summary").Raw("<pre>").Text(SummaryText(file_));
        page_.Raw("</pre></section>");
    }

    void TellLeftOut(std::size_t count, std::size_t most, const wchar_t* what)
    {
        if (count > most)
        {
            page_.Raw("<p class=\"leftout\">").Text(what).Text(L"が多いため、ほか" + std::to_wstring(count - most));
            page_.Text(L"件は省略しました。").Raw("</p>");
        }
    }

    void WriteAlignment(const Alignment& alignment)
    {
        page_.Raw("<section class=\"sheet\" id=\"alignment").Number(static_cast<double>(alignments_++), 0);
        page_.Raw("\"><h2>").Text(NameOf(alignment)).Raw("</h2>").Words("h3", L"平面図", "Plan");
        page_.Raw("<figure class=\"planbox\"><span class=\"north\">N↑</span>");
        DrawPlan(drawing_, file_, alignment);
        page_.Raw("<figcaption class=\"place\">X – Y –</figcaption></figure>");
        page_.Words("h3", L"縦断図", "Profile").Raw("<figure class=\"scroll\">");
        DrawProfile(drawing_, alignment);
        page_.Raw("</figure>");
        WriteSections(alignment);
        page_.Raw("</section>");
    }

    void WriteSections(const Alignment& alignment)
    {
        if (CountOfSections(alignment) == 0)
        {
            return;
        }
        page_.Words("h3", L"横断図", "Cross sections").Raw("<div class=\"sections\">");
        for (const CrossSects& sects : alignment.crossSects)
        {
            for (const CrossSect& section : sects.sections)
            {
                if (++sections_ <= MOST_SECTIONS)
                {
                    page_.Raw("<figure");
                    DrawId(drawing_, section.line);
                    page_.Raw("><figcaption>").Text(NameOf(section)).Text(L"　" + std::wstring(section.station.text));
                    page_.Raw(" m</figcaption>");
                    DrawCrossSection(drawing_, alignment, section);
                    page_.Raw("</figure>");
                }
            }
        }
        page_.Raw("</div>");
        TellLeftOut(sections_, MOST_SECTIONS, L"横断面");
    }

    void WriteTable(const Table& table)
    {
        page_.Raw("<section>").Words("h2", table.title, English(table.title)).Raw("<table><thead><tr>");
        for (const wchar_t* const column : table.columns)
        {
            page_.Words("th", column, English(column));
        }
        page_.Raw("</tr></thead><tbody>");
        for (std::size_t index = 0; index < std::min(table.rows.size(), MOST_ROWS); ++index)
        {
            page_.Raw("<tr>");
            for (const std::wstring& field : table.rows[index])
            {
                page_.Raw("<td>").Text(field).Raw("</td>");
            }
            page_.Raw("</tr>\n");
        }
        page_.Raw("</tbody></table>");
        TellLeftOut(table.rows.size(), MOST_ROWS, L"行");
        page_.Raw("</section>");
    }

    void WriteFindings()
    {
        page_.Raw("<section id=\"findings\">").Words("h2", L"検査結果", "Findings").Raw("<table><thead><tr>");
        page_.Words("th", L"重大度", "Severity").Words("th", L"符号", "Code").Words("th", L"行", "Line");
        page_.Words("th", L"対象", "Element").Words("th", L"内容", "Finding").Words("th", L"処置", "Remedy");
        page_.Raw("</tr></thead><tbody>");
        for (const Finding& finding : findings_)
        {
            page_.Raw("<tr class=\"severity").Number(static_cast<double>(finding.severity), 0).Raw("\"><td>");
            page_.Text(SeverityName(finding.severity)).Raw("</td><td>").Text(finding.check->code).Raw("</td><td>");
            page_.Text(finding.line > 0 ? std::to_wstring(finding.line) : L"").Raw("</td><td>");
            const bool isDrawn = drawn_.count(finding.line) > 0;
            if (isDrawn)
            {
                page_.Raw("<a href=\"#l").Number(static_cast<double>(finding.line), 0).Raw("\">");
            }
            page_.Text(finding.object).Raw(isDrawn ? "</a>" : "").Raw("</td><td>").Text(finding.text);
            page_.Raw("</td><td>").Text(finding.check->remedy.japanese).Raw("</td></tr>\n");
        }
        page_.Raw("</tbody></table>");
        if (findings_.empty())
        {
            page_.Words("p", L"指摘はありません。", "Nothing was found.");
        }
        page_.Raw("</section>");
    }

    void WriteCheckSheet()
    {
        page_.Raw("<section id=\"checksheet\" class=\"sheet\">").Words("h2", L"チェックシート", "Check sheet");
        page_.Raw("<table><thead><tr>").Words("th", L"項目", "Subject").Words("th", L"内容", "What to collate");
        page_.Words("th", L"ファイルの値", "In the file").Words("th", L"確認", "Checked").Raw("</tr></thead><tbody>");
        for (const CheckSheetRow& row : CheckSheet(file_))
        {
            page_.Raw("<tr><td>").Text(row.subject).Raw("</td><td>").Text(row.what).Raw("</td><td>").Text(row.value);
            page_.Raw("</td><td class=\"tick\">☐</td></tr>\n");
        }
        page_.Raw("</tbody></table></section>");
    }

    const LandXmlFile& file_;
    const std::vector<Finding>& findings_;
    Html page_;
    std::set<std::size_t> drawn_;
    Drawing drawing_{page_, drawn_};
    std::size_t alignments_ = 0;
    std::size_t sections_ = 0;
};

} // namespace

std::string ReportPage(const LandXmlFile& file, const std::vector<Finding>& findings)
{
    return PageWriter(file, findings).Write();
}

} // namespace jlandxml::inspect
