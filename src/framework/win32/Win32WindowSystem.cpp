#include "framework/win32/Win32WindowSystem.h"

#include <windows.h>

namespace jlandxml
{

void Win32WindowSystem::ShowMessage(const std::wstring& text, MessageIcon icon)
{
    const UINT style = MB_OK | (icon == MessageIcon::Exclamation ? MB_ICONEXCLAMATION : 0U);
    MessageBoxW(GetActiveWindow(), text.c_str(), MESSAGE_CAPTION, style);
}

} // namespace jlandxml
