#include "inspect/FindingTargets.h"

namespace jlandxml::inspect
{

namespace
{

/// Passes the elements of a file from its beginning, with the nearest drawn element round each.
class NearestDrawnWalker : public pugi::xml_tree_walker
{
  public:
    NearestDrawnWalker(const LandXmlFile& file, const std::set<std::size_t>& lines, const std::set<std::size_t>& drawn)
        : file_(file),
          drawn_(drawn),
          next_(lines.begin()),
          end_(lines.end())
    {}

    bool for_each(pugi::xml_node& node) override
    {
        if (node.type() != pugi::node_element)
        {
            return true;
        }
        const std::size_t line = file_.source->LineAt(node.offset_debug());
        // What the tree doesn't have, such as points of a surface, lies in the element before it.
        AssignUpTo(line - 1);
        above_.resize(static_cast<std::size_t>(depth()));
        const bool isDrawn = drawn_.count(line) > 0;
        nearest_ = isDrawn ? line : above_.empty() ? 0 : above_.back();
        above_.push_back(nearest_);
        AssignUpTo(line);
        return true;
    }

    bool end(pugi::xml_node&) override
    {
        AssignUpTo(static_cast<std::size_t>(-1));
        return true;
    }

    std::map<std::size_t, std::size_t> Take() { return std::move(targets_); }

  private:
    void AssignUpTo(std::size_t line)
    {
        for (; next_ != end_ && *next_ <= line; ++next_)
        {
            targets_.emplace(*next_, drawn_.count(*next_) > 0 ? *next_ : nearest_);
        }
    }

    const LandXmlFile& file_;
    const std::set<std::size_t>& drawn_;
    std::set<std::size_t>::const_iterator next_;
    std::set<std::size_t>::const_iterator end_;
    std::vector<std::size_t> above_; ///< of the elements round the present one, from the outermost
    std::size_t nearest_ = 0;
    std::map<std::size_t, std::size_t> targets_;
};

} // namespace

std::map<std::size_t, std::size_t> NearestDrawn(const LandXmlFile& file, const std::set<std::size_t>& lines,
                                                const std::set<std::size_t>& drawn)
{
    NearestDrawnWalker walker(file, lines, drawn);
    file.tree->traverse(walker);
    return walker.Take();
}

} // namespace jlandxml::inspect
