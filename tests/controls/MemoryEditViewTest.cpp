#include "controls/MemoryEditView.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(MemoryEditView, EditsItsText)
{
    CMemoryEditView view;
    view.Type(u"abcd");
    std::string seen;
    for (int i = 0; const EKey key :
                    {EKey::Backspace, EKey::Right, EKey::Delete, EKey::Home, EKey::Backspace, EKey::Left,
                     EKey::Delete, EKey::End, EKey::Character, EKey::Left, EKey::Backspace}) {
        EXPECT_TRUE(view.Press({.key = key, .character = u'x', .shift = ++i > 7}));
        seen += view.GetText().ToUtf8() + std::to_string(view.GetCaret()) + ' ';
    }
    EXPECT_EQ(seen, "abc3 abc3 abc3 abc0 abc0 abc0 bc0 bc2 x1 x0 0 ");
}
