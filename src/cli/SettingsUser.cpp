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

/// What is shown for information in controls that can't be edited.
struct ReadOnlyValue
{
    const char* name;
    int control;
};

constexpr ReadOnlyValue READ_ONLY_VALUES[] = {
    {"softwareName", SOFTWARE_NAME_EDIT},
    {"softwareVersion", SOFTWARE_VERSION_EDIT},
    {"horizontalDatum", HORIZONTAL_DATUM_EDIT},
    {"horizontalCoordinateSystemName", HORIZONTAL_COORDINATE_SYSTEM_EDIT},
};

/// The radios that tell a route's kind, with their captions.
struct RouteKindRadio
{
    const wchar_t* name;
    int control;
};

constexpr RouteKindRadio ROUTE_KINDS[] = {{ROAD_DESIGN, ROAD_RADIO}, {RIVER_DESIGN, RIVER_RADIO}};

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
    for (const SettingKey& key : object.keys)
    {
        if (const auto value = settings.find(key.name); value != settings.end())
        {
            ActKey(key, *value, KeyPath(path, key.name));
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

void SettingsUser::ActKey(const SettingKey& key, const Json& value, const std::string& path)
{
    if (!dialog_.CanReach(key.control))
    {
        throw SettingsError(path, key.disabled);
    }
    if (key.kind == SettingKind::Flag)
    {
        ActEntry(key, value.get<bool>() ? L"true" : L"false", path);
        return;
    }
    const std::wstring text = WideFromUtf8(value.get_ref<const std::string&>());
    switch (key.kind)
    {
    case SettingKind::Text:
        ActText(key, text, path);
        break;
    case SettingKind::RouteKind:
        ActRouteKind(text, path);
        break;
    default:
        ActEntry(key, text, path);
    }
}

void SettingsUser::ActText(const SettingKey& key, const std::wstring& text, const std::string& path)
{
    dialog_.Type(key.control, text);
    if (dialog_.Text(key.control) != text)
    {
        throw Refused(path, text, key.input);
    }
}

void SettingsUser::ActEntry(const SettingKey& key, const std::wstring& name, const std::string& path)
{
    const int entry = FindEntryNamed(key, name);
    if (entry == DialogWindow::NO_ENTRY)
    {
        throw NoSuchChoice(path, name, dialog_.Entries(key.control));
    }
    dialog_.ChooseEntry(key.control, entry);
}

void SettingsUser::ActRouteKind(const std::wstring& name, const std::string& path)
{
    const auto* const kind = std::find_if(std::begin(ROUTE_KINDS), std::end(ROUTE_KINDS),
                                          [&](const RouteKindRadio& one) { return name == one.name; });
    if (kind == std::end(ROUTE_KINDS))
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

PrintedJson SettingsUser::PrintReadOnlyValues() const
{
    PrintedJson values;
    for (const ReadOnlyValue& value : READ_ONLY_VALUES)
    {
        values[value.name] = Utf8FromWide(dialog_.Text(value.control));
    }
    return values;
}

PrintedJson SettingsUser::PrintObject(const SettingObject& object, TreeItem item)
{
    if (object.selects)
    {
        dialog_.ChooseTreeItem(OBJECT_TREE, item);
    }
    PrintedJson json = item != nullptr ? PrintedJson{{NAME_KEY, Utf8FromWide(dialog_.TreeText(OBJECT_TREE, item))}}
                                       : PrintedJson::object();
    PrintedJson locked = item != nullptr ? PrintedJson() : PrintReadOnlyValues();
    PrintedJson choices;
    for (const SettingKey& key : object.keys)
    {
        AddUnlessNull(dialog_.CanReach(key.control) ? json : locked, key.name, PrintValue(key));
        AddUnlessNull(choices, key.name, PrintChoices(key));
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
PrintedJson SettingsUser::PrintValue(const SettingKey& key) const
{
    if (key.kind == SettingKind::Text)
    {
        return Utf8FromWide(dialog_.Text(key.control));
    }
    if (key.kind == SettingKind::RouteKind)
    {
        const auto* const kind =
            std::find_if(std::begin(ROUTE_KINDS), std::end(ROUTE_KINDS),
                         [&](const RouteKindRadio& one) { return dialog_.IsChecked(one.control); });
        return kind == std::end(ROUTE_KINDS) ? PrintedJson() : PrintedJson(Utf8FromWide(kind->name));
    }
    const int entry = dialog_.SelectedEntry(key.control);
    if (entry == DialogWindow::NO_ENTRY)
    {
        return {};
    }
    if (key.kind == SettingKind::Flag)
    {
        return dialog_.EntryData(key.control, entry) == std::wstring_view(L"true");
    }
    return Utf8FromWide(dialog_.EntryText(key.control, entry));
}

/// Null where nothing is chosen from a list.
PrintedJson SettingsUser::PrintChoices(const SettingKey& key) const
{
    switch (key.kind)
    {
    case SettingKind::Text:
        return {};
    case SettingKind::RouteKind:
        return PrintedJson::array({Utf8FromWide(ROAD_DESIGN), Utf8FromWide(RIVER_DESIGN)});
    case SettingKind::Flag: {
        PrintedJson meanings = PrintedJson::object();
        for (int entry = 0; entry < dialog_.EntryCount(key.control); ++entry)
        {
            meanings[Utf8FromWide(dialog_.EntryData(key.control, entry))] =
                Utf8FromWide(dialog_.EntryText(key.control, entry));
        }
        return meanings;
    }
    default: {
        PrintedJson texts = PrintedJson::array();
        for (const std::wstring& text : dialog_.Entries(key.control))
        {
            texts.push_back(Utf8FromWide(text));
        }
        return texts;
    }
    }
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
int SettingsUser::FindEntryNamed(const SettingKey& key, const std::wstring& name) const
{
    const int count = dialog_.EntryCount(key.control);
    for (int entry = 0; entry < count && key.kind != SettingKind::Flag; ++entry)
    {
        if (dialog_.EntryText(key.control, entry) == name)
        {
            return entry;
        }
    }
    for (int entry = 0; entry < count && key.kind != SettingKind::Reference; ++entry)
    {
        const wchar_t* const value = dialog_.EntryData(key.control, entry);
        if (value != nullptr && name == value)
        {
            return entry;
        }
    }
    return DialogWindow::NO_ENTRY;
}

} // namespace jlandxml
