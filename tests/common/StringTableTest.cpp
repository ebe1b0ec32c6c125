#include "common/StringTable.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace CommonUI;

namespace
{

constexpr SStringTableRow c_german[] = {{7340, u"L\u00e4nge"}, {1, u"eigener Text"}, {7340, u"Strecke"}};

[[noreturn]] void ReplaceAndAsk()
{
    const SStringTableRow first[] = {{7341, u"dropped"}};
    const bool replaced = ReplaceStringTable(first) && ReplaceStringTable(c_german);
    const bool asked = GetString(7340) == u"Strecke" && GetString(1) == u"eigener Text" &&
                       GetString(7341) == u"Breadth" && GetString(2).IsEmpty();
    const bool refused = !ReplaceStringTable({}) && GetString(7340) == u"Strecke";
    std::exit(replaced && asked && refused ? 0 : 1);
}

} // namespace

TEST(StringTable, EnglishTexts)
{
    EXPECT_EQ(GetString(7340), u"Length");
    for (const int id : {-1, 0, 7338, 1 << 30})
        EXPECT_TRUE(GetString(id).IsEmpty()) << id;
    for (const SStringTableRow& row : GetEnglishStringTable())
        EXPECT_EQ(GetString(row.id), row.text);
}

TEST(StringTable, NoReplacementAfterTheFirstText)
{
    EXPECT_EQ(GetString(7340), u"Length");
    EXPECT_FALSE(ReplaceStringTable(c_german));
    EXPECT_EQ(GetString(7340), u"Length");
}

TEST(StringTableDeathTest, ReplacementBeforeTheFirstText)
{
    // A process of its own, in which no text has been asked for.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(ReplaceAndAsk(), testing::ExitedWithCode(0), "");
}
