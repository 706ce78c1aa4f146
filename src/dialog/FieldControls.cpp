#include "dialog/FieldControls.h"

#include <algorithm>
#include <vector>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* SET_FLAG = L"true";
constexpr const wchar_t* CLEARED_FLAG = L"false";
constexpr std::wstring_view NO_INTERVAL = L"0";

Vocabulary VocabularyOf(const DialogField& field)
{
    return field.vocabulary ? GetDisplayXmlTables().GetVocabulary(*field.vocabulary) : Vocabulary();
}

/// For a field that may come with the input, as every interval may.
bool IsLocked(const DialogField& field, const DlgDataItem& object)
{
    return object.*field.locked;
}

} // namespace

void FieldControls::FillLists()
{
    for (const FieldTable& fields : FIELD_TABLES)
    {
        for (const DialogField& field : fields)
        {
            if (!IsListField(field.kind))
            {
                continue;
            }
            for (const DisplayXmlDataPair& pair : VocabularyOf(field))
            {
                window_.AddEntry(field.control, pair.display, pair.xml);
            }
        }
    }
}

// Showing

void FieldControls::Show(FieldTable fields, const DlgDataItem& object)
{
    for (const bool last : {false, true})
    {
        for (const DialogField& field : fields)
        {
            if ((field.kind == FieldKind::OpenEntry) == last)
            {
                Show(field, object);
            }
        }
    }
}

void FieldControls::ShowCoordinateSystem(const JLandXmlConvertDlgData& data)
{
    Show(COORDINATE_SYSTEM_FIELDS, data);
    SelectOrFirst(convert_dlg::VERTICAL_DATUM_LIST, VerticalDatumDisplay(data.verticalDatum, data.differTP));
}

void FieldControls::ShowRoute(const DlgDataAlignments& route)
{
    for (const RouteKindRadio& radio : ROUTE_KIND_RADIOS)
    {
        window_.SetChecked(radio.control, false);
    }
    Clear(ROUTE_FIELDS);
    // A route that has no kind yet is asked for the values of a road.
    const bool river = route.designGmType == RIVER_DESIGN;
    window_.SetChecked(river ? convert_dlg::RIVER_RADIO : convert_dlg::ROAD_RADIO, true);
    for (const DialogField& field : ROUTE_FIELDS)
    {
        if (IsListField(field.kind) && IsOfRouteKind(field, route.designGmType))
        {
            Show(field, route);
        }
    }
    for (const DialogField& field : ROUTE_FIELDS)
    {
        if (IsEditField(field.kind))
        {
            Show(field, route);
        }
    }
    ApplyRouteKind();
}

void FieldControls::ShowAlignment(const DlgDataAlignment& alignment)
{
    Clear(ALIGNMENT_FIELDS);
    Show(ALIGNMENT_FIELDS, alignment);
}

void FieldControls::ApplyRouteKind()
{
    const RouteKindRadio* const kind = CheckedRouteKind();
    if (kind == nullptr)
    {
        return;
    }
    for (const DialogField& field : ROUTE_FIELDS)
    {
        if (!field.routeKind.empty())
        {
            window_.Enable(field.control, IsOfRouteKind(field, kind->designGmType));
        }
    }
}

/// Leaves nothing of the object that was shown before: edits without a text, then lists without a selection.
void FieldControls::Clear(FieldTable fields)
{
    for (const DialogField& field : fields)
    {
        if (IsEditField(field.kind))
        {
            window_.SetText(field.control, L"");
        }
    }
    for (const DialogField& field : fields)
    {
        if (IsListField(field.kind))
        {
            window_.SelectEntry(field.control, DialogWindow::NO_ENTRY);
        }
    }
}

void FieldControls::Show(const DialogField& field, const DlgDataItem& object)
{
    ShowContent(field, object);
    if (field.locked != nullptr)
    {
        window_.Enable(field.control, !IsLocked(field, object));
    }
}

void FieldControls::ShowContent(const DialogField& field, const DlgDataItem& object)
{
    if (field.kind == FieldKind::Flag)
    {
        SelectByValue(field, object.*field.flag != 0 ? SET_FLAG : CLEARED_FLAG);
        return;
    }
    const std::wstring& text = object.*field.text;
    switch (field.kind)
    {
    case FieldKind::Text:
    case FieldKind::ReadOnlyText:
        window_.SetText(field.control, text);
        break;
    case FieldKind::Interval:
        window_.SetText(field.control, text == NO_INTERVAL ? std::wstring() : text);
        break;
    case FieldKind::ReadOnlyEntry:
        window_.SetText(field.control, std::wstring(FindDisplay(VocabularyOf(field), text)));
        break;
    case FieldKind::Entry:
        SelectByValue(field, text);
        break;
    case FieldKind::EntryOrFirst:
        SelectOrFirst(field.control, FindDisplay(VocabularyOf(field), text));
        break;
    case FieldKind::OpenEntry:
        SelectOrAdd(field.control, text.empty() ? field.defaultDisplay : text);
        break;
    case FieldKind::Reference:
        ShowReferenceList(field.control, text);
        break;
    case FieldKind::Flag:
    case FieldKind::VerticalDatum: // not by its field alone
    case FieldKind::RouteKind:     // by the radios, which make out one value together
        break;
    }
}

/// Offers every alignment of every route. What the input refers to is shown even if no alignment has that name.
void FieldControls::ShowReferenceList(int list, const std::wstring& text)
{
    std::vector<std::wstring> names;
    for (const auto& route : routes_)
    {
        for (const auto& alignment : route->alignments)
        {
            names.push_back(alignment->name);
        }
    }
    window_.ClearEntries(list);
    window_.AddEntries(list, names);
    if (!text.empty())
    {
        SelectOrAdd(list, text);
    }
}

/// Selects the entry of a stored value, or the default entry if the vocabulary doesn't hold the value.
void FieldControls::SelectByValue(const DialogField& field, std::wstring_view value)
{
    const std::wstring_view display = FindDisplay(VocabularyOf(field), value);
    const std::wstring text(display.empty() ? field.defaultDisplay : display);
    window_.SelectEntry(field.control, window_.FindEntry(field.control, text));
}

/// Selects the entry of this text, or the first one if there is none.
void FieldControls::SelectOrFirst(int list, std::wstring_view text)
{
    const int entry = window_.FindEntry(list, std::wstring(text));
    window_.SelectEntry(list, entry == DialogWindow::NO_ENTRY ? 0 : entry);
}

/// Selects the entry of this text. One that isn't there is added, without a value behind it.
void FieldControls::SelectOrAdd(int list, const std::wstring& text)
{
    const int entry = window_.FindEntry(list, text);
    window_.SelectEntry(list, entry == DialogWindow::NO_ENTRY ? window_.AddEntry(list, text) : entry);
}

// Reading back

void FieldControls::Update(FieldTable fields, DlgDataItem& object) const
{
    for (const DialogField& field : fields)
    {
        Update(field, object);
    }
}

/// The place of the chosen entry tells apart the two datums of one value.
void FieldControls::UpdateCoordinateSystem(JLandXmlConvertDlgData& data) const
{
    Update(COORDINATE_SYSTEM_FIELDS, data);
    data.differTP = DifferTPOfPosition(window_.SelectedEntry(convert_dlg::VERTICAL_DATUM_LIST));
}

void FieldControls::UpdateRoute(DlgDataAlignments& route) const
{
    const RouteKindRadio* const kind = CheckedRouteKind();
    if (kind == nullptr)
    {
        return;
    }
    route.designGmType = kind->designGmType;
    for (const DialogField& field : ROUTE_FIELDS)
    {
        if (IsOfRouteKind(field, kind->designGmType))
        {
            Update(field, route);
        }
    }
}

void FieldControls::Update(const DialogField& field, DlgDataItem& object) const
{
    switch (field.kind)
    {
    case FieldKind::Text:
    case FieldKind::ReadOnlyText:
        object.*field.text = window_.Text(field.control);
        break;
    case FieldKind::Interval:
        if (!IsLocked(field, object))
        {
            object.*field.text = window_.Text(field.control);
        }
        break;
    case FieldKind::ReadOnlyEntry:
        if (const auto value = FindXml(VocabularyOf(field), window_.Text(field.control)); !value.empty())
        {
            object.*field.text = value;
        }
        break;
    case FieldKind::Entry:
    case FieldKind::EntryOrFirst:
    case FieldKind::OpenEntry:
    case FieldKind::VerticalDatum:
        if (const wchar_t* const value = SelectedValue(field.control))
        {
            object.*field.text = value;
        }
        break;
    case FieldKind::Flag:
        if (const wchar_t* const value = SelectedValue(field.control))
        {
            object.*field.flag = std::wstring_view(value) == SET_FLAG ? 1 : 0;
        }
        break;
    case FieldKind::Reference:
        if (std::wstring name = window_.Text(field.control); !name.empty())
        {
            object.*field.text = std::move(name);
        }
        break;
    case FieldKind::RouteKind:
        break;
    }
}

/// The value behind the selected entry; null without a selection or a value.
const wchar_t* FieldControls::SelectedValue(int list) const
{
    const int entry = window_.SelectedEntry(list);
    return entry == DialogWindow::NO_ENTRY ? nullptr : window_.EntryData(list, entry);
}

const RouteKindRadio* FieldControls::CheckedRouteKind() const
{
    const auto* const radio = std::find_if(std::begin(ROUTE_KIND_RADIOS), std::end(ROUTE_KIND_RADIOS),
                                           [&](const RouteKindRadio& one) { return window_.IsChecked(one.control); });
    return radio == std::end(ROUTE_KIND_RADIOS) ? nullptr : radio;
}

} // namespace jlandxml
