#include "cli/Settings.h"

#include "base/Streams.h"
#include "base/Text.h"
#include "cli/Paths.h"
#include "dialog/DlgData.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <utility>

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
constexpr SettingObject INTERMEDIATE{"中間点の座標点", Is<DlgDataCgPointsIntermediate>, true, INTERMEDIATE_FIELDS, {}};
constexpr SettingObject WIDTH_STAKE{"幅杭の座標点", Is<DlgDataCgPointsWidthStake>, true, WIDTH_STAKE_FIELDS, {}};
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

/// A text of at most so many bytes is taken for settings.
constexpr std::size_t LARGEST_FILE = std::size_t{256} << 20;
constexpr std::size_t READ_BLOCK_SIZE = std::size_t{64} << 10;

SettingsFault WrongType(const std::string& path, const Json& value, const std::string& wanted)
{
    return {path,
            TYPE_NAMES[static_cast<std::size_t>(value.type())] + std::string("は指定できません。") + wanted +
                "で指定してください",
            {},
            {}};
}

SettingsFault UnknownKey(const std::string& path, const SettingObject& object)
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
    return {path, "不明なキーです（使えるキー: " + known + "）", {}, {}};
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
            levels_.push_back({event == Json::parse_event_t::array_start, {}, 0, {}});
            break;
        case Json::parse_event_t::object_end:
        case Json::parse_event_t::array_end:
            levels_.pop_back();
            break;
        case Json::parse_event_t::key:
            SeeKey(parsed.get_ref<const std::string&>());
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

    /// The keys that stood twice in their object.
    std::vector<SettingsFault> TakeDoubledKeys() { return std::move(doubled_); }

  private:
    struct Level
    {
        bool isArray;
        std::string key;
        std::size_t entries;        ///< of an array, so far
        std::set<std::string> keys; ///< of an object, so far
    };

    void SeeKey(const std::string& key)
    {
        levels_.back().key = key;
        if (!levels_.back().keys.insert(key).second)
        {
            doubled_.push_back({Next(), "同じキーが2回あります。どちらかを取り除いてください", {}, {}});
        }
    }

    void NextEntry()
    {
        if (!levels_.empty())
        {
            ++levels_.back().entries;
        }
    }

    std::vector<Level> levels_;
    std::vector<SettingsFault> doubled_;
};

Json Parse(const std::wstring& path, const std::string& content, std::vector<SettingsFault>& faults)
{
    const std::size_t trace = TraceLength(content);
    JsonPlace place;
    try
    {
        Json json = Json::parse(std::string_view(content).substr(trace),
                                [&](int /*depth*/, Json::parse_event_t event, const Json& parsed) {
                                    place.See(event, parsed);
                                    return true;
                                });
        faults = place.TakeDoubledKeys();
        return json;
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

/// All that a stream holds; nothing if it can't be read to its end, or has none.
std::optional<std::string> ReadStream(std::istream& stream)
{
    std::string content;
    std::string block(READ_BLOCK_SIZE, '\0');
    while (stream.good() && content.size() <= LARGEST_FILE)
    {
        stream.read(block.data(), static_cast<std::streamsize>(block.size()));
        content.append(block, 0, static_cast<std::size_t>(stream.gcount()));
    }
    return stream.eof() && !stream.bad() ? std::optional(std::move(content)) : std::nullopt;
}

/// A pipe is taken too: whoever names one waits for it.
std::optional<std::string> ReadBytes(const std::wstring& path)
{
    if (path == STANDARD_INPUT)
    {
        return ReadStandardInput(LARGEST_FILE);
    }
    std::ifstream file(PathOf(path), std::ios::binary);
    return file ? ReadStream(file) : std::nullopt;
}

Json ReadJson(const std::wstring& path, std::vector<SettingsFault>& faults)
{
    if (const std::optional<std::string> content = ReadBytes(path))
    {
        return Parse(path, *content, faults);
    }
    throw SettingsError(Utf8FromWide(path),
                        "設定ファイルを読み込めません。ファイルの場所とアクセス権を確認してください");
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

/// Gathers all that is wrong with settings and can be told without the dialog. Whatever is null is left alone.
class SettingsCheck
{
  public:
    explicit SettingsCheck(std::vector<SettingsFault>& faults) : faults_(faults) {}

    void CheckObject(const SettingObject& object, const Json& json, const std::string& path)
    {
        for (const auto& [name, value] : json.items())
        {
            if (!IsComment(name))
            {
                CheckKey(object, name, value, KeyPath(path, name));
            }
        }
    }

  private:
    void CheckKey(const SettingObject& object, const std::string& name, const Json& value, const std::string& path)
    {
        if (const DialogField* const field = FindSetting(object, name))
        {
            CheckValue(*field, value, path);
        }
        else if (const SettingArray* const array = FindArray(object, name))
        {
            CheckEntries(*array->object, value, path);
        }
        else
        {
            faults_.push_back(UnknownKey(path, object));
        }
    }

    void CheckValue(const DialogField& field, const Json& value, const std::string& path)
    {
        if (value.is_null())
        {
            return;
        }
        if (field.kind != FieldKind::Flag)
        {
            CheckText(value, path);
        }
        else if (!value.is_boolean())
        {
            faults_.push_back(WrongType(path, value, "trueまたはfalse"));
        }
    }

    void CheckText(const Json& value, const std::string& path)
    {
        if (!value.is_string())
        {
            faults_.push_back(WrongType(path, value, "文字列"));
        }
        // A window's texts end at this character: what stands behind it would be lost without a word.
        else if (value.get_ref<const std::string&>().find('\0') != std::string::npos)
        {
            faults_.push_back({path, "文字U+0000は使えません。取り除いてください", {}, {}});
        }
    }

    void CheckEntries(const SettingObject& object, const Json& entries, const std::string& path)
    {
        if (entries.is_object())
        {
            for (const auto& [name, entry] : entries.items())
            {
                if (!IsComment(name))
                {
                    CheckEntry(object, entry, KeyPath(path, name));
                }
            }
        }
        else if (entries.is_array())
        {
            for (std::size_t index = 0; index < entries.size(); ++index)
            {
                CheckEntry(object, entries[index], EntryPath(path, index));
            }
        }
        else if (!entries.is_null())
        {
            faults_.push_back(WrongType(path, entries, "配列またはオブジェクト"));
        }
    }

    void CheckEntry(const SettingObject& object, const Json& entry, const std::string& path)
    {
        if (entry.is_object())
        {
            CheckObject(object, entry, path);
        }
        else if (!entry.is_null())
        {
            faults_.push_back(WrongType(path, entry, "オブジェクトまたはnull"));
        }
    }

    std::vector<SettingsFault>& faults_;
};

/// Without comments, which alone may be nested as deeply as a file likes.
Json WithoutComments(const Json& json)
{
    Json plain = json.is_object() ? Json::object() : Json::array();
    for (const auto& [name, value] : json.items())
    {
        if (json.is_object() && IsComment(name))
        {
            continue;
        }
        Json entry = value.is_structured() ? WithoutComments(value) : value;
        if (json.is_object())
        {
            plain[name] = std::move(entry);
        }
        else
        {
            plain.push_back(std::move(entry));
        }
    }
    return plain;
}

/// RFC 7396, without comments.
void MergePatch(Json& target, const Json& patch)
{
    if (!target.is_object())
    {
        target = Json::object();
    }
    for (const auto& [name, value] : patch.items())
    {
        if (IsComment(name))
        {
            continue;
        }
        if (value.is_object())
        {
            MergePatch(target[name], value);
        }
        else if (value.is_null())
        {
            target.erase(name);
        }
        else
        {
            target[name] = value.is_array() ? WithoutComments(value) : value;
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

std::string Lines(const std::vector<SettingsFault>& faults)
{
    std::string lines;
    for (const SettingsFault& fault : faults)
    {
        lines += (lines.empty() ? "" : "\n") + fault.Line();
    }
    return lines;
}

} // namespace

std::string SettingsFault::Line() const
{
    return OneLine(path + ": " + text);
}

SettingsError::SettingsError(std::vector<SettingsFault> faults)
    : std::runtime_error(Lines(faults)),
      faults_(std::move(faults))
{}

const SettingObject& ProjectSettings()
{
    return PROJECT;
}

bool IsComment(const std::string& key)
{
    return key.starts_with(COMMENT_MARK);
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
    std::vector<SettingsFault> faults;
    Json settings = ReadJson(path, faults);
    if (!settings.is_object())
    {
        faults.push_back(WrongType(Utf8FromWide(path), settings, "オブジェクト"));
    }
    else
    {
        SettingsCheck(faults).CheckObject(PROJECT, settings, "");
    }
    if (faults.empty())
    {
        return settings;
    }
    for (SettingsFault& fault : faults)
    {
        fault.file = Utf8FromWide(path);
    }
    throw SettingsError(std::move(faults));
}

void MergeSettings(Json& settings, const Json& patch)
{
    if (settings.empty())
    {
        settings = WithoutComments(patch);
        return;
    }
    MergePatch(settings, patch);
}

std::string SettingsText(const Json& settings)
{
    return WithoutComments(settings).dump();
}

} // namespace jlandxml
