#include "inspect/CheckSurfaces.h"

#include "inspect/Names.h"
#include "inspect/SurfaceEdges.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

namespace jlandxml::inspect
{

namespace
{

Detail FaceName(const Surface& surface, const SurfaceFace& face)
{
    std::wstring corners;
    for (std::size_t corner = 0; corner < std::min<std::size_t>(face.cornerCount, face.corners.size()); ++corner)
    {
        corners += L" " + std::to_wstring(face.corners[corner]);
    }
    return Path(NameOf(surface), {{L"面{}", L"Face{}"}, {corners}});
}

bool IsPlaced(const SurfacePoint& point)
{
    return std::isfinite(point.north) && std::isfinite(point.east) && std::isfinite(point.height);
}

/// The area of a triangle in space: an upright one, of a wall, has none in plan and is lawful.
double Area(const SurfacePoint& a, const SurfacePoint& b, const SurfacePoint& c)
{
    const double u[] = {b.north - a.north, b.east - a.east, b.height - a.height};
    const double v[] = {c.north - a.north, c.east - a.east, c.height - a.height};
    const double w[] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    return std::sqrt(w[0] * w[0] + w[1] * w[1] + w[2] * w[2]) / 2;
}

/// An edge of more than two faces, by the places of its points and of the face that is one too many.
struct CrowdedEdge
{
    std::uint32_t first;
    std::uint32_t second;
    std::size_t faces;
    std::size_t thirdFace;
};

std::vector<CrowdedEdge> CrowdedEdges(const Surface& surface)
{
    std::vector<CrowdedEdge> edges;
    SurfaceEdges(surface).ForEach([&](std::uint32_t first, std::uint32_t second, std::size_t faces) {
        if (faces > 2)
        {
            edges.push_back({first, second, 0, 0});
        }
    });
    for (std::size_t face = 0; !edges.empty() && face < surface.faces.size(); ++face)
    {
        ForEachEdge(surface, surface.faces[face], [&](std::uint32_t first, std::uint32_t second) {
            const auto found = std::lower_bound(edges.begin(), edges.end(), std::pair(first, second),
                                                [](const CrowdedEdge& edge, const auto& wanted) {
                                                    return std::pair(edge.first, edge.second) < wanted;
                                                });
            if (found != edges.end() && found->first == first && found->second == second && ++found->faces == 3)
            {
                found->thirdFace = face;
            }
        });
    }
    return edges;
}

/// How many corners the faces of a kind of surface have. A surface without a kind is held to be a TIN.
struct SurfaceKind
{
    std::wstring_view name;
    std::size_t corners;
};
constexpr SurfaceKind SURFACE_KINDS[] = {{L"TIN", 3}, {L"grid", 4}, {L"", 3}};

} // namespace

void CheckSurfacePoints(const LandXmlFile& file, Findings& findings)
{
    for (const Surface& surface : file.surfaces)
    {
        for (const SurfacePoint& point : surface.points)
        {
            if (!IsPlaced(point) || point.id == 0)
            {
                findings.Report(NameOf(surface, point), PlaceOf(surface, point));
            }
        }
    }
}

void CheckPointIdsUnique(const LandXmlFile& file, Findings& findings)
{
    for (const Surface& surface : file.surfaces)
    {
        for (const SurfacePoint& point : surface.points)
        {
            if (point.id != 0 && &surface.points[surface.index.Find(point.id)] != &point)
            {
                findings.Report(NameOf(surface, point), PlaceOf(surface, point));
            }
        }
    }
}

void CheckFaceCorners(const LandXmlFile& file, Findings& findings)
{
    for (const Surface& surface : file.surfaces)
    {
        const auto* const kind = std::find_if(std::begin(SURFACE_KINDS), std::end(SURFACE_KINDS),
                                              [&](const SurfaceKind& one) { return one.name == surface.type; });
        if (kind == std::end(SURFACE_KINDS))
        {
            findings.Report(NameOf(surface), surface, L"surfType=" + std::wstring(surface.type));
            continue;
        }
        const std::size_t corners = kind->corners;
        for (const SurfaceFace& face : surface.faces)
        {
            if (face.cornerCount != corners)
            {
                findings.Report(FaceName(surface, face), PlaceOf(surface, face),
                                {{L"{}点", L"{} corners"}, {std::to_wstring(face.cornerCount)}},
                                {static_cast<double>(face.cornerCount), static_cast<double>(corners), {}});
            }
        }
    }
}

void CheckFacePoints(const LandXmlFile& file, Findings& findings)
{
    for (const Surface& surface : file.surfaces)
    {
        for (const SurfaceFace& face : surface.faces)
        {
            const auto* const end = face.corners.data() + std::min<std::size_t>(face.cornerCount, face.corners.size());
            const auto* const missing = std::find_if(
                face.corners.data(), end, [&](std::uint32_t corner) { return surface.index.Find(corner) == NO_POINT; });
            if (missing != end)
            {
                findings.Report(FaceName(surface, face), PlaceOf(surface, face),
                                {{L"点 {}", L"point {}"}, {std::to_wstring(*missing)}});
            }
        }
    }
}

void CheckFaceAreas(const LandXmlFile& file, Findings& findings)
{
    // Below what coordinates to the millimetre can tell.
    constexpr double NO_AREA = 1e-6;
    for (const Surface& surface : file.surfaces)
    {
        for (const SurfaceFace& face : surface.faces)
        {
            const auto places = face.isHidden ? std::nullopt : surface.index.PlacesOf(face);
            if (!places)
            {
                continue;
            }
            double area = 0;
            for (std::size_t corner = 2; corner < face.cornerCount; ++corner)
            {
                area += Area(surface.points[(*places)[0]], surface.points[(*places)[corner - 1]],
                             surface.points[(*places)[corner]]);
            }
            if (area <= NO_AREA)
            {
                findings.Report(FaceName(surface, face), PlaceOf(surface, face), {}, {area, {}, NO_AREA});
            }
        }
    }
}

void CheckFaceEdges(const LandXmlFile& file, Findings& findings)
{
    for (const Surface& surface : file.surfaces)
    {
        for (const CrowdedEdge& edge : CrowdedEdges(surface))
        {
            const std::wstring from = std::to_wstring(surface.points[edge.first].id);
            const std::wstring to = std::to_wstring(surface.points[edge.second].id);
            findings.Report(Path(NameOf(surface), {{L"辺 {} {}", L"Edge {} {}"}, {from, to}}),
                            PlaceOf(surface, surface.faces[edge.thirdFace]),
                            {{L"{}面", L"{} faces"}, {std::to_wstring(edge.faces)}},
                            {static_cast<double>(edge.faces), 2, {}});
        }
    }
}

void CheckPointsUsed(const LandXmlFile& file, Findings& findings)
{
    for (const Surface& surface : file.surfaces)
    {
        std::vector<bool> isUsed(surface.points.size());
        for (const SurfaceFace& face : surface.faces)
        {
            for (const std::uint32_t corner : face.corners)
            {
                const std::uint32_t place = corner != 0 ? surface.index.Find(corner) : NO_POINT;
                if (place != NO_POINT)
                {
                    isUsed[place] = true;
                }
            }
        }
        const auto unused = static_cast<std::size_t>(std::count(isUsed.begin(), isUsed.end(), false));
        if (unused > 0 && !surface.faces.empty())
        {
            const auto first =
                static_cast<std::size_t>(std::find(isUsed.begin(), isUsed.end(), false) - isUsed.begin());
            findings.Report(NameOf(surface, surface.points[first]), PlaceOf(surface, surface.points[first]),
                            {{L"{}点", L"{} points"}, {std::to_wstring(unused)}}, {static_cast<double>(unused), 0, {}});
        }
    }
}

} // namespace jlandxml::inspect
