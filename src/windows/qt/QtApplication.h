#pragma once

#include <string>

class QWidget;

namespace jlandxml
{

/// Joins the application object of the host, or makes one that lives as long as the process. False without a display,
/// and on another thread than that of the application object, where Qt has no windows.
bool EnsureApplication();

/// The window that a new one of the module stands over: the modal one in front if there is one. Otherwise it is the
/// root owner of the host's active window, since the active one may be a palette; or, while another program is in
/// front, the first window that has no owner. Null if there is none.
QWidget* OwnerOfNextWindow();

/// Shows a text with an exclamation icon and only an OK button over a widget, or over none, and returns when the user
/// has closed it.
void ShowMessageBox(QWidget* parent, const std::wstring& text);

} // namespace jlandxml
