#include "controls/MemoryEditView.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(MemoryEditView, EditsItsText)
{
    CMemoryEditView view;
    view.Type(u"abcd");
    const std::tuple<SKey, const char16_t*, std::size_t> cases[] = {
        {{.key = EKey::Backspace}, u"abc", 3},
        {{.key = EKey::Right}, u"abc", 3},
        {{.key = EKey::Delete}, u"abc", 3},
        {{.key = EKey::Home}, u"abc", 0},
        {{.key = EKey::Backspace}, u"abc", 0},
        {{.key = EKey::Left}, u"abc", 0},
        {{.key = EKey::Delete}, u"bc", 0},
        {{.key = EKey::End, .shift = true}, u"bc", 2},
        {{.key = EKey::Character, .character = u'x'}, u"x", 1},
        {{.key = EKey::Left, .shift = true}, u"x", 0},
        {{.key = EKey::Backspace}, u"", 0}};
    for (const auto& [key, text, caret] : cases) {
        EXPECT_TRUE(view.Press(key) && view.GetText() == text) << view.GetText().ToUtf8();
        EXPECT_EQ(view.GetCaret(), caret) << CStr(text).ToUtf8();
    }
}
