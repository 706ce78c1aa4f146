// Surfaces in three dimensions. The page holds their triangles as bytes in Base64, and a script draws them.

#include "inspect/Names.h"
#include "inspect/Report.h"
#include "inspect/TerrainMesh.h"

#include <algorithm>

namespace jlandxml::inspect
{

namespace
{

/// Together the surfaces of a page have no more faces than this.
constexpr std::size_t MOST_FACES = 200000;

/// Bytes as text (RFC 4648, clause 4), gathered one number after the other, low bytes first.
class Base64
{
  public:
    template <class Number>
    void Take(Number number)
    {
        for (std::size_t byte = 0; byte < sizeof(Number); ++byte)
        {
            Byte(static_cast<std::uint8_t>(number >> (8 * byte)));
        }
    }

    std::string Text()
    {
        const std::size_t padding = (3 - count_ % 3) % 3;
        while (count_ % 3 != 0)
        {
            Byte(0);
        }
        text_.replace(text_.size() - padding, padding, padding, '=');
        return std::move(text_);
    }

  private:
    void Byte(std::uint8_t byte)
    {
        constexpr const char* LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        bits_ = bits_ << 8U | byte;
        if (++count_ % 3 == 0)
        {
            for (const unsigned shift : {18U, 12U, 6U, 0U})
            {
                text_ += LETTERS[bits_ >> shift & 63U];
            }
        }
    }

    std::string text_;
    std::uint32_t bits_ = 0;
    std::size_t count_ = 0;
};

template <class Triples>
std::string Base64Of(const Triples& triples)
{
    Base64 bytes;
    for (const auto& triple : triples)
    {
        for (const auto number : triple)
        {
            bytes.Take(number);
        }
    }
    return bytes.Text();
}

void DrawMesh(Drawing& drawing, const Surface& surface, const TerrainMesh& mesh)
{
    Html& page = drawing.page;
    page.Raw("<label class=\"mesh\" data-points=\"").Raw(Base64Of(mesh.places)).Raw("\" data-faces=\"");
    page.Raw(Base64Of(mesh.triangles)).Raw("\"");
    DrawId(drawing, surface);
    page.Raw("><input type=\"checkbox\" checked><span class=\"swatch\"></span>");
    page.Words("span", NameOf(surface)).Raw("</label>\n");
    if (mesh.triangles.size() < mesh.whole)
    {
        const std::wstring shown = std::to_wstring(mesh.triangles.size());
        const std::wstring all = std::to_wstring(mesh.whole);
        page.Words("span class=\"leftout\"", all + L"面を" + shown + L"面に間引いて表示しています。",
                   L"Thinned for drawing: " + shown + L" of " + all + L" faces.");
    }
}

} // namespace

void DrawTerrain(Drawing& drawing, const LandXmlFile& file)
{
    if (file.surfaces.empty())
    {
        return;
    }
    std::size_t faces = 0;
    for (const Surface& surface : file.surfaces)
    {
        faces += surface.faces.size();
    }
    Html& page = drawing.page;
    const TerrainBox box = BoxOf(file.surfaces);
    page.Raw("<section id=\"terrain\">").Words("h2", L"サーフェス（3次元）", L"Surfaces (3D)");
    page.Raw("<div class=\"terrainbox\"><span class=\"compass\">N↑</span><canvas class=\"terrain\" data-sizes=\"");
    page.Number(box.sizes[0], 6).Raw(" ").Number(box.sizes[1], 6).Raw(" ").Number(box.sizes[2], 6);
    page.Raw("\"></canvas>");
    page.Words("p class=\"nowebgl\" hidden", L"この閲覧ソフトではWebGLが使えないため、表示できません。",
               L"This browser has no WebGL, so surfaces can't be shown.");
    page.Words("span", L"ドラッグで回転、Shift＋ドラッグで移動、ホイールで拡大・縮小。高さの倍率 ",
               L"Drag to turn, shift and drag to move, wheel to zoom. Heights drawn out ");
    page.Raw(
        "<select class=\"rise\"><option>1</option><option>2</option><option>5</option><option>10</option></select>");
    page.Raw("<div class=\"meshes\">");
    for (const Surface& surface : file.surfaces)
    {
        // Each gets its share of the faces.
        const std::size_t most = faces <= MOST_FACES ? MOST_FACES : surface.faces.size() * MOST_FACES / faces;
        DrawMesh(drawing, surface, MeshOf(surface, box, std::max<std::size_t>(most, 2)));
    }
    page.Raw("</div></div></section>");
}

} // namespace jlandxml::inspect
