#include "run/FinishedDocument.h"

#include "base/Exceptions.h"
#include "base/Text.h"
#include "xml/PlainMarkup.h"
#include "xml/WcXmDocument.h"

#include <algorithm>
#include <array>
#include <string>

namespace jlandxml
{

namespace
{

constexpr std::string_view LINE_END = "\r\n";
constexpr std::string_view STANDALONE_DECLARATION_END = " encoding=\"UTF-8\" standalone=\"no\"?>";
constexpr std::string_view DECLARATION_END = "?>";
constexpr const wchar_t* NAMESPACE = L"xmlns";

/// Where a text stands decides what is escaped in it, and which of its characters need a look.
enum Place : std::uint8_t
{
    IN_CONTENT = 1,
    IN_ATTRIBUTE = 2,
    IN_RAW = 4, ///< CDATA, and names
};

constexpr std::array<std::uint8_t, 128> SPECIAL_CHARACTERS = [] {
    std::array<std::uint8_t, 128> places{};
    for (std::size_t control = 0; control < ' '; ++control)
    {
        places[control] = IN_CONTENT | IN_ATTRIBUTE;
    }
    places['\0'] = IN_CONTENT | IN_ATTRIBUTE | IN_RAW;
    places['\t'] = IN_ATTRIBUTE;
    places['\r'] = IN_ATTRIBUTE;
    places['\n'] = IN_CONTENT | IN_ATTRIBUTE | IN_RAW;
    places['&'] = IN_CONTENT | IN_ATTRIBUTE;
    places['<'] = IN_CONTENT | IN_ATTRIBUTE;
    places['>'] = IN_CONTENT;
    places['"'] = IN_CONTENT | IN_ATTRIBUTE | IN_RAW;
    return places;
}();

/// Deeper than any element of the format, by far.
constexpr std::size_t UNUSUAL_DEPTH = 1000;
/// More indentation than that isn't printed, where it is most of the file.
constexpr std::size_t MOST_INDENTATION = std::size_t{64} << 20;

/// Stops a document that is nested so deep that its indentation, which grows with the square of the depth, would fill
/// the disk: a few hundred kilobytes can become hundreds of gigabytes.
class IndentationBound
{
  public:
    void See(std::size_t depth) { isDeep_ = isDeep_ || depth > UNUSUAL_DEPTH; }

    void Count(std::string_view bytes)
    {
        if (!isDeep_)
        {
            return;
        }
        bytes_ += bytes.size();
        tabs_ += static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\t'));
        if (tabs_ > MOST_INDENTATION && tabs_ > bytes_ / 2)
        {
            throw CException(L"要素の入れ子が深すぎるため、ファイルを出力できません。");
        }
    }

  private:
    bool isDeep_ = false;
    std::size_t bytes_ = 0;
    std::size_t tabs_ = 0;
};

/// `text` with every occurrence of `from` replaced, from left to right.
std::string Replaced(std::string_view text, std::string_view from, std::string_view to)
{
    std::string result;
    for (std::size_t hit = text.find(from); hit != std::string_view::npos; hit = text.find(from))
    {
        result.append(text.substr(0, hit)).append(to);
        text.remove_prefix(hit + from.size());
    }
    return result.append(text);
}

/// Walks the tree without recursion: it may be nested as deep as memory reaches.
class Printer
{
  public:
    Printer(const WcXmAppDocument& document, const ByteBlocks::Sink& sink)
        : document_(document),
          firstLine_([this](std::string_view bytes) { firstLineText_ += bytes; }),
          lines_([this, &sink](std::string_view bytes) {
              indentation_.Count(bytes);
              sink(bytes);
          })
    {
        lines_.Append(UTF8_BYTE_ORDER_MARK);
    }

    void Print()
    {
        const pugi::xml_node root = *document_.xmlDocument;
        pugi::xml_node node = root.first_child();
        while (node)
        {
            if (Begin(node))
            {
                node = node.first_child();
                indentation_.See(++depth_);
                continue;
            }
            while (!node.next_sibling() && node.parent() != root)
            {
                node = node.parent();
                --depth_;
                End(node);
            }
            node = node.next_sibling();
        }
        // Every other line than the first ends in a tag or a section.
        if (out_ != &firstLine_ || firstLine_.Position() != 0)
        {
            EndLine();
        }
        lines_.Flush();
    }

  private:
    /// True if the node's children are to be printed, and its end behind them.
    bool Begin(const pugi::xml_node& node)
    {
        switch (node.type())
        {
        case pugi::node_pcdata:
            Text(node.value(), IN_CONTENT);
            breakBefore_ = false;
            return false;
        case pugi::node_cdata:
            CData(node.value());
            breakBefore_ = false;
            return false;
        case pugi::node_declaration:
            Break();
            out_->Append("<?");
            Name(node.name());
            Attributes(node);
            out_->Append(DECLARATION_END);
            return false;
        default:
            return BeginElement(node);
        }
    }

    bool BeginElement(const pugi::xml_node& element)
    {
        Break();
        out_->Append('<');
        Name(element.name());
        Attributes(element);
        const bool holdsText = element.value()[0] != L'\0';
        if (!element.first_child() && !holdsText)
        {
            out_->Append(" />");
            return false;
        }
        out_->Append('>');
        if (holdsText)
        {
            return BeginWithText(element);
        }
        if (const WcXmPassage* const passage = document_.passages.Of(element))
        {
            AppendPassage(*out_, *passage, depth_ + 1, LINE_END);
            End(element);
            return false;
        }
        return true;
    }

    /// For an element that holds its first text itself.
    bool BeginWithText(const pugi::xml_node& element)
    {
        Text(element.value(), IN_CONTENT);
        breakBefore_ = false;
        if (element.first_child())
        {
            return true;
        }
        End(element);
        return false;
    }

    void End(const pugi::xml_node& element)
    {
        Break();
        out_->Append("</");
        Name(element.name());
        out_->Append('>');
    }

    /// Elements stand on lines of their own, but where a text is beside them.
    void Break()
    {
        if (breakBefore_)
        {
            EndLine();
            out_->Append(depth_, '\t');
        }
        breakBefore_ = true;
    }

    void Attributes(const pugi::xml_node& node)
    {
        for (const pugi::xml_attribute& attribute : node.attributes())
        {
            // The first line is looked through as a whole.
            if (out_ == &lines_ && attribute.value()[0] == L'\0' && std::wstring_view(attribute.name()) == NAMESPACE)
            {
                continue;
            }
            out_->Append(' ');
            Name(attribute.name());
            out_->Append("=\"");
            Text(attribute.value(), IN_ATTRIBUTE);
            out_->Append('"');
        }
    }

    /// What was given no name prints as the parser prints it.
    void Name(const wchar_t* name) { Text(name[0] != L'\0' ? name : L":anonymous", IN_RAW); }

    /// The end of a section can't stand in one; a second section takes up in its middle.
    void CData(std::wstring_view text)
    {
        constexpr std::wstring_view SECTION_END = L"]]>";
        for (std::size_t hit = text.find(SECTION_END); hit != std::wstring_view::npos; hit = text.find(SECTION_END))
        {
            Section(text.substr(0, hit + 2));
            text.remove_prefix(hit + 2);
        }
        Section(text);
    }

    void Section(std::wstring_view text)
    {
        out_->Append("<![CDATA[");
        Text(std::wstring(text).c_str(), IN_RAW);
        out_->Append("]]>");
    }

    void Text(const wchar_t* text, Place place)
    {
        for (;;)
        {
            text += out_->AppendWhile(text, [place](wchar_t character) {
                const auto code = static_cast<std::uint32_t>(character);
                return code < SPECIAL_CHARACTERS.size() && (SPECIAL_CHARACTERS[code] & place) == 0;
            });
            if (*text == L'\0')
            {
                return;
            }
            if (static_cast<std::uint32_t>(*text) >= SPECIAL_CHARACTERS.size())
            {
                text = Characters(text);
                continue;
            }
            Special(static_cast<char>(*text), place);
            ++text;
        }
    }

    /// Encodes a run of characters outside of ASCII; returns what stands behind it.
    const wchar_t* Characters(const wchar_t* text)
    {
        const wchar_t* end = text;
        while (static_cast<std::uint32_t>(*end) >= SPECIAL_CHARACTERS.size())
        {
            ++end;
        }
        encoded_.clear();
        AppendUtf8(encoded_, {text, static_cast<std::size_t>(end - text)});
        out_->Append(encoded_);
        return end;
    }

    void Special(char character, Place place)
    {
        switch (character)
        {
        case '&':
            out_->Append("&amp;");
            break;
        case '<':
            out_->Append("&lt;");
            break;
        case '>':
            out_->Append("&gt;");
            break;
        case '"':
            Quote(place);
            break;
        case '\n':
            place == IN_ATTRIBUTE ? Reference(character) : EndLine();
            break;
        default:
            Reference(character);
        }
    }

    /// Prints a control character as a decimal reference of two digits.
    void Reference(char character)
    {
        out_->Append("&#");
        out_->Append(static_cast<char>('0' + character / 10));
        out_->Append(static_cast<char>('0' + character % 10));
        out_->Append(';');
    }

    /// Prints a quotation mark. In content it may complete an empty namespace attribute, which goes wherever it stands;
    /// what its removal forms isn't looked at again.
    void Quote(Place place)
    {
        if (place == IN_ATTRIBUTE)
        {
            out_->Append("&quot;");
            return;
        }
        out_->Append('"');
        if (out_ == &lines_ && lines_.EndsWith(EMPTY_NAMESPACE_ATTRIBUTE) &&
            lines_.Position() >= lastRemoval_ + EMPTY_NAMESPACE_ATTRIBUTE.size())
        {
            lines_.TakeBack(EMPTY_NAMESPACE_ATTRIBUTE.size());
            lastRemoval_ = lines_.Position();
        }
    }

    void EndLine()
    {
        if (out_ == &firstLine_)
        {
            EndFirstLine();
        }
        // A carriage return that a text brings along in front of its line feed is the line end's own.
        else if (lines_.EndsWith("\r") && lines_.Position() != lastRemoval_)
        {
            lines_.Append('\n');
        }
        else
        {
            lines_.Append(LINE_END);
        }
    }

    void EndFirstLine()
    {
        firstLine_.Flush();
        std::string_view line = firstLineText_;
        if (line.ends_with('\r'))
        {
            line.remove_suffix(1);
        }
        lines_.Append(
            Replaced(Replaced(line, STANDALONE_DECLARATION_END, DECLARATION_END), EMPTY_NAMESPACE_ATTRIBUTE, {}));
        lines_.Append(LINE_END);
        out_ = &lines_;
    }

    const WcXmAppDocument& document_;
    IndentationBound indentation_;
    std::string firstLineText_;
    ByteBlocks firstLine_;
    ByteBlocks lines_;
    ByteBlocks* out_ = &firstLine_;
    std::size_t depth_ = 0;
    std::size_t lastRemoval_ = 0; ///< where the last empty namespace stood
    bool breakBefore_ = false;
    std::string encoded_;
};

} // namespace

void PrintFinished(const WcXmAppDocument& document, const ByteBlocks::Sink& sink)
{
    Printer(document, sink).Print();
}

} // namespace jlandxml
