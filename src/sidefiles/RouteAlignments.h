#pragma once

#include "run/ConversionContext.h"

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

} // namespace jlandxml
