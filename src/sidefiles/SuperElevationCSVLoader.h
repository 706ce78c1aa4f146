#pragma once

#include "base/CompactText.h"
#include "base/Exceptions.h"
#include "model/FViewAlignment.h"
#include "sidefiles/CSVLoaderBase.h"

#include <cstdint>
#include <map>
#include <optional>

namespace jlandxml
{

/// The file of superelevation could not be taken into the model.
class SuperElevationCSVLoadException : public CException
{
  public:
    using CException::CException;
};

struct SlopeRow;

/// Reads the cross slopes along a route into the slope list of its alignment, and, where the superelevation counts, the
/// stations of the reversed crown into its regions.
class SuperElevationCSVLoader final : public CSVLoaderBase
{
  public:
    bool Load(const std::wstring& path) override;

  private:
    void ReadSlopes(FViewAlignment& alignment);
    FViewSlopeValue MakeSlopeValue(const CsvRow& row, const FViewAlignment& alignment);
    std::int32_t RegionOf(const CsvRow& row) const;
    void WarnOfNumbers(const CsvRow& row, const SlopeRow& slope) const;
    void WarnUnless(bool isWhole, const CsvRow& row, std::size_t column) const;
    void ReplaceReverseCrowns(FViewAlignment& alignment) const;

    /// Stations of the reversed crown by the number of their region.
    std::map<std::int32_t, PiCmCopyList<WcStString>> reverseCrownGroups_;
};

/// What a row says of a slope, as texts.
struct SlopeRow
{
    CompactText station;
    CompactText leftSlope;  ///< percent
    CompactText rightSlope; ///< percent, in the sign of the left one
};

/// Takes the texts of a row. Nothing if it is a title, or if one of them is empty. A field counts only with a comma
/// behind it.
std::optional<SlopeRow> ParseSlopeRow(const CsvRow& row);

/// A station of the host, kilometres and metres: "0+80.5m", or "1-20" for 20 m before the kilometre.
struct StationParts
{
    double kilometres = 0.0;
    double metres = 0.0;
    bool minus = false;
};

StationParts ParseStationText(const CompactText& text);

/// The distance along an alignment (metres) of a station, by the last station equation in front of it.
double ToInternalStation(double value, const FViewAlignment& alignment);

/// The station texts of a slope: whole intervals and rest for showing, and the distance along the alignment for the
/// file.
void MakeSlopeStationTexts(const CompactText& totalText, const FViewAlignment& alignment, FViewSlopeValue& slopeValue);

/// The stations in ascending order with six decimals. A text that begins with no number is dropped.
PiCmCopyList<WcStString> SortStationTexts(const PiCmCopyList<WcStString>& stations);

} // namespace jlandxml
