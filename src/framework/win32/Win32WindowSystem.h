#pragma once

#include "framework/Window.h"

namespace jlandxml
{

/// The window layer of Windows.
class Win32WindowSystem : public WindowSystem
{
  public:
    void ShowMessage(const std::wstring& text, MessageIcon icon) override;
};

} // namespace jlandxml
