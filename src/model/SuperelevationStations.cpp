#include "model/SuperelevationStations.h"

#include "model/NumberText.h"

namespace jlandxml
{

namespace
{

constexpr std::wstring_view ADVERSE = L"adverse";
constexpr std::wstring_view NON_ADVERSE = L"non-adverse";

bool WriteText(const FViewLandXMLBase& element, const WcXmNode& parent, std::wstring_view text)
{
    const bool found =
        VisitFirstChild(parent, element.GetElementName(), [&](const WcXmNode& child) { child.SetTextContent(text); });
    if (found)
    {
        return true;
    }
    WcXmNode child = parent;
    parent.AppendChildElement(element.GetElementName(), &child);
    child.SetTextContent(text);
    return child.HasNode();
}

} // namespace

bool SuperelevationStation::ReadElement(const WcXmNode& node)
{
    const NumberPlace place(node);
    value = ReadNumber(node.GetTextContent());
    return true;
}

bool SuperelevationStation::WriteStation(const WcXmNode& node) const
{
    return WriteText(*this, node, NumberText(value, SUPERELEVATION_DIGITS));
}

bool FViewAdverseSE::ReadElement(const WcXmNode& node)
{
    adverse = node.GetTextContent() != NON_ADVERSE;
    return true;
}

bool FViewAdverseSE::WriteElement(const WcXmNode& node)
{
    return WriteText(*this, node, adverse ? ADVERSE : NON_ADVERSE);
}

} // namespace jlandxml
