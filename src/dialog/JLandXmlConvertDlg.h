#pragma once

#include "dialog/DisplayXmlTables.h"
#include "dialog/JLandXmlConvertDlgData.h"
#include "dialog/NumberInput.h"
#include "windows/Dialog.h"

#include <map>
#include <span>
#include <string>

namespace jlandxml
{

/// The values of the selected object could not be taken from the controls.
class UpdateSelectedDataException : public CException
{
  public:
    using CException::CException;
};

/// What a tree item stands for could not be told.
class GetNodeTypeException : public CException
{
  public:
    using CException::CException;
};

/// A newly selected object could not be shown.
class SelectionHandlingException : public CException
{
  public:
    using CException::CException;
};

/// What was typed could not be checked.
class EditValidationException : public CException
{
  public:
    using CException::CException;
};

/// What a tree item stands for.
enum class NodeType
{
    Route = 0,
    Alignment = 1,
    Surface = 2,
    IntermediatePoints = 3,
    WidthStakes = 4,
    None = 5 ///< a surface set, or the item above the point groups
};

/// The one window of a run, in which the user completes what the standard asks for and gives the output command.
/// What is edited stays in the dialog's data until the checks have passed.
class JLandXmlConvertDlg : public Dialog
{
  public:
    /// Takes the data from the context's model. Throws DlgDataSetException.
    JLandXmlConvertDlg();

    const JLandXmlConvertDlgData& Data() const { return data; }

    void OnInitDialog() override;
    void OnClick(int control) override;
    void OnTextChanged(int control) override;
    /// -1 if the newly selected item could not be handled.
    long OnTreeSelectionChanged(int control, TreeItem item) override;

    /// What an object of the tree is. Throws GetNodeTypeException.
    NodeType GetNodeType(const DlgDataItem* object) const;

    /// Takes the last good text back if what now stands in the edit may not stand there. Throws
    /// EditValidationException.
    void ValidateEdit(int control, const NumberRule& rule);

  protected:
    /// Tells the type for GetNodeType.
    virtual NodeType FindNodeType(const DlgDataItem* object) const;

  private:
    void FillLists();
    void ShowProject();
    void ShowCoordinateSystem();
    void BuildTree();
    void BuildRoutes();
    void BuildSurfaceSets();
    void BuildPointGroups();

    void OnRoadSelected();
    void OnRiverSelected();
    void OnOutput();
    void SetRouteKind(const wchar_t* designGmType);

    void HandleSelection(TreeItem item);
    void ShowSelection(TreeItem item);
    void ShowRoute(const DlgDataAlignments& route);
    void ShowAlignment(const DlgDataAlignment& alignment);
    void ShowSurface(const DlgDataSurface& surface);
    void ShowWidthStake(const DlgDataCgPointsWidthStake& group);
    void ShowReferenceList(int list, const std::wstring& text, bool locked);
    void ApplyRouteKind();

    void UpdateSelectedData();
    void TakeSelectedData();
    void UpdateRoute(DlgDataAlignments& route) const;
    void UpdateAlignment(DlgDataAlignment& alignment) const;
    void UpdateSurface(DlgDataSurface& surface) const;
    void UpdateWidthStake(DlgDataCgPointsWidthStake& group) const;
    void UpdateProject();
    void UpdateCoordinateSystem();
    void ShowErrors();
    void Export(const std::wstring& path);

    void EnableSet(std::span<const int> controls, bool enabled);
    void ShowSet(std::span<const int> controls, bool shown);
    void SelectByValue(int list, VocabularyIndex vocabulary, std::wstring_view value,
                       std::wstring_view defaultDisplay = {});
    void SelectOrFirst(int list, std::wstring_view text);
    void SelectOrAdd(int list, const std::wstring& text);
    void ReadList(int list, std::wstring& field) const;
    void ReadFlag(int list, std::int32_t& field) const;
    void ReadReference(int list, std::wstring& field) const;

    template <class Body>
    void Handle(const wchar_t* label, Body body);
    void ShowFailure(const wchar_t* label, const std::wstring& text);

    JLandXmlConvertDlgData data;
    DlgDataItem* selectedData = nullptr;
    NodeType selectedNodeType = NodeType::None;
    DlgDataAlignments* selectedRoute = nullptr;
    std::map<int, std::wstring> lastValidText;
};

} // namespace jlandxml
