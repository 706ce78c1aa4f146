#include "support/generator/OddFolder.h"

#include "base/Text.h"

#include <algorithm>
#include <cctype>

namespace jlandxml::generator
{

namespace
{

constexpr const char* ODD_NUMBERS[] = {"",          "1.2.3",
                                       "1e5",       "-",
                                       "+.5",       "INF",
                                       "nan",       " 12",
                                       "0",         "-0.0",
                                       "0.0000001", "１２",
                                       "1,5",       "99999999999999999999999",
                                       "12 ",       "abc",
                                       ".",         "0x10",
                                       "-12.5",     "1234567.890123456789"};
constexpr const char* ODD_TEXTS[] = {"",      " ",         "a b",       "1 2 3",  "１ ２",
                                     "&#10;", "&amp;&lt;", "ProfSurf_", "髙﨑①Ⅲ", "線形名="};

using Elements = std::vector<XmlElement*>;

void Collect(XmlElement& element, Elements& all)
{
    all.push_back(&element);
    for (XmlElement& child : element.children)
    {
        Collect(child, all);
    }
}

constexpr const char* OWNERS[] = {"Alignment", "CgPoints", "Surface", "Roadway"};

/// Follows the way from an element down to another; false if it isn't below.
bool FollowTo(const XmlElement& from, const XmlElement& to, Elements::size_type depth, Oddity& note)
{
    note.tags.resize(depth);
    note.tags.push_back(from.name);
    const std::string outer = note.owner;
    if (std::find(std::begin(OWNERS), std::end(OWNERS), from.name) != std::end(OWNERS))
    {
        const auto name = std::find_if(from.attributes.begin(), from.attributes.end(),
                                       [](const auto& attribute) { return attribute.first == "name"; });
        note.owner = name != from.attributes.end() ? name->second : outer;
    }
    if (&from == &to || std::any_of(from.children.begin(), from.children.end(),
                                    [&](const XmlElement& child) { return FollowTo(child, to, depth + 1, note); }))
    {
        return true;
    }
    note.owner = outer;
    return false;
}

/// Notes where an element lies.
XmlElement& Noted(XmlElement& element, const XmlElement& root, Oddity& note)
{
    constexpr std::ptrdiff_t TAGS = 3;
    FollowTo(root, element, 0, note);
    note.tags.erase(note.tags.begin(), note.tags.end() - std::min<std::ptrdiff_t>(TAGS, std::ssize(note.tags)));
    return element;
}

/// Any element; those of terrain, which are most of them and which nobody reads, are taken seldom.
XmlElement& AnyElement(SplitMix64& random, XmlElement& root, Oddity& note)
{
    Elements all;
    Collect(root, all);
    XmlElement* element = random.Pick(all);
    for (int again = 0; again < 6 && (element->name == "P" || element->name == "F"); ++again)
    {
        element = random.Pick(all);
    }
    return Noted(*element, root, note);
}

/// Any element that has children.
XmlElement& AnyParent(SplitMix64& random, XmlElement& root, Oddity& note)
{
    Elements all;
    Collect(root, all);
    std::erase_if(all, [](const XmlElement* element) { return element->children.empty(); });
    return Noted(all.empty() ? root : *random.Pick(all), root, note);
}

void ChangeCase(SplitMix64& random, std::string& name)
{
    const std::size_t kind = random.Below(3);
    for (char& letter : name)
    {
        const bool upper = kind == 0 || (kind == 1 && random.OneIn(2));
        const auto byte = static_cast<unsigned char>(letter);
        letter = byte > 127 ? letter : static_cast<char>(upper ? std::toupper(byte) : std::tolower(byte));
    }
}

template <class Entry>
void Shuffle(SplitMix64& random, std::vector<Entry>& entries)
{
    for (std::size_t left = entries.size(); left > 1; --left)
    {
        std::swap(entries[left - 1], entries[random.Below(left)]);
    }
}

template <class Entry>
void Drop(SplitMix64& random, std::vector<Entry>& entries)
{
    if (!entries.empty())
    {
        entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(random.Below(entries.size())));
    }
}

template <class Entry>
void Double(SplitMix64& random, std::vector<Entry>& entries)
{
    if (!entries.empty())
    {
        const std::size_t index = random.Below(entries.size());
        Entry copy = entries[index];
        entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(random.Below(entries.size() + 1)),
                       std::move(copy));
    }
}

// Oddities of the tree, one each

void OddElementName(SplitMix64& random, XmlElement& root, Oddity& note)
{
    ChangeCase(random, AnyElement(random, root, note).name);
}

void OddAttributeName(SplitMix64& random, XmlElement& root, Oddity& note)
{
    XmlElement& element = AnyElement(random, root, note);
    if (!element.attributes.empty())
    {
        ChangeCase(random, element.attributes[random.Below(element.attributes.size())].first);
    }
}

/// Notes which children there were before or are behind, more than at the other time: that which was dropped or
/// doubled.
void NoteDifference(const std::vector<XmlElement>& fewer, const std::vector<XmlElement>& more, Oddity& note)
{
    for (const XmlElement& child : more)
    {
        const auto count = [&](const std::vector<XmlElement>& children) {
            return std::count_if(children.begin(), children.end(),
                                 [&](const XmlElement& one) { return one.name == child.name; });
        };
        if (count(fewer) != count(more))
        {
            note.tags.push_back(child.name);
            return;
        }
    }
}

void DropNoted(SplitMix64& random, std::vector<XmlElement>& children, Oddity& note)
{
    const std::vector<XmlElement> before = children;
    Drop(random, children);
    NoteDifference(children, before, note);
}

void DoubleNoted(SplitMix64& random, std::vector<XmlElement>& children, Oddity& note)
{
    const std::vector<XmlElement> before = children;
    Double(random, children);
    NoteDifference(before, children, note);
}

void DropChild(SplitMix64& random, XmlElement& root, Oddity& note)
{
    DropNoted(random, AnyParent(random, root, note).children, note);
}

void DoubleChild(SplitMix64& random, XmlElement& root, Oddity& note)
{
    DoubleNoted(random, AnyParent(random, root, note).children, note);
}

void ShuffleChildren(SplitMix64& random, XmlElement& root, Oddity& note)
{
    Shuffle(random, AnyParent(random, root, note).children);
}

void DropAttribute(SplitMix64& random, XmlElement& root, Oddity& note)
{
    Drop(random, AnyElement(random, root, note).attributes);
}

void OddAttributeValue(SplitMix64& random, XmlElement& root, Oddity& note)
{
    XmlElement& element = AnyElement(random, root, note);
    if (!element.attributes.empty())
    {
        const std::size_t index = random.Below(element.attributes.size());
        element.attributes[index].second = random.OneIn(2) ? random.Pick(ODD_NUMBERS) : random.Pick(ODD_TEXTS);
    }
}

void OddElementText(SplitMix64& random, XmlElement& root, Oddity& note)
{
    XmlElement& element = AnyElement(random, root, note);
    if (element.children.empty())
    {
        element.text = random.OneIn(2) ? random.Pick(ODD_NUMBERS) : random.Pick(ODD_TEXTS);
    }
}

/// A host's numbers may have a pair's second part missing, or blanks of another kind.
void OddPair(SplitMix64& random, XmlElement& root, Oddity& note)
{
    XmlElement& element = AnyElement(random, root, note);
    const std::size_t blank = element.text.find(' ');
    if (blank != std::string::npos)
    {
        constexpr const char* BLANKS[] = {"", "  ", "\t", "　", " 0 "};
        element.text.replace(blank, 1, random.Pick(BLANKS));
    }
}

void AddFeature(SplitMix64& random, XmlElement& root, Oddity& note)
{
    constexpr const char* NAMES[] = {
        "", "Interval", "SuperelevationConfig", "SlopeList", "Horizontal", "WideningList", "Formation", "ReverseCrown"};
    constexpr const char* LABELS[] = {
        "main",          "sub",           "normalCrown", "useSlopeList", "slopeValue",   "widthLeftValue",
        "alignmentRefs", "profAlignRefs", "A",           "clOffset",     "designGmType", "sta"};
    XmlElement& feature = AnyParent(random, root, note).Add("Feature");
    const std::string name = random.Pick(NAMES);
    if (!name.empty())
    {
        feature.Set("name", name);
    }
    for (int count = random.Between(0, 3); count > 0; --count)
    {
        const std::string label = random.Pick(LABELS);
        const std::string value = random.OneIn(2) ? "100 2.5 1" : random.Pick(ODD_NUMBERS);
        feature.Add("Property").Set("label", label).Set("value", value);
    }
}

struct TreeOddity
{
    const char* what;
    void (*make)(SplitMix64&, XmlElement&, Oddity&);
};
constexpr TreeOddity TREE_ODDITIES[] = {
    {"OddElementName", OddElementName},
    {"OddAttributeName", OddAttributeName},
    {"DropChild", DropChild},
    {"DoubleChild", DoubleChild},
    {"ShuffleChildren", ShuffleChildren},
    {"DropAttribute", DropAttribute},
    {"OddAttributeValue", OddAttributeValue},
    {"OddAttributeValue", OddAttributeValue},
    {"OddElementText", OddElementText},
    {"OddElementText", OddElementText},
    {"OddPair", OddPair},
    {"AddFeature", AddFeature},
};

// Oddities of side files

void OddRows(SplitMix64& random, SideFile& file)
{
    switch (random.Below(6))
    {
    case 0:
        Drop(random, file.rows);
        break;
    case 1:
        Double(random, file.rows);
        break;
    case 2:
        Shuffle(random, file.rows);
        break;
    case 3:
        file.rows.insert(file.rows.begin() + static_cast<std::ptrdiff_t>(random.Below(file.rows.size() + 1)), {" "});
        break;
    case 4:
        file.rows.resize(random.Below(file.rows.size() + 1));
        break;
    default:
        file.rows.push_back({"以上"});
    }
}

void OddFields(SplitMix64& random, SideFile& file)
{
    if (file.rows.empty())
    {
        return;
    }
    std::vector<std::string>& row = file.rows[random.Below(file.rows.size())];
    switch (random.Below(5))
    {
    case 0:
        row.resize(random.Below(row.size() + 1));
        break;
    case 1:
        row.resize(row.size() + 1 + random.Below(3));
        break;
    case 2:
        Drop(random, row);
        break;
    case 3:
        row.emplace_back("\"a,b\"");
        break;
    default:
        if (!row.empty())
        {
            row[random.Below(row.size())] = random.Pick(ODD_NUMBERS);
        }
    }
}

// Settings

void LeaveOut(SplitMix64& random, Setting& setting)
{
    if (random.OneIn(3) || setting.members.empty())
    {
        Drop(random, setting.members);
        return;
    }
    LeaveOut(random, setting.members[random.Below(setting.members.size())]);
}

// Bytes

std::string Utf16(const std::string& text, bool bigEndian)
{
    std::string bytes;
    const auto append = [&](char32_t unit) {
        const auto low = static_cast<char>(unit & 0xFFU);
        const auto high = static_cast<char>((unit >> 8U) & 0xFFU);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    };
    append(0xFEFF);
    for (const wchar_t character : WideFromUtf8(text))
    {
        const auto code = static_cast<char32_t>(character);
        if (code > 0xFFFF)
        {
            append(0xD800 + ((code - 0x10000) >> 10U));
            append(0xDC00 + ((code - 0x10000) & 0x3FFU));
        }
        else
        {
            append(code);
        }
    }
    return bytes;
}

/// A way of turning the document into bytes, with what its declaration says.
struct Encoding
{
    const char* declared;
    std::string (*encode)(const std::string& text);
};

constexpr Encoding ENCODINGS[] = {
    {"UTF-8", [](const std::string& text) { return text; }},
    {"utf-8", [](const std::string& text) { return text; }},
    {"UTF-8", [](const std::string& text) { return "\xEF\xBB\xBF" + text; }},
    {"UTF-16", [](const std::string& text) { return Utf16(text, false); }},
    {"UTF-16", [](const std::string& text) { return Utf16(text, true); }},
    {"Shift_JIS", [](const std::string& text) { return Cp932FromWide(WideFromUtf8(text)); }},
    {"shift_jis", [](const std::string& text) { return Cp932FromWide(WideFromUtf8(text)); }},
};

/// Declarations that don't tell how the bytes are to be read.
constexpr Encoding WRONG_ENCODINGS[] = {
    {"UTF-8", [](const std::string& text) { return Cp932FromWide(WideFromUtf8(text)); }},
    {"Shift_JIS", [](const std::string& text) { return text; }},
    {"UTF-16", [](const std::string& text) { return text; }},
};

/// Damage as a full disk or a careless transfer does it.
void Break(SplitMix64& random, std::string& bytes)
{
    switch (random.Below(4))
    {
    case 0:
        bytes.resize(random.Below(bytes.size() + 1));
        break;
    case 1:
        bytes.clear();
        break;
    case 2:
        for (int count = 4; count > 0 && !bytes.empty(); --count)
        {
            const std::size_t index = random.Below(bytes.size());
            bytes[index] = static_cast<char>(random.Below(256));
        }
        break;
    default:
        bytes += '\0';
        bytes += "\xFF\xFE rest";
    }
}

std::string OddDocument(SplitMix64& random, const XmlElement& landXml, std::vector<Oddity>& oddities)
{
    const bool isWrong = random.OneIn(12);
    const Encoding& encoding = isWrong ? random.Pick(WRONG_ENCODINGS) : random.Pick(ENCODINGS);
    if (isWrong)
    {
        oddities.push_back({"Damage", {"LandXML"}, {}});
    }
    const std::string lineEnd = random.OneIn(3) ? "\r\n" : "\n";
    std::string text;
    if (!random.OneIn(6))
    {
        text = "<?xml version=\"1.0\" encoding=\"" + std::string(encoding.declared) + "\"?>" + lineEnd;
    }
    if (random.OneIn(6))
    {
        text += "<!-- 出力: ホスト -->" + lineEnd;
    }
    text += XmlText(landXml, lineEnd);
    std::string bytes = encoding.encode(text);
    if (random.OneIn(12))
    {
        Break(random, bytes);
        oddities.push_back({"Damage", {"LandXML"}, {}});
    }
    return bytes;
}

std::string OddSideFile(SplitMix64& random, const SideFile& file, std::vector<Oddity>& oddities)
{
    std::string bytes = CsvText(file, random.OneIn(3) ? "\r\n" : "\n");
    switch (random.Below(8))
    {
    case 0:
        bytes = "\xEF\xBB\xBF" + bytes;
        break;
    case 1:
        bytes = Cp932FromWide(WideFromUtf8(bytes));
        oddities.push_back({"OddBytes", {file.name}, {}});
        break;
    case 2:
        Break(random, bytes);
        oddities.push_back({"OddBytes", {file.name}, {}});
        break;
    default:
        break;
    }
    return bytes;
}

} // namespace

FolderFiles OddFiles(SplitMix64& random, Draft draft, std::vector<Oddity>& oddities)
{
    for (int count = random.Between(1, 12); count > 0; --count)
    {
        const TreeOddity& oddity = random.Pick(TREE_ODDITIES);
        Oddity note{oddity.what, {}, {}};
        oddity.make(random, draft.landXml, note);
        oddities.push_back(std::move(note));
    }
    FolderFiles files;
    if (!random.OneIn(30))
    {
        files.emplace_back("Landxml_temp.xml", OddDocument(random, draft.landXml, oddities));
    }
    for (SideFile& file : draft.sideFiles)
    {
        if (random.OneIn(3))
        {
            OddRows(random, file);
            oddities.push_back({"OddRows", {file.name}, {}});
        }
        if (random.OneIn(3))
        {
            OddFields(random, file);
            oddities.push_back({"OddFields", {file.name}, {}});
        }
        if (!random.OneIn(20))
        {
            files.emplace_back(file.name, OddSideFile(random, file, oddities));
        }
        else
        {
            oddities.push_back({"Missing", {file.name}, {}});
        }
    }
    // Settings for a group that its broken file doesn't give end the run before anything else is seen of it.
    if (!random.OneIn(4))
    {
        std::erase_if(draft.settings.members,
                      [](const Setting& setting) { return setting.key == "intermediatePoints"; });
    }
    if (random.OneIn(3))
    {
        LeaveOut(random, draft.settings);
        oddities.push_back({"LeaveOut", {"settings.json"}, {}});
    }
    files.emplace_back("settings.json", JsonText(draft.settings));
    return files;
}

} // namespace jlandxml::generator
