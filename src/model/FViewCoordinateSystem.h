#pragma once

#include "model/FViewLandXMLBase.h"

#include <string>
#include <string_view>

namespace jlandxml
{

/// `CoordinateSystem`: geodetic datum, zone of the Japanese plane rectangular coordinates (平面直角座標系, X to the
/// north and Y to the east, metres) and vertical datum.
class FViewCoordinateSystem final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"CoordinateSystem"; }

    /// Takes the attributes, works out datum and zone from the host's description where the attributes don't hold them,
    /// and takes the difference from T.P. from the `Feature` without a name. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Writes onto the existing or newly made element. The description stays as it is, and so does what the fields
    /// leave empty, but for the name. Always true.
    bool WriteElement(const WcXmNode& node) override;

    std::wstring name;
    std::wstring horizontalDatum;                ///< "TD", "JGD2000", "JGD2011" or "JGD2024"
    std::wstring verticalDatum;                  ///< what heights are measured from, such as "T.P" (Tokyo Peil)
    std::wstring horizontalCoordinateSystemName; ///< zone, "1(X,Y)" to "19(X,Y)"
    std::wstring differTP;                       ///< difference of the vertical datum from T.P. in metres, as text

  private:
    /// Takes datum and zone from the host's description unless both are words of the standard already. A description
    /// that names no known datum empties it.
    void ReadDescription(std::wstring_view desc);
    void ReadZone(std::wstring_view desc);
};

} // namespace jlandxml
