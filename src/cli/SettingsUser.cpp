#include "cli/SettingsUser.h"

#include "base/Text.h"
#include "dialog/DlgData.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "dialog/NumberInput.h"
#include "model/CurrentDesignType.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <utility>

namespace jlandxml
{

namespace
{

using namespace convert_dlg;

constexpr const char* LOCKED_KEY = "_locked";
constexpr const char* DISABLED_KEY = "_disabled";
constexpr const char* CHOICES_KEY = "_choices";
constexpr const char* NAME_KEY = "_name";

constexpr const char* ROAD_ONLY = "河川の路線では入力できません";
constexpr const char* RIVER_ONLY = "道路の路線では入力できません";
constexpr const char* LOCKED = "入力データの値で固定されているため変更できません";
constexpr const char* OUT_OF_REACH = "いまは変更できません";

/// Between the names of an object and of the one below it.
constexpr const char* NAMES_SEPARATOR = "／";

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

std::string NoSuchChoice(const std::wstring& name, const std::vector<std::wstring>& choices)
{
    std::string list;
    for (const std::wstring& choice : choices)
    {
        list += (list.empty() ? "" : "、") + Utf8FromWide(choice);
    }
    return Quoted(name) + "は選択できません（選択肢: " + (list.empty() ? "なし" : list) + "）";
}

/// How many objects there are in the place of one that isn't.
std::string NoSuchEntry(const SettingObject& object, const std::string& path, std::size_t count)
{
    if (count == 0)
    {
        return std::string(object.noun) + "はありません";
    }
    const std::string last = count > 1 ? "～" + EntryPath(path, count - 1) : "";
    return std::string(object.noun) + "は" + std::to_string(count) + "件です（" + EntryPath(path, 0) + last + "）";
}

std::string NoSuchName(const SettingObject& object, const std::set<std::string>& names)
{
    std::string list;
    for (const std::string& name : names)
    {
        list += (list.empty() ? "" : "、") + name;
    }
    return std::string("この名前の") + object.noun + "はありません（あるもの: " + (list.empty() ? "なし" : list) + "）";
}

std::string JoinNames(const std::string& above, const std::string& name)
{
    return above.empty() || name.empty() ? above + name : above + NAMES_SEPARATOR + name;
}

void AddUnlessNull(PrintedJson& target, const char* name, PrintedJson value)
{
    if (!value.is_null())
    {
        target[name] = std::move(value);
    }
}

std::string Refused(const std::wstring& text, const NumberRule* rule)
{
    std::string problem = Quoted(text) + "は入力できません";
    if (rule != nullptr)
    {
        problem += "（" + NumberText(rule->typedMinimum) + "から" + NumberText(rule->maximum) + "までの数値、小数第" +
                   std::to_string(rule->digitsAfterPoint) + "位まで）";
    }
    return problem;
}

} // namespace

// Acting

void SettingsUser::Act(const Json& settings)
{
    faults_.clear();
    passedOver_.clear();
    ActObject(ProjectSettings(), nullptr, settings, "");
    if (!faults_.empty())
    {
        throw SettingsError(std::move(faults_));
    }
}

void SettingsUser::ActEntries(const SettingObject& object, const Items& items, const Json& entries,
                              const std::string& path)
{
    entries.is_object() ? ActNamed(object, items, entries, path) : ActArray(object, items, entries, path);
}

void SettingsUser::ActArray(const SettingObject& object, const Items& items, const Json& array, const std::string& path)
{
    for (std::size_t index = 0; index < array.size(); ++index)
    {
        if (array[index].is_null())
        {
            continue;
        }
        if (index < items.size())
        {
            ActObject(object, items[index], array[index], EntryPath(path, index));
        }
        else
        {
            FindFault(EntryPath(path, index), NoSuchEntry(object, path, items.size()));
        }
    }
}

/// Several objects may have one name.
void SettingsUser::ActNamed(const SettingObject& object, const Items& items, const Json& named, const std::string& path)
{
    std::set<std::string> names;
    for (const TreeItem item : items)
    {
        const std::string name = NameOf(item);
        names.insert(name);
        const bool isNamed = !IsComment(name) && named.contains(name);
        const std::string key = isNamed ? name : EVERY_OTHER;
        if (const auto entry = named.find(key); entry != named.end() && !entry->is_null())
        {
            ActObject(object, item, *entry, KeyPath(path, key));
        }
    }
    for (const auto& [name, entry] : named.items())
    {
        if (!IsComment(name) && name != EVERY_OTHER && !entry.is_null() && !names.contains(name))
        {
            FindUnreachable(KeyPath(path, name), NoSuchName(object, names));
        }
    }
}

void SettingsUser::ActObject(const SettingObject& object, TreeItem item, const Json& settings, const std::string& path)
{
    if (object.selects)
    {
        dialog_.ChooseTreeItem(OBJECT_TREE, item);
    }
    const std::string above = acted_;
    acted_ = JoinNames(above, item != nullptr ? NameOf(item) : "");
    for (const DialogField& field : object.fields)
    {
        if (const auto value = settings.find(field.key);
            IsSetting(field) && value != settings.end() && !value->is_null())
        {
            ActField(field, *value, KeyPath(path, field.key));
        }
    }
    for (const SettingArray& array : object.arrays)
    {
        if (const auto value = settings.find(array.name); value != settings.end() && !value->is_null())
        {
            ActEntries(*array.object, ItemsBelow(item, *array.object), *value, KeyPath(path, array.name));
        }
    }
    acted_ = above;
}

SettingsFault SettingsUser::Fault(const std::string& path, const std::string& text) const
{
    return {path, text, acted_, {}};
}

void SettingsUser::FindFault(const std::string& path, const std::string& text)
{
    faults_.push_back(Fault(path, text));
}

void SettingsUser::FindUnreachable(const std::string& path, const std::string& text)
{
    (unreachable_ == Unreachable::IsFault ? faults_ : passedOver_).push_back(Fault(path, text));
}

void SettingsUser::ActField(const DialogField& field, const Json& value, const std::string& path)
{
    if (!dialog_.CanReach(field.control))
    {
        FindUnreachable(path, DisabledReason(field));
        return;
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
        FindFault(path, Refused(text, field.number));
    }
}

void SettingsUser::ActEntry(const DialogField& field, const std::wstring& name, const std::string& path)
{
    const int entry = FindEntryNamed(field, name);
    if (entry == DialogWindow::NO_ENTRY)
    {
        FindFault(path, NoSuchChoice(name, dialog_.Entries(field.control)));
        return;
    }
    dialog_.ChooseEntry(field.control, entry);
}

void SettingsUser::ActRouteKind(const std::wstring& name, const std::string& path)
{
    const auto* const kind = std::find_if(std::begin(ROUTE_KIND_RADIOS), std::end(ROUTE_KIND_RADIOS),
                                          [&](const RouteKindRadio& one) { return name == one.designGmType; });
    if (kind == std::end(ROUTE_KIND_RADIOS))
    {
        FindFault(path, NoSuchChoice(name, {ROAD_DESIGN, RIVER_DESIGN}));
        return;
    }
    dialog_.Click(kind->control);
}

// Printing

void SettingsUser::VisitAll()
{
    Visit(ProjectSettings(), nullptr);
}

void SettingsUser::Visit(const SettingObject& object, TreeItem item)
{
    if (object.selects)
    {
        dialog_.ChooseTreeItem(OBJECT_TREE, item);
    }
    for (const SettingArray& array : object.arrays)
    {
        for (const TreeItem below : ItemsBelow(item, *array.object))
        {
            Visit(*array.object, below);
        }
    }
}

PrintedJson SettingsUser::Print(const Judgement& judgement)
{
    return PrintObject(ProjectSettings(), nullptr, judgement);
}

PrintedJson SettingsUser::PrintArray(const SettingObject& object, const Items& items, const Judgement& judgement)
{
    PrintedJson array = PrintedJson::array();
    for (const TreeItem item : items)
    {
        array.push_back(PrintObject(object, item, judgement));
    }
    return array;
}

PrintedJson SettingsUser::PrintObject(const SettingObject& object, TreeItem item, const Judgement& judgement)
{
    if (object.selects)
    {
        dialog_.ChooseTreeItem(OBJECT_TREE, item);
    }
    PrintedJson json = item != nullptr ? PrintedJson{{NAME_KEY, NameOf(item)}} : PrintedJson::object();
    PrintedJson locked;
    PrintedJson disabled;
    PrintedJson choices;
    for (const DialogField& field : object.fields)
    {
        PrintedJson value = PrintValue(field);
        if (!IsSetting(field) || !dialog_.CanReach(field.control))
        {
            AddUnlessNull(field.routeKind.empty() ? locked : disabled, field.key, std::move(value));
        }
        else
        {
            const DlgDataItem* const data = item != nullptr ? &DataOf(item) : nullptr;
            // The analyzer takes the two branches for one.
            json[field.key] = judgement.refused.contains({data, field.control})
                                  ? PrintedJson()
                                  : std::move(value); // NOLINT(clang-analyzer-cplusplus.Move)
        }
        AddUnlessNull(choices, field.key, PrintChoices(field, judgement));
    }
    for (const SettingArray& array : object.arrays)
    {
        json[array.name] = PrintArray(*array.object, ItemsBelow(item, *array.object), judgement);
    }
    AddUnlessNull(json, LOCKED_KEY, std::move(locked));
    AddUnlessNull(json, DISABLED_KEY, std::move(disabled));
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
PrintedJson SettingsUser::PrintChoices(const DialogField& field, const Judgement& judgement) const
{
    if (IsEditField(field.kind))
    {
        return {};
    }
    if (field.kind == FieldKind::RouteKind)
    {
        return PrintedJson::array({Utf8FromWide(ROAD_DESIGN), Utf8FromWide(RIVER_DESIGN)});
    }
    return field.kind == FieldKind::Flag ? PrintMeanings(field) : PrintEntries(field, judgement);
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

PrintedJson SettingsUser::PrintEntries(const DialogField& field, const Judgement& judgement) const
{
    const auto accepted = judgement.accepted.find(field.control);
    PrintedJson texts = PrintedJson::array();
    for (const std::wstring& text :
         accepted != judgement.accepted.end() ? accepted->second : dialog_.Entries(field.control))
    {
        texts.push_back(Utf8FromWide(text));
    }
    return texts;
}

// The dialog's tree and lists

ObjectPlaces SettingsUser::Places() const
{
    ObjectPlaces places;
    AddPlacesBelow(ProjectSettings(), nullptr, {}, places);
    return places;
}

void SettingsUser::AddPlacesBelow(const SettingObject& object, TreeItem item, const ObjectPlace& place,
                                  ObjectPlaces& places) const
{
    for (const SettingArray& array : object.arrays)
    {
        const Items items = ItemsBelow(item, *array.object);
        for (std::size_t index = 0; index < items.size(); ++index)
        {
            const ObjectPlace below{EntryPath(KeyPath(place.path, array.name), index),
                                    JoinNames(place.names, NameOf(items[index]))};
            places.emplace(&DataOf(items[index]), below);
            AddPlacesBelow(*array.object, items[index], below, places);
        }
    }
}

std::string SettingsUser::NameOf(TreeItem item) const
{
    return Utf8FromWide(dialog_.TreeText(OBJECT_TREE, item));
}

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
