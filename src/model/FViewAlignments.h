#pragma once

#include "model/FViewAlignment.h"

namespace jlandxml
{

/// `Alignments`: one route, a road or a river, with its alignments. J-LandXML keeps the route's design values in a
/// `Feature` without a name.
class FViewAlignments final : public FViewLandXMLBase
{
  public:
    void Clear() override;
    const wchar_t* GetElementName() const override { return L"Alignments"; }

    /// Takes the route's design values from the `Feature` without a name, and what it lacks from the `desc` of the
    /// first alignment. Always true.
    bool ReadElement(const WcXmNode& node) override;

    /// Edits the element that was read; of a road that has become a river, or a river a road, the values that mean
    /// nothing any more go. False if an alignment fails; those after it aren't written then.
    bool WriteElement(const WcXmNode& node) override;

    void SetOutputVersion(std::int32_t newVersion) override;

    std::wstring name;                ///< a route without one is written as "サイト"
    std::wstring designGmType;        ///< "道路" (road) or "河川" (river)
    std::wstring roadClassification;  ///< class of a road, such as 第3種第2級
    std::wstring riverClassification; ///< class of a river, such as 1級
    std::wstring trafficVolume;       ///< design traffic volume of a road, vehicles per day
    std::wstring side;                ///< bank of a river, 右岸 or 左岸
    PiCmCopyList<FViewAlignment> alignments;

  private:
    void ReadRoadInfoFeature(const WcXmNode& node);
    void FillRoadInfoFromDesc(const WcXmNode& firstAlignmentNode);
    void RemoveStaleRoadInfo(const WcXmNode& node) const;
    void BuildRoadInfoFeature(FViewFeature& feature) const;
    std::wstring& Classification();
};

/// The routes of a document, one for each `Alignments` element.
class FViewAlignmentsList : public PiCmCopyList<FViewAlignments>
{};

} // namespace jlandxml
