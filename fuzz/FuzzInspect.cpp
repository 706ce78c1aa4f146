// Reading and judging any file.

#include "base/Exceptions.h"
#include "inspect/Checks.h"
#include "inspect/Printing.h"
#include "inspect/ReadLandXml.h"
#include "inspect/Report.h"
#include "inspect/Summary.h"
#include "inspect/Tables.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace jlandxml;
    using namespace jlandxml::inspect;
    const std::vector<const Check*> checks = EveryCheck();
    try
    {
        const LandXmlFile file = ReadLandXmlBytes({reinterpret_cast<const char*>(data), size}, L"fuzz.xml");
        const std::vector<Finding> findings = Inspect(file, checks);
        SummaryText(file);
        FindingsText(findings);
        JsonLine(file, findings);
        ReportPage(file, findings);
        for (const Table& table : AllTables(file))
        {
            CsvText(table);
        }
    }
    catch (const CException&)
    {
        // No LandXML.
    }
    return 0;
}
