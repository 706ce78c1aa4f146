#include "model/FViewStaEquation.h"

#include "model/NumberText.h"

#include <algorithm>

namespace jlandxml
{

void FViewStaEquation::Clear()
{
    staBack = UNSET_DOUBLE;
    staInternal = UNSET_DOUBLE;
    staAhead = UNSET_DOUBLE;
}

bool FViewStaEquation::ReadElement(const WcXmNode& node)
{
    Clear();
    const NumberPlace place(node);
    ReadNumberAttribute(node, L"staBack", staBack);
    ReadNumberAttribute(node, L"staInternal", staInternal);
    ReadNumberAttribute(node, L"staAhead", staAhead);
    return true;
}

void SortStaEquations(FViewStaEquationArray& equations)
{
    std::stable_sort(
        equations.begin(), equations.end(),
        [](const FViewStaEquation& one, const FViewStaEquation& other) { return one.staInternal < other.staInternal; });
}

} // namespace jlandxml
