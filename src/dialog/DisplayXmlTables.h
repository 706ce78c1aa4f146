#pragma once

#include <array>
#include <span>
#include <string_view>

namespace jlandxml
{

/// One entry of a vocabulary: what the user sees, and the value of the standard that the model stores.
struct DisplayXmlDataPair
{
    const wchar_t* display;
    const wchar_t* xml;
};

/// The place of a vocabulary among the others.
enum class VocabularyIndex : int
{
    ProjectPhase,
    ApplicationCriterion,
    HorizontalDatum,
    VerticalDatum,
    HorizontalCoordinateSystem,
    RoadClassification,
    RiverClassification,
    RiverSide,
    CalculationMethod,
    LaneKind,
    SuperelevationDefinition,
    SurfaceKind,
    ClosureType
};

/// A vocabulary in its own order, which is the order of entries in a control that doesn't sort.
using Vocabulary = std::span<const DisplayXmlDataPair>;

/// The thirteen vocabularies of the dialog.
class DisplayXmlTables
{
  public:
    /// One vocabulary; an index outside 0 to 12 gives an empty one.
    Vocabulary GetVocabulary(int index) const;
    Vocabulary GetVocabulary(VocabularyIndex index) const { return GetVocabulary(static_cast<int>(index)); }
};

/// The one set of tables.
const DisplayXmlTables& GetDisplayXmlTables();

/// What the user sees of a stored value: the first entry of that value; empty if there is none.
std::wstring_view FindDisplay(Vocabulary vocabulary, std::wstring_view xml);

/// The stored value of what the user sees; empty if there is none.
std::wstring_view FindXml(Vocabulary vocabulary, std::wstring_view display);

/// The vertical datum that is shown where none is known.
inline constexpr const wchar_t* DEFAULT_VERTICAL_DATUM = L"T.P（東京湾中等潮位）";

/// The difference of a vertical datum from T.P. in metres, by the datum's stored value; that of T.P. for an unknown
/// one.
std::wstring_view DifferTPOfValue(std::wstring_view verticalDatum);

/// The same by the place of the chosen entry in the vocabulary, which tells the two datums "A.P" apart; that of T.P.
/// without a choice (-1).
std::wstring_view DifferTPOfPosition(int position);

/// What is shown of a vertical datum. Of the two "A.P" the difference decides; without a match the default is shown.
std::wstring_view VerticalDatumDisplay(std::wstring_view verticalDatum, std::wstring_view differTP);

} // namespace jlandxml
