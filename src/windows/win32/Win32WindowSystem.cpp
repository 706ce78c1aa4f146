#include "windows/win32/Win32WindowSystem.h"

#include "windows/win32/ModuleWindows.h"
#include "windows/win32/Win32Dialog.h"

namespace jlandxml
{

void Win32WindowSystem::ShowMessage(const std::wstring& text, MessageIcon icon)
{
    const VisualStyles styles;
    const UINT style = MB_OK | (icon == MessageIcon::Exclamation ? MB_ICONEXCLAMATION : 0U);
    MessageBoxW(HostWindow(), text.c_str(), MESSAGE_CAPTION, style);
}

std::unique_ptr<DialogWindow> Win32WindowSystem::MakeDialogWindow(const DialogTemplate& dialog, DialogEvents& events,
                                                                  DialogWindow* owner)
{
    return std::make_unique<Win32Dialog>(dialog, events, dynamic_cast<Win32Dialog*>(owner));
}

} // namespace jlandxml
