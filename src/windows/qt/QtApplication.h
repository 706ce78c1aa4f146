#pragma once

#include "windows/Window.h"

class QWidget;

namespace jlandxml
{

/// Joins the application object of the host, or makes one that lives as long as the process. False without a display,
/// and on another thread than that of the application object, where Qt has no windows.
bool EnsureApplication();

/// Shows a text with only an OK button over a widget, or over none, and returns when the user has closed it.
void ShowMessageBox(QWidget* parent, const std::wstring& text, MessageIcon icon);

} // namespace jlandxml
