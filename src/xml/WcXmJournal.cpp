#include "xml/WcXmJournal.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "xml/ElementNames.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <string_view>
#include <utility>
#include <vector>

namespace jlandxml
{

namespace
{

using Kind = WcXmChange::Kind;
using Elements = std::vector<pugi::xml_node>;

constexpr std::wstring_view SEPARATORS = L" \t\r\n";

bool IsTextNode(const pugi::xml_node& node)
{
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

Elements ElementsOf(const pugi::xml_node& parent)
{
    Elements elements;
    for (pugi::xml_node child = parent.first_child(); child; child = child.next_sibling())
    {
        if (IsElement(child))
        {
            elements.push_back(child);
        }
    }
    return elements;
}

/// All of an element in one line.
std::wstring XmlOf(const pugi::xml_node& element)
{
    struct Writer : pugi::xml_writer
    {
        void write(const void* data, std::size_t size) override
        {
            text.append(static_cast<const wchar_t*>(data), size / sizeof(wchar_t));
        }
        std::wstring text;
    } writer;
    element.print(writer, L"", pugi::format_raw, pugi::encoding_wchar);
    return std::move(writer.text);
}

std::wstring_view TakeToken(std::wstring_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(SEPARATORS), text.size()));
    const std::wstring_view token = text.substr(0, text.find_first_of(SEPARATORS));
    text.remove_prefix(token.size());
    return token;
}

bool IsSameNumber(std::wstring_view one, std::wstring_view other)
{
    const ParsedDouble first = ParseDouble(one);
    const ParsedDouble second = ParseDouble(other);
    return first.length == one.size() && second.length == other.size() && first.value == second.value;
}

/// True for the same words and numbers in the same order, whatever separates them.
bool AreSameNumbers(std::wstring_view one, std::wstring_view other)
{
    bool isAny = false;
    for (;;)
    {
        const std::wstring_view first = TakeToken(one);
        const std::wstring_view second = TakeToken(other);
        if (first.empty() || second.empty())
        {
            return isAny && first.empty() && second.empty();
        }
        if (first != second && !IsSameNumber(first, second))
        {
            return false;
        }
        isAny = true;
    }
}

/// How the text of an element lies in it.
enum class TextShape
{
    None,
    Plain,
    Cdata,
    Other, ///< several texts, or texts beside elements
};

TextShape ShapeOf(const pugi::xml_node& element)
{
    std::size_t plain = element.value()[0] != L'\0' ? 1 : 0;
    std::size_t cdata = 0;
    bool hasElements = false;
    for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling())
    {
        plain += child.type() == pugi::node_pcdata ? 1 : 0;
        cdata += child.type() == pugi::node_cdata ? 1 : 0;
        hasElements = hasElements || !IsTextNode(child);
    }
    if (plain + cdata == 0)
    {
        return TextShape::None;
    }
    if (plain + cdata > 1 || hasElements)
    {
        return TextShape::Other;
    }
    return plain == 1 ? TextShape::Plain : TextShape::Cdata;
}

/// True if an element can become another one by setting attributes and its text.
bool CanBecome(const pugi::xml_node& before, const pugi::xml_node& after)
{
    pugi::xml_attribute other = after.first_attribute();
    for (pugi::xml_attribute one = before.first_attribute(); one; one = one.next_attribute())
    {
        if (!EqualsText(one.name(), other.name()))
        {
            return false;
        }
        other = other.next_attribute();
    }
    const TextShape shape = ShapeOf(before);
    return shape != TextShape::Other && shape == ShapeOf(after);
}

/// What an element is known by where it was removed and another one built in its place, such as the `Feature` of a
/// name or the `Property` of a label.
std::wstring KeyOf(const pugi::xml_node& element)
{
    constexpr wchar_t MARK = L'\1';
    std::wstring key = element.name();
    for (const wchar_t* const attribute : {L"name", L"label"})
    {
        key.append(1, MARK).append(element.attribute(attribute).value());
    }
    return key;
}

constexpr std::size_t NONE = static_cast<std::size_t>(-1);

/// The children of an element before and after, and which of them are the same.
struct Siblings
{
    Elements before;
    Elements after;
    std::vector<std::size_t> beforeOf;     ///< by places in `after`; NONE for a new one
    std::vector<std::size_t> afterOf;      ///< by places in `before`; NONE for one that is gone
    std::vector<bool> isRebuilt;           ///< by places in `after`: removed and built anew
    std::vector<bool> isAlike;             ///< by places in `after`: rebuilt with the same content
    std::vector<bool> isMoved;             ///< by places in `after`
    std::vector<PlaceAmongSame> numbering; ///< of `after`, for their names
    std::size_t next = 0;                  ///< place in `after` of the child that is looked at next

    void Pair(std::size_t one, std::size_t other)
    {
        afterOf[one] = other;
        beforeOf[other] = one;
    }
};

/// Pairs what is left over on both sides and has the same text, in order.
template <class TextOf, class Condition>
void PairBy(Siblings& siblings, TextOf&& textOf, Condition&& condition, bool areAlike)
{
    std::unordered_map<std::wstring, std::deque<std::size_t>> gone;
    for (std::size_t place = 0; place < siblings.before.size(); ++place)
    {
        if (siblings.afterOf[place] == NONE)
        {
            gone[textOf(siblings.before[place])].push_back(place);
        }
    }
    for (std::size_t place = 0; place < siblings.after.size() && !gone.empty(); ++place)
    {
        if (siblings.beforeOf[place] != NONE)
        {
            continue;
        }
        const auto same = gone.find(textOf(siblings.after[place]));
        if (same == gone.end() || !condition(siblings.before[same->second.front()], siblings.after[place]))
        {
            continue;
        }
        siblings.Pair(same->second.front(), place);
        siblings.isRebuilt[place] = true;
        siblings.isAlike[place] = areAlike;
        same->second.pop_front();
        if (same->second.empty())
        {
            gone.erase(same);
        }
    }
}

/// Marks what was built anew at another place among those that stayed.
void MarkMoved(Siblings& siblings)
{
    // The first place, in `before`, of those that stayed and stand behind.
    std::vector<std::size_t> bound(siblings.after.size() + 1, siblings.before.size());
    for (std::size_t place = siblings.after.size(); place-- > 0;)
    {
        const bool stayed = siblings.beforeOf[place] != NONE && !siblings.isRebuilt[place];
        bound[place] = stayed ? siblings.beforeOf[place] : bound[place + 1];
    }
    std::size_t least = 0;
    for (std::size_t place = 0; place < siblings.after.size(); ++place)
    {
        const std::size_t before = siblings.beforeOf[place];
        if (before == NONE)
        {
            continue;
        }
        siblings.isMoved[place] = siblings.isRebuilt[place] && (before < least || before >= bound[place + 1]);
        least = siblings.isMoved[place] ? least : before + 1;
    }
}

void NumberSame(Siblings& siblings)
{
    std::unordered_map<std::wstring_view, std::size_t> counts;
    for (std::size_t place = 0; place < siblings.after.size(); ++place)
    {
        siblings.numbering[place].number = ++counts[siblings.after[place].name()];
    }
    for (std::size_t place = 0; place < siblings.after.size(); ++place)
    {
        siblings.numbering[place].isOnlyOne = counts[siblings.after[place].name()] == 1;
    }
}

/// The elements that are being compared, from the outermost one down, and what is told of them. A tree may be nested
/// deeper than the stack is.
class Comparison
{
  public:
    using Originals = std::unordered_map<const void*, pugi::xml_node>;
    using Visitor = std::function<void(const WcXmChange&)>;

    Comparison(const Originals& originals, const Visitor& visit) : originals_(originals), visit_(visit) {}

    void Run(const pugi::xml_node& before, const pugi::xml_node& after)
    {
        Enter(before, after);
        while (!open_.empty())
        {
            Siblings& siblings = open_.back();
            if (siblings.next == siblings.after.size())
            {
                open_.pop_back();
                continue;
            }
            const std::size_t place = siblings.next++;
            if (siblings.beforeOf[place] != NONE && !siblings.isAlike[place])
            {
                CompareElements(siblings.before[siblings.beforeOf[place]], siblings.after[place]);
            }
        }
    }

  private:
    void Enter(const pugi::xml_node& before, const pugi::xml_node& after)
    {
        Siblings siblings;
        siblings.before = ElementsOf(before);
        siblings.after = ElementsOf(after);
        siblings.afterOf.assign(siblings.before.size(), NONE);
        siblings.beforeOf.assign(siblings.after.size(), NONE);
        siblings.isRebuilt.assign(siblings.after.size(), false);
        siblings.isAlike.assign(siblings.after.size(), false);
        siblings.isMoved.assign(siblings.after.size(), false);
        siblings.numbering.resize(siblings.after.size());
        PairStanding(siblings);
        PairBy(
            siblings, XmlOf, [](const auto&, const auto&) { return true; }, true);
        PairBy(siblings, KeyOf, CanBecome, false);
        MarkMoved(siblings);
        NumberSame(siblings);
        open_.push_back(std::move(siblings));
        TellPlaces();
    }

    /// Those that were never removed stand in their old order.
    void PairStanding(Siblings& siblings) const
    {
        std::size_t place = 0;
        for (std::size_t now = 0; now < siblings.after.size(); ++now)
        {
            const auto original = originals_.find(siblings.after[now].internal_object());
            if (original == originals_.end())
            {
                continue;
            }
            while (place < siblings.before.size() && siblings.before[place] != original->second)
            {
                ++place;
            }
            if (place < siblings.before.size())
            {
                siblings.Pair(place++, now);
            }
        }
    }

    void TellPlaces()
    {
        const Siblings& siblings = open_.back();
        for (std::size_t place = 0; place < siblings.before.size(); ++place)
        {
            if (siblings.afterOf[place] == NONE)
            {
                WcXmChange change;
                change.kind = Kind::ElementRemoved;
                change.object = Within(ElementLabel(siblings.before[place], {}), siblings.before[place]);
                change.path = Path(&Comparison::BeforePlace) + Step(place);
                change.name = siblings.before[place].name();
                change.oldText = XmlOf(siblings.before[place]);
                visit_(change);
            }
        }
        for (std::size_t place = 0; place < siblings.after.size(); ++place)
        {
            const std::size_t before = siblings.beforeOf[place];
            if (before != NONE && !siblings.isMoved[place])
            {
                continue;
            }
            WcXmChange change;
            change.kind = before == NONE ? Kind::ElementAdded : Kind::ElementMoved;
            change.object =
                Within(ElementLabel(siblings.after[place], siblings.numbering[place]), siblings.after[place]);
            change.path = before == NONE ? std::wstring() : Path(&Comparison::BeforePlace) + Step(before);
            change.newPath = Path(&Comparison::AfterPlace) + Step(place);
            change.name = siblings.after[place].name();
            change.newText = before == NONE ? XmlOf(siblings.after[place]) : std::wstring();
            visit_(change);
        }
    }

    void CompareElements(const pugi::xml_node& before, const pugi::xml_node& after)
    {
        pugi::xml_attribute old = before.first_attribute();
        for (pugi::xml_attribute attribute = after.first_attribute(); attribute; attribute = attribute.next_attribute())
        {
            if (!old)
            {
                TellValue(Kind::AttributeAdded, attribute.name(), L"", attribute.value());
            }
            else if (!EqualsText(old.value(), attribute.value()))
            {
                TellValue(Kind::AttributeChanged, attribute.name(), old.value(), attribute.value());
            }
            old = old.next_attribute();
        }
        if (!EqualsText(before.text().get(), after.text().get()))
        {
            TellValue(Kind::TextChanged, after.name(), before.text().get(), after.text().get());
        }
        if (before.first_child() || after.first_child())
        {
            Enter(before, after);
        }
    }

    /// Tells of the element that is being looked at.
    void TellValue(Kind kind, std::wstring_view name, std::wstring_view oldText, std::wstring_view newText) const
    {
        WcXmChange change;
        change.kind = kind;
        change.object = Within({}, {});
        change.path = Path(&Comparison::BeforePlace) + Step(BeforePlace(open_.back()));
        change.name = name;
        change.oldText = oldText;
        change.newText = newText;
        change.sameNumbers = kind != Kind::AttributeAdded && AreSameNumbers(oldText, newText);
        visit_(change);
    }

    static std::size_t AfterPlace(const Siblings& siblings) { return siblings.next - 1; }
    static std::size_t BeforePlace(const Siblings& siblings) { return siblings.beforeOf[siblings.next - 1]; }

    static std::wstring Step(std::size_t place) { return PositionStep(place + 1); }

    /// The path of the element whose children were entered last.
    std::wstring Path(std::size_t (*placeOf)(const Siblings&)) const
    {
        std::wstring path;
        for (std::size_t level = 0; level + 1 < open_.size(); ++level)
        {
            path += Step(placeOf(open_[level]));
        }
        return path;
    }

    /// The names down to a child of the element whose children were entered last; without one, to the child that is
    /// being looked at. What no name is given to is called by its kind.
    std::wstring Within(const std::wstring& label, const pugi::xml_node& child) const
    {
        std::wstring names;
        for (std::size_t level = 0; level + (child ? 1 : 0) < open_.size(); ++level)
        {
            const Siblings& siblings = open_[level];
            AppendName(names,
                       ElementLabel(siblings.after[AfterPlace(siblings)], siblings.numbering[AfterPlace(siblings)]));
        }
        AppendName(names, label);
        const Siblings& last = open_.back();
        return names.empty() ? (child ? child.name() : last.after[AfterPlace(last)].name()) : names;
    }

    const Originals& originals_;
    const Visitor& visit_;
    std::vector<Siblings> open_;
};

} // namespace

WcXmJournal::WcXmJournal(const pugi::xml_document& document) : document_(document)
{
    before_.reset(document);
    pugi::xml_node original = before_;
    for (pugi::xml_node node = document_; node && original;
         node = NextInOrder(node, document_), original = NextInOrder(original, before_))
    {
        if (IsElement(node))
        {
            originals_.emplace(node.internal_object(), original);
        }
    }
}

void WcXmJournal::ForEachChange(const std::function<void(const WcXmChange&)>& visit) const
{
    Comparison(originals_, visit).Run(before_, document_);
}

} // namespace jlandxml
