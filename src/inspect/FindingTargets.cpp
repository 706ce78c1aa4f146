#include "inspect/FindingTargets.h"

namespace jlandxml::inspect
{

namespace
{

/// Passes the elements of a file from its beginning, with the nearest drawn element round each.
class NearestDrawnWalker : public pugi::xml_tree_walker
{
  public:
    NearestDrawnWalker(const LandXmlFile& file, const std::set<SourcePlace>& places, const PageIds& drawn)
        : file_(file),
          drawn_(drawn),
          next_(places.begin()),
          end_(places.end())
    {}

    bool for_each(pugi::xml_node& node) override
    {
        if (node.type() != pugi::node_element)
        {
            return true;
        }
        const auto offset = static_cast<std::size_t>(node.offset_debug());
        const SourcePlace place{file_.source->LineAt(node.offset_debug()), offset};
        // What the tree doesn't have, such as points of a surface, lies in the element before it. Of what only the line
        // is known, that is the first element that begins there.
        const SourcePlace line{place.line};
        AssignWhile([&](const SourcePlace& one) { return one < line || (one.textOffset > 0 && one < place); });
        above_.resize(static_cast<std::size_t>(depth()));
        const std::string id = drawn_.Of(place);
        nearest_ = !id.empty() || above_.empty() ? id : above_.back();
        above_.push_back(nearest_);
        AssignWhile([&](const SourcePlace& one) { return !(place < one); });
        return true;
    }

    bool end(pugi::xml_node&) override
    {
        AssignWhile([](const SourcePlace&) { return true; });
        return true;
    }

    std::map<SourcePlace, std::string> Take() { return std::move(targets_); }

  private:
    template <class IsPassed>
    void AssignWhile(IsPassed&& isPassed)
    {
        for (; next_ != end_ && isPassed(*next_); ++next_)
        {
            const std::string id = drawn_.Of(*next_);
            targets_.emplace(*next_, id.empty() ? nearest_ : id);
        }
    }

    const LandXmlFile& file_;
    const PageIds& drawn_;
    std::set<SourcePlace>::const_iterator next_;
    std::set<SourcePlace>::const_iterator end_;
    std::vector<std::string> above_; ///< the ids for the elements round the present one, from the outermost
    std::string nearest_;
    std::map<SourcePlace, std::string> targets_;
};

} // namespace

std::string PageIds::Add(const SourcePlace& place)
{
    const auto [added, isNew] = ids_.try_emplace(place);
    if (!isNew)
    {
        return {};
    }
    const std::size_t number = ++counts_[place.line];
    added->second = std::string("l").append(std::to_string(place.line));
    return number == 1 ? added->second : added->second.append("-").append(std::to_string(number));
}

std::string PageIds::Of(const SourcePlace& place) const
{
    const auto found = ids_.find(place);
    return found != ids_.end() ? found->second : std::string();
}

std::map<SourcePlace, std::string> NearestDrawn(const LandXmlFile& file, const std::set<SourcePlace>& places,
                                                const PageIds& drawn)
{
    NearestDrawnWalker walker(file, places, drawn);
    file.tree->traverse(walker);
    return walker.Take();
}

} // namespace jlandxml::inspect
