#pragma once

#include "inspect/Figure.h"
#include "inspect/SourcePlace.h"
#include "inspect/Wording.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace jlandxml::inspect
{

struct LandXmlFile;
class Findings;

enum class Severity
{
    Information,
    Warning,
    Error,
};

/// What users call the severities, in their order.
inline constexpr std::array<const wchar_t*, 3> SEVERITY_NAMES{L"情報", L"警告", L"誤り"};

inline const wchar_t* SeverityName(Severity severity)
{
    return SEVERITY_NAMES[static_cast<std::size_t>(severity)];
}

/// How far a figure may be off: above `warning` it is a 警告, above `error` an 誤り. Both the same: there is one grade.
struct Tolerance
{
    double warning;
    double error;
    const wchar_t* unit; ///< "" for a ratio
};

/// One thing that files are judged by.
struct Check
{
    const wchar_t* code;
    Severity severity; ///< the highest it gives
    std::optional<Tolerance> tolerance;
    Sentence text;
    Sentence remedy;
    const wchar_t* source; ///< the clause or published rule behind it
    void (*run)(const LandXmlFile& file, Findings& findings);
};

/// The numbers of a finding, as far as it has some: what the file has, what it should have (or the bound that it
/// passes), and how far the two may lie apart.
struct FoundNumbers
{
    std::optional<double> value;
    std::optional<double> expected;
    std::optional<double> tolerance;
};

/// What a check says of one element, and where that is; line 0: of the file as a whole.
struct Finding : SourcePlace
{
    const Check* check;
    Severity severity;
    std::wstring text;
    std::wstring english; ///< the same for the report's switch
    Detail object;        ///< the element by names that a person knows
    std::optional<double> value;
    std::optional<double> expected;
    std::optional<double> tolerance;
};

/// Gathers what the checks find.
class Findings
{
  public:
    /// Runs one check. A file that is wrong from end to end would drown the reader: what goes beyond LARGEST_COUNT of
    /// one check is only counted.
    void Run(const Check& check, const LandXmlFile& file);

    static constexpr std::size_t LARGEST_COUNT = 200;

    /// Says the check's text of an element, with a detail behind it, never above `highest`. Numbers that aren't finite
    /// aren't told.
    void Report(const Detail& object, const SourcePlace& place, const Detail& detail = {},
                const FoundNumbers& numbers = {}, Severity highest = Severity::Error);

    /// True once what the running check says is no longer told, only counted.
    bool OnlyCounts() const { return count_ > LARGEST_COUNT; }

    /// Counts what is said of so many elements more that aren't told one by one, behind LARGEST_COUNT that are.
    void CountMore(std::size_t count) { count_ += count; }

    /// Says it if a figure is further off than the check tolerates, never above `highest`. A figure or an expectation
    /// that isn't finite says nothing. The figure is told in the file's own text, if it has one.
    void Measure(const Detail& object, const SourcePlace& place, const Figure& value, double expected,
                 const Detail& detail = {}, Severity highest = Severity::Error);

    /// Says it if the part of `expected` by which a figure differs from it is larger than the check tolerates.
    void MeasureRatio(const Detail& object, const SourcePlace& place, const Figure& value, double expected,
                      const Detail& detail = {});

    /// Says it if what should be nothing is more than the check tolerates.
    void MeasureGap(const Detail& object, const SourcePlace& place, double gap, const Detail& detail = {},
                    Severity highest = Severity::Error);

    const std::vector<Finding>& All() const { return all_; }

  private:
    std::optional<Severity> Grade(double deviation, Severity highest, double& tolerance) const;
    void Add(Severity severity, const Detail& detail, const Detail& figures, const Detail& object,
             const SourcePlace& place, const FoundNumbers& numbers = {});

    std::vector<Finding> all_;
    const Check* check_ = nullptr;
    std::size_t count_ = 0;                    ///< of the running check
    Severity highest_ = Severity::Information; ///< among those that were only counted
};

/// A number as findings show it: up to so many decimals, none at the end that say nothing.
std::wstring ShortNumber(double value, int decimals = 5);

/// A figure as findings show it: the file's own text, or the digits of a computed one.
std::wstring TextOf(const Figure& figure);

} // namespace jlandxml::inspect
