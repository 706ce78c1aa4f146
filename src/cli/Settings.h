#pragma once

#include <nlohmann/json.hpp>
#include <span>
#include <stdexcept>
#include <string>

namespace jlandxml
{

class DlgDataItem;
struct NumberInputRule;

/// Settings keep the order of their keys, since people read and edit them.
using Json = nlohmann::ordered_json;

/// A settings file that can't be acted out. The text begins with the JSON path and says in Japanese what would be
/// right.
class SettingsError : public std::runtime_error
{
  public:
    SettingsError(const std::string& path, const std::string& text) : std::runtime_error(path + ": " + text) {}
};

/// How a key's value is put into its control.
enum class SettingKind
{
    Text,      ///< a string that is set in an edit
    Entry,     ///< a string that names an entry of a list by its shown text or its stored value
    Reference, ///< a string that names an entry by its shown text alone
    Flag,      ///< true or false, stored values of a list's entries
    RouteKind  ///< a string that names one of two radios
};

/// One key of a settings file and the control that it stands for.
struct SettingKey
{
    const char* name;
    SettingKind kind;
    int control;
    /// Why the control may be disabled.
    const char* disabled = "";
    /// What may be typed, in a filtered edit.
    const NumberInputRule* input = nullptr;
};

/// What an object of a settings file stands for in the dialog's tree: its keys, and the array of the objects below it.
struct SettingObject
{
    const char* noun; ///< in messages
    bool (*standsFor)(const DlgDataItem& item);
    bool selects; ///< whether its own item is selected
    std::span<const SettingKey> keys;
    const char* childrenName = nullptr;
    const SettingObject* children = nullptr;
};

/// One array at the top of a settings file.
struct SettingArray
{
    const char* name;
    const SettingObject* object;
};

/// What a settings file says, in the order in which it is acted out: the project with the coordinate system, then the
/// arrays.
std::span<const SettingKey> ProjectSettings();
std::span<const SettingArray> SettingArrays();

/// The path of a key or of an array's entry below another path.
std::string KeyPath(const std::string& path, const std::string& key);
std::string EntryPath(const std::string& path, std::size_t index);

/// Reads a settings file, JSON in UTF-8, and checks its keys and types. Throws SettingsError.
Json ReadSettings(const std::wstring& path);

} // namespace jlandxml
