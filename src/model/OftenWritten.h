#pragma once

#include "xml/WcXmSharedTexts.h"

#include <array>

namespace jlandxml
{

/// What the writers add once for every point, surface or section of a document. Everything else is too rare to count.
inline constexpr std::array OFTEN_WRITTEN_ELEMENTS = {L"Feature", L"Property", L"CgPoint"};

inline constexpr auto OFTEN_WRITTEN_ATTRIBUTES = std::to_array<WcXmSharedTexts::Attribute>({
    {L"name"},
    {L"featureRef"},
    {L"label"},
    {L"label", L"sta"},
    {L"label", L"tangentDirectionAngle"},
    {L"label", L"slopeValue"},
    {L"label", L"widthLeftValue"},
    {L"label", L"widthRightValue"},
    {L"label", L"clOffset"},
    {L"label", L"fhOffset"},
    {L"label", L"heightType"},
    {L"label", L"pavementClass"},
    {L"value"},
    {L"value", L"fhOffset"},
    {L"value", L"表層"},
    {L"value", L"中間層"},
    {L"value", L"基層"},
    {L"value", L"上層路盤"},
    {L"value", L"下層路盤"},
    {L"side", L"left"},
    {L"side", L"right"},
    {L"desc"},
    {L"desc", L"道路面"},
    {L"desc", L"路床面"},
    {L"desc", L"路体面"},
    {L"desc", L"床掘面"},
    {L"desc", L"計画堤防面"},
    {L"desc", L"余盛堤防面"},
    {L"typicalThickness"},
    {L"material"},
});

} // namespace jlandxml
