#include "model/FViewProperty.h"

#include "model/NumberText.h"

namespace jlandxml
{

void FViewProperty::Clear()
{
    label.clear();
    value.clear();
    replaceExisting = true;
}

bool FViewProperty::ReadElement(const WcXmNode& node)
{
    Clear();
    ReadTextAttribute(node, attribute_name::LABEL, label);
    ReadTextAttribute(node, attribute_name::VALUE, value);
    return true;
}

bool FViewProperty::WriteElement(const WcXmNode& node)
{
    const auto write = [this](const WcXmNode& element) {
        WriteTextAttribute(element, attribute_name::LABEL, label);
        WriteTextAttribute(element, attribute_name::VALUE, value);
    };
    const auto isOther = [&](const WcXmNode& element) {
        if (element.FindAttribute(attribute_name::LABEL).value_or(std::wstring_view()) != label)
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
