// Text and number conversions on any bytes.

#include "base/Numbers.h"
#include "base/Text.h"
#include "model/NumberText.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace jlandxml;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::wstring text = WideFromUtf8(bytes);
    if (Utf8FromWide(text) != RepairUtf8(bytes) || !IsWellFormedUtf8(Utf8FromWide(text)))
    {
        std::abort();
    }
    const double value = ParseDouble(text).value;
    FixedText(value, 8);
    NumberText(value, 12);
    ParseInt(text);
    WideFromCp932(bytes);
    Cp932FromWide(text);
    return 0;
}
