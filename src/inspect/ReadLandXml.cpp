#include "inspect/ReadLandXml.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Text.h"
#include "inspect/ElementReader.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace jlandxml::inspect
{

namespace
{

using Node = pugi::xml_node;

constexpr std::wstring_view RIVER = L"河川";

/// What says of a group of points what they are.
constexpr std::wstring_view POINT_KINDS[] = {L"IntermediatePnts", L"WidthStakePnts"};

class FileReader
{
  public:
    explicit FileReader(LandXmlFile& file) : file_(file), reader_(file) {}

    void Read(Node root)
    {
        file_.root = reader_.PlaceOf(root);
        file_.version = AttributeText(root, L"version");
        file_.nameSpace = NameSpaceOf(root);
        reader_.ForEachChild(root,
                             {{L"Project", [this](Node child) { ReadProject(child); }},
                              {L"Units", [this](Node child) { ReadUnits(child); }},
                              {L"Application", [this](Node child) { ReadApplication(child); }},
                              {L"CoordinateSystem",
                               OnlyOnce(file_.coordinateSystem, [this](Node child) { ReadCoordinateSystem(child); })},
                              {L"CgPoints", [this](Node child) { ReadPointGroup(child); }},
                              {L"Alignments", [this](Node child) { ReadAlignments(child); }},
                              {L"Roadways", [this](Node child) { ReadRoadways(child); }},
                              {L"Surfaces", [this](Node child) { ReadSurfaces(child); }},
                              {L"Feature", ElementReader::Ignore}});
        FollowPointReferences();
    }

    /// Entities are declared in front of the outermost element.
    void ReadDocumentType(Node document)
    {
        for (const Node child : document.children())
        {
            if (child.type() == pugi::node_doctype && !file_.entities &&
                std::wstring_view(child.value()).find(L"<!ENTITY") != std::wstring_view::npos)
            {
                file_.entities = reader_.PlaceOf(child);
            }
        }
    }

  private:
    /// The namespace of the outermost element, by the prefix of its name.
    static std::wstring_view NameSpaceOf(Node root)
    {
        const std::wstring_view name = root.name();
        const std::size_t colon = name.find(L':');
        const std::wstring prefix = colon == std::wstring_view::npos ? L"" : L":" + std::wstring(name.substr(0, colon));
        return AttributeText(root, (L"xmlns" + prefix).c_str());
    }

    ElementReader::ReadChild FeatureInto(std::vector<Feature>& features)
    {
        return [this, &features](Node child) { features.push_back(reader_.ReadFeature(child)); };
    }

    /// Reads a child the first time; of what there must be but one, others are noted as skipped.
    template <class Value>
    ElementReader::ReadChild OnlyOnce(const std::optional<Value>& value, const ElementReader::ReadChild& read)
    {
        return [this, &value, read](Node child) { value ? reader_.Skip(child) : read(child); };
    }

    void ReadProject(Node element)
    {
        file_.projectName = AttributeText(element, L"name");
        file_.projectDesc = AttributeText(element, L"desc");
        reader_.ForEachChild(element, {{L"Feature", FeatureInto(file_.projectFeatures)}});
    }

    void ReadUnits(Node element)
    {
        const ElementReader::ReadChild read = [this](Node system) {
            file_.units = Units{reader_.PlaceOf(system),
                                LocalName(system),
                                AttributeText(system, L"linearUnit"),
                                AttributeText(system, L"areaUnit"),
                                AttributeText(system, L"volumeUnit"),
                                AttributeText(system, L"angularUnit"),
                                AttributeText(system, L"directionUnit")};
            reader_.TextOf(system);
        };
        reader_.ForEachChild(element,
                             {{L"Metric", OnlyOnce(file_.units, read)}, {L"Imperial", OnlyOnce(file_.units, read)}});
    }

    void ReadApplication(Node element)
    {
        file_.application = AttributeText(element, L"name");
        file_.applicationVersion = AttributeText(element, L"version");
        reader_.ForEachChild(element, {{L"Author", ElementReader::Ignore}});
    }

    void ReadCoordinateSystem(Node element)
    {
        CoordinateSystem system;
        system.name = AttributeText(element, L"name");
        system.desc = AttributeText(element, L"desc");
        system.horizontalDatum = AttributeText(element, L"horizontalDatum");
        system.verticalDatum = AttributeText(element, L"verticalDatum");
        system.zoneName = AttributeText(element, L"horizontalCoordinateSystemName");
        reader_.Locate(system, element);
        reader_.ForEachChild(element, {{L"Feature", FeatureInto(system.features)}});
        reader_.ExpectFigures(system.features, L"", L"differTP");
        file_.coordinateSystem = std::move(system);
    }

    void ReadPointGroup(Node element)
    {
        PointGroup group;
        group.name = AttributeText(element, L"name");
        group.desc = AttributeText(element, L"desc");
        reader_.Locate(group, element);
        reader_.ForEachChild(element, {{L"CgPoint", [&](Node child) { ReadCgPoint(group, child); }},
                                       {L"Feature", FeatureInto(group.features)}});
        group.kind = KindOf(group);
        group.alignmentRefs = Trim(PropertyValue(group.features, group.kind, L"alignmentRefs"));
        FillFromFeatures(group);
        file_.pointGroups.push_back(std::move(group));
    }

    void ReadCgPoint(PointGroup& group, Node element)
    {
        CgPoint point;
        point.point = reader_.Point(element);
        point.desc = AttributeText(element, L"desc");
        group.points.push_back(point);
    }

    /// What the points of a group are, by the first feature that says so.
    static std::wstring_view KindOf(const PointGroup& group)
    {
        const auto isKind = [](const Feature& feature) {
            return std::find(std::begin(POINT_KINDS), std::end(POINT_KINDS), feature.name) != std::end(POINT_KINDS);
        };
        const auto found = std::find_if(group.features.begin(), group.features.end(), isKind);
        return found != group.features.end() ? found->name : std::wstring_view();
    }

    /// Gives each point what the feature says that it refers to.
    void FillFromFeatures(PointGroup& group)
    {
        std::unordered_map<std::wstring_view, const Feature*> byName;
        for (const Feature& feature : group.features)
        {
            byName.emplace(feature.name, &feature);
        }
        for (CgPoint& point : group.points)
        {
            const auto found = point.point.featureRef.empty() ? byName.end() : byName.find(point.point.featureRef);
            point.hasFeature = found != byName.end();
            if (point.hasFeature)
            {
                point.station = reader_.NumberIn(FindProperty(*found->second, L"sta"));
                point.direction = reader_.NumberIn(FindProperty(*found->second, L"tangentDirectionAngle"));
            }
        }
    }

    void ReadAlignments(Node element)
    {
        AlignmentGroup route;
        route.name = AttributeText(element, L"name");
        route.desc = AttributeText(element, L"desc");
        reader_.Locate(route, element);
        reader_.ForEachChild(
            element, {{L"Alignment", [&](Node child) { route.alignments.push_back(ReadAlignment(reader_, child)); }},
                      {L"Feature", FeatureInto(route.features)}});
        const bool isRiver = PropertyValue(route.features, L"", L"designGmType") == RIVER;
        for (Alignment& alignment : route.alignments)
        {
            alignment.isRiver = isRiver;
        }
        file_.routes.push_back(std::move(route));
    }

    void ReadRoadways(Node element)
    {
        reader_.ForEachChild(element, {{L"Roadway", [this](Node child) { ReadRoadway(child); }}});
    }

    void ReadRoadway(Node element)
    {
        Roadway roadway;
        roadway.name = AttributeText(element, L"name");
        roadway.alignmentRefs = AttributeText(element, L"alignmentRefs");
        reader_.Locate(roadway, element);
        const ElementReader::ReadChild readSpeed = [&](Node speed) {
            roadway.designSpeeds.push_back(reader_.Number(speed, L"speed").text);
            reader_.TextOf(speed);
        };
        reader_.ForEachChild(element, {{L"Speeds", [&](Node child) {
                                            reader_.ForEachChild(child, {{L"DesignSpeed", readSpeed}});
                                        }}});
        file_.roadways.push_back(std::move(roadway));
    }

    void ReadSurfaces(Node element)
    {
        reader_.ForEachChild(
            element, {{L"Surface", [this](Node child) { ReadSurface(child); }}, {L"Feature", ElementReader::Ignore}});
    }

    void ReadSurface(Node element)
    {
        Surface surface;
        surface.name = AttributeText(element, L"name");
        surface.desc = AttributeText(element, L"desc");
        reader_.Locate(surface, element);
        reader_.ForEachChild(element, {{L"Definition", [&](Node child) { ReadDefinition(surface, child); }},
                                       {L"Feature", FeatureInto(surface.features)}});
        surface.index = PointIndex(surface.points);
        TakeFarthest(surface);
        file_.surfaces.push_back(std::move(surface));
    }

    /// Gives the surface what was gathered of its points.
    void TakeFarthest(Surface& surface)
    {
        for (std::size_t side = 0; side < surface.farthest.size(); ++side)
        {
            const std::wstring text = WideFromUtf8(farthest_.sides[side].text);
            std::vector<std::wstring_view> words = Words(text);
            words.resize(3);
            surface.farthest[side] = {farthest_.sides[side].point, std::wstring(words[0]), std::wstring(words[1]),
                                      std::wstring(words[2])};
        }
        farthest_ = {};
    }

    void ReadDefinition(Surface& surface, Node element)
    {
        surface.type = AttributeText(element, L"surfType");
        const ElementReader::ReadChild read = [&](Node child) { ReadPointsOrFaces(surface, child); };
        reader_.ForEachChild(element, {{L"Pnts", read}, {L"Faces", read}, {L"Feature", ElementReader::Ignore}});
    }

    void ReadPointsOrFaces(Surface& surface, Node element)
    {
        if (SurfacePassage* const passage = file_.source->PassageAt(element.offset_debug()))
        {
            for (SurfacePointRemark& remark : passage->remarks)
            {
                remark.point += static_cast<std::uint32_t>(surface.points.size());
            }
            Take(surface.remarks, passage->remarks);
            Take(surface.points, passage->points);
            Take(surface.faces, passage->faces);
            for (const auto& side : passage->farthest.sides)
            {
                if (!side.text.empty())
                {
                    farthest_.Take(side.point, side.text);
                }
            }
        }
        const auto narrow = [](std::wstring_view text) { return Utf8FromWide(text); };
        reader_.ForEachChild(
            element,
            {{L"P",
              [&](Node point) {
                  const std::string id = narrow(AttributeText(point, L"id"));
                  const std::string pntRef = narrow(AttributeText(point, L"pntRef"));
                  const std::string featureRef = narrow(AttributeText(point, L"featureRef"));
                  const std::string text = narrow(reader_.TextOf(point));
                  AddSurfacePoint({id, pntRef, featureRef, text}, reader_.Line(point), surface.points, surface.remarks);
                  farthest_.Take(surface.points.back(), text);
              }},
             {L"F", [&](Node face) {
                  surface.faces.push_back(ReadSurfaceFace(narrow(AttributeText(face, L"i")),
                                                          narrow(reader_.TextOf(face)), reader_.Line(face)));
              }}});
    }

    /// Moves what was read beside the tree into a surface, as a rule into an empty one.
    template <class Element>
    static void Take(std::vector<Element>& target, std::vector<Element>& source)
    {
        if (target.empty())
        {
            target = std::move(source);
            return;
        }
        target.insert(target.end(), source.begin(), source.end());
    }

    using PointsByName = std::unordered_map<std::wstring_view, PlanPoint*>;

    /// Gives points that refer to another the other's coordinates, which may be another's themselves.
    void FollowPointReferences()
    {
        PointsByName byName;
        const auto nameAll = [&](bool arePlaced) {
            ForEachPlanPoint(file_, [&](PlanPoint& point) {
                if (!point.name.empty() && point.north.IsWritten() == arePlaced)
                {
                    byName.emplace(point.name, &point);
                }
            });
        };
        nameAll(true);
        nameAll(false);
        std::unordered_set<const PlanPoint*> followed;
        ForEachPlanPoint(file_, [&](PlanPoint& point) { FollowPointReferences(point, byName, followed); });
    }

    /// Gives a point without coordinates, and all on the way, those of the point to which their references lead.
    static void FollowPointReferences(PlanPoint& point, const PointsByName& byName,
                                      std::unordered_set<const PlanPoint*>& followed)
    {
        std::vector<PlanPoint*> way;
        PlanPoint* target = &point;
        while (!target->north.IsWritten() && !target->pntRef.empty() && followed.insert(target).second)
        {
            way.push_back(target);
            const auto found = byName.find(target->pntRef);
            if (found == byName.end())
            {
                return;
            }
            target = found->second;
        }
        const bool isRound = target->isRound || std::find(way.begin(), way.end(), target) != way.end();
        for (PlanPoint* const one : way)
        {
            one->north = target->north;
            one->east = target->east;
            one->height = target->height;
            one->isRound = isRound;
        }
    }

    LandXmlFile& file_;
    ElementReader reader_;
    FarthestPoints<std::string> farthest_; ///< of the surface that is being read
};

} // namespace

LandXmlFile ReadLandXmlBytes(std::string bytes, const std::wstring& path)
{
    LandXmlFile file;
    file.path = path;
    file.source = std::make_unique<SourceText>(std::move(bytes));
    file.tree = std::make_unique<pugi::xml_document>();
    file.encoding = file.source->Encoding();
    file.formFault = file.source->FormFault();
    std::wstring& text = file.source->Text();
    const pugi::xml_parse_result parsed = file.tree->load_buffer_inplace(
        text.data(), text.size() * sizeof(wchar_t), pugi::parse_default | pugi::parse_doctype, pugi::encoding_wchar);
    if (!parsed)
    {
        throw CFileException(L"XMLとして読み込めません（" + std::to_wstring(file.source->LineAt(parsed.offset)) +
                             L"行目）");
    }
    const Node root = file.tree->document_element();
    if (LocalName(root) != L"LandXML")
    {
        throw CFileException(L"LandXMLのファイルではありません（最上位の要素: " + std::wstring(LocalName(root)) +
                             L"）");
    }
    FileReader reader(file);
    reader.ReadDocumentType(*file.tree);
    reader.Read(root);
    return file;
}

LandXmlFile ReadLandXmlFile(const std::wstring& path)
{
    std::optional<std::string> bytes = ReadWholeFile(path);
    if (!bytes)
    {
        throw CFileException(L"ファイルを開けません");
    }
    return ReadLandXmlBytes(*std::move(bytes), path);
}

} // namespace jlandxml::inspect
