#include "xml/WcXmPassages.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace jlandxml
{

namespace
{

constexpr std::string_view EMPTY_NAMESPACE = " xmlns=\"\"";

/// Where passages stand: in the element of this path below the document element.
constexpr std::array<std::string_view, 3> PASSAGE_PARENTS = {"Surfaces", "Surface", "Definition"};
constexpr std::array<std::string_view, 2> PASSAGE_ELEMENTS = {"Pnts", "Faces"};

/// Deeper than any document of the format; what is nested deeper is the parser's.
constexpr std::size_t DEEPEST = 256;

/// What a byte may be part of in a passage.
enum ByteClass : std::uint8_t
{
    NAME = 1,        ///< a name
    BLANK = 2,       ///< white space between elements and attributes
    IN_TAG_NAME = 4, ///< all that doesn't end the name of a tag
    IN_TAG = 8,      ///< all that neither ends a tag nor begins a value
};

constexpr std::array<std::uint8_t, 256> BYTE_CLASSES = [] {
    std::array<std::uint8_t, 256> classes{};
    for (std::size_t byte = 0; byte < classes.size(); ++byte)
    {
        const bool isName =
            (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || byte == '_';
        const bool isBlank = byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
        const bool isInTagName = !isBlank && byte != '/' && byte != '>';
        const bool isInTag = byte != '<' && byte != '>' && byte != '"' && byte != '\'';
        classes[byte] = static_cast<std::uint8_t>((isName ? NAME : 0) | (isBlank ? BLANK : 0) |
                                                  (isInTagName ? IN_TAG_NAME : 0) | (isInTag ? IN_TAG : 0));
    }
    return classes;
}();

/// The same byte eight times.
constexpr std::uint64_t Eight(char byte)
{
    return 0x0101010101010101U * static_cast<std::uint8_t>(byte);
}

/// The highest bit of the first of eight bytes, in memory order, that isn't plain ASCII text: a control character, one
/// that is decoded or escaped, or a part of a longer character. Bits behind it mean nothing; 0 if all are plain.
constexpr std::uint64_t NotPlain(std::uint64_t bytes)
{
    const auto zero = [](std::uint64_t eight) { return (eight - Eight(1)) & ~eight; };
    const std::uint64_t control = (bytes - Eight(' ')) & ~bytes;
    return (bytes | control | zero(bytes ^ Eight('&')) | zero(bytes ^ Eight('<')) | zero(bytes ^ Eight('>')) |
            zero(bytes ^ Eight('"')) | zero(bytes ^ Eight('\x7F'))) &
           Eight('\x80');
}

/// A position in bytes that are read from front to end; it never runs past the end.
class Reader
{
  public:
    explicit Reader(std::string_view bytes) : at_(bytes.data()), end_(bytes.data() + bytes.size()) {}

    bool AtEnd() const { return at_ == end_; }
    const char* At() const { return at_; }
    void MoveTo(const char* position) { at_ = position; }
    bool StartsWith(std::string_view text) const
    {
        return static_cast<std::size_t>(end_ - at_) >= text.size() && std::equal(text.begin(), text.end(), at_);
    }
    std::string_view Rest() const { return {at_, static_cast<std::size_t>(end_ - at_)}; }

    bool Skip(char character)
    {
        if (at_ == end_ || *at_ != character)
        {
            return false;
        }
        ++at_;
        return true;
    }

    bool Skip(std::string_view text)
    {
        if (!StartsWith(text))
        {
            return false;
        }
        at_ += text.size();
        return true;
    }

    /// Moves behind the next `text`. False if there is none.
    bool SkipBehind(std::string_view text)
    {
        const std::size_t hit = Rest().find(text);
        at_ = hit == std::string_view::npos ? end_ : at_ + hit + text.size();
        return hit != std::string_view::npos;
    }

    /// Takes a text or the value of an attribute, up to what would be decoded or escaped. False if it is malformed.
    bool TakeText(std::string_view& text)
    {
        const char* const begin = at_;
        bool isAscii = true;
        for (SkipPlain(); at_ != end_ && static_cast<signed char>(*at_) < 0; SkipPlain())
        {
            isAscii = false;
            ++at_;
        }
        text = {begin, static_cast<std::size_t>(at_ - begin)};
        return isAscii || IsWellFormedUtf8(text);
    }

    std::string_view Take(ByteClass wanted)
    {
        const char* const begin = at_;
        while (at_ != end_ && (BYTE_CLASSES[static_cast<std::uint8_t>(*at_)] & wanted) != 0)
        {
            ++at_;
        }
        return {begin, static_cast<std::size_t>(at_ - begin)};
    }

  private:
    void SkipPlain()
    {
        static_assert(std::endian::native == std::endian::little);
        std::uint64_t bytes = 0;
        while (static_cast<std::size_t>(end_ - at_) >= sizeof(bytes))
        {
            std::memcpy(&bytes, at_, sizeof(bytes));
            if (const std::uint64_t found = NotPlain(bytes))
            {
                at_ += std::countr_zero(found) / 8;
                return;
            }
            at_ += sizeof(bytes);
        }
        while (at_ != end_ && NotPlain(Eight(*at_)) == 0)
        {
            ++at_;
        }
    }

    const char* at_;
    const char* end_;
};

/// Takes a name that begins as one.
std::string_view TakeName(Reader& reader)
{
    return reader.AtEnd() || (*reader.At() >= '0' && *reader.At() <= '9') ? std::string_view() : reader.Take(NAME);
}

/// Takes `name="value"`. An empty view if there is none that is plain.
std::string_view TakeAttribute(Reader& reader)
{
    const char* const begin = reader.At();
    if (TakeName(reader).empty() || !reader.Skip("=\""))
    {
        return {};
    }
    std::string_view value;
    return reader.TakeText(value) && reader.Skip('"')
               ? std::string_view(begin, static_cast<std::size_t>(reader.At() - begin))
               : std::string_view();
}

/// One element of a passage.
struct PassageElement
{
    std::string_view name;
    std::string_view text;   ///< empty if it has none
    bool isAsPrinted = true; ///< spelt as it is printed
};

/// Reads an element from its "<" to behind it, and hands `attribute` each of its attributes. False if it isn't of the
/// plainest form.
template <class Attribute>
bool TakeElement(Reader& reader, PassageElement& element, Attribute&& attribute)
{
    if (!reader.Skip('<') || (element.name = TakeName(reader)).empty())
    {
        return false;
    }
    std::string_view blanks = reader.Take(BLANK);
    while (!reader.AtEnd() && *reader.At() != '>' && *reader.At() != '/')
    {
        const std::string_view found = blanks.empty() ? std::string_view() : TakeAttribute(reader);
        if (found.empty())
        {
            return false;
        }
        element.isAsPrinted = element.isAsPrinted && blanks == " " && found != EMPTY_NAMESPACE.substr(1);
        attribute(found);
        blanks = reader.Take(BLANK);
    }
    if (reader.Skip("/>"))
    {
        element.isAsPrinted = element.isAsPrinted && blanks == " ";
        return true;
    }
    if (!reader.Skip('>'))
    {
        return false;
    }
    // A text of blanks alone isn't kept by the parser.
    if (!reader.TakeText(element.text) || !reader.Skip("</") || !reader.Skip(element.name) ||
        (!element.text.empty() && element.text.find_first_not_of(' ') == std::string_view::npos))
    {
        return false;
    }
    element.isAsPrinted = element.isAsPrinted && blanks.empty() && !element.text.empty() && reader.StartsWith(">");
    reader.Take(BLANK);
    return reader.Skip('>');
}

/// Reads the content of an element up to its end tag. False if it isn't a passage.
bool TakePassage(Reader& reader, WcXmPassage& passage)
{
    const char* const begin = reader.At();
    passage.isPlainLines = true;
    bool holdsElement = false;
    for (;;)
    {
        const std::string_view between = reader.Take(BLANK);
        if (reader.StartsWith("</"))
        {
            passage.content = {begin, static_cast<std::size_t>(reader.At() - begin)};
            return holdsElement;
        }
        PassageElement element;
        if (!TakeElement(reader, element, [](std::string_view) {}))
        {
            return false;
        }
        holdsElement = true;
        passage.isPlainLines =
            passage.isPlainLines && element.isAsPrinted && between.find('\n') != std::string_view::npos;
    }
}

/// Walks over the tags of a document and takes it apart.
class Dissection
{
  public:
    Dissection(std::string_view document, std::vector<WcXmPassages::Piece>& pieces, std::vector<WcXmPassage>& passages)
        : reader_(document),
          kept_(document.data()),
          pieces_(pieces),
          passages_(passages)
    {}

    bool Run()
    {
        reader_.Skip(UTF8_BYTE_ORDER_MARK);
        if (reader_.StartsWith("<?xml "))
        {
            declaration_ = reader_.At() + 1;
            reader_.SkipBehind("?>");
        }
        while (SkipToMarkup())
        {
            if (!Markup())
            {
                return false;
            }
        }
        Keep(reader_.At());
        return open_.empty() && !passages_.empty() && HoldsNoInstruction();
    }

  private:
    /// Whatever else the parser may take for a tag or a value than this walk does: without the beginning of an
    /// instruction in what it gets, there is none in the tree but the placeholders.
    bool HoldsNoInstruction() const
    {
        return std::none_of(pieces_.begin(), pieces_.end(), [this](const WcXmPassages::Piece& piece) {
            std::size_t hit = piece.isPassage ? std::string_view::npos : piece.bytes.find('?');
            while (hit != std::string_view::npos &&
                   (hit == 0 || piece.bytes[hit - 1] != '<' || piece.bytes.data() + hit == declaration_))
            {
                hit = piece.bytes.find('?', hit + 1);
            }
            return hit != std::string_view::npos;
        });
    }

    bool SkipToMarkup()
    {
        const std::size_t hit = reader_.Rest().find('<');
        reader_.MoveTo(reader_.At() + std::min(hit, reader_.Rest().size()));
        return !reader_.AtEnd();
    }

    bool Markup()
    {
        if (reader_.Skip("</"))
        {
            return EndTag();
        }
        if (reader_.StartsWith("<?"))
        {
            return CutInstruction();
        }
        if (!reader_.StartsWith("<!"))
        {
            return StartTag();
        }
        if (reader_.Skip("<!--"))
        {
            return reader_.SkipBehind("-->");
        }
        return reader_.Skip("<![CDATA[") && reader_.SkipBehind("]]>");
    }

    /// What the parser wouldn't keep. A second declaration it would keep or refuse, and inside of the root an
    /// instruction can part two texts. At a null character the parser gives up.
    bool CutInstruction()
    {
        const char* const begin = reader_.At();
        reader_.Skip("<?");
        const std::string_view target = TakeTarget();
        const bool isEnded = reader_.StartsWith("?>") || !reader_.Take(BLANK).empty();
        if (!open_.empty() || target.empty() || !isEnded || EqualsIgnoreCase(WideFromUtf8(target), L"xml") ||
            !reader_.SkipBehind("?>") || std::find(begin, reader_.At(), '\0') != reader_.At())
        {
            return false;
        }
        Keep(begin);
        kept_ = reader_.At();
        return true;
    }

    /// The name of an instruction.
    std::string_view TakeTarget()
    {
        const char* const begin = reader_.At();
        if (TakeName(reader_).empty())
        {
            return {};
        }
        while (reader_.Skip('-') || reader_.Skip('.') || !reader_.Take(NAME).empty())
        {}
        return {begin, static_cast<std::size_t>(reader_.At() - begin)};
    }

    bool EndTag()
    {
        if (open_.empty() || !reader_.Skip(open_.back()))
        {
            return false;
        }
        open_.pop_back();
        reader_.Take(BLANK);
        return reader_.Skip('>');
    }

    bool StartTag()
    {
        reader_.Skip('<');
        open_.push_back(reader_.Take(IN_TAG_NAME));
        if (open_.back().empty() || open_.size() > DEEPEST || !SkipTagEnd())
        {
            return false;
        }
        if (reader_.At()[-2] == '/')
        {
            open_.pop_back();
        }
        else if (MayHoldPassage())
        {
            CutPassage();
        }
        return true;
    }

    /// Moves behind the ">" of a tag. False if it never ends or a value isn't closed.
    bool SkipTagEnd()
    {
        for (;;)
        {
            reader_.Take(IN_TAG);
            if (reader_.Skip('>'))
            {
                return true;
            }
            const bool isBehindValue =
                reader_.Skip('"') ? reader_.SkipBehind("\"") : reader_.Skip('\'') && reader_.SkipBehind("'");
            if (!isBehindValue)
            {
                return false;
            }
        }
    }

    bool MayHoldPassage() const
    {
        return open_.size() == PASSAGE_PARENTS.size() + 2 &&
               std::equal(PASSAGE_PARENTS.begin(), PASSAGE_PARENTS.end(), open_.begin() + 1) &&
               std::find(PASSAGE_ELEMENTS.begin(), PASSAGE_ELEMENTS.end(), open_.back()) != PASSAGE_ELEMENTS.end();
    }

    void CutPassage()
    {
        Reader ahead = reader_;
        WcXmPassage passage{};
        if (!TakePassage(ahead, passage))
        {
            return;
        }
        Keep(reader_.At());
        pieces_.push_back({passage.content, true});
        passages_.push_back(passage);
        reader_ = ahead;
        kept_ = reader_.At();
    }

    void Keep(const char* end) { pieces_.push_back({{kept_, static_cast<std::size_t>(end - kept_)}, false}); }

    Reader reader_;
    const char* kept_;                  ///< up to where the pieces reach
    const char* declaration_ = nullptr; ///< the question mark that begins the declaration
    std::vector<std::string_view> open_;
    std::vector<WcXmPassages::Piece>& pieces_;
    std::vector<WcXmPassage>& passages_;
};

/// Visits the elements in which passages stand.
template <class Visit>
void ForEachPassageElement(const pugi::xml_document& document, Visit&& visit)
{
    for (const pugi::xml_node& set : document.document_element().children(L"Surfaces"))
    {
        for (const pugi::xml_node& surface : set.children(L"Surface"))
        {
            for (const pugi::xml_node& definition : surface.children(L"Definition"))
            {
                for (const pugi::xml_node& element : definition.children())
                {
                    visit(element);
                }
            }
        }
    }
}

void AppendLineStart(ByteBlocks& target, std::size_t depth, std::string_view lineEnd)
{
    target.Append(lineEnd);
    target.Append(depth, '\t');
}

/// For content that is spelt as it is printed: only what stands between the elements changes.
void AppendLines(ByteBlocks& target, std::string_view content, std::size_t depth, std::string_view lineEnd)
{
    Reader reader(content);
    for (reader.Take(BLANK); !reader.AtEnd(); reader.Take(BLANK))
    {
        const std::string_view rest = reader.Rest();
        const std::string_view line = rest.substr(0, rest.find('\n'));
        AppendLineStart(target, depth, lineEnd);
        target.Append(line.substr(0, line.rfind('>') + 1));
        reader.MoveTo(line.data() + line.size());
    }
}

void AppendElement(ByteBlocks& target, Reader& reader)
{
    PassageElement element;
    Reader head = reader;
    head.Skip('<');
    target.Append('<');
    target.Append(TakeName(head));
    TakeElement(reader, element, [&](std::string_view attribute) {
        if (attribute != EMPTY_NAMESPACE.substr(1))
        {
            target.Append(' ');
            target.Append(attribute);
        }
    });
    if (element.text.empty())
    {
        target.Append(" />");
    }
    else
    {
        for (const std::string_view part :
             {std::string_view(">"), element.text, std::string_view("</"), element.name, std::string_view(">")})
        {
            target.Append(part);
        }
    }
}

} // namespace

std::string PassagePlaceholder(std::size_t number)
{
    return "<?passage " + std::to_string(number) + "?>";
}

bool WcXmPassages::Find(std::string_view document)
{
    Clear();
    const bool mayHavePassages = document.find(PASSAGE_PARENTS.back()) != std::string_view::npos;
    if (mayHavePassages && Dissection(document, pieces_, passages_).Run())
    {
        return true;
    }
    Clear();
    return false;
}

bool WcXmPassages::AreIn(const pugi::xml_document& document) const
{
    std::size_t found = 0;
    ForEachPassageElement(document, [&](const pugi::xml_node& element) {
        const WcXmPassage* const passage = Of(element);
        found += passage != nullptr && passage == passages_.data() + found ? 1 : 0;
    });
    return found == passages_.size();
}

const WcXmPassage* WcXmPassages::Of(const pugi::xml_node& element) const
{
    const pugi::xml_node placeholder = element.first_child();
    return placeholder.type() == pugi::node_pi ? &passages_.at(std::stoul(placeholder.value())) : nullptr;
}

void WcXmPassages::Expand(pugi::xml_document& document)
{
    ForEachPassageElement(document, [&](pugi::xml_node element) {
        if (const WcXmPassage* const passage = Of(element))
        {
            element.remove_child(element.first_child());
            element.append_buffer(passage->content.data(), passage->content.size(), pugi::parse_default,
                                  pugi::encoding_utf8);
        }
    });
    Clear();
}

void WcXmPassages::Clear()
{
    pieces_.clear();
    passages_.clear();
}

void AppendPassage(ByteBlocks& target, const WcXmPassage& passage, std::size_t depth, std::string_view lineEnd)
{
    if (passage.isPlainLines)
    {
        AppendLines(target, passage.content, depth, lineEnd);
        return;
    }
    Reader reader(passage.content);
    for (reader.Take(BLANK); !reader.AtEnd(); reader.Take(BLANK))
    {
        AppendLineStart(target, depth, lineEnd);
        AppendElement(target, reader);
    }
}

} // namespace jlandxml
