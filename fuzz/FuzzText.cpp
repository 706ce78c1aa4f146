// Text and number conversions on any bytes, and the small languages that texts of the format hold.

#include "base/Numbers.h"
#include "base/Text.h"
#include "model/DescText.h"
#include "model/FViewPntList2D.h"
#include "model/FViewWidening.h"
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
    DescMap descriptions;
    ParseDescText(text, descriptions);
    PiCmList<PiGmPoint> points;
    ParsePointList(text, points);
    double first = 0.0;
    double second = 0.0;
    SplitNumberPair(text, first, second);
    FViewWidening widening;
    if (ParseWideningText(text, widening.station, widening.width, widening.code))
    {
        FormatWideningText(widening);
    }
    return 0;
}
