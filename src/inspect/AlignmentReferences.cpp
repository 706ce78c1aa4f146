#include "inspect/AlignmentReferences.h"

#include "base/Text.h"

#include <algorithm>

namespace jlandxml::inspect
{

AlignmentReferences::AlignmentReferences(const LandXmlFile& file)
{
    ForEachAlignment(file, [this](const Alignment& alignment) {
        const std::wstring_view name = Trim(alignment.name);
        if (!name.empty())
        {
            byName_.emplace(name, &alignment);
        }
    });
    for (const PointGroup& group : file.pointGroups)
    {
        for (const Alignment* const alignment : Named(group.alignmentRefs))
        {
            groups_[alignment].push_back(&group);
        }
    }
}

const Alignment* AlignmentReferences::Find(std::wstring_view name) const
{
    const auto found = byName_.find(name);
    return found != byName_.end() ? found->second : nullptr;
}

std::vector<std::wstring_view> AlignmentReferences::NamesIn(std::wstring_view references) const
{
    return ReferencedNames(references, [this](std::wstring_view name) { return Find(name) != nullptr; });
}

std::vector<const Alignment*> AlignmentReferences::Named(std::wstring_view references) const
{
    std::vector<const Alignment*> alignments;
    for (const std::wstring_view name : NamesIn(references))
    {
        const Alignment* const alignment = Find(name);
        if (alignment != nullptr && std::find(alignments.begin(), alignments.end(), alignment) == alignments.end())
        {
            alignments.push_back(alignment);
        }
    }
    return alignments;
}

std::vector<std::wstring_view> AlignmentReferences::Missing(std::wstring_view references) const
{
    std::vector<std::wstring_view> names = NamesIn(references);
    std::erase_if(names, [this](std::wstring_view name) { return Find(name) != nullptr; });
    return names;
}

bool AlignmentReferences::LeadTo(std::wstring_view references, const Alignment& alignment) const
{
    const std::vector<const Alignment*> named = Named(references);
    return std::find(named.begin(), named.end(), &alignment) != named.end();
}

const std::vector<const PointGroup*>& AlignmentReferences::GroupsOf(const Alignment& alignment) const
{
    static const std::vector<const PointGroup*> NONE;
    const auto found = groups_.find(&alignment);
    return found != groups_.end() ? found->second : NONE;
}

} // namespace jlandxml::inspect
