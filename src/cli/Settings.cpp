#include "cli/Settings.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Text.h"
#include "dialog/DlgData.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "dialog/NumberInput.h"

#include <algorithm>
#include <optional>

namespace jlandxml
{

namespace
{

using namespace convert_dlg;

constexpr const char* ROAD_ONLY = "河川の路線では入力できません";
constexpr const char* RIVER_ONLY = "道路の路線では入力できません";
constexpr const char* LOCKED = "入力データの値で固定されているため変更できません";

constexpr SettingKey PROJECT_KEYS[] = {
    {"projectName", SettingKind::Text, PROJECT_NAME_EDIT},
    {"projectPhase", SettingKind::Entry, PROJECT_PHASE_LIST},
    {"applicationCriterion", SettingKind::Entry, APPLICATION_CRITERION_LIST},
    {"verticalDatum", SettingKind::Entry, VERTICAL_DATUM_LIST},
};

constexpr SettingKey ROUTE_KEYS[] = {
    {"designGmType", SettingKind::RouteKind, ROAD_RADIO},
    {"roadClassification", SettingKind::Entry, ROAD_CLASSIFICATION_LIST, nullptr, ROAD_ONLY},
    {"trafficVolume", SettingKind::Text, TRAFFIC_VOLUME_EDIT, &TRAFFIC_VOLUME_RULE, ROAD_ONLY},
    {"riverClassification", SettingKind::Entry, RIVER_CLASSIFICATION_LIST, nullptr, RIVER_ONLY},
    {"side", SettingKind::Entry, RIVER_SIDE_LIST, nullptr, RIVER_ONLY},
};

constexpr SettingKey ALIGNMENT_KEYS[] = {
    {"mainInterval", SettingKind::Text, MAIN_INTERVAL_EDIT, &MAIN_INTERVAL_RULE, LOCKED},
    {"subInterval", SettingKind::Text, SUB_INTERVAL_EDIT, &SUB_INTERVAL_RULE, LOCKED},
    {"method", SettingKind::Entry, METHOD_LIST, nullptr, LOCKED},
    {"normalCrown", SettingKind::Text, NORMAL_CROWN_EDIT, &NORMAL_CROWN_RULE},
    {"singleLaneRoad", SettingKind::Flag, LANES_LIST},
    {"useSlopeList", SettingKind::Flag, SUPERELEVATION_DEFINITION_LIST},
};

constexpr SettingKey SURFACE_KEYS[] = {
    {"alignmentRefs", SettingKind::Reference, SURFACE_REFERENCE_LIST, nullptr, LOCKED},
    {"kind", SettingKind::Entry, SURFACE_KIND_LIST},
};

constexpr SettingKey INTERMEDIATE_KEYS[] = {
    {"alignmentRefs", SettingKind::Reference, INTERMEDIATE_REFERENCE_LIST, nullptr, LOCKED},
};

constexpr SettingKey WIDTH_STAKE_KEYS[] = {
    {"alignmentRefs", SettingKind::Reference, WIDTH_STAKE_REFERENCE_LIST, nullptr, LOCKED},
    {"type", SettingKind::Entry, CLOSURE_TYPE_LIST},
    {"desc", SettingKind::Text, WIDTH_STAKE_DESC_EDIT},
};

template <class Object>
bool Is(const DlgDataItem& item)
{
    return dynamic_cast<const Object*>(&item) != nullptr;
}

constexpr SettingObject ALIGNMENT{"線形", Is<DlgDataAlignment>, true, ALIGNMENT_KEYS, {}};
constexpr SettingArray ROUTE_ARRAYS[] = {{"alignments", &ALIGNMENT}};
constexpr SettingObject ROUTE{"路線", Is<DlgDataAlignments>, true, ROUTE_KEYS, ROUTE_ARRAYS};
constexpr SettingObject SURFACE{"サーフェス", Is<DlgDataSurface>, true, SURFACE_KEYS, {}};
constexpr SettingArray SURFACE_SET_ARRAYS[] = {{"surfaces", &SURFACE}};
constexpr SettingObject SURFACE_SET{"サーフェスセット", Is<DlgDataSurfaces>, false, {}, SURFACE_SET_ARRAYS};
constexpr SettingObject INTERMEDIATE{"中間点のグループ", Is<DlgDataCgPointsIntermediate>, true, INTERMEDIATE_KEYS, {}};
constexpr SettingObject WIDTH_STAKE{"幅杭のグループ", Is<DlgDataCgPointsWidthStake>, true, WIDTH_STAKE_KEYS, {}};
constexpr SettingArray PROJECT_ARRAYS[] = {
    {"routes", &ROUTE},
    {"surfaceSets", &SURFACE_SET},
    {"intermediatePoints", &INTERMEDIATE},
    {"widthStakes", &WIDTH_STAKE},
};
constexpr SettingObject PROJECT{"プロジェクト", nullptr, false, PROJECT_KEYS, PROJECT_ARRAYS};

constexpr char COMMENT_MARK = '_';
constexpr std::string_view TRACE_LINE = "Row Value: ";

/// By Json::value_t.
constexpr const char* TYPE_NAMES[] = {"null", "オブジェクト", "配列", "文字列",     "真偽値",
                                      "数値", "数値",         "数値", "バイナリー", "不明な値"};

SettingsError WrongType(const std::string& path, const Json& value, const std::string& wanted)
{
    return {path, TYPE_NAMES[static_cast<std::size_t>(value.type())] + std::string("は指定できません。") + wanted +
                      "で指定してください"};
}

SettingsError UnknownKey(const std::string& path, const SettingObject& object)
{
    std::string known;
    const auto add = [&](const auto& key) { known += (known.empty() ? "" : "、") + std::string(key.name); };
    std::for_each(object.keys.begin(), object.keys.end(), add);
    std::for_each(object.arrays.begin(), object.arrays.end(), add);
    return {path, "未知のキーです（使えるキー: " + known + "）"};
}

/// The length of the trace lines that a run writes in front of the settings that it prints. So its output can be fed
/// back as it is.
std::size_t TraceLength(std::string_view content)
{
    std::size_t length = 0;
    while (content.substr(length).starts_with(TRACE_LINE))
    {
        const std::size_t end = content.find('\n', length);
        length = end == std::string_view::npos ? content.size() : end + 1;
    }
    return length;
}

Json Parse(const std::wstring& path, const std::string& content)
{
    const std::size_t trace = TraceLength(content);
    try
    {
        return Json::parse(std::string_view(content).substr(trace));
    }
    catch (const Json::parse_error& error)
    {
        // The position is that of the byte behind the last good one, counted from 1.
        const std::size_t good = std::min(trace + std::max(error.byte, std::size_t{1}) - 1, content.size());
        const auto line = 1 + std::count(content.begin(), content.begin() + static_cast<std::ptrdiff_t>(good), '\n');
        throw SettingsError(Utf8FromWide(path), "JSON（UTF-8）として読み込めません（" + std::to_string(line) +
                                                    "行目）。書式を確認してください");
    }
}

Json ReadJson(const std::wstring& path)
{
    try
    {
        if (const std::optional<std::string> content = ReadWholeFile(path))
        {
            return Parse(path, *content);
        }
    }
    catch (const CFileException&)
    {
        // Told as one that can't be opened is.
    }
    throw SettingsError(Utf8FromWide(path),
                        "設定ファイルを読み込めません。ファイルの場所とアクセス権を確認してください");
}

void CheckText(const Json& value, const std::string& path)
{
    if (!value.is_string())
    {
        throw WrongType(path, value, "文字列");
    }
    // A window's texts end at this character: what stands behind it would be lost without a word.
    if (value.get_ref<const std::string&>().find('\0') != std::string::npos)
    {
        throw SettingsError(path, "文字U+0000は使えません。取り除いてください");
    }
}

void CheckValue(const SettingKey& key, const Json& value, const std::string& path)
{
    if (key.kind != SettingKind::Flag)
    {
        CheckText(value, path);
    }
    else if (!value.is_boolean())
    {
        throw WrongType(path, value, "trueまたはfalse");
    }
}

template <class Key>
const Key* FindNamed(std::span<const Key> keys, const std::string& name)
{
    const auto key = std::find_if(keys.begin(), keys.end(), [&](const Key& one) { return name == one.name; });
    return key == keys.end() ? nullptr : &*key;
}

void CheckArray(const SettingObject& object, const Json& array, const std::string& path);

void CheckObject(const SettingObject& object, const Json& json, const std::string& path)
{
    for (const auto& [name, value] : json.items())
    {
        const std::string keyPath = KeyPath(path, name);
        if (name.starts_with(COMMENT_MARK))
        {
            continue;
        }
        if (const SettingKey* const key = FindNamed(object.keys, name))
        {
            CheckValue(*key, value, keyPath);
        }
        else if (const SettingArray* const array = FindNamed(object.arrays, name))
        {
            CheckArray(*array->object, value, keyPath);
        }
        else
        {
            throw UnknownKey(keyPath, object);
        }
    }
}

void CheckArray(const SettingObject& object, const Json& array, const std::string& path)
{
    if (!array.is_array())
    {
        throw WrongType(path, array, "配列");
    }
    for (std::size_t index = 0; index < array.size(); ++index)
    {
        const Json& entry = array[index];
        const std::string entryPath = EntryPath(path, index);
        if (entry.is_object())
        {
            CheckObject(object, entry, entryPath);
        }
        else if (!entry.is_null())
        {
            throw WrongType(entryPath, entry, "オブジェクトまたはnull");
        }
    }
}

/// Control characters come from the file; a message stays one line whatever they are.
std::string OneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char character) { return character >= 0 && character < ' '; }, ' ');
    return text;
}

} // namespace

SettingsError::SettingsError(const std::string& path, const std::string& text)
    : std::runtime_error(OneLine(path + ": " + text))
{}

const SettingObject& ProjectSettings()
{
    return PROJECT;
}

std::string KeyPath(const std::string& path, const std::string& key)
{
    return path.empty() ? key : path + "." + key;
}

std::string EntryPath(const std::string& path, std::size_t index)
{
    return path + "[" + std::to_string(index) + "]";
}

Json ReadSettings(const std::wstring& path)
{
    Json settings = ReadJson(path);
    if (!settings.is_object())
    {
        throw WrongType(Utf8FromWide(path), settings, "オブジェクト");
    }
    CheckObject(PROJECT, settings, "");
    return settings;
}

} // namespace jlandxml
