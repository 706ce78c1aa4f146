// Reading a document in any encoding, with passages and without, and what becomes of it when it is printed and saved.

#include "FuzzInput.h"
#include "run/FinishedDocument.h"
#include "xml/WcXmDocument.h"

#include <cstring>

namespace
{

using namespace jlandxml;

ParserBuffer BufferOf(std::string_view bytes)
{
    ParserBuffer buffer(bytes.size());
    std::memcpy(buffer.Data(), bytes.data(), bytes.size());
    return buffer;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TestFolder folder;
    for (const bool keepsPassages : {true, false})
    {
        WcXmAppDocument document;
        document.keepsPassages = keepsPassages;
        if (document.LoadBytes(BufferOf(fuzz::Bytes(data, size))))
        {
            PrintFinished(document, [](std::string_view) {});
            document.SaveDocument(folder.Name(L"saved.xml"));
            document.EnsureDeclaration();
            PrintFinished(document, [](std::string_view) {});
        }
    }
    return 0;
}
