#pragma once

#include "framework/Window.h"

#include <vector>

namespace jlandxml
{

/// One message box that the module has shown.
struct ShownMessage
{
    std::wstring text;
    MessageIcon icon;

    bool operator==(const ShownMessage&) const = default;
};

/// The window layer without a display: it records what is shown and answers at once, for tests and the command line.
class ScriptedWindowSystem : public WindowSystem
{
  public:
    void ShowMessage(const std::wstring& text, MessageIcon icon) override { messages_.push_back({text, icon}); }

    /// The message boxes in the order in which they were shown.
    const std::vector<ShownMessage>& Messages() const { return messages_; }

  private:
    std::vector<ShownMessage> messages_;
};

} // namespace jlandxml
