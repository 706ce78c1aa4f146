#pragma once

#include "inspect/LandXmlFile.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>

namespace jlandxml::inspect
{

/// The ids in a page of what is drawn, by its places in the file.
class PageIds
{
  public:
    /// Gives a place its id; empty if it has one.
    std::string Add(const SourcePlace& place);

    /// The id of a place; empty if it has none.
    std::string Of(const SourcePlace& place) const;

    bool Has(const SourcePlace& place) const { return ids_.count(place) > 0; }

  private:
    std::map<SourcePlace, std::string> ids_;
    std::map<std::size_t, std::size_t> counts_; ///< by lines
};

/// Where findings lead that are about places of a file: by each place the id of what is drawn there, or of the nearest
/// drawn element round it; empty where there is none.
std::map<SourcePlace, std::string> NearestDrawn(const LandXmlFile& file, const std::set<SourcePlace>& places,
                                                const PageIds& drawn);

} // namespace jlandxml::inspect
