// Cross sections: offsets to the right, heights upward, both to the same scale; one unit is a metre.

#include "inspect/Names.h"
#include "inspect/OwnFigures.h"
#include "inspect/ProfileLine.h"
#include "inspect/Report.h"
#include "inspect/Summary.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>

namespace jlandxml::inspect
{

namespace
{

/// Colours of pavement layers from the top; a layer has the same one wherever its class occurs.
struct LayerColour
{
    std::wstring_view pavementClass;
    const char* colour;
};
constexpr LayerColour LAYER_COLOURS[] = {
    {L"表層", "#555"},        {L"基層", "#888"},          {L"上層路盤", "#c9a66b"},
    {L"下層路盤", "#d9c48f"}, {L"凍上抑制層", "#9fb8c9"},
};
/// A narrower structure is shown as if it were as wide, in metres.
constexpr double LEAST_WIDTH = 5;

constexpr const char* OTHER_COLOUR = "#cbb";

const char* ColourOf(const DesignCrossSectSurf& surface)
{
    const std::wstring_view layer = PropertyValue(surface.features, L"", L"pavementClass");
    const auto* const found = std::find_if(std::begin(LAYER_COLOURS), std::end(LAYER_COLOURS),
                                           [&](const LayerColour& one) { return one.pavementClass == layer; });
    return found != std::end(LAYER_COLOURS) ? found->colour : OTHER_COLOUR;
}

class SectionDrawer
{
  public:
    SectionDrawer(Drawing& drawing, const std::optional<ProfileLine>& design, const CrossSect& section)
        : drawing_(drawing),
          page_(drawing.page),
          section_(section)
    {
        if (design)
        {
            height_ = design->HeightAt(section.station.value);
        }
    }

    void Draw()
    {
        Measure();
        if (x_.IsEmpty() || y_.IsEmpty())
        {
            return;
        }
        const double margin = std::max({x_.Largest() - x_.Smallest(), y_.Largest() - y_.Smallest(), 1.0}) * 0.06;
        const double width = x_.Largest() - x_.Smallest() + 2 * margin;
        page_.Raw("<svg class=\"section\" viewBox=\"").Number(x_.Smallest() - margin).Raw(" ");
        page_.Number(-y_.Largest() - margin).Raw(" ").Number(width).Raw(" ");
        page_.Number(y_.Largest() - y_.Smallest() + 2 * margin).Raw("\" style=\"--u:").Number(width / 700, 6);
        page_.Raw("\"><path class=\"centre\" d=\"M0 ").Number(-y_.Largest() - margin).Raw("V");
        page_.Number(-y_.Smallest() + margin).Raw("\"/>");
        DrawGrounds();
        for (const DesignCrossSectSurf& surface : section_.designs)
        {
            DrawDesign(surface);
        }
        DrawScaleBar(page_, x_.Smallest() - margin, -y_.Smallest() + margin, width);
        page_.Raw("</svg>");
        DrawLegend();
    }

  private:
    /// The pavement layers by their colours, each once.
    void DrawLegend()
    {
        std::set<std::wstring_view> names;
        for (const DesignCrossSectSurf& surface : section_.designs)
        {
            const std::wstring_view layer = PropertyValue(surface.features, L"", L"pavementClass");
            const std::wstring_view name = layer.empty() ? surface.name : layer;
            if (surface.IsClosed() && surface.HasPlace() && names.insert(name).second)
            {
                page_.Raw("<span class=\"swatch\" style=\"background:").Raw(ColourOf(surface)).Raw("\"></span>");
                page_.Text(name).Raw(" ");
            }
        }
    }

    /// The elevation of a point of a design surface, if the profile gives one.
    double Elevation(const DesignCrossSectSurf& surface, const CrossSectPnt& point) const
    {
        return point.height.value + (surface.IsRelativeToProfile() ? height_.value_or(0) : 0);
    }

    /// The view holds what is built and the ground beside it, as far again on both sides: a ground line that reaches
    /// much farther would leave little to see of the road.
    void Measure()
    {
        MeasureDesigns();
        const double width = x_.IsEmpty() ? 0 : std::max(x_.Largest() - x_.Smallest(), LEAST_WIDTH);
        const double left = x_.IsEmpty() ? -INFINITY : x_.Smallest() - width;
        const double right = x_.IsEmpty() ? INFINITY : x_.Largest() + width;
        for (const CrossSectSurf& ground : section_.grounds)
        {
            for (const PairList& list : ground.lists)
            {
                MeasureGround(list, left, right);
            }
            const GroundLine line(ground.lists);
            for (const double edge : {left, right})
            {
                y_.Take(line.HeightAt(edge).value_or(NAN));
            }
        }
    }

    void MeasureGround(const PairList& list, double left, double right)
    {
        for (const FigurePair& pair : list.pairs)
        {
            if (pair.IsPlaced())
            {
                x_.Take(std::clamp(pair.first.value, left, right));
                y_.Take(pair.first.value >= left && pair.first.value <= right ? pair.second.value : NAN);
            }
        }
    }

    void MeasureDesigns()
    {
        for (const DesignCrossSectSurf& surface : section_.designs)
        {
            if (!surface.HasPlace())
            {
                continue;
            }
            for (const CrossSectPnt& point : surface.points)
            {
                x_.Take(point.offset.value);
                y_.Take(Elevation(surface, point));
            }
        }
    }

    void DrawGrounds()
    {
        for (const CrossSectSurf& ground : section_.grounds)
        {
            if (!HasPlace(ground.lists))
            {
                continue;
            }
            page_.Raw("<path class=\"ground\"");
            DrawId(drawing_, ground);
            page_.Raw(" d=\"");
            for (const PairList& list : ground.lists)
            {
                const char* step = "M";
                for (const FigurePair& pair : list.pairs)
                {
                    if (pair.IsPlaced())
                    {
                        page_.Raw(step).Number(pair.first.value).Raw(" ").Number(-pair.second.value);
                        step = "L";
                    }
                }
            }
            page_.Raw("\"><title>").Text(ground.name).Raw("</title></path>");
            LabelGround(ground);
        }
    }

    /// The name above the line where it begins to be seen, far from the road.
    void LabelGround(const CrossSectSurf& ground)
    {
        const double offset = x_.Smallest() + (x_.Largest() - x_.Smallest()) * 0.12;
        if (const std::optional<double> height = GroundLine(ground.lists).HeightAt(offset))
        {
            Label(offset, *height, ground.name);
        }
    }

    void Label(double offset, double height, std::wstring_view text)
    {
        page_.Raw("<text class=\"data\" x=\"").Number(offset).Raw("\" y=\"").Number(-height).Raw("\">");
        page_.Text(text).Raw("</text>");
    }

    void DrawDesign(const DesignCrossSectSurf& surface)
    {
        if (surface.points.empty() || !surface.HasPlace())
        {
            return;
        }
        page_.Raw("<path class=\"").Raw(surface.IsClosed() ? "layer" : "design").Raw("\"");
        DrawId(drawing_, surface);
        if (surface.IsClosed())
        {
            page_.Raw(" style=\"fill:").Raw(ColourOf(surface)).Raw("\"");
        }
        page_.Raw(" d=\"");
        const char* step = "M";
        for (const CrossSectPnt& point : surface.points)
        {
            page_.Raw(step).Number(point.offset.value).Raw(" ").Number(-Elevation(surface, point));
            step = "L";
        }
        page_.Raw(surface.IsClosed() ? "Z" : "").Raw("\"><title>").Text(surface.name);
        for (const std::wstring_view part :
             {surface.side, PropertyValue(surface.features, L"", L"pavementClass"), surface.material})
        {
            page_.Text(part.empty() ? std::wstring() : L" " + std::wstring(part));
        }
        page_.Raw("</title></path>");
        if (!surface.IsClosed())
        {
            LabelMiddle(surface);
        }
        for (const CrossSectPnt& point : surface.points)
        {
            DrawSpot(drawing_, point, point.offset.value, -Elevation(surface, point));
        }
    }

    void LabelMiddle(const DesignCrossSectSurf& surface)
    {
        const CrossSectPnt& first = surface.points.front();
        const CrossSectPnt& last = surface.points.back();
        Label((first.offset.value + last.offset.value) / 2, (Elevation(surface, first) + Elevation(surface, last)) / 2,
              surface.name);
    }

    Drawing& drawing_;
    Html& page_;
    const CrossSect& section_;
    std::optional<double> height_; ///< of the design profile here
    Range x_;
    Range y_;
};

} // namespace

std::wstring CentreHeights(const OwnFigures& own, const std::optional<ProfileLine>& design, const CrossSect& section)
{
    std::wstring text;
    const auto tell = [&](const wchar_t* label, const std::wstring& height) {
        text.append(height.empty() ? L"" : label).append(height);
    };
    if (design)
    {
        tell(L"　FH=", own.DesignHeightText(design, section.station.value, HEIGHT_DECIMALS));
    }
    if (!section.grounds.empty())
    {
        tell(L"　GH=", HeightText(std::optional(GroundLine(section.grounds.front().lists)), 0, HEIGHT_DECIMALS));
    }
    return text;
}

void DrawCrossSection(Drawing& drawing, const std::optional<ProfileLine>& design, const CrossSect& section)
{
    SectionDrawer(drawing, design, section).Draw();
}

} // namespace jlandxml::inspect
