#include "cli/Settings.h"

#include "framework/Exceptions.h"
#include "framework/Files.h"
#include "framework/Text.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

namespace jlandxml
{

namespace
{

using Json = nlohmann::json;

struct TextKey
{
    const char* name;
    std::optional<std::wstring> ProjectSettings::*field;
};

constexpr std::array<TextKey, 4> TEXT_KEYS = {{
    {"projectName", &ProjectSettings::projectName},
    {"projectPhase", &ProjectSettings::projectPhase},
    {"applicationCriterion", &ProjectSettings::applicationCriterion},
    {"verticalDatum", &ProjectSettings::verticalDatum},
}};

/// Keys of controls that stand in the dialog, which the command line doesn't have yet.
constexpr std::array<const char*, 4> DIALOG_KEYS = {"routes", "surfaceSets", "intermediatePoints", "widthStakes"};

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

void TakeKey(ProjectSettings& settings, const std::string& name, const Json& value)
{
    const auto* const key =
        std::find_if(TEXT_KEYS.begin(), TEXT_KEYS.end(), [&](const TextKey& one) { return name == one.name; });
    if (key == TEXT_KEYS.end())
    {
        const bool known = std::find(DIALOG_KEYS.begin(), DIALOG_KEYS.end(), name) != DIALOG_KEYS.end();
        throw SettingsError(name, known ? "このキーは設定ダイアログの実装後に使用できます" : "未知のキーです");
    }
    if (!value.is_string())
    {
        throw SettingsError(name, "文字列で指定してください");
    }
    settings.*(key->field) = WideFromUtf8(value.get_ref<const std::string&>());
}

} // namespace

ProjectSettings ReadSettings(const std::wstring& path)
{
    const Json json = ParseFile(path);
    if (!json.is_object())
    {
        throw SettingsError(Utf8FromWide(path), "オブジェクトで指定してください");
    }
    ProjectSettings settings;
    for (const auto& [name, value] : json.items())
    {
        if (!name.starts_with('_'))
        {
            TakeKey(settings, name, value);
        }
    }
    return settings;
}

std::wstring PrintSettings(const ProjectSettings& settings)
{
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    for (const TextKey& key : TEXT_KEYS)
    {
        if (const auto& value = settings.*(key.field))
        {
            json[key.name] = Utf8FromWide(*value);
        }
    }
    return WideFromUtf8(json.dump(2)) + L"\n";
}

} // namespace jlandxml
