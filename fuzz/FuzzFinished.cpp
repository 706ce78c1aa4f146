// Any document ends up the same whether passages and texts stay apart from the tree's nodes or the parser alone reads
// it.

#include "base/Exceptions.h"
#include "run/FinishedDocument.h"
#include "xml/WcXmDocument.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

namespace
{

/// The finished form, or that it would be too deep; of a document that isn't well formed, nothing.
std::string Finished(const std::uint8_t* data, std::size_t size, bool keepsPassages)
{
    jlandxml::WcXmAppDocument document;
    document.keepsPassages = keepsPassages;
    jlandxml::ParserBuffer content(size);
    std::copy(data, data + size, content.Data());
    std::string text;
    if (!document.LoadBytes(std::move(content)))
    {
        return text;
    }
    try
    {
        jlandxml::PrintFinished(document, [&](std::string_view bytes) { text += bytes; });
    }
    catch (const jlandxml::CException&)
    {
        return "too deep";
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (Finished(data, size, true) != Finished(data, size, false))
    {
        std::abort();
    }
    return 0;
}
