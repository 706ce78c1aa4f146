#include "dialog/DlgData.h"

#include "model/CurrentDesignType.h"

namespace jlandxml
{

const std::wstring& DlgDataAlignments::Classification() const
{
    static const std::wstring none;
    if (designGmType == ROAD_DESIGN)
    {
        return roadClassification;
    }
    return designGmType == RIVER_DESIGN ? riverClassification : none;
}

} // namespace jlandxml
