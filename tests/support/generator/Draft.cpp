#include "support/generator/Draft.h"

#include <array>
#include <charconv>
#include <string_view>

namespace jlandxml::generator
{

namespace
{

/// Texts may bring entities of their own ("&#10;"), so an ampersand stays.
std::string Escaped(std::string_view text)
{
    std::string escaped;
    for (const char character : text)
    {
        switch (character)
        {
        case '<':
            escaped += "&lt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += character;
        }
    }
    return escaped;
}

void AppendXml(std::string& xml, const XmlElement& element, const std::string& lineEnd, std::size_t depth)
{
    const std::string indent(2 * depth, ' ');
    xml += indent + '<' + element.name;
    for (const auto& [name, value] : element.attributes)
    {
        xml += ' ' + name + "=\"" + Escaped(value) + '"';
    }
    if (element.text.empty() && element.children.empty())
    {
        xml += "/>" + lineEnd;
        return;
    }
    xml += '>' + Escaped(element.text);
    if (!element.children.empty())
    {
        xml += lineEnd;
        for (const XmlElement& child : element.children)
        {
            AppendXml(xml, child, lineEnd, depth + 1);
        }
        xml += indent;
    }
    xml += "</" + element.name + '>' + lineEnd;
}

void AppendJson(std::string& json, const Setting& setting, std::size_t depth)
{
    const std::string indent(2 * depth, ' ');
    json += indent;
    if (!setting.key.empty())
    {
        json += '"' + setting.key + "\": ";
    }
    if (setting.kind == Setting::Kind::Scalar)
    {
        json += setting.scalar;
        return;
    }
    const bool isArray = setting.kind == Setting::Kind::Array;
    json += isArray ? "[" : "{";
    for (const Setting& member : setting.members)
    {
        json += &member == &setting.members.front() ? "\n" : ",\n";
        AppendJson(json, member, depth + 1);
    }
    json += setting.members.empty() ? "" : '\n' + indent;
    json += isArray ? ']' : '}';
}

} // namespace

std::string XmlText(const XmlElement& element, const std::string& lineEnd)
{
    std::string xml;
    AppendXml(xml, element, lineEnd, 0);
    return xml;
}

std::string CsvText(const SideFile& file, const std::string& lineEnd)
{
    std::string csv;
    for (const auto& row : file.rows)
    {
        for (std::size_t field = 0; field < row.size(); ++field)
        {
            csv += (field > 0 ? "," : "") + row[field];
        }
        csv += lineEnd;
    }
    return csv;
}

std::string JsonText(const Setting& setting)
{
    std::string json;
    AppendJson(json, setting, 0);
    return json + '\n';
}

std::string Fixed(double value, int digits)
{
    std::array<char, 64> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, digits).ptr;
    const std::string text(buffer.data(), end);
    // A rounded zero has no sign.
    return text.find_first_not_of("-0.") == std::string::npos && text.starts_with('-') ? text.substr(1) : text;
}

} // namespace jlandxml::generator
