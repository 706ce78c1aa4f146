#pragma once

#include "dialog/DialogFields.h"

#include <nlohmann/json.hpp>
#include <span>
#include <stdexcept>
#include <string>

namespace jlandxml
{

/// Settings as they are read: a key is found at once among however many.
using Json = nlohmann::json;

/// Settings as they are printed: in the order in which people read and edit them.
using PrintedJson = nlohmann::ordered_json;

/// A settings file that can't be acted out. The text is one line: the JSON path, what is wrong, what would be right.
class SettingsError : public std::runtime_error
{
  public:
    SettingsError(const std::string& path, const std::string& text);
};

struct SettingObject;

/// A key whose array holds one object for each of the dialog's objects of a kind, by position.
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

/// The path of a key or of an array's entry below another path.
std::string KeyPath(const std::string& path, const std::string& key);
std::string EntryPath(const std::string& path, std::size_t index);

/// Reads a settings file, JSON in UTF-8 with or without a byte order mark, and checks its keys and types: all that can
/// be told without the dialog. What a run printed may be read as it is, its trace lines in front. Keys that begin with
/// "_" are comments; of a key that occurs twice the last value counts. Throws SettingsError.
Json ReadSettings(const std::wstring& path);

} // namespace jlandxml
