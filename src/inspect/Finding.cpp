#include "inspect/Finding.h"

#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace jlandxml::inspect
{

namespace
{

std::wstring WithUnit(const std::wstring& value, const wchar_t* unit)
{
    return value + (*unit != L'\0' ? L" " : L"") + unit;
}

std::wstring WithUnit(double value, const wchar_t* unit)
{
    return WithUnit(ShortNumber(value), unit);
}

/// What stands behind a check's text: the detail and the figures, if there are any.
std::wstring InBrackets(const wchar_t* text, std::array<const wchar_t*, 3> marks, const std::wstring& detail,
                        const std::wstring& figures)
{
    const auto [open, comma, close] = marks;
    return text + (detail.empty() && figures.empty()
                       ? std::wstring()
                       : open + detail + (detail.empty() || figures.empty() ? L"" : comma) + figures + close);
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

std::wstring TextOf(const Figure& figure)
{
    return figure.IsWritten() ? std::wstring(figure.text) : ShortNumber(figure.value);
}

void Findings::Run(const Check& check, const LandXmlFile& file)
{
    check_ = &check;
    count_ = 0;
    highest_ = Severity::Information;
    check.run(file, *this);
    if (count_ > LARGEST_COUNT)
    {
        const std::wstring more = std::to_wstring(count_ - LARGEST_COUNT);
        count_ = 0;
        Add(highest_, {{L"ほか{}件", L"and {} more"}, {more}}, {}, L"", {});
    }
}

void Findings::Add(Severity severity, const Detail& detail, const Detail& figures, const Detail& object,
                   const SourcePlace& place, const FoundNumbers& numbers)
{
    const auto finite = [](std::optional<double> number) {
        return number && std::isfinite(*number) ? number : std::nullopt;
    };
    if (++count_ > LARGEST_COUNT)
    {
        highest_ = std::max(highest_, severity);
        return;
    }
    all_.push_back({place, check_, severity,
                    InBrackets(check_->text.japanese, {L"（", L"、", L"）"}, detail.japanese, figures.japanese),
                    InBrackets(check_->text.english, {L" (", L", ", L")"}, detail.english, figures.english), object,
                    finite(numbers.value), finite(numbers.expected), finite(numbers.tolerance)});
}

void Findings::Report(const Detail& object, const SourcePlace& place, const Detail& detail, const FoundNumbers& numbers,
                      Severity highest)
{
    Add(std::min(check_->severity, highest), detail, {}, object, place, numbers);
}

std::optional<Severity> Findings::Grade(double deviation, Severity highest, double& tolerance) const
{
    const Tolerance& limits = *check_->tolerance;
    // The last digits of a binary difference don't make a figure one that is off.
    constexpr double DIGITS = 1 + 1e-9;
    const bool isError = deviation > limits.error * DIGITS;
    tolerance = isError ? limits.error : limits.warning;
    if (!std::isfinite(deviation) || deviation <= limits.warning * DIGITS)
    {
        return {};
    }
    return std::min({isError ? Severity::Error : Severity::Warning, highest, check_->severity});
}

void Findings::Measure(const Detail& object, const SourcePlace& place, const Figure& value, double expected,
                       const Detail& detail, Severity highest)
{
    double tolerance = 0;
    const double difference = std::abs(value.value - expected);
    if (const std::optional<Severity> severity = Grade(difference, highest, tolerance))
    {
        const wchar_t* const unit = check_->tolerance->unit;
        const Detail figures({L"値 {}、計算 {}、差 {}、許容 {}", L"value {}, computed {}, difference {}, tolerance {}"},
                             {WithUnit(TextOf(value), unit), WithUnit(expected, unit), WithUnit(difference, unit),
                              WithUnit(tolerance, unit)});
        Add(*severity, detail, figures, object, place, {value.value, expected, tolerance});
    }
}

void Findings::MeasureRatio(const Detail& object, const SourcePlace& place, const Figure& value, double expected,
                            const Detail& detail)
{
    double tolerance = 0;
    const double ratio = std::abs(value.value - expected) / std::abs(expected);
    if (const std::optional<Severity> severity = Grade(ratio, Severity::Error, tolerance))
    {
        const Detail figures(
            {L"値 {}、計算 {}、差の割合 {}、許容 {}", L"value {}, computed {}, off by a ratio of {}, tolerance {}"},
            {TextOf(value), ShortNumber(expected), ShortNumber(ratio, 7), ShortNumber(tolerance, 7)});
        Add(*severity, detail, figures, object, place, {value.value, expected, tolerance});
    }
}

void Findings::MeasureGap(const Detail& object, const SourcePlace& place, double gap, const Detail& detail,
                          Severity highest)
{
    double tolerance = 0;
    if (const std::optional<Severity> severity = Grade(gap, highest, tolerance))
    {
        const wchar_t* const unit = check_->tolerance->unit;
        const Detail figures({L"差 {}、許容 {}", L"difference {}, tolerance {}"},
                             {WithUnit(gap, unit), WithUnit(tolerance, unit)});
        Add(*severity, detail, figures, object, place, {gap, 0.0, tolerance});
    }
}

} // namespace jlandxml::inspect
