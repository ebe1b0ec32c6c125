#include "common/StringTable.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace CommonUI;

namespace
{

constexpr int c_length = 7340;
constexpr int c_breadth = 7341;
constexpr SStringTableRow c_german[] = {
    {c_length, u"L\u00e4nge"}, {1, u"eigener Text"}, {c_length, u"Strecke"}};

[[noreturn]] void ReplaceAndAsk()
{
    const SStringTableRow first[] = {{c_breadth, u"dropped"}};
    const bool replaced = ReplaceStringTable(first) && ReplaceStringTable(c_german);
    const bool asked = GetString(c_length) == u"Strecke" && GetString(1) == u"eigener Text" &&
                       GetString(c_breadth) == u"Breadth" && GetString(2).IsEmpty();
    const bool refused = !ReplaceStringTable({}) && GetString(c_length) == u"Strecke";
    std::exit(replaced && asked && refused ? 0 : 1);
}

} // namespace

TEST(StringTable, EnglishTexts)
{
    for (const int id : {-1, 0, 7338, 1 << 30})
        EXPECT_TRUE(GetString(id).IsEmpty()) << id;
    for (const SStringTableRow& row : GetEnglishStringTable())
        EXPECT_EQ(GetString(row.id), row.text);
    EXPECT_FALSE(ReplaceStringTable(c_german)) << "after the first text";
    EXPECT_EQ(GetString(c_length), u"Length");
}

TEST(StringTable, ReplacementBeforeTheFirstText)
{
    // A process of its own, in which no text has been asked for.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(ReplaceAndAsk(), testing::ExitedWithCode(0), "");
}
