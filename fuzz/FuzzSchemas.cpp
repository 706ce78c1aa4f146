// Any schema, with one that it may include as part.xsd, and a file that is held against it. An input holds the three
// with a line of equals signs between them.

#include "FuzzInput.h"
#include "base/Exceptions.h"
#include "inspect/SchemaValidation.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace jlandxml;
    static const TestFolder& folder = *new TestFolder;
    const std::vector<std::string> files = fuzz::Files(fuzz::Bytes(data, size), 3);
    folder.Write(L"part.xsd", files[1]);
    try
    {
        const inspect::XmlSchema schema(folder.Write(L"schema.xsd", files[0]));
        schema.Validate(files[2]);
    }
    catch (const CException&)
    {
        // No schema.
    }
    return 0;
}
