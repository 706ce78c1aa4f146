#include "cli/SettingsUser.h"

#include "base/Text.h"
#include "dialog/DlgData.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "dialog/NumberInput.h"
#include "model/CurrentDesignType.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace jlandxml
{

namespace
{

using namespace convert_dlg;

constexpr const char* LOCKED_KEY = "_locked";
constexpr const char* CHOICES_KEY = "_choices";
constexpr const char* NAME_KEY = "_name";

constexpr const char* ROAD_ONLY = "河川の路線では入力できません";
constexpr const char* RIVER_ONLY = "道路の路線では入力できません";
constexpr const char* LOCKED = "入力データの値で固定されているため変更できません";
constexpr const char* OUT_OF_REACH = "いまは変更できません";

/// Why a field's control may be out of reach.
const char* DisabledReason(const DialogField& field)
{
    if (!field.routeKind.empty())
    {
        return field.routeKind == ROAD_DESIGN ? ROAD_ONLY : RIVER_ONLY;
    }
    return field.locked != nullptr ? LOCKED : OUT_OF_REACH;
}

std::string NumberText(double number)
{
    std::array<char, 32> buffer{};
    const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), result.ptr};
}

std::string Quoted(const std::wstring& text)
{
    return "「" + Utf8FromWide(text) + "」";
}

SettingsError NoSuchChoice(const std::string& path, const std::wstring& name, const std::vector<std::wstring>& choices)
{
    std::string list;
    for (const std::wstring& choice : choices)
    {
        list += (list.empty() ? "" : "、") + Utf8FromWide(choice);
    }
    return {path, Quoted(name) + "は選択できません（選択肢: " + (list.empty() ? "なし" : list) + "）"};
}

void AddUnlessNull(PrintedJson& target, const char* name, PrintedJson value)
{
    if (!value.is_null())
    {
        target[name] = std::move(value);
    }
}

SettingsError Refused(const std::string& path, const std::wstring& text, const NumberRule* rule)
{
    std::string problem = Quoted(text) + "は入力できません";
    if (rule != nullptr)
    {
        problem += "（" + NumberText(rule->typedMinimum) + "から" + NumberText(rule->maximum) + "までの数値、小数第" +
                   std::to_string(rule->digitsAfterPoint) + "位まで）";
    }
    return {path, problem};
}

} // namespace

// Acting

void SettingsUser::Act(const Json& settings)
{
    ActObject(ProjectSettings(), nullptr, settings, "");
}

void SettingsUser::ActArray(const SettingObject& object, const Items& items, const Json& array, const std::string& path)
{
    for (std::size_t index = 0; index < array.size(); ++index)
    {
        if (array[index].is_null())
        {
            continue;
        }
        const std::string entryPath = EntryPath(path, index);
        if (index >= items.size())
        {
            throw SettingsError(entryPath, std::string("対応する") + object.noun + "がありません（" +
                                               std::to_string(items.size()) + "件です）");
        }
        ActObject(object, items[index], array[index], entryPath);
    }
}

void SettingsUser::ActObject(const SettingObject& object, TreeItem item, const Json& settings, const std::string& path)
{
    if (object.selects)
    {
        dialog_.ChooseTreeItem(OBJECT_TREE, item);
    }
    for (const DialogField& field : object.fields)
    {
        if (const auto value = settings.find(field.key); IsSetting(field) && value != settings.end())
        {
            ActField(field, *value, KeyPath(path, field.key));
        }
    }
    for (const SettingArray& array : object.arrays)
    {
        if (const auto value = settings.find(array.name); value != settings.end())
        {
            ActArray(*array.object, ItemsBelow(item, *array.object), *value, KeyPath(path, array.name));
        }
    }
}

void SettingsUser::ActField(const DialogField& field, const Json& value, const std::string& path)
{
    if (!dialog_.CanReach(field.control))
    {
        throw SettingsError(path, DisabledReason(field));
    }
    if (field.kind == FieldKind::Flag)
    {
        ActEntry(field, value.get<bool>() ? L"true" : L"false", path);
        return;
    }
    const std::wstring text = WideFromUtf8(value.get_ref<const std::string&>());
    if (IsEditField(field.kind))
    {
        ActText(field, text, path);
    }
    else if (field.kind == FieldKind::RouteKind)
    {
        ActRouteKind(text, path);
    }
    else
    {
        ActEntry(field, text, path);
    }
}

void SettingsUser::ActText(const DialogField& field, const std::wstring& text, const std::string& path)
{
    dialog_.Type(field.control, text);
    if (dialog_.Text(field.control) != text)
    {
        throw Refused(path, text, field.number);
    }
}

void SettingsUser::ActEntry(const DialogField& field, const std::wstring& name, const std::string& path)
{
    const int entry = FindEntryNamed(field, name);
    if (entry == DialogWindow::NO_ENTRY)
    {
        throw NoSuchChoice(path, name, dialog_.Entries(field.control));
    }
    dialog_.ChooseEntry(field.control, entry);
}

void SettingsUser::ActRouteKind(const std::wstring& name, const std::string& path)
{
    const auto* const kind = std::find_if(std::begin(ROUTE_KIND_RADIOS), std::end(ROUTE_KIND_RADIOS),
                                          [&](const RouteKindRadio& one) { return name == one.designGmType; });
    if (kind == std::end(ROUTE_KIND_RADIOS))
    {
        throw NoSuchChoice(path, name, {ROAD_DESIGN, RIVER_DESIGN});
    }
    dialog_.Click(kind->control);
}

// Printing

PrintedJson SettingsUser::Print()
{
    return PrintObject(ProjectSettings(), nullptr);
}

PrintedJson SettingsUser::PrintArray(const SettingObject& object, const Items& items)
{
    PrintedJson array = PrintedJson::array();
    for (const TreeItem item : items)
    {
        array.push_back(PrintObject(object, item));
    }
    return array;
}

PrintedJson SettingsUser::PrintObject(const SettingObject& object, TreeItem item)
{
    if (object.selects)
    {
        dialog_.ChooseTreeItem(OBJECT_TREE, item);
    }
    PrintedJson json = item != nullptr ? PrintedJson{{NAME_KEY, Utf8FromWide(dialog_.TreeText(OBJECT_TREE, item))}}
                                       : PrintedJson::object();
    PrintedJson locked;
    PrintedJson choices;
    for (const DialogField& field : object.fields)
    {
        const bool canBeSet = IsSetting(field) && dialog_.CanReach(field.control);
        AddUnlessNull(canBeSet ? json : locked, field.key, PrintValue(field));
        AddUnlessNull(choices, field.key, PrintChoices(field));
    }
    for (const SettingArray& array : object.arrays)
    {
        json[array.name] = PrintArray(*array.object, ItemsBelow(item, *array.object));
    }
    AddUnlessNull(json, LOCKED_KEY, std::move(locked));
    AddUnlessNull(json, CHOICES_KEY, std::move(choices));
    return json;
}

/// Null where nothing is selected.
PrintedJson SettingsUser::PrintValue(const DialogField& field) const
{
    if (IsEditField(field.kind))
    {
        return Utf8FromWide(dialog_.Text(field.control));
    }
    if (field.kind == FieldKind::RouteKind)
    {
        const auto* const kind =
            std::find_if(std::begin(ROUTE_KIND_RADIOS), std::end(ROUTE_KIND_RADIOS),
                         [&](const RouteKindRadio& one) { return dialog_.IsChecked(one.control); });
        return kind == std::end(ROUTE_KIND_RADIOS) ? PrintedJson() : PrintedJson(Utf8FromWide(kind->designGmType));
    }
    const int entry = dialog_.SelectedEntry(field.control);
    if (entry == DialogWindow::NO_ENTRY)
    {
        return {};
    }
    if (field.kind == FieldKind::Flag)
    {
        return dialog_.EntryData(field.control, entry) == std::wstring_view(L"true");
    }
    return Utf8FromWide(dialog_.EntryText(field.control, entry));
}

/// Null where nothing is chosen from a list.
PrintedJson SettingsUser::PrintChoices(const DialogField& field) const
{
    if (IsEditField(field.kind))
    {
        return {};
    }
    if (field.kind == FieldKind::RouteKind)
    {
        return PrintedJson::array({Utf8FromWide(ROAD_DESIGN), Utf8FromWide(RIVER_DESIGN)});
    }
    return field.kind == FieldKind::Flag ? PrintMeanings(field) : PrintEntries(field);
}

/// What the values of a flag are called.
PrintedJson SettingsUser::PrintMeanings(const DialogField& field) const
{
    PrintedJson meanings = PrintedJson::object();
    for (int entry = 0; entry < dialog_.EntryCount(field.control); ++entry)
    {
        meanings[Utf8FromWide(dialog_.EntryData(field.control, entry))] =
            Utf8FromWide(dialog_.EntryText(field.control, entry));
    }
    return meanings;
}

PrintedJson SettingsUser::PrintEntries(const DialogField& field) const
{
    PrintedJson texts = PrintedJson::array();
    for (const std::wstring& text : dialog_.Entries(field.control))
    {
        texts.push_back(Utf8FromWide(text));
    }
    return texts;
}

// The dialog's tree and lists

const DlgDataItem& SettingsUser::DataOf(TreeItem item) const
{
    return *static_cast<const DlgDataItem*>(dialog_.TreeItemData(OBJECT_TREE, item));
}

/// The items that an object's settings pair with. The point groups stand below an item of their own, which no settings
/// name.
SettingsUser::Items SettingsUser::ItemsBelow(TreeItem parent, const SettingObject& object) const
{
    Items items;
    for (const TreeItem item : dialog_.TreeChildren(OBJECT_TREE, parent))
    {
        if (object.standsFor(DataOf(item)))
        {
            items.push_back(item);
        }
        else if (dynamic_cast<const DlgDataCgPointsList*>(&DataOf(item)) != nullptr)
        {
            const Items groups = ItemsBelow(item, object);
            items.insert(items.end(), groups.begin(), groups.end());
        }
    }
    return items;
}

/// The entry with this shown text, else the first one with this stored value. References are named by their text alone.
int SettingsUser::FindEntryNamed(const DialogField& field, const std::wstring& name) const
{
    const int count = dialog_.EntryCount(field.control);
    for (int entry = 0; entry < count && field.kind != FieldKind::Flag; ++entry)
    {
        if (dialog_.EntryText(field.control, entry) == name)
        {
            return entry;
        }
    }
    for (int entry = 0; entry < count && field.kind != FieldKind::Reference; ++entry)
    {
        const wchar_t* const value = dialog_.EntryData(field.control, entry);
        if (value != nullptr && name == value)
        {
            return entry;
        }
    }
    return DialogWindow::NO_ENTRY;
}

} // namespace jlandxml
