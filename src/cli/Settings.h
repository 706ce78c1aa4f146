#pragma once

#include "dialog/DialogFields.h"

#include <nlohmann/json.hpp>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace jlandxml
{

/// Settings as they are read: a key is found at once among however many.
using Json = nlohmann::json;

/// Settings as they are printed: in the order in which people read and edit them.
using PrintedJson = nlohmann::ordered_json;

/// One place of a settings file that can't be acted out.
struct SettingsFault
{
    std::string path;   ///< within the settings: "routes[0].side"; the file's own path where it is the file as a whole
    std::string text;   ///< what is wrong and what would be right
    std::string object; ///< the names of the object of the dialog's tree that it is about; empty if there is none
    std::string file;   ///< the settings file; empty where it isn't known

    /// Path and text in one line, whatever they hold.
    std::string Line() const;
};

/// Settings that can't be acted out. The text has a line for each wrong place.
class SettingsError : public std::runtime_error
{
  public:
    SettingsError(const std::string& path, const std::string& text) : SettingsError({{path, text, {}, {}}}) {}
    explicit SettingsError(std::vector<SettingsFault> faults);

    const std::vector<SettingsFault>& Faults() const { return faults_; }

  private:
    std::vector<SettingsFault> faults_;
};

struct SettingObject;

/// A key that holds one object for each of the dialog's objects of a kind: an array by position, an object by names.
struct SettingArray
{
    const char* name;
    const SettingObject* object;
};

/// What an object of a settings file stands for in the dialog's tree: its fields, of which those that aren't read-only
/// are its keys, and the arrays of the objects below it. They are acted out in this order.
struct SettingObject
{
    const char* noun; ///< in messages
    bool (*standsFor)(const DlgDataItem& item);
    bool selects; ///< whether its own item is selected
    FieldTable fields;
    std::span<const SettingArray> arrays;
};

/// True for a field that a settings file may hold.
constexpr bool IsSetting(const DialogField& field)
{
    return !IsReadOnlyField(field.kind);
}

/// A settings file as a whole: the project with the coordinate system, which have no item in the tree.
const SettingObject& ProjectSettings();

/// In the place of a name: every object that has no entry of its own.
inline constexpr const char* EVERY_OTHER = "*";

/// In the place of a settings file's path: standard input.
inline constexpr std::wstring_view STANDARD_INPUT = L"-";

/// True for a key that is a comment.
bool IsComment(const std::string& key);

/// The path of a key or of an array's entry below another path.
std::string KeyPath(const std::string& path, const std::string& key);
std::string EntryPath(const std::string& path, std::size_t index);

/// Reads a settings file or a pipe, JSON in UTF-8 with or without a byte order mark, and checks its keys and types: all
/// that can be told without the dialog. What a run printed may be read as it is, its trace lines in front. Keys that
/// begin with "_" are comments. Throws SettingsError with every wrong place.
Json ReadSettings(const std::wstring& path);

/// Puts settings that were read over others, as a JSON merge patch (RFC 7396): objects are merged key by key, an array
/// takes the place of what stood there, null takes a key away. Over empty ones they are taken as they stand, so that
/// null, which names an object to be left alone, means the same with and without an empty file. Comments are left out.
void MergeSettings(Json& settings, const Json& patch);

/// Settings that were read, in a form to be handed on.
std::string SettingsText(const Json& settings);

} // namespace jlandxml
