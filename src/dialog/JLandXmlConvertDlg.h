#pragma once

#include "dialog/FieldControls.h"
#include "dialog/JLandXmlConvertDlgData.h"
#include "dialog/NumberInput.h"
#include "dialog/ObjectTree.h"
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

/// The one window of a run, in which the user completes what the standard asks for and gives the output command.
/// What is edited stays in the dialog's data until the checks have passed.
class JLandXmlConvertDlg : public Dialog
{
  public:
    /// Takes the data from the context's model. Throws DlgDataSetException.
    JLandXmlConvertDlg();

    const JLandXmlConvertDlgData& Data() const { return data_; }

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
    void OnRoadSelected();
    void OnRiverSelected();
    void OnOutput();
    void SetRouteKind(const wchar_t* designGmType);

    void HandleSelection(TreeItem item);
    void ShowSelection(TreeItem item);
    void ShowSelectedAlignment(TreeItem item);
    void OpenPanel(std::span<const int> panel);

    void UpdateSelectedData();
    void TakeSelectedData();
    void UpdateProject();
    void UpdateCoordinateSystem();

    void ShowErrors();
    void Export(const std::wstring& path);

    void EnableSet(std::span<const int> controls, bool enabled);
    void ShowSet(std::span<const int> controls, bool shown);
    FieldControls Fields() const { return {Window(), data_.alignmentsList}; }

    template <class Body>
    void Handle(const wchar_t* label, Body body);
    void ShowFailure(const wchar_t* label, const std::wstring& text);

    JLandXmlConvertDlgData data_;
    DlgDataItem* selectedData_ = nullptr;
    NodeType selectedNodeType_ = NodeType::None;
    /// The route of the selected alignment; null if no alignment is selected, or it couldn't be shown.
    DlgDataAlignments* selectedRoute_ = nullptr;
    std::map<int, std::wstring> lastValidText_; ///< by the number of an edit
};

} // namespace jlandxml
