#include "cli/Settings.h"

#include "dialog/DlgData.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "dialog/NumberInput.h"
#include "framework/Exceptions.h"
#include "framework/Files.h"
#include "framework/Text.h"

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
    {"projectName", SettingKind::Text, PROJECT_NAME},
    {"projectPhase", SettingKind::Entry, PROJECT_PHASE},
    {"applicationCriterion", SettingKind::Entry, APPLICATION_CRITERION},
    {"verticalDatum", SettingKind::Entry, VERTICAL_DATUM},
};

constexpr SettingKey ROUTE_KEYS[] = {
    {"designGmType", SettingKind::RouteKind, ROAD},
    {"roadClassification", SettingKind::Entry, ROAD_CLASSIFICATION, ROAD_ONLY},
    {"trafficVolume", SettingKind::Text, TRAFFIC_VOLUME, ROAD_ONLY, &TRAFFIC_VOLUME_INPUT},
    {"riverClassification", SettingKind::Entry, RIVER_CLASSIFICATION, RIVER_ONLY},
    {"side", SettingKind::Entry, RIVER_SIDE, RIVER_ONLY},
};

constexpr SettingKey ALIGNMENT_KEYS[] = {
    {"mainInterval", SettingKind::Text, MAIN_INTERVAL, LOCKED, &MAIN_INTERVAL_INPUT},
    {"subInterval", SettingKind::Text, SUB_INTERVAL, LOCKED, &SUB_INTERVAL_INPUT},
    {"method", SettingKind::Entry, METHOD, LOCKED},
    {"normalCrown", SettingKind::Text, NORMAL_CROWN, "", &NORMAL_CROWN_INPUT},
    {"singleLaneRoad", SettingKind::Flag, LANES},
    {"useSlopeList", SettingKind::Flag, SUPERELEVATION_DEFINITION},
};

constexpr SettingKey SURFACE_KEYS[] = {
    {"alignmentRefs", SettingKind::Reference, SURFACE_REFERENCE, LOCKED},
    {"kind", SettingKind::Entry, SURFACE_KIND},
};

constexpr SettingKey INTERMEDIATE_KEYS[] = {
    {"alignmentRefs", SettingKind::Reference, INTERMEDIATE_REFERENCE, LOCKED},
};

constexpr SettingKey WIDTH_STAKE_KEYS[] = {
    {"alignmentRefs", SettingKind::Reference, WIDTH_STAKE_REFERENCE, LOCKED},
    {"type", SettingKind::Entry, CLOSURE_TYPE},
    {"desc", SettingKind::Text, WIDTH_STAKE_DESC},
};

template <class Object>
bool Is(const DlgDataItem& item)
{
    return dynamic_cast<const Object*>(&item) != nullptr;
}

constexpr SettingObject ALIGNMENT{"線形", Is<DlgDataAlignment>, true, ALIGNMENT_KEYS};
constexpr SettingObject ROUTE{"路線", Is<DlgDataAlignments>, true, ROUTE_KEYS, "alignments", &ALIGNMENT};
constexpr SettingObject SURFACE{"サーフェス", Is<DlgDataSurface>, true, SURFACE_KEYS};
constexpr SettingObject SURFACE_SET{"サーフェスセット", Is<DlgDataSurfaces>, false, {}, "surfaces", &SURFACE};
constexpr SettingObject INTERMEDIATE{"中間点のグループ", Is<DlgDataCgPointsIntermediate>, true, INTERMEDIATE_KEYS};
constexpr SettingObject WIDTH_STAKE{"幅杭のグループ", Is<DlgDataCgPointsWidthStake>, true, WIDTH_STAKE_KEYS};

constexpr SettingArray ARRAYS[] = {
    {"routes", &ROUTE},
    {"surfaceSets", &SURFACE_SET},
    {"intermediatePoints", &INTERMEDIATE},
    {"widthStakes", &WIDTH_STAKE},
};

constexpr char COMMENT_MARK = '_';

Json ParseFile(const std::wstring& path)
{
    try
    {
        if (const std::optional<std::string> content = ReadWholeFile(path))
        {
            return Json::parse(*content);
        }
    }
    catch (const CFileException&)
    {
        // Told as one that can't be opened is.
    }
    catch (const Json::parse_error& error)
    {
        throw SettingsError(Utf8FromWide(path),
                            "JSONとして読み込めません（" + std::to_string(error.byte) + "バイト目）");
    }
    throw SettingsError(Utf8FromWide(path), "設定ファイルを読み込めません");
}

void CheckValue(const SettingKey& key, const Json& value, const std::string& path)
{
    if (key.kind == SettingKind::Flag)
    {
        if (!value.is_boolean())
        {
            throw SettingsError(path, "trueまたはfalseで指定してください");
        }
    }
    else if (!value.is_string())
    {
        throw SettingsError(path, "文字列で指定してください");
    }
}

/// Checks the value of one of these keys. False if the name is none of theirs.
bool CheckKey(std::span<const SettingKey> keys, const std::string& name, const Json& value, const std::string& path)
{
    const auto key = std::find_if(keys.begin(), keys.end(), [&](const SettingKey& one) { return name == one.name; });
    if (key == keys.end())
    {
        return false;
    }
    CheckValue(*key, value, path);
    return true;
}

void CheckArray(const SettingObject& object, const Json& array, const std::string& path);

void CheckObject(const SettingObject& object, const Json& json, const std::string& path)
{
    if (!json.is_object())
    {
        throw SettingsError(path, "オブジェクトまたはnullで指定してください");
    }
    for (const auto& [name, value] : json.items())
    {
        const std::string keyPath = KeyPath(path, name);
        if (name.starts_with(COMMENT_MARK) || CheckKey(object.keys, name, value, keyPath))
        {
            continue;
        }
        if (object.childrenName == nullptr || name != object.childrenName)
        {
            throw SettingsError(keyPath, "未知のキーです");
        }
        CheckArray(*object.children, value, keyPath);
    }
}

void CheckArray(const SettingObject& object, const Json& array, const std::string& path)
{
    if (!array.is_array())
    {
        throw SettingsError(path, "配列で指定してください");
    }
    for (std::size_t index = 0; index < array.size(); ++index)
    {
        if (!array[index].is_null())
        {
            CheckObject(object, array[index], EntryPath(path, index));
        }
    }
}

void CheckTop(const std::string& name, const Json& value)
{
    if (name.starts_with(COMMENT_MARK) || CheckKey(PROJECT_KEYS, name, value, name))
    {
        return;
    }
    const auto* const array =
        std::find_if(std::begin(ARRAYS), std::end(ARRAYS), [&](const SettingArray& one) { return name == one.name; });
    if (array == std::end(ARRAYS))
    {
        throw SettingsError(name, "未知のキーです");
    }
    CheckArray(*array->object, value, name);
}

} // namespace

std::span<const SettingKey> ProjectSettings()
{
    return PROJECT_KEYS;
}

std::span<const SettingArray> SettingArrays()
{
    return ARRAYS;
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
    Json settings = ParseFile(path);
    if (!settings.is_object())
    {
        throw SettingsError(Utf8FromWide(path), "オブジェクトで指定してください");
    }
    for (const auto& [name, value] : settings.items())
    {
        CheckTop(name, value);
    }
    return settings;
}

} // namespace jlandxml
