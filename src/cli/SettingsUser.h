#pragma once

#include "cli/Settings.h"
#include "windows/DialogHands.h"

#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace jlandxml
{

/// Where an object of the dialog's tree stands.
struct ObjectPlace
{
    std::string path;  ///< in a settings file: "routes[1].alignments[0]"; empty for the project
    std::string names; ///< as the tree shows them, from above: "市道100号／線形2"; empty for the project
};

using ObjectPlaces = std::unordered_map<const DlgDataItem*, ObjectPlace>;

/// What becomes of a value for a control that is locked or disabled, or for a name that no object has.
enum class Unreachable
{
    IsFault,
    IsPassedOver
};

/// What the checks say of the values that a dialog shows.
struct Judgement
{
    /// The values that are missing or wrong, by their object (null for the project) and control.
    std::set<std::pair<const DlgDataItem*, int>> refused;
    /// Of a list whose entry is wrong, those that aren't.
    std::map<int, std::vector<std::wstring>> accepted;
};

/// The user that a settings file stands for, at the main dialog. It does what a person would do, and nothing that the
/// dialog wouldn't let a person do.
class SettingsUser
{
  public:
    explicit SettingsUser(DialogHands& dialog, Unreachable unreachable = Unreachable::IsFault)
        : dialog_(dialog),
          unreachable_(unreachable)
    {}

    /// Acts the settings out, without the output button. Behind what can't be done the acting goes on; in the end
    /// SettingsError is thrown with every such place.
    void Act(const Json& settings);

    /// What was passed over.
    const std::vector<SettingsFault>& PassedOver() const { return passedOver_; }

    /// Selects every object once, as printing does.
    void VisitAll();

    /// The state of the dialog as settings that lead to the same state; every object is selected on the way. A list
    /// without a selection and a value that the checks refuse are null: with a value in the place of every null they
    /// find nothing more, but in what came with the input. Behind the keys that may be edited stand, as comments,
    /// "_locked": what came with the input, "_disabled": what doesn't apply, and "_choices": what a list offers.
    /// "_name" says which object of the tree it is.
    PrintedJson Print(const Judgement& judgement = {});

    /// Where the objects of the tree stand.
    ObjectPlaces Places() const;

  private:
    using Items = std::vector<TreeItem>;

    void ActEntries(const SettingObject& object, const Items& items, const Json& entries, const std::string& path);
    void ActArray(const SettingObject& object, const Items& items, const Json& array, const std::string& path);
    void ActNamed(const SettingObject& object, const Items& items, const Json& named, const std::string& path);
    void ActObject(const SettingObject& object, TreeItem item, const Json& settings, const std::string& path);
    void ActField(const DialogField& field, const Json& value, const std::string& path);
    void ActText(const DialogField& field, const std::wstring& text, const std::string& path);
    void ActEntry(const DialogField& field, const std::wstring& name, const std::string& path);
    void ActRouteKind(const std::wstring& name, const std::string& path);
    void FindFault(const std::string& path, const std::string& text);
    void FindUnreachable(const std::string& path, const std::string& text);
    SettingsFault Fault(const std::string& path, const std::string& text) const;

    void Visit(const SettingObject& object, TreeItem item);
    PrintedJson PrintArray(const SettingObject& object, const Items& items, const Judgement& judgement);
    PrintedJson PrintObject(const SettingObject& object, TreeItem item, const Judgement& judgement);
    PrintedJson PrintValue(const DialogField& field) const;
    PrintedJson PrintChoices(const DialogField& field, const Judgement& judgement) const;
    PrintedJson PrintMeanings(const DialogField& field) const;
    PrintedJson PrintEntries(const DialogField& field, const Judgement& judgement) const;

    void AddPlacesBelow(const SettingObject& object, TreeItem item, const ObjectPlace& place,
                        ObjectPlaces& places) const;
    const DlgDataItem& DataOf(TreeItem item) const;
    Items ItemsBelow(TreeItem parent, const SettingObject& object) const;
    std::string NameOf(TreeItem item) const;
    int FindEntryNamed(const DialogField& field, const std::wstring& name) const;

    DialogHands& dialog_;
    Unreachable unreachable_;
    std::string acted_; ///< the names of the object that is being acted on
    std::vector<SettingsFault> faults_;
    std::vector<SettingsFault> passedOver_;
};

} // namespace jlandxml
