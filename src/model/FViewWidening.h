#pragma once

#include "base/CompactText.h"
#include "model/FViewLandXMLBase.h"

#include <optional>
#include <string>
#include <string_view>

namespace jlandxml
{

/// One point of the widening (拡幅) of a lane: at its station the lane is wider by its width. It is a `Property`
/// "widthLeftValue" or "widthRightValue" of the `Feature` "WideningList".
class FViewWidening final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"Widening"; }
    /// Entries come from properties and side files, never from an element. Always true.
    bool ReadElement(const WcXmNode& /*node*/) override { return true; }
    /// Entries are written by their alignment. Always true.
    bool WriteElement(const WcXmNode& /*node*/) override { return true; }

    double station = 0.0; ///< metres; UNSET_DOUBLE where the side file left it empty
    double width = 0.0;   ///< metres; UNSET_DOUBLE where the side file left it empty
    CompactText code;     ///< kind of the transition to the next point, "0" to "4"; may be empty
};

/// Reads the value of a "widthLeftValue" or "widthRightValue" `Property`: station, width and, where given, code,
/// separated by blanks. False, with nothing changed, if the text has no blank.
bool ParseWideningText(std::wstring_view text, double& station, double& width, CompactText& code);

/// What is to be said of a code that the format doesn't have. Nothing for one that it has, and where there is none.
std::optional<std::wstring> WideningCodeRemark(const CompactText& code);

/// The value of such a `Property`: the station with at most six decimals, the width with at most four, and the code
/// where there is one. A code whose number lies outside 0 to 4 becomes 0.
std::wstring FormatWideningText(const FViewWidening& widening);

} // namespace jlandxml
