#pragma once

#include "inspect/Checks.h"

#include <set>
#include <string>

namespace jlandxml::inspect
{

/// The codes of the checks that tolerate a difference.
inline std::set<std::wstring> CodesWithTolerance()
{
    std::set<std::wstring> codes;
    for (const Check& check : AllChecks())
    {
        if (check.tolerance)
        {
            codes.insert(check.code);
        }
    }
    return codes;
}

} // namespace jlandxml::inspect
