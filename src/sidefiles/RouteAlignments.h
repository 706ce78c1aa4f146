#pragma once

#include "base/Warnings.h"
#include "run/ConversionContext.h"

#include <string>

namespace jlandxml
{

/// Visits every alignment that bears the current route name, in all routes of the model.
template <class Visitor>
void ForEachRouteAlignment(Visitor visit)
{
    for (FViewAlignments& route : GetConversionContext().model.alignments)
    {
        for (FViewAlignment& alignment : route.alignments)
        {
            if (alignment.name == GetCurrentRouteName())
            {
                visit(alignment);
            }
        }
    }
}

/// Notes that no alignment bears the current route name, so that the content of a file goes nowhere. Without a name
/// that is told of the file that should have given one.
inline void WarnOfUnknownRoute(const std::wstring& file)
{
    if (!GetCurrentRouteName().empty())
    {
        WarnOf(WarningCause::NoAlignmentForSideFile, WarningPlace{.file = file, .object = GetCurrentRouteName()});
    }
}

} // namespace jlandxml
