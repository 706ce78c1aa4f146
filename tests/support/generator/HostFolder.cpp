#include "support/generator/HostFolder.h"

#include "support/generator/HostAlignment.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace jlandxml::generator
{

namespace
{

/// A zone of the plane rectangular coordinates with the name that hosts give it.
struct Zone
{
    int number;
    const char* region;
};
constexpr Zone ZONES[] = {{2, "Kyushu"}, {4, "Shikoku"}, {6, "Kinki"},   {7, "Chubu"},
                          {8, "Chubu"},  {9, "Kanto"},   {10, "Tohoku"}, {12, "Hokkaido"}};

struct Datum
{
    const char* description;
    const char* value;
    bool newestVersionOnly;
};
constexpr Datum DATUMS[] = {{"Japan GSI Plane", "TD", false},
                            {"Japan Geodetic Datum 2000", "JGD2000", false},
                            {"Japan Geodetic Datum 2011", "JGD2011", false},
                            {"Japan Geodetic Datum 2011", "JGD2011", false},
                            {"Japan Geodetic Datum 2024", "JGD2024", true}};

struct Version
{
    const char* shown;
    const char* stored;
};
constexpr Version VERSIONS[] = {
    {"1.5", "MlitLandXmlVer.1.5"}, {"1.6", "MlitLandXmlVer.1.6"}, {"1.7", "MlitLandXmlVer.1.7"}};

constexpr const char* ROAD_CLASSIFICATIONS[] = {"第1種第3級", "第3種第2級", "第3種第4級", "第4種第1級"};
constexpr const char* RIVER_CLASSIFICATIONS[] = {"1級", "2級", "準用", "普通"};
constexpr const char* RIVER_SIDES[] = {"右岸", "左岸"};
constexpr const char* PHASES[] = {"概略", "予備", "詳細", "施工"};
constexpr const char* VERTICAL_DATUMS[] = {"T.P（東京湾中等潮位）", "K.P（北上川）", "A.P（吉野川）", "O.P", "B.S.L"};
constexpr const char* PROJECT_NAMES[] = {"国道999号 架空バイパス", "架空川 築堤設計", "県道100号 道路改良",
                                         "町道7号線"};
constexpr const char* ROAD_NAMES[] = {"本線", "取付道路", "側道", "ランプ"};
constexpr const char* RIVER_NAMES[] = {"堤防法線", "左岸堤", "特殊堤"};
constexpr const char* METHODS[] = {"要素法", "IP法"};
/// A key of a desc text may have blanks on either side of its sign.
constexpr const char* EQUALS[] = {" = ", " = ", "=", " =", "= "};
constexpr const char* NOTE_ENDS[] = {" 線形名=", "&#13;&#10;線形名=", "&#13;&#10; 線形名="};

struct PavementLayer
{
    const char* name;
    const char* material;
    double thickness; ///< metres
};
constexpr PavementLayer PAVEMENT[] = {{"表層", "密粒度アスコン13", 0.05},
                                      {"中間層", "粗粒度アスコン20", 0.05},
                                      {"基層", "粗粒度アスコン20", 0.05},
                                      {"上層路盤", "粒調砕石M-30", 0.15},
                                      {"下層路盤", "切込砕石C-40", 0.25}};

struct SurfaceKind
{
    const char* name;
    const char* desc;
    double above; ///< metres above the design height; the ground goes its own way
};
constexpr SurfaceKind GROUND{"現況地形", "ExistingGround", 0.0};
constexpr SurfaceKind ROAD_SURFACES[] = {
    {"計画路面", "FinishedGrade", 0.0}, {"路床面", "SubBase", -0.55}, {"掘削面", "Excavation", -1.2}};
constexpr SurfaceKind RIVER_SURFACES[] = {
    {"計画堤防", "FinishedGrade", 0.0}, {"余盛", "ExtraFill", 0.3}, {"岩盤線", "SoilLayer", -8.0}};

std::string Length(double metres)
{
    return Fixed(metres, 3);
}

std::string Coordinates(const Point& point, int digits)
{
    return Fixed(point.north, digits) + ' ' + Fixed(point.east, digits);
}

/// An azimuth as dd.mmss: degrees, then minutes and seconds as decimals.
std::string DegreesMinutesSeconds(double azimuth)
{
    const double turns = azimuth / (2.0 * PI);
    const double seconds = std::round((turns - std::floor(turns)) * 1296000.0 * 10000.0) / 10000.0;
    const double degrees = std::floor(seconds / 3600.0);
    const double minutes = std::floor((seconds - degrees * 3600.0) / 60.0);
    const double rest = seconds - degrees * 3600.0 - minutes * 60.0;
    return Fixed(degrees + minutes / 100.0 + rest / 10000.0, 8);
}

/// The name of a station: "No.12", "No.12+5.500".
std::string StationName(const HostAlignment& alignment, double distance)
{
    const double station = alignment.ShownStation(distance);
    const double number = std::floor(station / alignment.mainInterval);
    const double rest = station - number * alignment.mainInterval;
    return "No." + Fixed(number, 0) + (rest < 0.0005 ? "" : '+' + Length(rest));
}

/// A station in kilometres and metres, as the table of cross slopes has it: "0+110.000m".
std::string KilometreStation(double station)
{
    const double kilometres = std::floor(station / 1000.0);
    const std::string metres = Length(station - kilometres * 1000.0);
    return Fixed(kilometres, 0) + '+' + std::string(metres.size() < 7 ? 7 - metres.size() : 0, '0') + metres + 'm';
}

/// What the designer draws of one work folder, part by part.
class HostFolder
{
  public:
    explicit HostFolder(SplitMix64& source) : random_(source) {}

    Draft Make()
    {
        MakeFrame();
        const int routes = random_.OneIn(3) ? random_.Between(2, 3) : 1;
        for (int route = 1; route <= routes; ++route)
        {
            MakeRoute(route);
        }
        FinishSettings();
        return std::move(draft_);
    }

  private:
    // The frame of the document

    void MakeFrame()
    {
        XmlElement& root = draft_.landXml;
        root.name = "LandXML";
        root.Set("xmlns", "http://www.landxml.org/schema/LandXML-1.2")
            .Set("version", "1.2")
            .Set("date", "2026-03-01")
            .Set("time", "09:00:00");
        version_ = random_.Pick(VERSIONS);
        radiusDigits_ = 3 * random_.Between(0, 2);
        XmlElement& project = root.Add("Project").Set("name", random_.OneIn(2) ? "設計データ①" : "");
        if (random_.OneIn(3))
        {
            XmlElement& feature = project.Add("Feature");
            AddProperty(feature, "projectPhase", random_.Pick(PHASES));
            AddProperty(feature, "applicationCriterion", random_.Pick(VERSIONS).stored);
        }
        root.Add("Units")
            .Add("Metric")
            .Set("areaUnit", "squareMeter")
            .Set("linearUnit", "meter")
            .Set("volumeUnit", "cubicMeter")
            .Set("temperatureUnit", "celsius")
            .Set("pressureUnit", random_.OneIn(2) ? "milliBars" : "HPA")
            .Set("angularUnit", "decimal dd.mm.ss")
            .Set("directionUnit", "decimal dd.mm.ss");
        MakeCoordinateSystem();
        if (random_.OneIn(4))
        {
            XmlElement& points = root.Add("CgPoints").Set("name", "基準点");
            points.Add("CgPoint").Set("name", "T-1").text = "100.000 200.000 12.345";
        }
    }

    void MakeCoordinateSystem()
    {
        const Zone& zone = random_.Pick(ZONES);
        Datum datum = random_.Pick(DATUMS);
        if (datum.newestVersionOnly)
        {
            version_ = VERSIONS[std::size(VERSIONS) - 1];
        }
        XmlElement& system = draft_.landXml.Add("CoordinateSystem");
        const std::string place = ", Plane Rectangular Coordinate System No. " + std::to_string(zone.number) + " (" +
                                  zone.region + "), Transverse Mercator, Metre";
        switch (random_.Below(4))
        {
        case 0: // a host that fills the attributes in
            system.Set("name", "CRS1")
                .Set("horizontalDatum", datum.value)
                .Set("verticalDatum", "T.P")
                .Set("horizontalCoordinateSystemName", std::to_string(zone.number) + "(X,Y)");
            break;
        case 1:
            if (!datum.newestVersionOnly)
            {
                system.Set("name", "平面直角座標系")
                    .Set("horizontalDatum", "JGD2000-7P")
                    .Set("desc", "JGD2000 corrected" + place);
                break;
            }
            [[fallthrough]];
        default:
            system.Set("desc", datum.description + place);
        }
        // All zones of the table have land around their origins.
        start_.point.north = 2.0 * random_.Between(-15000, 15000);
        start_.point.east = 2.0 * random_.Between(-9000, 9000);
        start_.azimuth = random_.Between(0, 359) * PI / 180.0;
    }

    static void AddProperty(XmlElement& feature, const std::string& label, const std::string& value)
    {
        feature.Add("Property").Set("label", label).Set("value", value);
    }

    // Routes

    void MakeRoute(int number)
    {
        const bool river = random_.OneIn(3);
        const std::string suffix = number == 1 ? "" : std::to_string(number);
        std::vector<HostAlignment> alignments;
        for (int count = random_.OneIn(4) ? 2 : 1; count > 0; --count)
        {
            const std::string name = (river ? random_.Pick(RIVER_NAMES) : random_.Pick(ROAD_NAMES)) + suffix;
            // A branch bears a name of its own.
            alignments.emplace_back(random_, start_, river,
                                    alignments.empty() ? name : name + "（" + std::to_string(count) + "）");
            start_.point.north += 60.0;
            start_.azimuth += 0.5;
        }
        Setting route;
        XmlElement routeElement;
        routeElement.name = "Alignments";
        routeElement.Set("name", random_.OneIn(4) ? "" : (river ? "架空川" : "国道999号") + suffix);
        const bool described = random_.OneIn(2);
        if (!described || random_.OneIn(3))
        {
            route.AddText("designGmType", river ? "河川" : "道路");
        }
        route.AddText(river ? "riverClassification" : "roadClassification",
                      river ? random_.Pick(RIVER_CLASSIFICATIONS) : random_.Pick(ROAD_CLASSIFICATIONS));
        if (river)
        {
            route.AddText("side", random_.Pick(RIVER_SIDES));
        }
        else if (!described)
        {
            route.AddText("trafficVolume", std::to_string(50 * random_.Between(1, 400)));
        }
        Setting alignmentSettings{"alignments", Setting::Kind::Array, {}, {}};
        for (const HostAlignment& alignment : alignments)
        {
            MakeAlignment(routeElement, alignment, &alignment == &alignments.front() && described, alignmentSettings);
        }
        route.members.push_back(std::move(alignmentSettings));
        routes_.push_back(std::move(route));
        draft_.landXml.children.push_back(std::move(routeElement));
        MakeSurfaces(alignments.front());
        MakeSideFiles(alignments.front(), number);
    }

    std::string Key(const char* key, const std::string& value)
    {
        return ' ' + std::string(key) + random_.Pick(EQUALS) + value;
    }

    /// The design values go into the desc text, or are left to the user.
    std::string Description(const HostAlignment& alignment, bool describesRoute, Setting& settings)
    {
        std::string desc = alignment.river ? "堤防法線" : "道路中心線";
        if (describesRoute)
        {
            desc += Key("構築物情報", alignment.river ? "河川" : "道路");
            desc += alignment.river ? Key("左右岸区分", random_.Pick(RIVER_SIDES)) : Key("設計交通量", "8500");
        }
        desc += random_.OneIn(2) ? Key("線形計算手法名", random_.Pick(METHODS)) : "";
        const std::string interval = Fixed(alignment.mainInterval, 0);
        if (random_.OneIn(2))
        {
            desc += Key("主測点間隔", interval);
        }
        else
        {
            settings.AddText("mainInterval", interval);
        }
        if (random_.OneIn(2))
        {
            settings.AddText("subInterval", "5");
        }
        const std::string crown = Fixed(alignment.normalCrown, 1);
        if (random_.OneIn(2))
        {
            desc += Key("直線部横断勾配", crown);
        }
        else
        {
            settings.AddText("normalCrown", crown);
        }
        if (alignment.river)
        {
            return desc;
        }
        desc += Key("一車線道路又は多車線", alignment.singleLane ? "一車線道路" : "多車線");
        if (random_.OneIn(2))
        {
            desc += Key("任意横断勾配リスト", alignment.slopeList ? "はい" : "いいえ");
        }
        else
        {
            settings.AddFlag("useSlopeList", alignment.slopeList);
        }
        return desc + ProjectDescription();
    }

    std::string ProjectDescription()
    {
        std::string desc;
        if (random_.OneIn(3))
        {
            desc += Key("鉛直原子", "T.P");
            desc += Key("適用基準", version_.stored);
            desc += Key("プロジェクト名", random_.Pick(PROJECT_NAMES));
        }
        return desc;
    }

    void MakeAlignment(XmlElement& route, const HostAlignment& alignment, bool describesRoute, Setting& settings)
    {
        Setting& own = settings.Add("", Setting::Kind::Object);
        const std::string desc = Description(alignment, describesRoute, own);
        XmlElement& element = route.Add("Alignment")
                                  .Set("name", alignment.name)
                                  .Set("length", Fixed(alignment.geometry.Length(), 6))
                                  .Set("staStart", Fixed(alignment.startStation, 6))
                                  .Set("desc", desc);
        MakeCoordGeom(element, alignment);
        MakePoints(element, alignment);
        if (alignment.equationDistance >= 0.0)
        {
            const double internal = alignment.startStation + alignment.equationDistance;
            element.Add("StaEquation")
                .Set("staBack", Length(internal))
                .Set("staAhead", Length(internal + alignment.equationJump))
                .Set("staInternal", Length(internal));
        }
        MakeProfile(element, alignment);
        if (!alignment.river && !alignment.singleLane)
        {
            MakeSuperelevation(element, alignment);
        }
        if (!random_.OneIn(5))
        {
            MakeCrossSects(element, alignment);
        }
    }

    // Horizontal and vertical alignment

    std::string Radius(double curvature) const
    {
        return curvature == 0.0 ? "INF" : Fixed(std::fabs(1.0 / curvature), radiusDigits_);
    }

    void MakeCoordGeom(XmlElement& alignmentElement, const HostAlignment& alignment)
    {
        XmlElement& geometry = alignmentElement.Add("CoordGeom");
        for (const HorizontalElement& part : alignment.geometry.Elements())
        {
            const Pose end = part.End();
            const double curvature = part.startCurvature + part.endCurvature;
            const char* const hand = curvature > 0.0 ? "cw" : "ccw";
            XmlElement element;
            switch (part.kind)
            {
            case HorizontalKind::Line:
                element.name = "Line";
                break;
            case HorizontalKind::Curve:
                element.name = "Curve";
                element.Set("rot", hand).Set("radius", Radius(part.startCurvature));
                break;
            case HorizontalKind::Spiral:
                element.name = "Spiral";
                element.Set("spiType", "clothoid")
                    .Set("rot", hand)
                    .Set("radiusStart", Radius(part.startCurvature))
                    .Set("radiusEnd", Radius(part.endCurvature));
                break;
            }
            element.Set("length", Fixed(part.length, 6));
            element.Add("Start").text = Coordinates(part.start.point, 8);
            if (part.kind == HorizontalKind::Curve)
            {
                element.Add("Center").text = Coordinates(Beside(part.start, 1.0 / part.startCurvature), 8);
            }
            if (part.kind == HorizontalKind::Spiral)
            {
                element.Add("PI").text = Coordinates(TangentIntersection(part.start, end), 8);
            }
            element.Add("End").text = Coordinates(end.point, 8);
            geometry.children.push_back(std::move(element));
        }
    }

    static void MakePoints(XmlElement& alignmentElement, const HostAlignment& alignment)
    {
        XmlElement& points = alignmentElement.Add("AlignPIs");
        const auto add = [&](const Point& point) { points.Add("AlignPI").Add("PI").text = Coordinates(point, 8); };
        add(alignment.geometry.Elements().front().start.point);
        for (const Bend& bend : alignment.geometry.bends)
        {
            add(TangentIntersection(alignment.geometry.At(bend.begin), alignment.geometry.At(bend.end)));
        }
        add(alignment.geometry.End().point);
    }

    void MakeProfile(XmlElement& alignmentElement, const HostAlignment& alignment)
    {
        XmlElement& profile = alignmentElement.Add("Profile").Set("name", alignment.name);
        XmlElement& design = profile.Add("ProfAlign").Set("name", alignment.river ? "計画堤防高" : "計画");
        const auto pair = [&](double distance, double height) {
            return Length(alignment.startStation + distance) + ' ' + Length(height);
        };
        for (const GradePoint& grade : alignment.grades)
        {
            XmlElement& point = design.Add(grade.curveLength > 0.0 ? "ParaCurve" : "PVI");
            if (grade.curveLength > 0.0)
            {
                point.Set("length", Length(grade.curveLength));
            }
            point.text = pair(grade.distance, grade.height);
        }
        if (alignment.river && random_.OneIn(2))
        {
            XmlElement& water = profile.Add("ProfAlign").Set("name", "計画高水位");
            water.Add("PVI").text = pair(0.0, alignment.HeightAt(0.0) - 1.5);
            water.Add("PVI").text =
                pair(alignment.geometry.Length(), alignment.HeightAt(alignment.geometry.Length()) - 1.5);
        }
        XmlElement& ground = profile.Add("ProfAlign").Set("name", "ProfSurf_現況地形");
        for (double distance = 0.0; distance < alignment.geometry.Length(); distance += alignment.mainInterval)
        {
            ground.Add("PVI").text = pair(distance, alignment.GroundHeightAt(distance));
        }
        if (random_.OneIn(4))
        {
            profile.Add("ProfSurf").Set("name", "推定岩盤線").Add("PntList2D").text =
                pair(0.0, alignment.GroundHeightAt(0.0) - 6.0) + ' ' +
                pair(alignment.geometry.Length(), alignment.GroundHeightAt(alignment.geometry.Length()) - 7.0);
        }
    }

    // Cross slopes

    void MakeSuperelevation(XmlElement& alignmentElement, const HostAlignment& alignment)
    {
        for (const Bend& bend : alignment.geometry.bends)
        {
            const auto station = [&](double distance) { return Length(alignment.startStation + distance); };
            XmlElement& element = alignmentElement.Add("Superelevation");
            // Some hosts give the runouts at both ends, others only where the outer edge turns.
            const bool withRunouts = !random_.OneIn(3);
            if (withRunouts)
            {
                element.Add("BeginRunoutSta").text = station(alignment.RunoutBegin(bend));
            }
            element.Add("BeginRunoffSta").text = station(bend.begin);
            element.Add("FullSuperSta").text = station(bend.fullBegin);
            element.Add("FullSuperelev").text = Fixed(alignment.fullSlope, 1);
            element.Add("RunoffSta").text = station(bend.fullEnd);
            element.Add("StartofRunoutSta").text = station(bend.end);
            if (withRunouts)
            {
                element.Add("EndofRunoutSta").text = station(alignment.RunoutEnd(bend));
            }
            if (random_.OneIn(2))
            {
                element.Add("AdverseSE").text = "non-adverse";
            }
            if (random_.OneIn(2))
            {
                AddStations(element, "FlatSta", alignment, bend, "Level Crown");
            }
            if (random_.OneIn(2))
            {
                AddStations(element, "ReverseCrown", alignment, bend, "ReverseCrown");
            }
        }
    }

    static void AddStations(XmlElement& element, const char* feature, const HostAlignment& alignment, const Bend& bend,
                            const std::string& description)
    {
        XmlElement stations;
        stations.name = "Feature";
        stations.Set("name", feature);
        for (const SlopeStation& slope : alignment.SlopeStations(bend))
        {
            if (slope.description == description)
            {
                AddProperty(stations, "sta", Length(alignment.startStation + slope.distance));
            }
        }
        element.children.push_back(std::move(stations));
    }

    // Cross sections. The heights of design surfaces count from the formation height, those of ground lines from the
    // vertical datum.

    void MakeCrossSects(XmlElement& alignmentElement, const HostAlignment& alignment)
    {
        XmlElement& sections = alignmentElement.Add("CrossSects").Set("name", alignment.name + "横断");
        const int count = random_.Between(1, 3);
        const double spacing =
            std::floor(alignment.geometry.Length() / (count * alignment.mainInterval)) * alignment.mainInterval;
        const bool asFeature = random_.OneIn(3);
        const double halfWidth = 0.25 * random_.Between(10, 14);
        for (int index = 0; index < count; ++index)
        {
            const double distance = spacing * index;
            XmlElement& section = sections.Add("CrossSect")
                                      .Set("name", StationName(alignment, distance))
                                      .Set("sta", Length(alignment.startStation + distance));
            AddGroundLine(section, alignment, distance, index);
            if (!asFeature)
            {
                AddPoints(section, "Formation", {{"Formation", 0.0, 0.0}});
            }
            if (alignment.river)
            {
                AddEmbankment(section);
            }
            else
            {
                AddCarriageway(section, alignment, distance, halfWidth);
            }
            if (asFeature)
            {
                XmlElement& formation = section.Add("Feature").Set("name", "Formation");
                AddProperty(formation, "clOffset", "0");
                AddProperty(formation, "fhOffset", "0.000");
            }
        }
    }

    static void AddGroundLine(XmlElement& section, const HostAlignment& alignment, double distance, int index)
    {
        std::string line;
        for (double offset = -15.0; offset <= 15.0; offset += 7.5)
        {
            line +=
                (line.empty() ? "" : " ") + Length(offset) + ' ' + Length(alignment.GroundHeightAt(distance, offset));
        }
        section.Add("CrossSectSurf")
            .Set("name", GROUND.name + alignment.name + '_' + std::to_string(index + 1))
            .Add("PntList2D")
            .text = line;
    }

    struct SectionPoint
    {
        const char* code;
        double offset; ///< from the centre line, right is positive
        double height; ///< above the formation height
    };

    static XmlElement& AddPoints(XmlElement& section, const char* name, const std::vector<SectionPoint>& points)
    {
        XmlElement& surface = section.Add("DesignCrossSectSurf").Set("name", name);
        for (const SectionPoint& point : points)
        {
            surface.Add("CrossSectPnt").Set("code", point.code).text =
                Length(point.offset) + ' ' + Length(point.height);
        }
        return surface;
    }

    static void AddEmbankment(XmlElement& section)
    {
        for (const double side : {-1.0, 1.0})
        {
            AddPoints(section, "Crown", {{"CL", 0.0, 0.0}, {"CR", side * 2.5, -0.075}});
            AddPoints(section, "SlopeFill", {{"CR", side * 2.5, -0.075}, {"BM", side * 4.5, -1.075}});
            AddPoints(section, "BermFill", {{"BM", side * 4.5, -1.075}, {"BM", side * 6.5, -1.135}});
            AddPoints(section, "EarthWorkBaseLineFill", {{"EX", 0.0, 0.3}, {"EX", side * 2.5, 0.225}});
        }
    }

    void AddCarriageway(XmlElement& section, const HostAlignment& alignment, double distance, double halfWidth)
    {
        constexpr double SHOULDER = 0.75;
        const CrossSlopes slopes = alignment.SlopesAt(distance);
        for (const double side : {-1.0, 1.0})
        {
            const double edge = halfWidth * (side < 0.0 ? slopes.left : slopes.right) / 100.0;
            const double outer = edge - SHOULDER * alignment.normalCrown / 100.0;
            AddPoints(section, "Carriageway", {{"CL", 0.0, 0.0}, {"CW", side * halfWidth, edge}});
            AddPoints(section, "RoadShoulder",
                      {{"CW", side * halfWidth, edge}, {"SH", side * (halfWidth + SHOULDER), outer}});
            AddPoints(section, "SlopeCut",
                      {{"SH", side * (halfWidth + SHOULDER), outer},
                       {"TOP", side * (halfWidth + SHOULDER + 2.0), outer + 2.0}});
            AddPavement(section, side * halfWidth, edge);
        }
        const bool withLines = random_.OneIn(2);
        for (const PavementLayer& layer : PAVEMENT)
        {
            if (withLines)
            {
                section.Add("CrossSectSurf")
                    .Set("name", std::string(layer.name) + '_' + layer.material)
                    .Add("PntList2D")
                    .text = Length(-halfWidth) + " 0.000 " + Length(halfWidth) + " 0.000";
            }
        }
    }

    static void AddPavement(XmlElement& section, double width, double edge)
    {
        double top = 0.0;
        for (const PavementLayer& layer : PAVEMENT)
        {
            const double bottom = top - layer.thickness;
            AddPoints(section, layer.name,
                      {{"PV", 0.0, top},
                       {"PV", width, edge + top},
                       {"PV", width, edge + bottom},
                       {"PV", 0.0, bottom},
                       {"PV", 0.0, top}})
                .Set("closedArea", "true");
            top = bottom;
        }
        AddPoints(section, "SubBase", {{"SB", 0.0, top}, {"SB", width, edge + top}});
    }

    // Terrain

    void MakeSurfaces(const HostAlignment& alignment)
    {
        XmlElement set;
        set.name = "Surfaces";
        Setting surfaces{"surfaces", Setting::Kind::Array, {}, {}};
        AddSurface(set, GROUND, alignment, surfaces);
        for (const SurfaceKind& kind : alignment.river ? RIVER_SURFACES : ROAD_SURFACES)
        {
            if (random_.OneIn(2))
            {
                AddSurface(set, kind, alignment, surfaces);
            }
        }
        Setting own;
        own.members.push_back(std::move(surfaces));
        surfaceSets_.push_back(std::move(own));
        surfaceElements_.push_back(std::move(set));
    }

    void AddSurface(XmlElement& set, const SurfaceKind& kind, const HostAlignment& alignment, Setting& surfaces)
    {
        const bool noted = random_.OneIn(2);
        XmlElement& surface =
            set.Add("Surface")
                .Set("name", kind.name + alignment.name)
                .Set("desc", kind.desc + (noted ? random_.Pick(NOTE_ENDS) + alignment.name : std::string()));
        AddTriangles(surface, kind, alignment);
        if (random_.OneIn(4))
        {
            AddProperty(surface.Add("Feature"), "alignmentRefs", alignment.name);
            surfaces.Add("", Setting::Kind::Object);
        }
        else
        {
            surfaces.Add("", Setting::Kind::Object).AddText("alignmentRefs", alignment.name);
        }
    }

    /// Rows of three points across the alignment, joined by triangles.
    static void AddTriangles(XmlElement& surface, const SurfaceKind& kind, const HostAlignment& alignment)
    {
        constexpr double OFFSETS[] = {-15.0, 0.0, 15.0};
        XmlElement& definition = surface.Add("Definition").Set("surfType", "TIN");
        definition.children.resize(2);
        XmlElement& points = definition.children[0];
        XmlElement& faces = definition.children[1];
        points.name = "Pnts";
        faces.name = "Faces";
        const auto face = [&](int first, int second, int third) {
            faces.Add("F").text = std::to_string(first) + ' ' + std::to_string(second) + ' ' + std::to_string(third);
        };
        const bool ground = kind.desc == std::string(GROUND.desc);
        int last = 0;
        for (double distance = 0.0; distance <= alignment.geometry.Length(); distance += 40.0)
        {
            const Pose pose = alignment.geometry.At(distance);
            for (const double offset : OFFSETS)
            {
                const double height =
                    ground ? alignment.GroundHeightAt(distance, offset) : alignment.HeightAt(distance) + kind.above;
                points.Add("P").Set("id", std::to_string(++last)).text =
                    Coordinates(Beside(pose, offset), 3) + ' ' + Length(height);
            }
            for (int left = last - 5; left > 0 && left < last - 3; ++left)
            {
                face(left, left + 1, left + 3);
                face(left + 1, left + 4, left + 3);
            }
        }
    }

    // Side files

    void MakeSideFiles(const HostAlignment& alignment, int number)
    {
        const auto add = [&](const char* beginning, std::vector<std::vector<std::string>> rows) {
            draft_.sideFiles.push_back({beginning + std::to_string(number) + ".csv", std::move(rows)});
        };
        if (random_.OneIn(8))
        {
            return; // nothing beside the work file
        }
        add("intermediatePts_temp_", IntermediatePoints(alignment));
        intermediatePoints_.emplace_back();
        if (!random_.OneIn(3))
        {
            add("widthStake_temp_", WidthStakes(alignment));
        }
        if (!alignment.river)
        {
            add("superElevation_temp_", CrossSlopeTable(alignment));
            if (!random_.OneIn(3))
            {
                add("widening_temp_", Widening(alignment));
            }
        }
    }

    static std::vector<std::vector<std::string>> IntermediatePoints(const HostAlignment& alignment)
    {
        std::vector<std::vector<std::string>> rows = {{"線形名", alignment.name},
                                                      {"測点名", "測点", "X座標", "Y座標", "計画高", "接線方向角"}};
        std::vector<double> distances = {0.0, alignment.geometry.Length()};
        for (const Bend& bend : alignment.geometry.bends)
        {
            distances.push_back(bend.begin);
            distances.push_back((bend.fullBegin + bend.fullEnd) / 2.0);
        }
        std::sort(distances.begin(), distances.end());
        for (const double distance : distances)
        {
            const Pose pose = alignment.geometry.At(distance);
            rows.push_back({StationName(alignment, distance), Length(alignment.startStation + distance),
                            Fixed(pose.point.north, 4), Fixed(pose.point.east, 4), Length(alignment.HeightAt(distance)),
                            DegreesMinutesSeconds(pose.azimuth)});
        }
        return rows;
    }

    std::vector<std::vector<std::string>> WidthStakes(const HostAlignment& alignment)
    {
        std::vector<std::vector<std::string>> rows = {
            {"幅杭", alignment.name},
            {"杭群名", "杭名", "表示", "測点", "X座標", "Y座標", "標高", "離れ", "注記", "接合タイプ"}};
        const bool oneSided = random_.OneIn(4);
        const bool noted = random_.OneIn(2);
        const int last = random_.Between(2, 5);
        for (int index = 0; index <= last; ++index)
        {
            const double distance = alignment.geometry.Length() * index / last;
            for (const double offset : {-12.5, 12.5})
            {
                if (oneSided && offset > 0.0)
                {
                    continue;
                }
                const bool left = offset < 0.0;
                const Point point = Beside(alignment.geometry.At(distance), offset);
                rows.push_back({left ? "左幅杭" : "右幅杭", (left ? "L-" : "R-") + std::to_string(index + 1),
                                (left ? "左 " : "右 ") + Length(std::fabs(offset)),
                                Length(alignment.startStation + distance), Fixed(point.north, 4), Fixed(point.east, 4),
                                Length(alignment.GroundHeightAt(distance, offset)), Length(offset),
                                noted ? "用地境界" : "", random_.OneIn(4) ? "" : "open"});
            }
        }
        for (int group = oneSided ? 1 : 2; group > 0; --group)
        {
            widthStakes_.emplace_back();
            if (!noted)
            {
                widthStakes_.back().AddText("desc", "用地境界杭");
            }
        }
        return rows;
    }

    std::vector<std::vector<std::string>> CrossSlopeTable(const HostAlignment& alignment)
    {
        std::vector<std::vector<std::string>> rows = {{"片勾配", alignment.name},
                                                      {"Region", "Station", "Description", "Length", "Overlap",
                                                       "Left Outside Lane", "Left Outside Shoulder", "Left Inside Lane",
                                                       "Right Outside Shoulder", "Right Outside Lane", ""}};
        const std::string percent = random_.OneIn(3) ? "%" : " %";
        const auto add = [&](int region, double distance, const char* description, const CrossSlopes& slopes) {
            rows.push_back({std::to_string(region), KilometreStation(alignment.ShownStation(distance)), description, "",
                            "", Fixed(slopes.left, 3) + percent, "", "", "", Fixed(slopes.right, 3) + percent, ""});
        };
        const CrossSlopes crown{-alignment.normalCrown, -alignment.normalCrown};
        add(1, 0.0, "Begin Alignment", crown);
        int region = 0;
        for (const Bend& bend : alignment.geometry.bends)
        {
            ++region;
            for (const SlopeStation& station : alignment.SlopeStations(bend))
            {
                add(region, station.distance, station.description, station.slopes);
            }
        }
        add(std::max(region, 1), alignment.geometry.Length(), "End Alignment", crown);
        return rows;
    }

    std::vector<std::vector<std::string>> Widening(const HostAlignment& alignment)
    {
        std::vector<std::vector<std::string>> rows = {{"拡幅", alignment.name}, {"Side", "Station", "Width", "Code"}};
        const std::string width = Length(0.25 * random_.Between(1, 6));
        for (const Bend& bend : alignment.geometry.bends)
        {
            // A carriageway is widened on the inside of the bend.
            const std::string side = bend.toTheRight ? "Right" : "Left";
            const auto add = [&](double distance, const std::string& value, const char* code) {
                rows.push_back({side, Length(alignment.startStation + distance), value, code});
            };
            add(bend.begin, "0.000", "1");
            add(bend.fullBegin, width, "2");
            add(bend.fullEnd, width, "3");
            add(bend.end, "0.000", "4");
        }
        return rows;
    }

    // Settings

    void FinishSettings()
    {
        for (XmlElement& set : surfaceElements_)
        {
            draft_.landXml.children.push_back(std::move(set));
        }
        Setting& settings = draft_.settings;
        settings.AddText("projectName", random_.Pick(PROJECT_NAMES));
        if (random_.OneIn(2))
        {
            settings.AddText("projectPhase", random_.Pick(PHASES));
        }
        settings.AddText("applicationCriterion", random_.OneIn(2) ? version_.shown : version_.stored);
        if (random_.OneIn(2))
        {
            settings.AddText("verticalDatum", random_.Pick(VERTICAL_DATUMS));
        }
        settings.Add("routes", Setting::Kind::Array).members = std::move(routes_);
        settings.Add("surfaceSets", Setting::Kind::Array).members = std::move(surfaceSets_);
        settings.Add("intermediatePoints", Setting::Kind::Array).members = std::move(intermediatePoints_);
        settings.Add("widthStakes", Setting::Kind::Array).members = std::move(widthStakes_);
    }

    SplitMix64& random_;
    Draft draft_;
    Version version_{};
    int radiusDigits_ = 0;
    Pose start_; ///< of the next alignment
    std::vector<XmlElement> surfaceElements_;
    std::vector<Setting> routes_;
    std::vector<Setting> surfaceSets_;
    std::vector<Setting> intermediatePoints_;
    std::vector<Setting> widthStakes_;
};

} // namespace

Draft DrawHostFolder(SplitMix64& random)
{
    return HostFolder(random).Make();
}

} // namespace jlandxml::generator
