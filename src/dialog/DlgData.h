#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace jlandxml
{

// DlgData is the dialog's own data, as plain texts and flags; each class holds what the user sees of one model class
// (DlgDataAlignment of FViewAlignment, and so on).

/// The base of all that the dialog's controls and tree items stand for. A tree holds its objects as pointers to this
/// class; they are told apart by their run-time type.
class DlgDataItem
{
  public:
    DlgDataItem() = default;
    DlgDataItem(const DlgDataItem&) = delete;
    DlgDataItem& operator=(const DlgDataItem&) = delete;
    virtual ~DlgDataItem() = default;
};

/// An owned list; its objects keep their address, by which the tree's items hold them.
template <class Item>
using DlgDataList = std::vector<std::unique_ptr<Item>>;

/// One alignment, as the user sees it. What came with the input is locked: shown, but not changed.
class DlgDataAlignment final : public DlgDataItem
{
  public:
    std::wstring name;
    std::wstring mainInterval; ///< metres, as text
    std::wstring subInterval;  ///< metres, as text
    std::wstring method;
    std::wstring normalCrown; ///< percent, as text
    std::int32_t singleLaneRoad = 0;
    std::int32_t useSlopeList = 0;
    bool mainIntervalLocked = false;
    bool subIntervalLocked = false;
    bool methodLocked = false;
};

/// One route, as the user sees it.
class DlgDataAlignments final : public DlgDataItem
{
  public:
    /// The class of a road or of a river, by the type; empty for any other type.
    const std::wstring& Classification() const;

    std::wstring name;
    std::wstring designGmType; ///< "道路", "河川" or empty
    std::wstring roadClassification;
    std::wstring riverClassification;
    std::wstring side;
    std::wstring trafficVolume;
    DlgDataList<DlgDataAlignment> alignments;
};

/// One surface, as the user sees it.
class DlgDataSurface final : public DlgDataItem
{
  public:
    std::wstring name;
    std::wstring alignmentRefs;
    std::wstring kind;       ///< a value of the vocabulary of surface kinds
    std::wstring loadedKind; ///< the kind as it was loaded
    std::wstring desc;       ///< the first line of the description
    bool alignmentRefsLocked = false;
};

/// One surface set.
class DlgDataSurfaces final : public DlgDataItem
{
  public:
    DlgDataList<DlgDataSurface> surfaces;
};

/// One group of intermediate points.
class DlgDataCgPointsIntermediate final : public DlgDataItem
{
  public:
    std::wstring label; ///< stays empty
    std::wstring alignmentRefs;
    bool alignmentRefsLocked = false;
};

/// One group of width stakes.
class DlgDataCgPointsWidthStake final : public DlgDataItem
{
  public:
    std::wstring label; ///< stays empty
    std::wstring alignmentRefs;
    std::wstring type;
    std::wstring desc;
    bool alignmentRefsLocked = false;
};

/// The point groups of both kinds.
class DlgDataCgPointsList final : public DlgDataItem
{
  public:
    DlgDataList<DlgDataCgPointsIntermediate> intermediate;
    DlgDataList<DlgDataCgPointsWidthStake> widthStakes;
};

using DlgDataAlignmentsList = DlgDataList<DlgDataAlignments>;
using DlgDataSurfacesList = DlgDataList<DlgDataSurfaces>;

} // namespace jlandxml
