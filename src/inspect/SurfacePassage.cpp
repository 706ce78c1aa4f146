#include "inspect/SurfacePassage.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <limits>

namespace jlandxml::inspect
{

namespace
{

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

bool IsBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

/// False for what isn't well-formed XML wherever it stands, be it in a comment or an instruction: then it is the
/// parser's, and the judge of the file's form sees it.
bool IsSoundEverywhere(std::string_view element)
{
    constexpr std::string_view ENDS[] = {"--", "]]>", "?>", "\xEF\xBF\xBE", "\xEF\xBF\xBF"};
    const auto isCharacter = [](char byte) { return static_cast<unsigned char>(byte) >= ' ' || IsBlank(byte); };
    const auto isThere = [&](std::string_view end) { return element.find(end) != std::string_view::npos; };
    return IsWellFormedUtf8(element) && std::all_of(element.begin(), element.end(), isCharacter) &&
           std::none_of(std::begin(ENDS), std::end(ENDS), isThere);
}

/// True for a name of ASCII letters and what may stand behind the first; namespaces aren't known here.
bool IsPlainName(std::string_view name)
{
    const auto isLetter = [](char byte) { return (FoldAscii(byte) >= 'a' && FoldAscii(byte) <= 'z') || byte == '_'; };
    const auto isOfName = [&](char byte) {
        return isLetter(byte) || (byte >= '0' && byte <= '9') || byte == '-' || byte == '.';
    };
    return !name.empty() && isLetter(name.front()) && std::all_of(name.begin(), name.end(), isOfName);
}

/// Takes words off the front of a text.
class WordReader
{
  public:
    explicit WordReader(std::string_view text) : rest_(text) {}

    /// Empty at the end.
    std::string_view Next()
    {
        const auto start = std::find_if_not(rest_.begin(), rest_.end(), IsBlank);
        const auto end = std::find_if(start, rest_.end(), IsBlank);
        const std::string_view word(start, end);
        rest_ = std::string_view(end, rest_.end());
        return word;
    }

  private:
    std::string_view rest_;
};

/// The powers of ten that a double holds exactly.
constexpr double POWERS_OF_TEN[] = {1,    1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Moves over digits, up to an end, and appends them to a number.
const char* TakeDigits(const char* at, const char* end, std::uint64_t& number)
{
    for (; at != end; ++at)
    {
        const auto digit = static_cast<unsigned>(*at - '0');
        if (digit > 9)
        {
            break;
        }
        number = number * 10 + digit;
    }
    return at;
}

/// Moves over a plain decimal number of up to 15 digits: an integer below 2^53 over a power of ten, both exact, so that
/// their quotient is the nearest double (Clinger, How to Read Floating Point Numbers Accurately, 1990). Null if there
/// is none.
const char* TakePlainDecimal(const char* at, const char* end, double& value)
{
    constexpr std::ptrdiff_t MOST_DIGITS = 15;
    const bool isNegative = at != end && *at == '-';
    const char* const begin = isNegative ? at + 1 : at;
    std::uint64_t digits = 0;
    at = TakeDigits(begin, begin + std::min(MOST_DIGITS, end - begin), digits);
    std::ptrdiff_t count = at - begin;
    std::ptrdiff_t decimals = 0;
    if (at != end && *at == '.')
    {
        const char* const behind = at + 1;
        at = TakeDigits(behind, behind + std::min(MOST_DIGITS - count, end - behind), digits);
        decimals = at - behind;
        count += decimals;
    }
    const double plain = static_cast<double>(digits) / POWERS_OF_TEN[decimals];
    value = isNegative ? -plain : plain;
    return count > 0 ? at : nullptr;
}

double ReadCoordinate(std::string_view word)
{
    double value = NOT_A_NUMBER;
    const char* const end = word.data() + word.size();
    if (TakePlainDecimal(word.data(), end, value) == end)
    {
        return value;
    }
    value = NOT_A_NUMBER;
    const char* const begin = word.data() + (word.starts_with('+') ? 1 : 0);
    const std::from_chars_result read = std::from_chars(begin, end, value);
    return read.ec == std::errc() && read.ptr == end ? value : NOT_A_NUMBER;
}

std::uint32_t ReadId(std::string_view word)
{
    std::uint32_t value = 0;
    const char* const end = word.data() + word.size();
    const std::from_chars_result read = std::from_chars(word.data(), end, value);
    return read.ec == std::errc() && read.ptr == end ? value : 0;
}

/// Takes the coordinates of a point off the front of its text.
SurfacePoint TakePoint(WordReader& words, std::string_view id, std::size_t line)
{
    const double north = ReadCoordinate(words.Next());
    const double east = ReadCoordinate(words.Next());
    const double height = ReadCoordinate(words.Next());
    return {north, east, height, ReadId(WordReader(id).Next()), static_cast<std::uint32_t>(line)};
}

/// Reads an element as programs write it as a rule, without a blank or a line end more than there must be. What it
/// doesn't read may still be plain.
class PlainestReader
{
  public:
    explicit PlainestReader(const char* at) : at_(at) {}

    /// No such element is longer.
    static constexpr std::size_t LONGEST = 128;

    const char* At() const { return at_; }

    template <std::size_t SIZE>
    bool Take(const char (&text)[SIZE])
    {
        const bool isThere = std::memcmp(at_, text, SIZE - 1) == 0;
        at_ += isThere ? SIZE - 1 : 0;
        return isThere;
    }

    bool TakeId(std::uint32_t& id)
    {
        constexpr std::ptrdiff_t MOST_DIGITS = 9;
        const char* const begin = at_;
        std::uint64_t digits = 0;
        at_ = TakeDigits(begin, begin + MOST_DIGITS, digits);
        id = static_cast<std::uint32_t>(digits);
        return at_ != begin;
    }

    bool TakeCoordinate(double& value)
    {
        constexpr std::ptrdiff_t MOST_CHARACTERS = 17; // a sign, 15 digits and a point
        const char* const behind = TakePlainDecimal(at_, at_ + MOST_CHARACTERS, value);
        at_ = behind != nullptr ? behind : at_;
        return behind != nullptr;
    }

  private:
    const char* at_;
};

/// A scan over bytes that stops at anything that isn't plain.
class PassageScanner
{
  public:
    PassageScanner(std::string_view bytes, std::size_t line) : bytes_(bytes), line_(line) {}

    std::optional<SurfacePassage> Scan()
    {
        SurfacePassage passage;
        const std::size_t firstLine = line_;
        while (SkipBlanks() && bytes_[position_] == '<')
        {
            if (Has("</"))
            {
                GiveBackRoom(passage.points);
                GiveBackRoom(passage.faces);
                passage.length = position_;
                passage.lines = line_ - firstLine;
                for (std::size_t side = 0; side < farthest_.sides.size(); ++side)
                {
                    passage.farthest.sides[side] = {farthest_.sides[side].point,
                                                    std::string(farthest_.sides[side].text)};
                }
                return passage;
            }
            if (!ScanElement(passage))
            {
                return {};
            }
            MakeRoom(passage);
        }
        return {};
    }

  private:
    /// Once it is known how long elements are here, makes room for as many as the rest of the file can hold: growing
    /// step by step would move them again and again. Room that nothing is put into costs no memory.
    void MakeRoom(SurfacePassage& passage) const
    {
        constexpr std::size_t ENOUGH = 200;
        const std::size_t count = passage.points.size() + passage.faces.size();
        if (count == ENOUGH)
        {
            const std::size_t most = count + (bytes_.size() - position_) / (position_ / count) * 9 / 8;
            if (passage.faces.empty())
            {
                passage.points.reserve(most);
            }
            else
            {
                passage.faces.reserve(most);
            }
        }
    }

    /// A short passage of a long file.
    template <class Element>
    static void GiveBackRoom(std::vector<Element>& elements)
    {
        if (elements.capacity() / 4 > elements.size())
        {
            elements.shrink_to_fit();
        }
    }

    bool AtEnd() const { return position_ >= bytes_.size(); }
    bool Has(std::string_view text) const { return bytes_.substr(position_, text.size()) == text; }

    /// False at the end of the bytes.
    bool SkipBlanks()
    {
        for (; !AtEnd() && IsBlank(bytes_[position_]); ++position_)
        {
            line_ += bytes_[position_] == '\n' ? 1 : 0;
        }
        return !AtEnd();
    }

    bool Take(std::string_view text)
    {
        const bool isThere = Has(text);
        position_ += isThere ? text.size() : 0;
        return isThere;
    }

    bool ScanElement(SurfacePassage& passage)
    {
        return bytes_.size() - position_ >= PlainestReader::LONGEST
                   ? ScanPlainestPoint(passage) || ScanPlainestFace(passage) || ScanAnyElement(passage)
                   : ScanAnyElement(passage);
    }

    bool ScanPlainestPoint(SurfacePassage& passage)
    {
        PlainestReader reader(bytes_.data() + position_);
        SurfacePoint point{};
        if (!reader.Take("<P id=\"") || !reader.TakeId(point.id) || !reader.Take("\">"))
        {
            return false;
        }
        const char* const text = reader.At();
        if (!reader.TakeCoordinate(point.north) || !reader.Take(" ") || !reader.TakeCoordinate(point.east) ||
            !reader.Take(" ") || !reader.TakeCoordinate(point.height))
        {
            return false;
        }
        const std::string_view figures(text, static_cast<std::size_t>(reader.At() - text));
        if (!reader.Take("</P>"))
        {
            return false;
        }
        point.line = static_cast<std::uint32_t>(line_);
        passage.points.push_back(point);
        farthest_.Take(point, figures);
        MoveTo(reader.At());
        return true;
    }

    bool ScanPlainestFace(SurfacePassage& passage)
    {
        PlainestReader reader(bytes_.data() + position_);
        SurfaceFace face{{}, static_cast<std::uint32_t>(line_), 3, false};
        if (!reader.Take("<F>") || !reader.TakeId(face.corners[0]) || !reader.Take(" ") ||
            !reader.TakeId(face.corners[1]) || !reader.Take(" ") || !reader.TakeId(face.corners[2]))
        {
            return false;
        }
        if (reader.Take(" "))
        {
            face.cornerCount = 4;
            if (!reader.TakeId(face.corners[3]))
            {
                return false;
            }
        }
        if (!reader.Take("</F>"))
        {
            return false;
        }
        passage.faces.push_back(face);
        MoveTo(reader.At());
        return true;
    }

    void MoveTo(const char* at) { position_ = static_cast<std::size_t>(at - bytes_.data()); }

    bool ScanAnyElement(SurfacePassage& passage)
    {
        const std::size_t begin = position_;
        const auto line = static_cast<std::uint32_t>(line_);
        const bool isPoint = Take("<P");
        if (!isPoint && !Take("<F"))
        {
            return false;
        }
        SurfacePointParts parts;
        std::string_view hidden;
        const auto take = [&](const Attribute& attribute) {
            for (const auto& [name, value] : {std::pair("id", &parts.id), std::pair("pntRef", &parts.pntRef),
                                              std::pair("featureRef", &parts.featureRef), std::pair("i", &hidden)})
            {
                *value = attribute.name == name ? attribute.value : *value;
            }
        };
        if (!ScanAttributes(take))
        {
            return false;
        }
        const std::optional<std::string_view> text = ScanText();
        if (!text || !Take(isPoint ? "</P>" : "</F>") || !IsSoundEverywhere(bytes_.substr(begin, position_ - begin)))
        {
            return false;
        }
        if (isPoint)
        {
            parts.text = *text;
            AddSurfacePoint(parts, line, passage.points, passage.remarks);
            farthest_.Take(passage.points.back(), *text);
        }
        else
        {
            passage.faces.push_back(ReadSurfaceFace(hidden, *text, line));
        }
        return true;
    }

    struct Attribute
    {
        std::string_view name;
        std::string_view value;
    };

    /// Hands over the attributes up to the tag's end. False if one stands twice, or there are more than a point has.
    template <class Visit>
    bool ScanAttributes(Visit&& visit)
    {
        std::array<std::string_view, 12> names;
        std::size_t count = 0;
        while (!AtEnd() && bytes_[position_] != '>')
        {
            const bool isApart = IsBlank(bytes_[position_]);
            if (!isApart || !SkipBlanks())
            {
                return false;
            }
            if (bytes_[position_] == '>')
            {
                break;
            }
            const std::optional<Attribute> attribute = ScanAttribute();
            const auto end = names.begin() + static_cast<std::ptrdiff_t>(count);
            if (!attribute || end == names.end() || std::find(names.begin(), end, attribute->name) != end)
            {
                return false;
            }
            names[count++] = attribute->name;
            visit(*attribute);
        }
        return Take(">");
    }

    std::optional<Attribute> ScanAttribute()
    {
        const std::size_t name = position_;
        position_ = std::min(bytes_.find_first_of("= \t\r\n<>&/\"'", position_), bytes_.size());
        const std::string_view nameText = bytes_.substr(name, position_ - name);
        if (!IsPlainName(nameText) || nameText == "xmlns" || !Take("="))
        {
            return {};
        }
        const char quote = AtEnd() ? '\0' : bytes_[position_];
        if (quote != '"' && quote != '\'')
        {
            return {};
        }
        const std::size_t end = bytes_.find(quote, ++position_);
        if (end == std::string_view::npos)
        {
            return {};
        }
        const std::string_view value = bytes_.substr(position_, end - position_);
        position_ = end + 1;
        if (value.find_first_of("<&\n") != std::string_view::npos)
        {
            return {};
        }
        return Attribute{nameText, value};
    }

    /// The text up to the next tag; nothing if it holds an entity or the bytes end.
    std::optional<std::string_view> ScanText()
    {
        const std::size_t begin = position_;
        for (; !AtEnd() && bytes_[position_] != '<'; ++position_)
        {
            if (bytes_[position_] == '&')
            {
                return {};
            }
            line_ += bytes_[position_] == '\n' ? 1 : 0;
        }
        return AtEnd() ? std::nullopt : std::optional(bytes_.substr(begin, position_ - begin));
    }

    std::string_view bytes_;
    FarthestPoints<std::string_view> farthest_;
    std::size_t position_ = 0;
    std::size_t line_;
};

} // namespace

SurfacePoint ReadSurfacePoint(std::string_view id, std::string_view text, std::size_t line)
{
    WordReader words(text);
    return TakePoint(words, id, line);
}

void AddSurfacePoint(const SurfacePointParts& parts, std::size_t line, std::vector<SurfacePoint>& points,
                     std::vector<SurfacePointRemark>& remarks)
{
    WordReader words(parts.text);
    points.push_back(TakePoint(words, parts.id, line));
    std::size_t surplus = 0;
    while (!words.Next().empty())
    {
        ++surplus;
    }
    if (surplus > 0 || !parts.pntRef.empty() || !parts.featureRef.empty())
    {
        remarks.push_back({static_cast<std::uint32_t>(points.size() - 1), surplus, WideFromUtf8(parts.pntRef),
                           WideFromUtf8(parts.featureRef)});
    }
}

SurfaceFace ReadSurfaceFace(std::string_view hidden, std::string_view text, std::size_t line)
{
    SurfaceFace face{{}, static_cast<std::uint32_t>(line), 0, WordReader(hidden).Next() == "1"};
    WordReader words(text);
    for (std::string_view word = words.Next(); !word.empty(); word = words.Next())
    {
        if (face.cornerCount < face.corners.size())
        {
            face.corners[face.cornerCount] = ReadId(word);
        }
        face.cornerCount = static_cast<std::uint8_t>(std::min(face.cornerCount + 1, 255));
    }
    return face;
}

std::optional<SurfacePassage> ReadSurfacePassage(std::string_view bytes, std::size_t line)
{
    return PassageScanner(bytes, line).Scan();
}

} // namespace jlandxml::inspect
