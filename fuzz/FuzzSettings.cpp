// Reading settings: any bytes are settings or a settings error of one line.

#include "FuzzInput.h"
#include "cli/Settings.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace jlandxml;
    static const TestFolder folder;
    try
    {
        ReadSettings(folder.Write(L"settings.json", std::string(fuzz::Bytes(data, size))));
    }
    catch (const SettingsError& error)
    {
        if (std::string_view(error.what()).find('\n') != std::string_view::npos)
        {
            std::abort();
        }
    }
    return 0;
}
