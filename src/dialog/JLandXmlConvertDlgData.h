#pragma once

#include "base/Exceptions.h"
#include "dialog/DlgData.h"
#include "model/FViewLandXML.h"

#include <string>
#include <string_view>
#include <vector>

namespace jlandxml
{

/// The dialog's data could not be taken from the model.
class DlgDataSetException : public CException
{
  public:
    using CException::CException;
};

/// The dialog's data could not be put into the model.
class DlgDataApplyException : public CException
{
  public:
    using CException::CException;
};

/// What a finding is about, for who has to find it again.
struct FindingPlace
{
    std::string_view code;     ///< what is wrong, as programs compare it
    const DlgDataItem* object; ///< the one whose value it is
    int control;               ///< the one that shows the value
};

/// The code of a value that isn't there.
inline constexpr std::string_view MISSING_VALUE = "missing";

/// The dialog's own copy of all that the user can see or change. Nothing of it reaches the model before it is applied.
class JLandXmlConvertDlgData : public DlgDataItem
{
  public:
    /// Takes everything from the context's model. Throws DlgDataSetException.
    JLandXmlConvertDlgData();

    /// Takes everything from the context's model. Throws DlgDataSetException.
    void SetFromModel();

    /// Gathers every finding about the data in `errors`. True if there is at least one, as `hasError` then says; false:
    /// the data may be written.
    bool Validate();

    /// Puts everything into the context's model, entry by entry. Throws DlgDataApplyException.
    void ApplyToModel();

    std::wstring projectName;
    std::wstring projectPhase;
    std::wstring applicationCriterion;
    std::wstring softwareName;
    std::wstring softwareVersion;
    std::wstring horizontalDatum;
    std::wstring verticalDatum;
    std::wstring horizontalCoordinateSystemName;
    std::wstring differTP;
    DlgDataAlignmentsList alignmentsList;
    DlgDataSurfacesList surfacesList;
    DlgDataCgPointsList cgPointsList;
    bool hasError = false;
    std::vector<std::wstring> errors;
    std::vector<FindingPlace> errorPlaces; ///< one for each of the errors

  private:
    void SetProject(const FViewLandXML& model);
    void SetCoordinateSystem(const FViewLandXML& model);
    void SetRoutes(const FViewLandXML& model);
    void SetSurfaceSets(const FViewLandXML& model);
    void SetIntermediatePoints(const FViewLandXML& model);
    void SetWidthStakes(const FViewLandXML& model);

    void ApplySurfaceDescriptions();
    void ApplyProject(FViewLandXML& model) const;
    void ApplyCoordinateSystem(FViewLandXML& model) const;
    void ApplyRoutes(FViewLandXML& model) const;
    void ApplySurfaceSets(FViewLandXML& model) const;
    void ApplyIntermediatePoints(FViewLandXML& model) const;
    void ApplyWidthStakes(FViewLandXML& model) const;
};

} // namespace jlandxml
