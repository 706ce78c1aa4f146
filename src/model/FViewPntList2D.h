#pragma once

#include "model/FViewLandXMLBase.h"
#include "model/PiCollections.h"
#include "model/PiGmPoint.h"

#include <string_view>

namespace jlandxml
{

/// `PntList2D`: the points of a ground line as one text, station and elevation in metres in turn.
class FViewPntList2D final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"PntList2D"; }
    bool ReadElement(const WcXmNode& node) override;

    /// Appends a new element under the `ProfSurf`. A point that repeats the one before it is left out. Always true.
    bool WriteElement(const WcXmNode& node) override;

    PiCmList<PiGmPoint> points;
};

/// Reads numbers that blanks separate as points; a single number at the end is dropped.
void ParsePointList(std::wstring_view text, PiCmList<PiGmPoint>& points);

} // namespace jlandxml
