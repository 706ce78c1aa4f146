#include "model/FViewCgPoint.h"

#include "model/NumberText.h"

namespace jlandxml
{

namespace
{

constexpr const wchar_t* TANGENT_DIRECTION_ANGLE = L"tangentDirectionAngle";
constexpr const wchar_t* FEATURE_REF = L"featureRef";
constexpr int POINT_DIGITS = 8;

} // namespace

void FViewCgPoint::Clear()
{
    name.clear();
    firstCoordinate = UNSET_DOUBLE;
    secondCoordinate = UNSET_DOUBLE;
    thirdCoordinate = UNSET_DOUBLE;
    sta = UNSET_DOUBLE;
    tangentDirectionAngle = UNSET_DOUBLE;
}

bool FViewCgPoint::ReadElement(const WcXmNode& /*node*/)
{
    Clear();
    return true;
}

bool FViewCgPoint::WriteElement(const WcXmNode& node)
{
    WcXmNode element = node;
    node.AppendChildElement(GetElementName(), &element);
    WritePointAttributes(element);
    if (firstCoordinate == UNSET_DOUBLE || secondCoordinate == UNSET_DOUBLE)
    {
        return true;
    }
    std::wstring text = NumberText(firstCoordinate, POINT_DIGITS) + L" " + NumberText(secondCoordinate, POINT_DIGITS);
    if (thirdCoordinate != UNSET_DOUBLE)
    {
        text += L" " + NumberText(thirdCoordinate, POINT_DIGITS);
    }
    element.SetTextContent(text);
    return element.HasNode();
}

void FViewCgPoint::WritePointAttributes(const WcXmNode& node) const
{
    WriteTextAttribute(node, attribute_name::NAME, name.Wide());
}

void FViewCgPoint::FillFeature(FViewFeature& feature) const
{
    feature.properties.emplace_back(property_label::STA, NumberText(sta, POINT_DIGITS));
    feature.properties.emplace_back(TANGENT_DIRECTION_ANGLE, NumberText(tangentDirectionAngle, POINT_DIGITS));
}

bool FViewCgPoint::WriteFeature(const WcXmNode& node, bool replaceExisting) const
{
    FViewFeature feature;
    feature.replaceExisting = replaceExisting;
    FillFeature(feature);
    return feature.WriteElement(node);
}

void FViewCgPointIntermediate::WritePointAttributes(const WcXmNode& node) const
{
    FViewCgPoint::WritePointAttributes(node);
    WriteTextAttribute(node, FEATURE_REF, featureRef.Wide());
}

void FViewCgPointIntermediate::FillFeature(FViewFeature& feature) const
{
    feature.name = featureRef;
    FViewCgPoint::FillFeature(feature);
}

FViewCgPointWidthStake::FViewCgPointWidthStake(const FViewCgPointWidthStake& other)
    : FViewCgPoint(other),
      sequenceText(other.sequenceText),
      stakeText(other.stakeText),
      stakeValue(other.stakeValue),
      groupDesc(other.groupDesc),
      groupType(other.groupType)
{}

FViewCgPointWidthStake& FViewCgPointWidthStake::operator=(const FViewCgPointWidthStake& other)
{
    FViewCgPoint::operator=(other);
    sequenceText = other.sequenceText;
    stakeText = other.stakeText;
    stakeValue = other.stakeValue;
    groupDesc = other.groupDesc;
    groupType = other.groupType;
    return *this;
}

void FViewCgPointWidthStake::Clear()
{
    sequenceText.clear();
    stakeText.clear();
    stakeValue = UNSET_DOUBLE;
    groupDesc.clear();
    groupType.clear();
}

} // namespace jlandxml
