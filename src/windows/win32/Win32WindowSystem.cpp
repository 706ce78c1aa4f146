#include "windows/win32/Win32WindowSystem.h"

#include "windows/win32/ModuleWindows.h"
#include "windows/win32/Win32Dialog.h"

namespace jlandxml
{

void Win32WindowSystem::ShowMessage(const std::wstring& text)
{
    ShowMessageBox(OwnerOfNextWindow(), text);
}

std::unique_ptr<DialogWindow> Win32WindowSystem::MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                                  DialogWindow* owner)
{
    return std::make_unique<Win32Dialog>(dialog, events, dynamic_cast<Win32Dialog*>(owner));
}

void Win32WindowSystem::RaiseOpenWindow()
{
    RaiseModalWindow();
}

} // namespace jlandxml
