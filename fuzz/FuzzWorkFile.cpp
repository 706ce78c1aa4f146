// A whole run on any work file.

#include "run/ExportRun.h"
#include "run/LoadRun.h"
#include "support/TemporaryFolder.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const jlandxml::TestFolder folder;
    jlandxml::LoadRun(folder.Write(L"Landxml_temp.xml", {reinterpret_cast<const char*>(data), size}));
    jlandxml::ExportRun(folder.Name(L"out.xml"));
    return 0;
}
