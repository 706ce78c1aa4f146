#include "base/Collation.h"

#include <algorithm>
#include <numeric>

namespace jlandxml
{

std::vector<std::size_t> PlacesInJapaneseOrder(std::span<const std::wstring> texts)
{
    std::vector<std::string> keys(texts.size());
    std::transform(texts.begin(), texts.end(), keys.begin(), JapaneseSortKey);
    std::vector<std::size_t> order(texts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t first, std::size_t second) { return keys[first] < keys[second]; });
    return order;
}

} // namespace jlandxml
