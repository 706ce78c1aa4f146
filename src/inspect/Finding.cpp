#include "inspect/Finding.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cmath>

namespace jlandxml::inspect
{

namespace
{

std::wstring WithUnit(double value, const wchar_t* unit)
{
    return ShortNumber(value) + (*unit != L'\0' ? L" " : L"") + unit;
}

std::wstring InBrackets(std::wstring_view detail, std::wstring_view figures)
{
    const wchar_t* const comma = detail.empty() || figures.empty() ? L"" : L"、";
    std::wstring text = L"（";
    text.append(detail).append(comma).append(figures).append(L"）");
    return text.size() == 2 ? std::wstring() : text;
}

} // namespace

std::wstring ShortNumber(double value, int decimals)
{
    std::wstring text = FormatFixed(value, decimals);
    if (text.find(L'.') != std::wstring::npos)
    {
        text.erase(text.find_last_not_of(L'0') + 1);
        text.erase(text.find_last_not_of(L'.') + 1);
    }
    return text == L"-0" ? L"0" : text;
}

void Findings::Run(const Check& check, const LandXmlFile& file)
{
    check_ = &check;
    count_ = 0;
    highest_ = Severity::Information;
    check.run(file, *this);
    if (count_ > LARGEST_COUNT)
    {
        all_.push_back({check_,
                        highest_,
                        check.text + InBrackets(L"ほか" + std::to_wstring(count_ - LARGEST_COUNT) + L"件", {}),
                        L"",
                        0,
                        {},
                        {},
                        {}});
    }
}

void Findings::Add(Finding finding)
{
    if (++count_ <= LARGEST_COUNT)
    {
        all_.push_back(std::move(finding));
        return;
    }
    highest_ = std::max(highest_, finding.severity);
}

void Findings::Report(std::wstring object, std::size_t line, std::wstring_view detail)
{
    Add({check_, check_->severity, check_->text + InBrackets(detail, {}), std::move(object), line, {}, {}, {}});
}

std::optional<Severity> Findings::Grade(double deviation, Severity highest, double& tolerance) const
{
    const Tolerance& limits = *check_->tolerance;
    tolerance = deviation > limits.error ? limits.error : limits.warning;
    if (!std::isfinite(deviation) || deviation <= limits.warning)
    {
        return {};
    }
    const Severity grade = deviation > limits.error ? Severity::Error : Severity::Warning;
    return std::min({grade, highest, check_->severity});
}

void Findings::Measure(std::wstring object, std::size_t line, double value, double expected, std::wstring_view detail,
                       Severity highest)
{
    double tolerance = 0;
    const double difference = std::abs(value - expected);
    if (const std::optional<Severity> severity = Grade(difference, highest, tolerance))
    {
        const wchar_t* const unit = check_->tolerance->unit;
        const std::wstring figures = L"値 " + WithUnit(value, unit) + L"、計算 " + WithUnit(expected, unit) + L"、差 " +
                                     WithUnit(difference, unit) + L"、許容 " + WithUnit(tolerance, unit);
        Add({check_, *severity, check_->text + InBrackets(detail, figures), std::move(object), line, value, expected,
             tolerance});
    }
}

void Findings::MeasureRatio(std::wstring object, std::size_t line, double value, double expected,
                            std::wstring_view detail)
{
    double tolerance = 0;
    const double ratio = std::abs(value - expected) / std::abs(expected);
    if (const std::optional<Severity> severity = Grade(ratio, Severity::Error, tolerance))
    {
        const std::wstring figures = L"値 " + ShortNumber(value) + L"、計算 " + ShortNumber(expected) + L"、差の割合 " +
                                     ShortNumber(ratio, 7) + L"、許容 " + ShortNumber(tolerance, 7);
        Add({check_, *severity, check_->text + InBrackets(detail, figures), std::move(object), line, value, expected,
             tolerance});
    }
}

void Findings::MeasureGap(std::wstring object, std::size_t line, double gap, std::wstring_view detail, Severity highest)
{
    double tolerance = 0;
    if (const std::optional<Severity> severity = Grade(gap, highest, tolerance))
    {
        const wchar_t* const unit = check_->tolerance->unit;
        const std::wstring figures = L"差 " + WithUnit(gap, unit) + L"、許容 " + WithUnit(tolerance, unit);
        Add({check_, *severity, check_->text + InBrackets(detail, figures), std::move(object), line, gap, 0.0,
             tolerance});
    }
}

} // namespace jlandxml::inspect
