#include "common/PathText.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(PathText, EverySeparatorEndsAFolderOnEveryPlatform)
{
    struct SCase {
        std::u16string_view path, folder, name;
    };
    constexpr SCase c_cases[] = {
        {u"C:\\data\\sets\\my.pln", u"C:\\data\\sets\\", u"my.pln"},
        {u"my.pln", u"", u"my.pln"},
        {u"C:\\data\\", u"C:\\data\\", u""},
        {u"D:name.col", u"D:", u"name.col"},
        {u"/sets/a b.flt", u"/sets/", u"a b.flt"},
        {u"C:/x\\y", u"C:/x\\", u"y"},
        {u"", u"", u""},
    };
    for (const SCase& row : c_cases) {
        EXPECT_EQ(CStr(GetFileName(row.path)), row.name);
        EXPECT_EQ(CStr(GetFolder(row.path)), row.folder);
    }
}
