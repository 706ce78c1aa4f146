#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace jlandxml::generator
{

/// An element of a work file before it becomes text. All texts are UTF-8.
struct XmlElement
{
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::string text;
    std::vector<XmlElement> children;

    /// Adds a child and gives it back; the reference holds until the next child is added.
    XmlElement& Add(std::string childName)
    {
        return children.emplace_back(XmlElement{std::move(childName), {}, {}, {}});
    }

    XmlElement& Set(std::string attribute, std::string value)
    {
        attributes.emplace_back(std::move(attribute), std::move(value));
        return *this;
    }
};

/// A side file before it becomes text: rows of fields.
struct SideFile
{
    std::string name;
    std::vector<std::vector<std::string>> rows;
};

/// A value of the settings file: a scalar as JSON writes it, or an object or an array of values.
struct Setting
{
    enum class Kind
    {
        Scalar,
        Object,
        Array,
    };

    std::string key; ///< empty in an array
    Kind kind = Kind::Object;
    std::string scalar;
    std::vector<Setting> members;

    Setting& Add(std::string memberKey, Kind memberKind)
    {
        return members.emplace_back(Setting{std::move(memberKey), memberKind, {}, {}});
    }
    void AddText(std::string memberKey, const std::string& text)
    {
        Add(std::move(memberKey), Kind::Scalar).scalar = '"' + text + '"';
    }
    void AddFlag(std::string memberKey, bool flag)
    {
        Add(std::move(memberKey), Kind::Scalar).scalar = flag ? "true" : "false";
    }
};

/// A work folder before it becomes bytes.
struct Draft
{
    XmlElement landXml;
    std::vector<SideFile> sideFiles;
    Setting settings;
};

/// The text of a document without its declaration, indented as hosts write it.
std::string XmlText(const XmlElement& element, const std::string& lineEnd);

/// The text of a side file.
std::string CsvText(const SideFile& file, const std::string& lineEnd);

std::string JsonText(const Setting& setting);

/// A number with so many decimals, in the same digits on every platform.
std::string Fixed(double value, int digits);

} // namespace jlandxml::generator
