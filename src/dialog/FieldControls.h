#pragma once

#include "dialog/DialogFields.h"
#include "windows/Dialog.h"

#include <string>
#include <string_view>

namespace jlandxml
{

/// The controls of the main dialog's window, filled from the fields of the data and read back into them.
class FieldControls
{
  public:
    /// The alignments of all routes are what reference lists offer.
    FieldControls(DialogWindow& window, const DlgDataAlignmentsList& routes) : window_(window), routes_(routes) {}

    /// Gives each list the entries of its vocabulary, with the stored values behind them. Lists of references are
    /// filled when they are shown.
    void FillLists();

    /// Shows all fields, in their order; a list that may get an entry for its field comes last.
    void Show(FieldTable fields, const DlgDataItem& object);
    void ShowCoordinateSystem(const JLandXmlConvertDlgData& data);
    void ShowRoute(const DlgDataAlignments& route);
    void ShowAlignment(const DlgDataAlignment& alignment);

    /// Enables what the checked radio calls for. Without one nothing changes.
    void ApplyRouteKind();

    /// Reads all fields back, in their order. A list without a selection, or with an entry that has no value behind it,
    /// leaves its field.
    void Update(FieldTable fields, DlgDataItem& object) const;
    void UpdateCoordinateSystem(JLandXmlConvertDlgData& data) const;
    /// Reads back what a route of the checked kind has, and nothing without a checked radio.
    void UpdateRoute(DlgDataAlignments& route) const;

  private:
    void Clear(FieldTable fields);
    void Show(const DialogField& field, const DlgDataItem& object);
    void ShowContent(const DialogField& field, const DlgDataItem& object);
    void ShowReferenceList(int list, const std::wstring& text);
    void SelectByValue(const DialogField& field, std::wstring_view value);
    void SelectOrFirst(int list, std::wstring_view text);
    void SelectOrAdd(int list, const std::wstring& text);

    void Update(const DialogField& field, DlgDataItem& object) const;
    const wchar_t* SelectedValue(int list) const;
    const RouteKindRadio* CheckedRouteKind() const;

    DialogWindow& window_;
    const DlgDataAlignmentsList& routes_;
};

} // namespace jlandxml
