#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"
#include "model/PiGmPoint.h"

#include <string_view>

namespace jlandxml
{

/// `PntList2D`: the points of a ground line as one text, station and elevation in metres in turn, blanks between them.
class FViewPntList2D final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"PntList2D"; }
    /// Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Appends a new element under the `ProfSurf`, with at most twelve decimals. A point that differs from the last one
    /// written by less than GEOMETRY_TOLERANCE in both coordinates is left out. Always true.
    bool WriteElement(const WcXmNode& node) override;

    PiCmList<PiGmPoint> points; ///< x the station, y the elevation
};

/// Appends the points of a text of numbers that blanks (U+0020 alone) separate. What isn't numeric is 0; a single
/// number at the end is dropped and is the result, which is empty where all numbers are paired.
std::wstring_view ParsePointList(std::wstring_view text, PiCmList<PiGmPoint>& points);

} // namespace jlandxml
