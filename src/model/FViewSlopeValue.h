#pragma once

#include "base/CompactText.h"
#include "model/FViewLandXMLBase.h"

#include <string>

namespace jlandxml
{

/// One entry of an alignment's free list of cross slopes (任意横断勾配, percent), each a text as it came. It is a
/// `Property` "slopeValue" of the `Feature` "SlopeList".
class FViewSlopeValue final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"SlopeList"; }
    /// Entries come from properties and side files, never from an element. Always false.
    bool ReadElement(const WcXmNode& /*node*/) override { return false; }
    /// Entries are written by their alignment. Always true.
    bool WriteElement(const WcXmNode& /*node*/) override { return true; }

    CompactText staText;    ///< station as whole intervals, a plus sign and the rest, to be shown
    CompactText staValue;   ///< station as it is written, metres
    CompactText leftSlope;  ///< percent
    CompactText rightSlope; ///< percent; may be empty
};

/// A station text of the number of whole intervals and the rest in metres: "12+34.500000" for 1234.5 and an interval of
/// 100 (metres both).
CompactText FormatIntervalStation(double station, double interval);

/// Reads the value of a "slopeValue" `Property`: station, left slope and, where given, right slope, separated by
/// blanks. False, with nothing changed, if the text has no blank.
bool ParseSlopeValueText(std::wstring_view text, FViewSlopeValue& slopeValue);

/// The value of a "slopeValue" `Property`: station and both slopes, or, on a single-lane road (1), station and the one
/// slope that isn't zero, the left one first. A left slope below GEOMETRY_TOLERANCE in magnitude, or one that isn't
/// numeric, counts as zero.
std::wstring FormatSlopeValueText(const FViewSlopeValue& slopeValue, std::int32_t singleLaneRoad);

} // namespace jlandxml
