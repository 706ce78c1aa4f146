#include "inspect/TerrainMesh.h"

#include "inspect/Limits.h"
#include "inspect/Summary.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace jlandxml::inspect
{

namespace
{

using Triangle = std::array<std::uint32_t, 3>;

bool IsOnEarth(const SurfacePoint& point)
{
    return std::abs(point.north) < FARTHEST && std::abs(point.east) < FARTHEST && std::abs(point.height) < HIGHEST;
}

/// The triangles of all faces that are drawn, by the places of their points; a face of four corners is two.
std::vector<Triangle> TrianglesOf(const Surface& surface)
{
    std::vector<Triangle> triangles;
    triangles.reserve(surface.faces.size());
    for (const SurfaceFace& face : surface.faces)
    {
        const auto places = face.isHidden ? std::nullopt : surface.index.PlacesOf(face);
        for (std::size_t corner = 2; places && corner < face.cornerCount; ++corner)
        {
            const Triangle triangle{(*places)[0], (*places)[corner - 1], (*places)[corner]};
            if (std::all_of(triangle.begin(), triangle.end(),
                            [&](std::uint32_t place) { return IsOnEarth(surface.points[place]); }))
            {
                triangles.push_back(triangle);
            }
        }
    }
    return triangles;
}

/// For each point the first one in its square of a grid.
std::vector<std::uint32_t> FirstInSquare(const std::vector<SurfacePoint>& points, double side)
{
    std::unordered_map<std::uint64_t, std::uint32_t> squares;
    std::vector<std::uint32_t> firsts(points.size());
    for (std::uint32_t place = 0; place < points.size(); ++place)
    {
        const SurfacePoint& point = points[place];
        if (IsOnEarth(point))
        {
            const auto row = static_cast<std::uint64_t>((point.north + FARTHEST) / side);
            const auto column = static_cast<std::uint64_t>((point.east + FARTHEST) / side);
            firsts[place] = squares.try_emplace(row << 32U | column, place).first->second;
        }
    }
    return firsts;
}

/// The triangles between the first points of squares, each once; flat ones are gone.
std::vector<Triangle> Gathered(const std::vector<Triangle>& triangles, const std::vector<std::uint32_t>& firsts)
{
    std::vector<Triangle> gathered;
    for (const Triangle& triangle : triangles)
    {
        Triangle one{firsts[triangle[0]], firsts[triangle[1]], firsts[triangle[2]]};
        std::sort(one.begin(), one.end());
        if (one[0] != one[1] && one[1] != one[2])
        {
            gathered.push_back(one);
        }
    }
    std::sort(gathered.begin(), gathered.end());
    gathered.erase(std::unique(gathered.begin(), gathered.end()), gathered.end());
    return gathered;
}

void Thin(std::vector<Triangle>& triangles, const Surface& surface, const TerrainBox& box, std::size_t most)
{
    // A grid has about twice as many triangles as squares; the box may be larger than the surface.
    const double area = box.sizes[0] * box.sizes[1] * box.unit * box.unit;
    double side = std::max(std::sqrt(area * 2 / static_cast<double>(most)) / 2, 1e-3);
    std::vector<Triangle> thinned = triangles;
    for (; thinned.size() > most; side *= 1.25)
    {
        thinned = Gathered(triangles, FirstInSquare(surface.points, side));
    }
    triangles = std::move(thinned);
}

std::uint16_t PartOf16Bits(double distance, double unit)
{
    return static_cast<std::uint16_t>(std::clamp(std::round(distance / unit * 65535), 0.0, 65535.0));
}

} // namespace

TerrainBox BoxOf(const std::vector<Surface>& surfaces)
{
    Range north;
    Range east;
    Range height;
    for (const Surface& surface : surfaces)
    {
        for (const SurfacePoint& point : surface.points)
        {
            if (IsOnEarth(point))
            {
                north.Take(point.north);
                east.Take(point.east);
                height.Take(point.height);
            }
        }
    }
    TerrainBox box;
    if (!north.IsEmpty())
    {
        const std::array<double, 3> metres{east.Largest() - east.Smallest(), north.Largest() - north.Smallest(),
                                           height.Largest() - height.Smallest()};
        box.unit = std::max({metres[0], metres[1], metres[2], 1e-3});
        box.north = north.Smallest();
        box.east = east.Smallest();
        box.height = height.Smallest();
        std::transform(metres.begin(), metres.end(), box.sizes.begin(), [&](double side) { return side / box.unit; });
    }
    return box;
}

TerrainMesh MeshOf(const Surface& surface, const TerrainBox& box, std::size_t most)
{
    TerrainMesh mesh;
    mesh.triangles = TrianglesOf(surface);
    mesh.whole = mesh.triangles.size();
    if (mesh.whole > most)
    {
        Thin(mesh.triangles, surface, box, most);
    }
    std::vector<std::uint32_t> numbers(surface.points.size(), NO_POINT);
    for (Triangle& triangle : mesh.triangles)
    {
        for (std::uint32_t& corner : triangle)
        {
            std::uint32_t& number = numbers[corner];
            if (number == NO_POINT)
            {
                const SurfacePoint& point = surface.points[corner];
                number = static_cast<std::uint32_t>(mesh.places.size());
                mesh.places.push_back({PartOf16Bits(point.east - box.east, box.unit),
                                       PartOf16Bits(point.north - box.north, box.unit),
                                       PartOf16Bits(point.height - box.height, box.unit)});
            }
            corner = number;
        }
    }
    return mesh;
}

} // namespace jlandxml::inspect
