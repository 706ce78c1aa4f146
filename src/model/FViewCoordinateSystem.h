#pragma once

#include "model/FViewLandXMLBase.h"

#include <string>
#include <string_view>

namespace jlandxml
{

/// `CoordinateSystem`: geodetic datum, zone of the plane rectangular coordinates and vertical datum.
class FViewCoordinateSystem final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"CoordinateSystem"; }

    /// Takes the attributes, works out datum and zone from the host's description where the attributes don't hold them,
    /// and takes the difference from T.P. from the `Feature` without a name. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Writes onto the existing or newly made element. The description stays as it is.
    bool WriteElement(const WcXmNode& node) override;

    std::wstring name;
    std::wstring horizontalDatum;                ///< "TD", "JGD2000", "JGD2011" or "JGD2024"
    std::wstring verticalDatum;                  ///< such as "T.P"
    std::wstring horizontalCoordinateSystemName; ///< zone, "1(X,Y)" to "19(X,Y)"
    std::wstring differTP;                       ///< difference of the vertical datum from T.P. in metres, as text

  private:
    void ReadDescription(std::wstring_view desc);
    void ReadZone(std::wstring_view desc);
};

} // namespace jlandxml
