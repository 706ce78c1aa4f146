#include "windows/Window.h"

#include "windows/scripted/ScriptedWindowSystem.h"

namespace jlandxml
{

namespace
{

WindowSystem*& Current()
{
    static WindowSystem* system = nullptr;
    return system;
}

} // namespace

WindowSystem& GetWindowSystem()
{
    static ScriptedWindowSystem nothingShown;
    return Current() != nullptr ? *Current() : nothingShown;
}

WindowSystem* SetWindowSystem(WindowSystem* system)
{
    WindowSystem* const former = Current();
    Current() = system;
    return former;
}

} // namespace jlandxml
