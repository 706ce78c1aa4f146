#include "model/SurfaceNames.h"

#include <gtest/gtest.h>

#include <string>

namespace jlandxml
{
namespace
{

/// Names taken and given back as plainly as it can be put.
class PlainNames
{
  public:
    explicit PlainNames(std::span<const std::wstring_view> names) : names_(names.begin(), names.end())
    {
        GiveBackAll();
    }

    std::size_t FirstWithin(std::wstring_view text) const
    {
        for (std::size_t place = 0; place < names_.size(); ++place)
        {
            if (!taken_[place] && names_[place] != text && text.find(names_[place]) != std::wstring_view::npos)
            {
                return place;
            }
        }
        return SurfaceNames::NONE;
    }

    void Take(std::size_t place) { taken_[place] = true; }
    void GiveBackAll() { taken_.assign(names_.size(), false); }

  private:
    std::vector<std::wstring_view> names_;
    std::vector<bool> taken_;
};

std::vector<std::wstring_view> Views(const std::vector<std::wstring>& texts)
{
    return {texts.begin(), texts.end()};
}

/// Asks both for the first name within the text, and takes it. What they agree on.
testing::AssertionResult TakenAlike(SurfaceNames& names, PlainNames& plain, const std::wstring& text)
{
    const std::size_t expected = plain.FirstWithin(text);
    const std::size_t actual = names.FirstWithin(text);
    if (actual != expected)
    {
        return testing::AssertionFailure()
               << "within " << testing::PrintToString(text) << " stands " << actual << ", not " << expected;
    }
    if (expected != SurfaceNames::NONE)
    {
        names.Take(expected);
        plain.Take(expected);
    }
    return testing::AssertionSuccess();
}

struct RandomCase
{
    const char* name;
    std::wstring letters;
    unsigned longestName;
    unsigned longestText;
    unsigned names;
};

class RandomNames : public testing::TestWithParam<RandomCase>
{
  protected:
    unsigned Random(unsigned limit) { return (state_ = state_ * 1664525U + 1013904223U) / 65536U % limit; }

    std::wstring Word(unsigned longest)
    {
        std::wstring word;
        for (unsigned count = Random(longest + 1); count > 0; --count)
        {
            word += GetParam().letters[Random(static_cast<unsigned>(GetParam().letters.size()))];
        }
        return word;
    }

  private:
    unsigned state_ = 7;
};

TEST_P(RandomNames, AreFoundAsByAPlainSearch)
{
    for (int list = 0; list < 300; ++list)
    {
        std::vector<std::wstring> words;
        for (unsigned count = Random(GetParam().names + 1); count > 0; --count)
        {
            words.push_back(Word(GetParam().longestName));
        }
        SurfaceNames names(Views(words), GetParam().longestText);
        PlainNames plain(Views(words));
        for (int section = 0; section < 3; ++section)
        {
            for (unsigned line = 0; line < GetParam().names + 2; ++line)
            {
                ASSERT_TRUE(TakenAlike(names, plain, Word(GetParam().longestText))) << "list " << list;
            }
            names.GiveBackAll();
            plain.GiveBackAll();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(SurfaceNames, RandomNames,
                         testing::Values(RandomCase{"OfOneLetter", L"A", 8, 10, 12},
                                         RandomCase{"OfTwoLetters", L"AB", 5, 12, 30},
                                         RandomCase{"OfThreeLetters", L"AB地", 3, 5, 8},
                                         RandomCase{"LongerThanTheTexts", L"AB", 9, 4, 20},
                                         RandomCase{"OfManyLetters", L"ABCDEFGH現況地形", 2, 20, 60}),
                         [](const auto& one) { return one.param.name; });

TEST(SurfaceNames, ANameThatIsTheWholeTextIsPassedOver)
{
    const std::vector<std::wstring_view> list = {L"EG_1", L"", L"1"};
    SurfaceNames names(list, 10);
    EXPECT_EQ(names.FirstWithin(L"EG_1"), 1U);
    EXPECT_EQ(names.FirstWithin(L"xEG_1"), 0U);
    EXPECT_EQ(names.FirstWithin(L""), SurfaceNames::NONE);
}

TEST(SurfaceNames, PlacesOfOneNameAreFoundOneAfterTheOther)
{
    const std::vector<std::wstring_view> list = {L"EG", L"G", L"EG"};
    SurfaceNames names(list, 10);
    for (const std::size_t place : {0U, 1U, 2U})
    {
        EXPECT_EQ(names.FirstWithin(L"EG_1"), place);
        names.Take(place);
    }
    EXPECT_EQ(names.FirstWithin(L"EG_1"), SurfaceNames::NONE);
    names.GiveBackAll();
    EXPECT_EQ(names.FirstWithin(L"EG_1"), 0U);
}

TEST(SurfaceNames, NamesWithinEachOtherAreFoundInListOrder)
{
    std::vector<std::wstring> list;
    for (std::size_t length = 1400; length > 0; --length)
    {
        list.emplace_back(length, L'A');
    }
    SurfaceNames names(Views(list), 1401);
    const std::wstring text(1401, L'A');
    for (std::size_t place = 0; place < list.size(); ++place)
    {
        EXPECT_EQ(names.FirstWithin(text), place);
        names.Take(place);
    }
    EXPECT_EQ(names.FirstWithin(text), SurfaceNames::NONE);
}

TEST(SurfaceNames, WithoutNamesNothingIsFound)
{
    SurfaceNames names({}, 10);
    EXPECT_EQ(names.FirstWithin(L"EG"), SurfaceNames::NONE);
    names.GiveBackAll();
    EXPECT_TRUE(names.Taken().empty());
}

} // namespace
} // namespace jlandxml
