#pragma once

#include <map>
#include <string>
#include <string_view>

namespace jlandxml
{

using DescMap = std::map<std::wstring, std::wstring, std::less<>>;

/// Takes the design values that the host packs into the `desc` of an alignment as key = value. A value reaches up to
/// the next key and may hold any text; of a key that occurs twice the first counts; what stands in front of the first
/// key is dropped.
void ParseDescText(std::wstring_view text, DescMap& map);

/// Stores the value of a key if `tail` begins with it and "=", with at most one blank on either side. White space at
/// the value's end goes. False if `tail` doesn't begin so.
bool MatchDescKey(std::wstring_view tail, std::wstring_view key, DescMap& map);

/// The keys that the host writes.
namespace desc_key
{
inline constexpr const wchar_t* DESIGN_TYPE = L"構築物情報";
inline constexpr const wchar_t* CLASSIFICATION = L"規格・等級";
inline constexpr const wchar_t* TRAFFIC_VOLUME = L"設計交通量";
inline constexpr const wchar_t* SIDE = L"左右岸区分";
inline constexpr const wchar_t* DESIGN_METHOD = L"設計計算手法名";
inline constexpr const wchar_t* ALIGNMENT_METHOD = L"線形計算手法名";
inline constexpr const wchar_t* MAIN_INTERVAL = L"主測点間隔";
inline constexpr const wchar_t* SUB_INTERVAL = L"副測点間隔";
inline constexpr const wchar_t* VERTICAL_ORIGIN = L"鉛直原子";
inline constexpr const wchar_t* APPLICATION_CRITERION = L"適用基準";
inline constexpr const wchar_t* PROJECT_PHASE = L"事業段階";
inline constexpr const wchar_t* PROJECT_NAME = L"プロジェクト名";
inline constexpr const wchar_t* NORMAL_CROWN = L"直線部横断勾配";
inline constexpr const wchar_t* SINGLE_LANE_ROAD = L"一車線道路又は多車線";
inline constexpr const wchar_t* USE_SLOPE_LIST = L"任意横断勾配リスト";
} // namespace desc_key

} // namespace jlandxml
