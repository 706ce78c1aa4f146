#include "inspect/Report.h"

#include "inspect/CheckSheet.h"
#include "inspect/EnglishWords.h"
#include "inspect/FindingTargets.h"
#include "inspect/Names.h"
#include "inspect/OwnFigures.h"
#include "inspect/RunJournal.h"
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

/// A page that has become so large has no room for more sections; calculation sheets and findings are still to come.
constexpr std::size_t MOST_BYTES_OF_DRAWINGS = 12'000'000;

constexpr Sentence WHOLE_PLAN{L"全体平面図", L"Plan of the whole file"};

class PageWriter
{
  public:
    PageWriter(const LandXmlFile& file, const std::vector<Finding>& findings, const RunJournal* journal)
        : file_(file),
          findings_(findings),
          journal_(journal),
          references_(file)
    {
        for (const Finding& finding : findings)
        {
            if (finding.line > 0)
            {
                found_.insert(finding);
            }
        }
    }

    std::string Write()
    {
        std::size_t number = 0;
        ForEachAlignment(file_, [&](const Alignment& alignment) {
            if (++number <= MOST_ALIGNMENTS)
            {
                alignments_.push_back(&alignment);
            }
        });
        for (const Alignment* const alignment : alignments_)
        {
            plans_.push_back(PlanOf(file_, references_, *alignment));
        }
        const std::optional<PlanContent> rest = PlanOfTheRest(file_, references_, alignments_);
        if (rest)
        {
            plans_.push_back(*rest);
        }
        OpenPage();
        WriteSummary();
        DrawShared(drawing_, file_, plans_);
        for (std::size_t index = 0; index < alignments_.size(); ++index)
        {
            WriteAlignment(index);
        }
        TellLeftOut(number, MOST_ALIGNMENTS, {L"線形", L"alignments"});
        WritePlanOfTheRest();
        DrawTerrain(drawing_, file_);
        for (const Table& table : AllTables(file_))
        {
            WriteTable(table);
        }
        // Behind the drawings, since only then it is known where findings can lead.
        WriteFindings();
        WriteCheckSheet();
        WriteRunJournal(page_, journal_);
        page_.Raw("<script>")
            .Raw(REPORT_SCRIPT)
            .Raw(SECTIONS_SCRIPT)
            .Raw(TERRAIN_SCRIPT)
            .Raw("</script></body></html>\n");
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
        page_.Raw("<nav><a href=\"#summary\">").Words("span", L"概要", L"Summary");
        page_.Raw("</a> <a href=\"#findings\">").Words("span", L"検査結果", L"Findings");
        page_.Raw("</a> <a href=\"#checksheet\">").Words("span", L"チェックシート", L"Check sheet");
        page_.Raw("</a> <a href=\"#journal\">").Words("span", L"変換の記録", L"Record of the conversion");
        page_.Raw("</a>");
        for (std::size_t index = 0; index < alignments_.size(); ++index)
        {
            page_.Raw(" <a href=\"#alignment").Number(static_cast<double>(index), 0).Raw("\">");
            page_.Words("span", NameOf(*alignments_[index])).Raw("</a>");
        }
        if (HasPlanOfTheRest())
        {
            page_.Raw(" <a href=\"#whole\">").Words("span", WHOLE_PLAN).Raw("</a>");
        }
        if (!file_.surfaces.empty())
        {
            page_.Raw(" <a href=\"#terrain\">").Words("span", L"3次元", L"3D").Raw("</a>");
        }
        page_.Raw("</nav>");
    }

    void WriteSummary()
    {
        page_.Raw("<section id=\"summary\">").Words("h2", L"概要", L"Summary");
        page_.Words("pre", SummaryText(file_), SummaryText(file_, Language::English)).Raw("</section>");
    }

    void TellLeftOut(std::size_t count, std::size_t most, const Sentence& what)
    {
        if (count > most)
        {
            const std::wstring more = std::to_wstring(count - most);
            page_.Words("p class=\"leftout\"", what.japanese + (L"が多いため、ほか" + more) + L"件は省略しました。",
                        L"Too many " + (what.english + (L": another " + more)) + L" are left out.");
        }
    }

    void WriteAlignment(std::size_t index)
    {
        const Alignment& alignment = *alignments_[index];
        page_.Raw("<section class=\"sheet\" id=\"alignment").Number(static_cast<double>(index), 0);
        page_.Raw("\">").Words("h2", NameOf(alignment)).Words("h3", L"平面図", L"Plan");
        WritePlan(plans_[index], alignment);
        page_.Words("h3", L"縦断図", L"Profile").Raw("<figure class=\"scroll\"");
        DrawId(drawing_, alignment.profiles.empty() ? SourcePlace() : SourcePlace(alignment.profiles.front()));
        page_.Raw(">");
        const OwnFigures own(references_, alignment);
        DrawProfile(drawing_, own, alignment);
        page_.Raw("</figure>");
        WriteSections(own, alignment);
        page_.Raw("</section>");
    }

    /// `place` is that of the element that the plan is of.
    void WritePlan(const PlanContent& content, const SourcePlace& place)
    {
        page_.Raw("<figure class=\"planbox\"");
        DrawId(drawing_, place);
        page_.Raw("><span class=\"north\">N↑</span>");
        DrawPlan(drawing_, file_, content);
        page_.Raw("<figcaption class=\"place\">X – Y –</figcaption></figure>");
        TellOfPlan(drawing_, file_, content);
    }

    bool HasPlanOfTheRest() const { return plans_.size() > alignments_.size(); }

    void WritePlanOfTheRest()
    {
        if (HasPlanOfTheRest())
        {
            page_.Raw("<section class=\"sheet\" id=\"whole\">").Words("h2", WHOLE_PLAN);
            WritePlan(plans_.back(), {});
            page_.Raw("</section>");
        }
    }

    void WriteSections(const OwnFigures& own, const Alignment& alignment)
    {
        const std::size_t count = CountOfSections(alignment);
        if (count == 0)
        {
            return;
        }
        page_.Raw("<h3");
        DrawId(drawing_, alignment.crossSects.front());
        page_.Raw(">").Words("span", L"横断図", L"Cross sections").Raw("</h3><div class=\"leaf\">");
        page_.Words("button type=\"button\"", L"◀ 前", L"◀ Previous").Raw("<select></select>");
        page_.Words("button type=\"button\"", L"次 ▶", L"Next ▶").Raw("<label><input type=\"checkbox\">");
        page_.Words("span", L"すべて表示", L"Show all").Raw("</label></div><div class=\"sections\">");
        const std::size_t most = MOST_SECTIONS - sections_;
        std::size_t drawn = 0;
        for (const CrossSects& sects : alignment.crossSects)
        {
            const std::optional<ProfileLine> design = LineOf(DesignProfile(alignment, sects));
            for (const CrossSect& section : sects.sections)
            {
                if (drawn < most && page_.Size() < MOST_BYTES_OF_DRAWINGS)
                {
                    ++drawn;
                    page_.Raw("<figure");
                    DrawId(drawing_, section);
                    page_.Raw("><figcaption>").Text(section.name).Text(L"　" + std::wstring(section.station.text));
                    page_.Raw(" m").Text(CentreHeights(own, design, section)).Raw("</figcaption>");
                    DrawCrossSection(drawing_, design, section);
                    page_.Raw("</figure>");
                }
            }
        }
        page_.Raw("</div>");
        sections_ += drawn;
        TellLeftOut(count, drawn, {L"横断面", L"cross sections"});
    }

    void WriteRow(const Table& table, const std::vector<std::wstring>& row)
    {
        page_.Raw("<tr>");
        for (std::size_t column = 0; column < row.size(); ++column)
        {
            if (column == table.kinds)
            {
                page_.Words("td", row[column], EnglishOf(row[column]));
                continue;
            }
            const bool isUnnamed = row[column] == UNNAMED_ALIGNMENT.japanese;
            page_.Words("td", isUnnamed ? Detail(UNNAMED_ALIGNMENT) : Detail(row[column]));
        }
        page_.Raw("</tr>\n");
    }

    void WriteTable(const Table& table)
    {
        page_.Raw("<section>").Words("h2", table.title, EnglishOf(table.title));
        if (table.rows.empty())
        {
            page_.Words("p", L"このファイルにはありません。", L"There are none in this file.").Raw("</section>");
            return;
        }
        page_.Raw("<table><thead><tr>");
        for (const wchar_t* const column : table.columns)
        {
            page_.Words("th", column, EnglishOf(column));
        }
        page_.Raw("</tr></thead><tbody>");
        for (std::size_t index = 0; index < std::min(table.rows.size(), MOST_ROWS); ++index)
        {
            WriteRow(table, table.rows[index]);
        }
        page_.Raw("</tbody></table>");
        TellLeftOut(table.rows.size(), MOST_ROWS, {L"行", L"rows"});
        page_.Raw("</section>");
    }

    void WriteFinding(const Finding& finding)
    {
        constexpr const wchar_t* SEVERITIES[] = {L"Information", L"Warning", L"Error"};
        page_.Raw("<tr class=\"severity").Number(static_cast<double>(finding.severity), 0).Raw("\">");
        page_.Words("td", SeverityName(finding.severity), SEVERITIES[static_cast<std::size_t>(finding.severity)]);
        page_.Raw("<td>").Text(finding.check->code).Raw("</td><td>");
        page_.Text(finding.line > 0 ? std::to_wstring(finding.line) : L"").Raw("</td><td>");
        const bool isNamed = !finding.object.IsEmpty();
        const std::string link = std::string("a href=\"#").append(TargetOf(finding)).append("\"");
        page_.Words(link, isNamed ? finding.object : file_.path).Raw("</td>");
        page_.Words("td", finding.text, finding.english);
        page_.Words("td", finding.check->remedy.japanese, finding.check->remedy.english).Raw("</tr>\n");
    }

    /// The id of what a finding is about, or of what is drawn round it. What isn't drawn at all is summed up.
    std::string TargetOf(const Finding& finding) const
    {
        const auto nearest = targets_.find(finding);
        return nearest != targets_.end() && !nearest->second.empty() ? nearest->second : "summary";
    }

    void WriteFindings()
    {
        targets_ = NearestDrawn(file_, found_, drawing_.ids);
        page_.Raw("<section id=\"findings\">").Words("h2", L"検査結果", L"Findings").Raw("<table><thead><tr>");
        page_.Words("th", L"重大度", L"Severity").Words("th", L"符号", L"Code").Words("th", L"行", L"Line");
        page_.Words("th", L"対象", L"Element").Words("th", L"内容", L"Finding").Words("th", L"処置", L"Remedy");
        page_.Raw("</tr></thead><tbody>");
        for (const Finding& finding : findings_)
        {
            WriteFinding(finding);
        }
        page_.Raw("</tbody></table>");
        if (findings_.empty())
        {
            page_.Words("p", L"指摘はありません。", L"Nothing was found.");
        }
        page_.Raw("</section>");
    }

    void WriteCheckSheet()
    {
        page_.Raw("<section id=\"checksheet\" class=\"sheet\">").Words("h2", L"チェックシート", L"Check sheet");
        page_.Raw("<table><thead><tr>").Words("th", L"項目", L"Subject").Words("th", L"内容", L"What to collate");
        page_.Words("th", L"ファイルの値", L"In the file").Words("th", L"確認", L"Checked").Raw("</tr></thead><tbody>");
        const std::vector<CheckSheetRow> rows = CheckSheet(file_);
        for (std::size_t index = 0; index < std::min(rows.size(), MOST_ROWS); ++index)
        {
            const CheckSheetRow& row = rows[index];
            page_.Raw("<tr>").Words("td", row.alignment.IsEmpty() ? row.subject : Path(row.subject, row.alignment));
            page_.Words("td", row.what).Words("td", row.value);
            page_.Raw("<td class=\"tick\">☐</td></tr>\n");
        }
        page_.Raw("</tbody></table>");
        TellLeftOut(rows.size(), MOST_ROWS, {L"行", L"rows"});
        page_.Raw("</section>");
    }

    const LandXmlFile& file_;
    const std::vector<Finding>& findings_;
    const RunJournal* journal_; ///< null: there is none
    const AlignmentReferences references_;
    Html page_;
    std::set<SourcePlace> found_; ///< but for the file as a whole
    Drawing drawing_{page_, found_};
    std::map<SourcePlace, std::string> targets_; ///< the ids that the findings at each place lead to
    std::vector<const Alignment*> alignments_;   ///< that are drawn
    std::vector<PlanContent> plans_;             ///< theirs, and that of what none of them shows, if there is such
    std::size_t sections_ = 0;                   ///< that are drawn
};

} // namespace

std::string ReportPage(const LandXmlFile& file, const std::vector<Finding>& findings, const RunJournal* journal)
{
    return PageWriter(file, findings, journal).Write();
}

} // namespace jlandxml::inspect
