#pragma once

#include "base/Files.h"
#include "base/Text.h"
#include "inspect/ReadLandXml.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace jlandxml::inspect
{

/// A text that stands in a file and what takes its place; only the first of several is changed.
using Change = std::pair<std::string, std::string>;

inline std::string Changed(std::string text, const std::vector<Change>& changes)
{
    for (const auto& [from, to] : changes)
    {
        const std::size_t place = text.find(from);
        if (place == std::string::npos)
        {
            ADD_FAILURE() << "not in the file: " << from;
            continue;
        }
        text.replace(place, from.size(), to);
    }
    return text;
}

/// A file of every kind of element in which nothing is wrong.
inline std::string SoundText(const std::vector<Change>& changes = {})
{
    return Changed(ReadWholeFile(JLANDXML_SOURCE_DIR L"/tests/inspect/sound.xml").value_or(""), changes);
}

inline LandXmlFile SoundFile(const std::vector<Change>& changes = {})
{
    return ReadLandXmlBytes(SoundText(changes), L"sound.xml");
}

} // namespace jlandxml::inspect
