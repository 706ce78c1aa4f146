#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace jlandxml
{

namespace
{

constexpr bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

constexpr wchar_t Lower(wchar_t character)
{
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

constexpr bool IsHexDigit(wchar_t character)
{
    return IsDigit(character) || (Lower(character) >= L'a' && Lower(character) <= L'f');
}

constexpr bool IsCSpace(wchar_t character)
{
    return character == L' ' || (character >= L'\t' && character <= L'\r');
}

/// Walks over a text; every step says how many characters it took.
class Scanner
{
  public:
    explicit Scanner(std::wstring_view text) : text_(text) {}

    std::size_t Position() const { return position_; }
    void Return(std::size_t position) { position_ = position; }

    template <class Test>
    std::size_t Take(Test test)
    {
        const std::size_t start = position_;
        while (position_ < text_.size() && test(text_[position_]))
        {
            ++position_;
        }
        return position_ - start;
    }

    bool TakeOne(wchar_t character)
    {
        const bool hit = position_ < text_.size() && Lower(text_[position_]) == character;
        position_ += hit ? 1 : 0;
        return hit;
    }

    bool TakeWord(std::wstring_view word)
    {
        const std::size_t start = position_;
        const bool hit = std::all_of(word.begin(), word.end(), [&](wchar_t character) { return TakeOne(character); });
        position_ = hit ? position_ : start;
        return hit;
    }

    /// Digits with at most one point, then an exponent if it is whole. False and nothing taken if there is no digit.
    template <class Test>
    bool TakeMantissaAndExponent(Test isDigit, wchar_t exponentLetter)
    {
        const std::size_t start = position_;
        std::size_t digits = Take(isDigit);
        if (TakeOne(L'.'))
        {
            digits += Take(isDigit);
        }
        if (digits == 0)
        {
            position_ = start;
            return false;
        }
        const std::size_t mantissaEnd = position_;
        if (TakeOne(exponentLetter))
        {
            if (!TakeOne(L'-'))
            {
                TakeOne(L'+');
            }
            if (Take(IsDigit) == 0)
            {
                position_ = mantissaEnd;
            }
        }
        return true;
    }

    bool TakeNanPayload()
    {
        const std::size_t start = position_;
        if (TakeOne(L'('))
        {
            Take([](wchar_t character) {
                return IsDigit(character) || character == L'_' ||
                       (Lower(character) >= L'a' && Lower(character) <= L'z');
            });
            if (TakeOne(L')'))
            {
                return true;
            }
        }
        position_ = start;
        return false;
    }

  private:
    std::wstring_view text_;
    std::size_t position_ = 0;
};

/// The place of the first significant digit, as a power of the base, tells on which side of the range a number lies
/// that from_chars refuses.
bool IsTooLarge(std::string_view number, bool hex)
{
    const std::size_t letter = number.find_first_of(hex ? "pP" : "eE");
    const std::string_view mantissa = number.substr(0, letter);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t significant = mantissa.find_first_not_of("0."); // zero is never refused
    const double place =
        significant < point ? static_cast<double>(point - significant) : -static_cast<double>(significant - point - 1);
    const bool negative = letter != std::string_view::npos && number.substr(letter + 1, 1) == "-";
    double exponent = 0.0;
    if (letter != std::string_view::npos)
    {
        for (const char digit : number.substr(letter + 1))
        {
            exponent = digit >= '0' ? exponent * 10.0 + (digit - '0') : exponent; // a sign comes before the digits
        }
    }
    return place * (hex ? 4.0 : 1.0) + (negative ? -exponent : exponent) > 0.0;
}

double ReadDigits(std::string_view digits, bool hex)
{
    double value = 0.0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value,
                                        hex ? std::chars_format::hex : std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range)
    {
        return IsTooLarge(digits, hex) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return value;
}

/// Reads the digits that the scanner has measured out.
double ReadDigits(std::wstring_view digits, bool hex)
{
    std::array<char, 64> small{};
    std::string large;
    char* narrow = small.data();
    if (digits.size() > small.size())
    {
        large.resize(digits.size());
        narrow = large.data();
    }
    std::transform(digits.begin(), digits.end(), narrow,
                   [](wchar_t character) { return static_cast<char>(character); });
    return ReadDigits(std::string_view(narrow, digits.size()), hex);
}

} // namespace

ParsedDouble ParseDouble(std::wstring_view text)
{
    Scanner scanner(text);
    scanner.Take(IsCSpace);
    const bool negative = scanner.TakeOne(L'-');
    if (!negative)
    {
        scanner.TakeOne(L'+');
    }
    const auto signedResult = [&](double value) { return ParsedDouble{negative ? -value : value, scanner.Position()}; };

    if (scanner.TakeWord(L"inf"))
    {
        scanner.TakeWord(L"inity");
        return signedResult(std::numeric_limits<double>::infinity());
    }
    if (scanner.TakeWord(L"nan"))
    {
        scanner.TakeNanPayload();
        return signedResult(std::numeric_limits<double>::quiet_NaN());
    }
    const std::size_t start = scanner.Position();
    if (scanner.TakeWord(L"0x"))
    {
        const std::size_t digits = scanner.Position();
        if (scanner.TakeMantissaAndExponent(IsHexDigit, L'p'))
        {
            return signedResult(ReadDigits(text.substr(digits, scanner.Position() - digits), true));
        }
        scanner.Return(start);
    }
    if (scanner.TakeMantissaAndExponent(IsDigit, L'e'))
    {
        return signedResult(ReadDigits(text.substr(start, scanner.Position() - start), false));
    }
    return {0.0, 0};
}

ParsedInt ParseInt(std::wstring_view text)
{
    Scanner scanner(text);
    scanner.Take(IsCSpace);
    const bool negative = scanner.TakeOne(L'-');
    if (!negative)
    {
        scanner.TakeOne(L'+');
    }
    const std::size_t start = scanner.Position();
    if (scanner.Take(IsDigit) == 0)
    {
        return {0, 0};
    }
    constexpr std::int64_t LOWEST = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t HIGHEST = std::numeric_limits<std::int32_t>::max();
    std::int64_t value = 0;
    for (const wchar_t digit : text.substr(start, scanner.Position() - start))
    {
        value = std::min<std::int64_t>(value * 10 + (digit - L'0'), -LOWEST);
    }
    return {static_cast<std::int32_t>(std::clamp(negative ? -value : value, LOWEST, HIGHEST)), scanner.Position()};
}

double ParseDecimal(std::wstring_view digits)
{
    return ReadDigits(digits, false);
}

double ParseDecimal(std::string_view digits)
{
    return ReadDigits(digits, false);
}

std::string_view FormatFixed(double value, int digits, FixedBuffer& buffer)
{
    if (std::isnan(value))
    {
        return "nan";
    }
    if (std::isinf(value))
    {
        return value < 0.0 ? "-inf" : "inf";
    }
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, digits);
    return {buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data())};
}

std::wstring FormatFixed(double value, int digits)
{
    FixedBuffer buffer;
    const std::string_view text = FormatFixed(value, digits, buffer);
    return {text.begin(), text.end()};
}

} // namespace jlandxml
