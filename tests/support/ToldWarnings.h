#pragma once

#include "base/Warnings.h"

#include <string>
#include <utility>
#include <vector>

namespace jlandxml
{

using Told = std::vector<std::wstring>;

/// The warnings that a step gives rise to: code and detail.
template <class Step>
Told WarningsOf(Step&& step)
{
    TakeWarnings();
    std::forward<Step>(step)();
    Told told;
    for (const Warning& warning : TakeWarnings())
    {
        told.push_back(std::wstring(warning.code.begin(), warning.code.end()) + L" " + warning.detail);
    }
    return told;
}

} // namespace jlandxml
