#pragma once

#include "cli/Settings.h"
#include "framework/DialogHands.h"

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

    /// The state of the dialog as settings that lead to the same state; every object is selected on the way. What is
    /// locked or disabled stands under "_locked", what a list offers under "_choices".
    Json Print();

  private:
    using Items = std::vector<TreeItem>;

    void ActArray(const SettingObject& object, const Items& items, const Json& array, const std::string& path);
    void ActObject(const SettingObject& object, TreeItem item, const Json& settings, const std::string& path);
    void ActKeys(std::span<const SettingKey> keys, const Json& settings, const std::string& path);
    void ActKey(const SettingKey& key, const Json& value, const std::string& path);
    void ActText(const SettingKey& key, const std::wstring& text, const std::string& path);
    void ActEntry(const SettingKey& key, const std::wstring& name, const std::string& path);
    void ActRouteKind(const std::wstring& name, const std::string& path);

    Json PrintArray(const SettingObject& object, const Items& items);
    Json PrintObject(const SettingObject& object, TreeItem item);
    Json PrintKeys(std::span<const SettingKey> keys) const;
    Json PrintValue(const SettingKey& key) const;
    Json PrintChoices(const SettingKey& key) const;

    const DlgDataItem& DataOf(TreeItem item) const;
    Items ItemsOf(const SettingObject& object) const;
    Items ChildrenOf(const SettingObject& object, TreeItem item) const;
    int FindEntryNamed(const SettingKey& key, const std::wstring& name) const;

    DialogHands& dialog_;
};

} // namespace jlandxml
