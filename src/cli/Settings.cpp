#include "cli/Settings.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Text.h"
#include "dialog/DlgData.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace jlandxml
{

namespace
{

template <std::size_t First, std::size_t Second>
constexpr std::array<DialogField, First + Second> Joined(const DialogField (&first)[First],
                                                         const DialogField (&second)[Second])
{
    std::array<DialogField, First + Second> joined{};
    std::copy(std::begin(second), std::end(second), std::copy(std::begin(first), std::end(first), joined.begin()));
    return joined;
}

/// The keys at the top, of what has no item in the tree.
constexpr auto TOP_FIELDS = Joined(PROJECT_FIELDS, COORDINATE_SYSTEM_FIELDS);

template <class Object>
bool Is(const DlgDataItem& item)
{
    return dynamic_cast<const Object*>(&item) != nullptr;
}

constexpr SettingObject ALIGNMENT{"線形", Is<DlgDataAlignment>, true, ALIGNMENT_FIELDS, {}};
constexpr SettingArray ROUTE_ARRAYS[] = {{"alignments", &ALIGNMENT}};
constexpr SettingObject ROUTE{"路線", Is<DlgDataAlignments>, true, ROUTE_FIELDS, ROUTE_ARRAYS};
constexpr SettingObject SURFACE{"サーフェス", Is<DlgDataSurface>, true, SURFACE_FIELDS, {}};
constexpr SettingArray SURFACE_SET_ARRAYS[] = {{"surfaces", &SURFACE}};
constexpr SettingObject SURFACE_SET{"サーフェスセット", Is<DlgDataSurfaces>, false, {}, SURFACE_SET_ARRAYS};
constexpr SettingObject INTERMEDIATE{
    "中間点のグループ", Is<DlgDataCgPointsIntermediate>, true, INTERMEDIATE_FIELDS, {}};
constexpr SettingObject WIDTH_STAKE{"幅杭のグループ", Is<DlgDataCgPointsWidthStake>, true, WIDTH_STAKE_FIELDS, {}};
constexpr SettingArray PROJECT_ARRAYS[] = {
    {"routes", &ROUTE},
    {"surfaceSets", &SURFACE_SET},
    {"intermediatePoints", &INTERMEDIATE},
    {"widthStakes", &WIDTH_STAKE},
};
constexpr SettingObject PROJECT{"プロジェクト", nullptr, false, TOP_FIELDS, PROJECT_ARRAYS};

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
    const auto add = [&](const char* key) { known += (known.empty() ? "" : "、") + std::string(key); };
    for (const DialogField& field : object.fields)
    {
        if (IsSetting(field))
        {
            add(field.key);
        }
    }
    for (const SettingArray& array : object.arrays)
    {
        add(array.name);
    }
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

/// Where in a settings file the parser is.
class JsonPlace
{
  public:
    void See(Json::parse_event_t event, const Json& parsed)
    {
        switch (event)
        {
        case Json::parse_event_t::object_start:
        case Json::parse_event_t::array_start:
            NextEntry();
            levels_.push_back({event == Json::parse_event_t::array_start, {}, 0});
            break;
        case Json::parse_event_t::object_end:
        case Json::parse_event_t::array_end:
            levels_.pop_back();
            break;
        case Json::parse_event_t::key:
            levels_.back().key = parsed.get_ref<const std::string&>();
            break;
        default:
            NextEntry();
        }
    }

    /// The path of the value behind the last one that was seen.
    std::string Next() const
    {
        std::string path;
        for (std::size_t depth = 0; depth < levels_.size(); ++depth)
        {
            const Level& level = levels_[depth];
            // The entries that enclose the place have been counted already.
            const std::size_t entry = depth + 1 < levels_.size() ? level.entries - 1 : level.entries;
            path = level.isArray ? EntryPath(path, entry) : KeyPath(path, level.key);
        }
        return path;
    }

  private:
    struct Level
    {
        bool isArray;
        std::string key;
        std::size_t entries; ///< of an array, so far
    };

    void NextEntry()
    {
        if (!levels_.empty())
        {
            ++levels_.back().entries;
        }
    }

    std::vector<Level> levels_;
};

Json Parse(const std::wstring& path, const std::string& content)
{
    const std::size_t trace = TraceLength(content);
    JsonPlace place;
    try
    {
        return Json::parse(std::string_view(content).substr(trace),
                           [&](int /*depth*/, Json::parse_event_t event, const Json& parsed) {
                               place.See(event, parsed);
                               return true;
                           });
    }
    catch (const Json::out_of_range&)
    {
        throw SettingsError(place.Next(),
                            "数値が大きすぎるため読み込めません。文字列か、範囲内の数値で指定してください");
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

void CheckValue(const DialogField& field, const Json& value, const std::string& path)
{
    if (field.kind != FieldKind::Flag)
    {
        CheckText(value, path);
    }
    else if (!value.is_boolean())
    {
        throw WrongType(path, value, "trueまたはfalse");
    }
}

/// The field of a key; null if the object has none.
const DialogField* FindSetting(const SettingObject& object, const std::string& key)
{
    const auto field = std::find_if(object.fields.begin(), object.fields.end(),
                                    [&](const DialogField& one) { return IsSetting(one) && key == one.key; });
    return field == object.fields.end() ? nullptr : &*field;
}

/// The array of a key; null if the object has none.
const SettingArray* FindArray(const SettingObject& object, const std::string& key)
{
    const auto array = std::find_if(object.arrays.begin(), object.arrays.end(),
                                    [&](const SettingArray& one) { return key == one.name; });
    return array == object.arrays.end() ? nullptr : &*array;
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
        if (const DialogField* const field = FindSetting(object, name))
        {
            CheckValue(*field, value, keyPath);
        }
        else if (const SettingArray* const array = FindArray(object, name))
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
