#pragma once

#include "cli/Settings.h"
#include "windows/DialogHands.h"

#include <string>
#include <vector>

namespace jlandxml
{

/// The user that a settings file stands for, at the main dialog. It does what a person would do, and nothing that the
/// dialog wouldn't let a person do.
class SettingsUser
{
  public:
    explicit SettingsUser(DialogHands& dialog) : dialog_(dialog) {}

    /// Acts the settings out, without the output button. Throws SettingsError.
    void Act(const Json& settings);

    /// The state of the dialog as settings that lead to the same state; every object is selected on the way. Behind the
    /// keys that may be edited stand, as comments, "_locked": what is locked or disabled, and "_choices": what a list
    /// offers. "_name" says which object of the tree it is.
    PrintedJson Print();

  private:
    using Items = std::vector<TreeItem>;

    void ActArray(const SettingObject& object, const Items& items, const Json& array, const std::string& path);
    void ActObject(const SettingObject& object, TreeItem item, const Json& settings, const std::string& path);
    void ActField(const DialogField& field, const Json& value, const std::string& path);
    void ActText(const DialogField& field, const std::wstring& text, const std::string& path);
    void ActEntry(const DialogField& field, const std::wstring& name, const std::string& path);
    void ActRouteKind(const std::wstring& name, const std::string& path);

    PrintedJson PrintArray(const SettingObject& object, const Items& items);
    PrintedJson PrintObject(const SettingObject& object, TreeItem item);
    PrintedJson PrintValue(const DialogField& field) const;
    PrintedJson PrintChoices(const DialogField& field) const;
    PrintedJson PrintMeanings(const DialogField& field) const;
    PrintedJson PrintEntries(const DialogField& field) const;

    const DlgDataItem& DataOf(TreeItem item) const;
    Items ItemsBelow(TreeItem parent, const SettingObject& object) const;
    int FindEntryNamed(const DialogField& field, const std::wstring& name) const;

    DialogHands& dialog_;
};

} // namespace jlandxml
