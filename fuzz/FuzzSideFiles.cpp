// Each of the four side files alone, on a route that has all that they look for. The first byte says which one.

#include "FuzzInput.h"
#include "base/Exceptions.h"
#include "run/ConversionContext.h"
#include "run/ExportRun.h"
#include "run/LoadRun.h"
#include "sidefiles/LoadSideFiles.h"

#include <cstdio>

namespace
{

constexpr const char* ROUTE =
    "<LandXML><Alignments><Alignment name='A' staStart='0' length='500'><CoordGeom><Line length='500'>"
    "<Start>0 0</Start><End>0 500</End></Line></CoordGeom>"
    "<CrossSects><CrossSect sta='0'/><CrossSect sta='100'/></CrossSects></Alignment></Alignments></LandXML>";

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace jlandxml;
    static const TestFolder folder;
    static const std::wstring workFile = folder.Write(L"Landxml_temp.xml", ROUTE);
    if (size == 0)
    {
        return 0;
    }
    // The others find their alignment by the name that the first one holds.
    folder.Write(L"intermediatePts_temp_1.csv", "points,A\nName,X,Y\n");
    const std::size_t chosen = data[0] % SIDE_FILES.size();
    const std::wstring path = SideFilePath(folder.Name(), SIDE_FILES[chosen], 1);
    folder.Write(path.substr(folder.Name().size() + 1), std::string(fuzz::Bytes(data + 1, size - 1)));
    try
    {
        LoadRun(workFile);
        LoadSideFiles(folder.Name(), 1);
        ExportRun(folder.Name(L"out.xml"));
    }
    catch (const CException&)
    {
        // A row that the loader tells of.
    }
    std::filesystem::remove(NativePath(path));
    GetConversionContext().model = FViewLandXML();
    return 0;
}
