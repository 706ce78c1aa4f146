#include "model/FViewProperty.h"

#include "model/NumberText.h"

namespace jlandxml
{

namespace
{
constexpr const wchar_t* LABEL = L"label";
constexpr const wchar_t* VALUE = L"value";
} // namespace

void FViewProperty::Clear()
{
    label.clear();
    value.clear();
    replaceExisting = true;
}

bool FViewProperty::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, LABEL, label);
    ReadTextAttribute(node, VALUE, value);
    return true;
}

bool FViewProperty::WriteElement(const WcXmNode& node)
{
    const auto write = [this](const WcXmNode& element) {
        WriteTextAttribute(element, LABEL, label);
        WriteTextAttribute(element, VALUE, value);
    };
    const auto isOther = [&](const WcXmNode& element) {
        if (element.FindAttribute(LABEL).value_or(std::wstring_view()) != label)
        {
            return true;
        }
        write(element);
        return false;
    };
    if (replaceExisting && !ForEachChild(node, GetElementName(), isOther))
    {
        return true;
    }
    WcXmNode element = node;
    const bool appended = node.AppendChildElement(GetElementName(), &element);
    write(element);
    return appended;
}

} // namespace jlandxml
