#include "model/DescText.h"

#include "base/Text.h"

#include <array>

namespace jlandxml
{

namespace
{

constexpr std::array<std::wstring_view, 15> KEYS = {
    desc_key::DESIGN_TYPE,     desc_key::CLASSIFICATION,        desc_key::TRAFFIC_VOLUME, desc_key::SIDE,
    desc_key::DESIGN_METHOD,   desc_key::ALIGNMENT_METHOD,      desc_key::MAIN_INTERVAL,  desc_key::SUB_INTERVAL,
    desc_key::VERTICAL_ORIGIN, desc_key::APPLICATION_CRITERION, desc_key::PROJECT_PHASE,  desc_key::PROJECT_NAME,
    desc_key::NORMAL_CROWN,    desc_key::SINGLE_LANE_ROAD,      desc_key::USE_SLOPE_LIST,
};

constexpr wchar_t SIGN = L'=';
constexpr wchar_t BLANK = L' ';

/// The key that ends a text.
std::wstring_view KeyAtEnd(std::wstring_view text)
{
    for (const std::wstring_view key : KEYS)
    {
        if (text.ends_with(key))
        {
            return key;
        }
    }
    return {};
}

} // namespace

bool MatchDescKey(std::wstring_view tail, std::wstring_view key, DescMap& map)
{
    if (!tail.starts_with(key))
    {
        return false;
    }
    tail.remove_prefix(key.size());
    tail.remove_prefix(tail.starts_with(BLANK) ? 1 : 0);
    if (!tail.starts_with(SIGN))
    {
        return false;
    }
    tail.remove_prefix(1);
    tail.remove_prefix(tail.starts_with(BLANK) ? 1 : 0);
    map.insert_or_assign(std::wstring(key), std::wstring(TrimRight(tail)));
    return true;
}

void ParseDescText(std::wstring_view text, DescMap& map)
{
    // From the end, sign by sign: a value has no key in it, so it reaches up to the key that was found before.
    for (std::size_t sign = text.rfind(SIGN); sign != std::wstring_view::npos; sign = text.rfind(SIGN, sign - 1))
    {
        std::wstring_view front = text.substr(0, sign);
        front.remove_suffix(front.ends_with(BLANK) ? 1 : 0);
        const std::wstring_view key = KeyAtEnd(front);
        if (!key.empty())
        {
            const std::size_t start = front.size() - key.size();
            MatchDescKey(text.substr(start), key, map);
            text = text.substr(0, start);
            if (start == 0)
            {
                return;
            }
            sign = start;
        }
        if (sign == 0)
        {
            return;
        }
    }
}

} // namespace jlandxml
