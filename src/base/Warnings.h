#pragma once

#include <cerrno>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jlandxml
{

/// What a run reads, drops or bends without a message to its user. The table of codes and texts has a row for each.
enum class WarningCause
{
    // Files
    UnreadableFile,
    UnreadableFolder,
    MalformedXml,
    NoMemoryForFile,
    NoMemory, ///< for more than one file, or for a warning itself
    TargetNotRestored,
    // The work file as a whole
    OtherRoot,
    OtherNamespace,
    NotMetric,
    NoRoute,
    // Side files
    SideFileBeyondRoutes,
    MissingSideFile,
    NoRouteName,
    NoAlignmentForSideFile,
    NotUtf8,
    ShortRow,
    EmptySlopeRow,
    CommaInName,
    SurplusRegions,
    UnknownWideningSide,
    UnknownWideningCode,
    StakeNoteLeftOut,
    // What is bent
    NumberNotWhole,
    GroundLineWithoutPoints,
    FurtherPointList,
    GroundLineContentLeftOut,
    VerticalCurveLeftOut,
    NearPointLeftOut,
    OddNumberCount,
    PointNotRead,
    SideGuessed,
    SideOverwritten,
    // What is removed
    GroundLineRemoved,
    OpenPavementRemoved,
    FormationLeftOut,
    CgPointsRemoved,
    DanglingPntRef,
    SuperelevationRemoved,
    SlopeListRemoved,
    AdverseRemoved,
    WidthStakesLeftOut,
    EmptyCrossSectsRemoved,
    CrossSectionLeftEmpty,
    // What is left out
    ProfAlignRefsLeftOut,
    ClothoidParameterLeftOut,
    DesignValueLeftOut,
    // What is doubtful
    SameGroupName,
    NoSuchAlignment,
    DescOverridesProject,
    DescDiffers,
    GroundLineWithoutName,
    StakeGroupWithoutName,
    StakeGroupWithoutType,
};

/// Where a warning's cause lies, as far as that is known; what isn't is empty.
struct WarningPlace
{
    std::wstring file{};
    std::wstring object{};            ///< the element by names a person knows (線形1／縦断／計画線)
    std::wstring path{};              ///< the element as an XPath
    std::optional<std::size_t> row{}; ///< of the file, the first one being 1
    std::wstring remark{};            ///< what is to be said of this one place, such as a value or a reason
};

/// A warning as it is told. Where one cause has several places in a file, it stands for all of them.
struct Warning
{
    std::string_view code; ///< a stable word for programs
    std::wstring text;
    std::wstring detail; ///< for eyes: the objects, the file, the row and the reason
    std::wstring path;   ///< of the first object, as an XPath
    std::wstring object; ///< the first objects by names, and how many more there are
    std::wstring file;
    std::optional<std::size_t> row{};
    std::size_t count = 1; ///< how many places there are
};

/// What an error number of the C library says of a file.
std::wstring ReasonText(int error);

/// Notes something that a run passes over. A run keeps, for each cause and file, the first few places and a count, so
/// that the memory for them doesn't grow with the input; nobody is told before they are taken. Want of memory for the
/// note makes it a warning of want of memory.
void WarnOf(WarningCause cause, const WarningPlace& place) noexcept;

/// The same where putting the place into words takes time: it is asked for, but for its file, only where it is kept.
void WarnOf(WarningCause cause, const std::wstring& file, const std::function<WarningPlace()>& place) noexcept;

/// The same for a file or folder that was passed over, and why: an error number of the C library, or 0 if the system
/// gave no reason.
void WarnOf(WarningCause cause, const std::wstring& file, int error = 0) noexcept;

/// What is remarked of a file that should be UTF-8.
inline constexpr const wchar_t* SHIFT_JIS_REMARK = L"Shift_JISのファイルです";

/// A row of the table of causes.
struct WarningText
{
    std::string_view code;
    std::wstring_view text;
};

/// Every warning that there is, in the order in which manuals list them.
std::vector<WarningText> WarningTexts();

/// Drops what was noted: each run begins without any.
void ForgetWarnings() noexcept;

/// The warnings since they were taken last, in the order in which they were noted first.
std::vector<Warning> TakeWarnings() noexcept;

} // namespace jlandxml
