#pragma once

#include "windows/DialogHands.h"
#include "windows/Window.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

// A window layer under test, and a dialog with controls of every kind to try it with.

namespace jlandxml
{

/// A window layer with a person in front of it.
class DialogLayer
{
  public:
    /// Works a window after it has opened. A window that is still open when it returns is cancelled.
    using User = std::function<void(DialogWindow&, DialogHands&)>;

    DialogLayer() = default;
    DialogLayer(const DialogLayer&) = delete;
    DialogLayer& operator=(const DialogLayer&) = delete;
    virtual ~DialogLayer() = default;

    virtual WindowSystem& Windows() = 0;
    virtual void SetUser(User user) = 0;
};

/// Writes down the events of one window and acts on them. The data behind a tree's items are texts.
class RecordedEvents final : public DialogEvents
{
  public:
    using Lines = std::vector<std::wstring>;

    void OnInitDialog() override
    {
        lines.emplace_back(L"init");
        onInit(*window);
    }

    void OnClick(int control) override
    {
        lines.push_back(L"click " + std::to_wstring(control));
        onClick(*window, control);
    }

    void OnTextChanged(int control) override
    {
        lines.push_back(L"text " + std::to_wstring(control) + L" " + window->Text(control));
        onText(*window, control);
    }

    long OnTreeSelectionChanged(int control, TreeItem item) override
    {
        const auto* const data =
            item == nullptr ? nullptr : static_cast<const wchar_t*>(window->TreeItemData(control, item));
        lines.push_back(L"tree " + std::to_wstring(control) + L" " + (data == nullptr ? L"none" : data));
        return treeResult;
    }

    /// What has happened since the last look.
    Lines Taken() { return std::exchange(lines, {}); }

    DialogWindow* window = nullptr;
    std::function<void(DialogWindow&)> onInit = [](DialogWindow&) {};
    std::function<void(DialogWindow&, int)> onClick = [](DialogWindow&, int) {};
    std::function<void(DialogWindow&, int)> onText = [](DialogWindow&, int) {};
    long treeResult = 0;
    Lines lines;
};

namespace conformance
{

inline constexpr int CLOSE = 3;
inline constexpr int EDIT = 10;
inline constexpr int OTHER_EDIT = 11;
inline constexpr int READ_ONLY = 12;
inline constexpr int LIST = 13;
inline constexpr int SORTED = 14;
inline constexpr int BOX = 15;
inline constexpr int FIRST = 16;
inline constexpr int SECOND = 17;
inline constexpr int THIRD = 18;
inline constexpr int FIRST_OF_OTHERS = 19;
inline constexpr int SECOND_OF_OTHERS = 20;
inline constexpr int TREE = 21;
inline constexpr int LABEL = 22;
inline constexpr int GROUP = 23;

inline constexpr ControlTemplate CONTROLS[] = {
    {EDIT, ControlKind::Edit, L"", 7, 7, 60, 14},
    {OTHER_EDIT, ControlKind::Edit, L"", 7, 23, 60, 14},
    {READ_ONLY, ControlKind::ReadOnlyEdit, L"", 7, 39, 60, 14},
    {LIST, ControlKind::List, L"", 7, 55, 60, 14, 120},
    {SORTED, ControlKind::SortedList, L"", 7, 71, 60, 14, 120},
    {BOX, ControlKind::SortedListBox, L"", 80, 7, 60, 60},
    {FIRST, ControlKind::FirstRadio, L"一", 7, 90, 40, 10},
    {SECOND, ControlKind::Radio, L"二", 50, 90, 40, 10},
    {THIRD, ControlKind::Radio, L"三", 95, 90, 40, 10},
    {FIRST_OF_OTHERS, ControlKind::FirstRadio, L"甲", 7, 105, 40, 10},
    {SECOND_OF_OTHERS, ControlKind::Radio, L"乙", 50, 105, 40, 10},
    {TREE, ControlKind::Tree, L"", 150, 7, 80, 80},
    {LABEL, ControlKind::Label, L"名称", 150, 90, 40, 8},
    {GROUP, ControlKind::Group, L"枠", 145, 88, 90, 30},
    {CLOSE, ControlKind::Button, L"閉じる", 7, 130, 50, 14},
    {ACCEPT_COMMAND, ControlKind::DefaultButton, L"OK", 64, 130, 50, 14},
    {CANCEL_COMMAND, ControlKind::Button, L"キャンセル", 121, 130, 50, 14},
};

inline constexpr DialogTemplate TEMPLATE{7, L"試験", 240, 150, CONTROLS};

/// A window with nothing but its default button.
inline constexpr ControlTemplate SMALL_CONTROLS[] = {
    {ACCEPT_COMMAND, ControlKind::DefaultButton, L"OK", 7, 7, 50, 14},
};

inline constexpr DialogTemplate SMALL_TEMPLATE{8, L"小さい試験", 64, 28, SMALL_CONTROLS};

} // namespace conformance

} // namespace jlandxml
