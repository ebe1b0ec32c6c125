#include "common/PathText.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace CommonUI;

TEST(PathText, EverySeparatorEndsAFolderOnEveryPlatform)
{
    constexpr std::tuple<std::u16string_view, std::u16string_view, std::u16string_view> c_cases[] = {
        {u"C:\\data\\sets\\my.pln", u"C:\\data\\sets\\", u"my.pln"},
        {u"my.pln", u"", u"my.pln"},
        {u"C:\\data\\", u"C:\\data\\", u""},
        {u"D:name.col", u"D:", u"name.col"},
        {u"/sets/a b.flt", u"/sets/", u"a b.flt"},
        {u"C:/x\\y", u"C:/x\\", u"y"},
        {u"", u"", u""},
    };
    for (const auto& [path, folder, name] : c_cases) {
        EXPECT_EQ(CStr(GetFileName(path)), name);
        EXPECT_EQ(CStr(GetFolder(path)), folder);
    }
}
