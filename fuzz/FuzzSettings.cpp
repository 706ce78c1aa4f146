// Reading settings: any bytes are settings, or a settings error with one line for each wrong place.

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
        for (const SettingsFault& fault : error.Faults())
        {
            if (fault.Line().find('\n') != std::string::npos)
            {
                std::abort();
            }
        }
    }
    return 0;
}
