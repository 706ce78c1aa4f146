#include "inspect/ElementReader.h"

#include <algorithm>

namespace jlandxml::inspect
{

namespace
{

using Node = pugi::xml_node;

/// Attributes of the horizontal elements; each element has those of its kind.
struct ElementName
{
    std::wstring_view tag;
    ElementKind kind;
};
constexpr ElementName ELEMENT_NAMES[] = {
    {L"Line", ElementKind::Line},
    {L"Curve", ElementKind::Curve},
    {L"Spiral", ElementKind::Spiral},
    {L"IrregularLine", ElementKind::IrregularLine},
};

class AlignmentReader
{
  public:
    AlignmentReader(ElementReader& reader, Alignment& alignment) : reader_(reader), alignment_(alignment) {}

    void Read(Node element)
    {
        alignment_.name = AttributeText(element, L"name");
        alignment_.desc = AttributeText(element, L"desc");
        alignment_.length = reader_.Number(element, L"length");
        alignment_.staStart = reader_.Number(element, L"staStart");
        reader_.Locate(alignment_, element);
        reader_.ForEachChild(element, {
                                          {L"CoordGeom", [this](Node child) { ReadCoordGeom(child); }},
                                          {L"AlignPIs", [this](Node child) { ReadAlignPis(child); }},
                                          {L"StaEquation", [this](Node child) { ReadStaEquation(child); }},
                                          {L"Profile", [this](Node child) { ReadProfile(child); }},
                                          {L"CrossSects", [this](Node child) { ReadCrossSects(child); }},
                                          {L"Superelevation", [this](Node child) { ReadSuperelevation(child); }},
                                          {L"Feature", [this](Node child) { ReadDesignFeature(child); }},
                                      });
        reader_.ExpectFigures(alignment_.features, L"Interval", L"main");
        reader_.ExpectFigures(alignment_.features, L"Interval", L"sub");
        reader_.ExpectFigures(alignment_.features, L"SuperelevationConfig", L"normalCrown");
    }

  private:
    /// A reader of a child that fills the field with the first such child's point.
    ElementReader::ReadChild PointInto(PlanPoint& point)
    {
        return [this, &point](Node child) {
            if (point.IsWritten())
            {
                reader_.Skip(child);
                return;
            }
            point = reader_.Point(child);
        };
    }

    ElementReader::ReadChild FeatureInto(std::vector<Feature>& features)
    {
        return [this, &features](Node child) { features.push_back(reader_.ReadFeature(child)); };
    }

    ElementReader::ReadChild PairsInto(std::vector<PairList>& lists)
    {
        return [this, &lists](Node child) { lists.push_back(reader_.Pairs(child)); };
    }

    void ReadCoordGeom(Node element)
    {
        const ElementReader::ReadChild read = [this](Node child) { ReadPlanElement(child); };
        reader_.ForEachChild(element, {{L"Line", read},
                                       {L"Curve", read},
                                       {L"Spiral", read},
                                       {L"IrregularLine", read},
                                       {L"Feature", ElementReader::Ignore}});
    }

    void ReadPlanElement(Node node)
    {
        PlanElement element;
        const std::wstring_view tag = LocalName(node);
        element.kind = std::find_if(std::begin(ELEMENT_NAMES), std::end(ELEMENT_NAMES), [&](const ElementName& name) {
                           return name.tag == tag;
                       })->kind;
        element.name = AttributeText(node, L"name");
        reader_.Locate(element, node);
        element.length = reader_.Number(node, L"length");
        element.radius = reader_.Number(node, L"radius");
        element.radiusStart = reader_.Number(node, L"radiusStart");
        element.radiusEnd = reader_.Number(node, L"radiusEnd");
        element.rot = AttributeText(node, L"rot");
        element.spiralType = AttributeText(node, L"spiType");
        std::vector<Feature> features;
        reader_.ForEachChild(node, {{L"Start", PointInto(element.start)},
                                    {L"End", PointInto(element.end)},
                                    {L"Center", PointInto(element.center)},
                                    {L"PI", PointInto(element.pi)},
                                    {L"PntList2D", PairsInto(element.path)},
                                    {L"PntList3D", PairsInto(element.path)},
                                    {L"Feature", FeatureInto(features)}});
        for (const wchar_t* const name : {L"dir", L"dirStart", L"dirEnd"})
        {
            AddFigure(element.directions, node, name);
        }
        for (const wchar_t* const name : {L"delta", L"theta"})
        {
            AddFigure(element.angles, node, name);
        }
        element.parameter = reader_.NumberIn(FindProperty(features, L"", L"A"));
        alignment_.elements.push_back(std::move(element));
    }

    /// Adds the figure of an attribute that is there.
    void AddFigure(std::vector<NamedFigure>& figures, Node node, const wchar_t* name)
    {
        const Figure figure = reader_.Number(node, name);
        if (figure.IsWritten())
        {
            figures.push_back({name, figure});
        }
    }

    void ReadAlignPis(Node element)
    {
        const ElementReader::ReadChild readPoint = [this](Node point) {
            alignment_.intersections.push_back(reader_.Point(point));
        };
        reader_.ForEachChild(element, {{L"AlignPI", [&](Node child) {
                                            reader_.ForEachChild(child, {{L"PI", readPoint}});
                                        }}});
    }

    void ReadStaEquation(Node element)
    {
        alignment_.equations.push_back({reader_.PlaceOf(element), reader_.Number(element, L"staBack"),
                                        reader_.Number(element, L"staAhead"), reader_.Number(element, L"staInternal")});
        reader_.TextOf(element);
    }

    void ReadProfile(Node element)
    {
        Profile profile;
        profile.name = AttributeText(element, L"name");
        profile.staStart = reader_.Number(element, L"staStart");
        reader_.Locate(profile, element);
        reader_.ForEachChild(element, {{L"ProfAlign", [&](Node child) { ReadProfAlign(profile, child); }},
                                       {L"ProfSurf", [&](Node child) { ReadProfSurf(profile, child); }},
                                       {L"Feature", ElementReader::Ignore}});
        alignment_.profiles.push_back(std::move(profile));
    }

    void ReadProfAlign(Profile& profile, Node element)
    {
        ProfAlign design;
        design.name = AttributeText(element, L"name");
        reader_.Locate(design, element);
        const ElementReader::ReadChild read = [&](Node child) { design.elements.push_back(ReadProfileElement(child)); };
        reader_.ForEachChild(element, {{L"PVI", read},
                                       {L"ParaCurve", read},
                                       {L"UnsymParaCurve", read},
                                       {L"CircCurve", read},
                                       {L"Feature", ElementReader::Ignore}});
        profile.designs.push_back(std::move(design));
    }

    ProfileElement ReadProfileElement(Node node)
    {
        ProfileElement element;
        element.kind = LocalName(node);
        reader_.Locate(element, node);
        element.length = reader_.Number(node, L"length");
        element.radius = reader_.Number(node, L"radius");
        element.lengthIn = reader_.Number(node, L"lengthIn");
        element.lengthOut = reader_.Number(node, L"lengthOut");
        const std::vector<Figure> figures = reader_.Numbers(reader_.TextOf(node), element.kind, element);
        element.figureCount = figures.size();
        element.station = figures.empty() ? Figure() : figures[0];
        element.height = figures.size() < 2 ? Figure() : figures[1];
        return element;
    }

    void ReadProfSurf(Profile& profile, Node element)
    {
        ProfSurf ground;
        ground.name = AttributeText(element, L"name");
        reader_.Locate(ground, element);
        reader_.ForEachChild(element, {{L"PntList2D", PairsInto(ground.lists)}, {L"Feature", ElementReader::Ignore}});
        profile.grounds.push_back(std::move(ground));
    }

    void ReadSuperelevation(Node element)
    {
        Superelevation superelevation;
        superelevation.staStart = reader_.Number(element, L"staStart");
        superelevation.staEnd = reader_.Number(element, L"staEnd");
        reader_.Locate(superelevation, element);
        const ElementReader::ReadChild station = [&](Node child) {
            superelevation.stations.push_back({reader_.PlaceOf(child), LocalName(child), reader_.NumberOf(child)});
        };
        reader_.ForEachChild(
            element, {{L"BeginRunoutSta", station},
                      {L"BeginRunoffSta", station},
                      {L"FullSuperSta", station},
                      {L"FullSuperelev", [&](Node child) { superelevation.fullSuperelev = reader_.NumberOf(child); }},
                      {L"RunoffSta", station},
                      {L"StartofRunoutSta", station},
                      {L"EndofRunoutSta", station},
                      {L"AdverseSE", [&](Node child) { superelevation.adverse = reader_.TextOf(child); }},
                      {L"Feature", FeatureInto(superelevation.features)}});
        reader_.ExpectFigures(superelevation.features, L"ReverseCrown", L"sta");
        reader_.ExpectFigures(superelevation.features, L"FlatSta", L"sta");
        alignment_.superelevations.push_back(std::move(superelevation));
    }

    void ReadCrossSects(Node element)
    {
        CrossSects sections;
        sections.name = AttributeText(element, L"name");
        reader_.Locate(sections, element);
        reader_.ForEachChild(element, {{L"CrossSect", [&](Node child) { ReadCrossSect(sections, child); }},
                                       {L"Feature", FeatureInto(sections.features)}});
        alignment_.crossSects.push_back(std::move(sections));
    }

    void ReadCrossSect(CrossSects& sections, Node element)
    {
        CrossSect section;
        section.name = AttributeText(element, L"name");
        section.station = reader_.Number(element, L"sta");
        section.angleSkew = reader_.Number(element, L"angleSkew");
        reader_.Locate(section, element);
        reader_.ForEachChild(element, {{L"CrossSectSurf", [&](Node child) { ReadGround(section, child); }},
                                       {L"DesignCrossSectSurf", [&](Node child) { ReadDesignSurface(section, child); }},
                                       {L"Feature", FeatureInto(section.features)}});
        reader_.ExpectFigures(section.features, L"Formation", L"clOffset");
        reader_.ExpectFigures(section.features, L"Formation", L"fhOffset");
        sections.sections.push_back(std::move(section));
    }

    void ReadGround(CrossSect& section, Node element)
    {
        CrossSectSurf ground;
        ground.name = AttributeText(element, L"name");
        reader_.Locate(ground, element);
        reader_.ForEachChild(element, {{L"PntList2D", PairsInto(ground.lists)}, {L"Feature", ElementReader::Ignore}});
        section.grounds.push_back(std::move(ground));
    }

    void ReadDesignSurface(CrossSect& section, Node element)
    {
        DesignCrossSectSurf surface;
        surface.name = AttributeText(element, L"name");
        surface.side = AttributeText(element, L"side");
        surface.desc = AttributeText(element, L"desc");
        surface.material = AttributeText(element, L"material");
        surface.closedArea = AttributeText(element, L"closedArea");
        surface.typicalThickness = reader_.Number(element, L"typicalThickness");
        reader_.Locate(surface, element);
        reader_.ForEachChild(element, {{L"CrossSectPnt", [&](Node child) { ReadSectionPoint(surface, child); }},
                                       {L"Feature", FeatureInto(surface.features)}});
        section.designs.push_back(std::move(surface));
    }

    void ReadSectionPoint(DesignCrossSectSurf& surface, Node element)
    {
        CrossSectPnt point;
        point.code = AttributeText(element, L"code");
        point.dataFormat = AttributeText(element, L"dataFormat");
        point.pntRef = AttributeText(element, L"pntRef");
        point.featureRef = AttributeText(element, L"featureRef");
        reader_.Locate(point, element);
        const std::vector<Figure> figures = reader_.Numbers(reader_.TextOf(element), L"CrossSectPnt", point);
        point.figureCount = figures.size();
        point.offset = figures.empty() ? Figure() : figures[0];
        point.height = figures.size() < 2 ? Figure() : figures[1];
        surface.points.push_back(point);
    }

    /// A Feature of the alignment. Lists in it become entries of their own.
    void ReadDesignFeature(Node element)
    {
        const std::pair<std::wstring_view, std::vector<StationEntry>*> lists[] = {
            {L"widthLeftValue", &alignment_.wideningLeft},
            {L"widthRightValue", &alignment_.wideningRight},
            {L"slopeValue", &alignment_.slopes},
        };
        Feature feature = reader_.ReadFeature(element);
        for (const Property& property : feature.properties)
        {
            for (const auto& [label, list] : lists)
            {
                if (property.label == label)
                {
                    list->push_back({property, reader_.Numbers(property.value, label, property)});
                }
            }
        }
        alignment_.features.push_back(std::move(feature));
    }

    ElementReader& reader_;
    Alignment& alignment_;
};

} // namespace

Alignment ReadAlignment(ElementReader& reader, pugi::xml_node element)
{
    Alignment alignment;
    AlignmentReader(reader, alignment).Read(element);
    return alignment;
}

} // namespace jlandxml::inspect
