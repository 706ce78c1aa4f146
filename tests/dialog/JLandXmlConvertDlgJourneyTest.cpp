#include "support/ConvertDlgFixture.h"

#include <algorithm>
#include <map>
#include <random>

namespace jlandxml
{
namespace
{

using namespace convert_dlg;
using Texts = std::map<int, std::wstring>;

/// A text that a person may type, and where the typing filter lets it stand.
struct TypedText
{
    const wchar_t* text;
    bool interval;
    bool traffic;
};

constexpr TypedText TYPED[] = {
    {L"", true, true},       {L"0", true, true},      {L"0.5", true, true},  {L"20", true, true},
    {L"9999", true, true},   {L"12345", false, true}, {L"01", false, false}, {L"1e3", false, false},
    {L"1.5.", false, false}, {L"-1", false, false},   {L"2.25", true, true}, {L"1234567", false, false},
};

constexpr int ROUTE_LISTS_AND_EDITS[] = {ROAD_CLASSIFICATION_LIST, RIVER_CLASSIFICATION_LIST, RIVER_SIDE_LIST,
                                         TRAFFIC_VOLUME_EDIT};

/// A route as a person remembers it.
struct NaiveRoute
{
    bool river;
    Texts left; ///< what was left in each control
};

/// An object of the tree as a person remembers it.
struct NaiveObject
{
    std::vector<std::size_t> path;
    int route = -1; ///< whose panel is shown too
    Texts left = {};
    std::vector<int> locked = {};
};

class ConvertDlgJourney : public ConvertDlgTest, public testing::WithParamInterface<unsigned>
{
  protected:
    ConvertDlgJourney()
    {
        LoadSample();
        Model().project.name.clear();
        Model().alignments[0].trafficVolume = L"1e3";
        Model().alignments[1].alignments[0].normalCrown = -2.0;
        routes = {
            {false, {{TRAFFIC_VOLUME_EDIT, L""}}},
            {true, {{RIVER_SIDE_LIST, L"左岸"}}},
            {false, {}},
        };
        objects = {
            {{0}, 0},
            {{0, 0},
             0,
             {{MAIN_INTERVAL_EDIT, L"20.0000"},
              {SUB_INTERVAL_EDIT, L""},
              {NORMAL_CROWN_EDIT, L"2.0000"},
              {METHOD_LIST, L"クロソイド法"},
              {LANES_LIST, L"一車線道路"},
              {SUPERELEVATION_DEFINITION_LIST, L"任意片勾配"}},
             {MAIN_INTERVAL_EDIT, METHOD_LIST}},
            {{0, 1},
             0,
             {{MAIN_INTERVAL_EDIT, L""},
              {SUB_INTERVAL_EDIT, L""},
              {NORMAL_CROWN_EDIT, L""},
              {METHOD_LIST, L"要素法"},
              {LANES_LIST, L"多車線道路"},
              {SUPERELEVATION_DEFINITION_LIST, L"片勾配すりつけ"}}},
            {{1}, 1},
            {{1, 0},
             1,
             {{MAIN_INTERVAL_EDIT, L""},
              {SUB_INTERVAL_EDIT, L"5.0000"},
              {NORMAL_CROWN_EDIT, L""},
              {METHOD_LIST, L"要素法"},
              {LANES_LIST, L"多車線道路"},
              {SUPERELEVATION_DEFINITION_LIST, L"片勾配すりつけ"}},
             {SUB_INTERVAL_EDIT, METHOD_LIST}},
            {{2}, 2},
            {{3}},
            {{3, 0}, -1, {{SURFACE_REFERENCE_LIST, L"本線"}, {SURFACE_KIND_LIST, L"路床面"}}, {SURFACE_REFERENCE_LIST}},
            {{3, 1}, -1, {{SURFACE_REFERENCE_LIST, L""}, {SURFACE_KIND_LIST, L"現況地形"}}},
            {{4}},
            {{5}},
            {{5, 0}, -1, {{INTERMEDIATE_REFERENCE_LIST, L""}}},
            {{5, 1}, -1, {{INTERMEDIATE_REFERENCE_LIST, L"どこにもない線形"}}, {INTERMEDIATE_REFERENCE_LIST}},
            {{5, 2},
             -1,
             {{WIDTH_STAKE_REFERENCE_LIST, L""}, {CLOSURE_TYPE_LIST, L"閉合型"}, {WIDTH_STAKE_DESC_EDIT, L"用地"}}},
            {{5, 3},
             -1,
             {{WIDTH_STAKE_REFERENCE_LIST, L"支線"}, {CLOSURE_TYPE_LIST, L"開放型"}, {WIDTH_STAKE_DESC_EDIT, L""}},
             {WIDTH_STAKE_REFERENCE_LIST}},
        };
    }

    std::size_t Any(std::size_t count) { return random() % count; }

    // What a person remembers.

    /// The controls of the selected object as they stand now.
    void Show(NaiveObject* object)
    {
        selected = object;
        now.clear();
        if (selected == nullptr)
        {
            return;
        }
        now = selected->left;
        for (const int interval : {MAIN_INTERVAL_EDIT, SUB_INTERVAL_EDIT})
        {
            if (now.count(interval) == 1 && now[interval] == L"0")
            {
                now[interval].clear();
            }
        }
        if (selected->route >= 0)
        {
            NaiveRoute& route = routes[static_cast<std::size_t>(selected->route)];
            river = route.river;
            now[ROAD_CLASSIFICATION_LIST] = river ? L"" : route.left[ROAD_CLASSIFICATION_LIST];
            now[RIVER_CLASSIFICATION_LIST] = river ? route.left[RIVER_CLASSIFICATION_LIST] : L"";
            now[RIVER_SIDE_LIST] = river ? route.left[RIVER_SIDE_LIST] : L"";
            now[TRAFFIC_VOLUME_EDIT] = route.left[TRAFFIC_VOLUME_EDIT];
        }
    }

    /// Keeps what stands in the controls: what is locked or not chosen stays as it was.
    void Leave()
    {
        if (selected == nullptr)
        {
            return;
        }
        for (auto& [control, text] : selected->left)
        {
            const bool edit = IsEdit(FindControl(TEMPLATE, control)->kind);
            // A method that no list entry of the standard stands for is shown, but can't be taken over.
            const bool taken = control != METHOD_LIST || now[control] != L"クロソイド法";
            if (!IsLocked(control) && taken && (edit || !now[control].empty()))
            {
                text = now[control];
            }
        }
        if (selected->route >= 0)
        {
            NaiveRoute& route = routes[static_cast<std::size_t>(selected->route)];
            route.river = river;
            for (const int control : ROUTE_LISTS_AND_EDITS)
            {
                if (IsOfRouteKind(control) && (control == TRAFFIC_VOLUME_EDIT || !now[control].empty()))
                {
                    route.left[control] = now[control];
                }
            }
        }
    }

    bool IsLocked(int control) const
    {
        return std::find(selected->locked.begin(), selected->locked.end(), control) != selected->locked.end();
    }

    bool IsOfRouteKind(int control) const
    {
        return (control == RIVER_CLASSIFICATION_LIST || control == RIVER_SIDE_LIST) == river;
    }

    static bool IsOfRoute(int control)
    {
        return std::find(std::begin(ROUTE_LISTS_AND_EDITS), std::end(ROUTE_LISTS_AND_EDITS), control) !=
               std::end(ROUTE_LISTS_AND_EDITS);
    }

    bool CanEdit(int control) const { return IsOfRoute(control) ? IsOfRouteKind(control) : !IsLocked(control); }

    // What a person does.

    void Compare(const ScriptedDialog& window) const
    {
        for (const auto& [control, text] : now)
        {
            ASSERT_EQ(window.Text(control), text) << control;
            ASSERT_EQ(window.CanReach(control), CanEdit(control)) << control;
        }
        if (selected != nullptr && selected->route >= 0)
        {
            ASSERT_EQ(window.IsChecked(RIVER_RADIO), river);
            ASSERT_EQ(window.IsChecked(ROAD_RADIO), !river);
        }
    }

    void SelectAny(ScriptedDialog& window)
    {
        const std::size_t place = Any(objects.size() + 1);
        NaiveObject* const object = place == objects.size() ? nullptr : &objects[place];
        if (object == selected)
        {
            return;
        }
        TreeItem item = nullptr;
        if (object != nullptr)
        {
            item = window.TreeChildren(OBJECT_TREE, nullptr).at(object->path[0]);
            item = object->path.size() == 1 ? item : window.TreeChildren(OBJECT_TREE, item).at(object->path[1]);
        }
        window.ChooseTreeItem(OBJECT_TREE, item);
        Leave();
        Show(object);
    }

    void EditAny(ScriptedDialog& window)
    {
        if (now.empty())
        {
            return;
        }
        auto place = now.begin();
        std::advance(place, Any(now.size()));
        auto& [control, text] = *place;
        if (IsEdit(FindControl(TEMPLATE, control)->kind))
        {
            const TypedText& typed = TYPED[Any(std::size(TYPED))];
            ASSERT_EQ(window.Type(control, typed.text), CanEdit(control));
            const bool stands =
                control == WIDTH_STAKE_DESC_EDIT || (control == TRAFFIC_VOLUME_EDIT ? typed.traffic : typed.interval);
            if (CanEdit(control) && stands)
            {
                text = typed.text;
            }
            return;
        }
        const int entry = static_cast<int>(Any(static_cast<std::size_t>(window.EntryCount(control))));
        ASSERT_EQ(window.ChooseEntry(control, entry), CanEdit(control));
        if (CanEdit(control))
        {
            text = window.EntryText(control, entry);
        }
    }

    void SwitchRoute(ScriptedDialog& window)
    {
        const bool toRiver = Any(2) == 1;
        const bool reachable = selected != nullptr && selected->route >= 0;
        ASSERT_EQ(window.Click(toRiver ? RIVER_RADIO : ROAD_RADIO), reachable);
        river = reachable ? toRiver : river;
    }

    void TryOutput(ScriptedDialog& window)
    {
        const std::size_t lists = findings.size();
        window.Click(OUTPUT_BUTTON);
        ASSERT_EQ(findings.size(), lists + 1);
        Leave();
    }

    void Walk(ScriptedDialog& window, std::size_t steps)
    {
        for (std::size_t step = 0; step < steps; ++step)
        {
            const std::size_t act = Any(20);
            if (act < 6)
            {
                SelectAny(window);
            }
            else if (act < 16)
            {
                EditAny(window);
            }
            else if (act < 19)
            {
                SwitchRoute(window);
            }
            else
            {
                TryOutput(window);
            }
            Compare(window);
            if (HasFatalFailure())
            {
                return;
            }
        }
    }

    std::mt19937 random{GetParam()};
    std::vector<NaiveRoute> routes;
    std::vector<NaiveObject> objects;
    NaiveObject* selected = nullptr;
    bool river = false;
    Texts now; ///< what stands in the selected object's controls
};

TEST_P(ConvertDlgJourney, ShowsEverywhereWhatWasLeftThereAndCancelsWithoutATrace)
{
    Context().loadedModel = Model();
    EXPECT_EQ(Open([&](ScriptedDialog& window) {
                  Walk(window, Any(500));
                  window.PressEscape();
              }),
              DialogResult::Cancelled);
    EXPECT_EQ(Dump(Model()), Dump(Context().loadedModel));
    EXPECT_EQ(windows.Messages(), std::vector<ShownMessage>{});
}

INSTANTIATE_TEST_SUITE_P(ConvertDlg, ConvertDlgJourney, testing::Range(1U, 61U),
                         [](const auto& row) { return "Seed" + std::to_string(row.param); });

} // namespace
} // namespace jlandxml
