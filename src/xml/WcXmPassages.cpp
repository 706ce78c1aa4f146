#include "xml/WcXmPassages.h"

#include "xml/PlainMarkup.h"

#include <algorithm>
#include <array>

namespace jlandxml
{

namespace
{

/// Where passages stand: in the element of this path below the document element.
constexpr std::array<std::string_view, 3> PASSAGE_PARENTS = {"Surfaces", "Surface", "Definition"};
constexpr std::array<std::string_view, 2> PASSAGE_ELEMENTS = {"Pnts", "Faces"};

/// Deeper than any document of the format; what is nested deeper is the parser's.
constexpr std::size_t DEEPEST = 256;

/// Reads the content of an element up to its end tag. False if it isn't a passage.
bool TakePassage(MarkupReader& reader, WcXmPassage& passage)
{
    const char* const begin = reader.At();
    passage.isPlainLines = true;
    bool holdsElement = false;
    for (;;)
    {
        const std::string_view between = reader.Take(MarkupReader::BLANK);
        if (reader.StartsWith("</"))
        {
            passage.content = {begin, static_cast<std::size_t>(reader.At() - begin)};
            return holdsElement;
        }
        PlainElement element;
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
        const bool isEnded = reader_.StartsWith("?>") || !reader_.Take(MarkupReader::BLANK).empty();
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
        while (reader_.Skip('-') || reader_.Skip('.') || !reader_.Take(MarkupReader::NAME).empty())
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
        reader_.Take(MarkupReader::BLANK);
        return reader_.Skip('>');
    }

    bool StartTag()
    {
        reader_.Skip('<');
        open_.push_back(reader_.Take(MarkupReader::IN_TAG_NAME));
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
            reader_.Take(MarkupReader::IN_TAG);
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
        MarkupReader ahead = reader_;
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

    MarkupReader reader_;
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
    MarkupReader reader(content);
    for (reader.Take(MarkupReader::BLANK); !reader.AtEnd(); reader.Take(MarkupReader::BLANK))
    {
        const std::string_view rest = reader.Rest();
        const std::string_view line = rest.substr(0, rest.find('\n'));
        AppendLineStart(target, depth, lineEnd);
        target.Append(line.substr(0, line.rfind('>') + 1));
        reader.MoveTo(line.data() + line.size());
    }
}

void AppendElement(ByteBlocks& target, MarkupReader& reader)
{
    PlainElement element;
    MarkupReader head = reader;
    head.Skip('<');
    target.Append('<');
    target.Append(TakeName(head));
    TakeElement(reader, element, [&](std::string_view attribute) {
        if (attribute != EMPTY_NAMESPACE_ATTRIBUTE.substr(1))
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
    MarkupReader reader(passage.content);
    for (reader.Take(MarkupReader::BLANK); !reader.AtEnd(); reader.Take(MarkupReader::BLANK))
    {
        AppendLineStart(target, depth, lineEnd);
        AppendElement(target, reader);
    }
}

} // namespace jlandxml
