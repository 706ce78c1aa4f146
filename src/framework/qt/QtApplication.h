#pragma once

namespace jlandxml
{

/// Joins the application object of the host, or makes one that lives as long as the process. False without a display,
/// and on another thread than that of the application object, where Qt has no windows.
bool EnsureApplication();

} // namespace jlandxml
