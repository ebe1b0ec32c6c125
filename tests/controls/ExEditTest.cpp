#include "controls/ExEdit.h"

#include "controls/IntEdit.h"
#include "controls/MemoryEditView.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace CommonUI;

namespace
{

class CCountingEdit : public CExEdit
{
public:
    using CExEdit::CExEdit;
    void Validate() override
    {
        ++validated;
        CExEdit::Validate();
    }
    int validated = 0;
};

class CFilter
{
public:
    bool OnKey(const SKey& key)
    {
        if (key.key == EKey::Escape)
            edit.reset();
        return key.key != EKey::Character || (key.character >= u'0' && key.character <= u'9');
    }
    std::unique_ptr<CExEdit> edit;
};

} // namespace

TEST(ExEdit, KeysThatFinishTheInput)
{
    const std::tuple<EKey, bool, bool, bool, bool, int> cases[] = {
        {EKey::Enter, true, true, false, true, 1},    {EKey::Escape, true, true, false, true, 1},
        {EKey::Enter, true, false, false, true, 0},   {EKey::Enter, false, true, false, false, 0},
        {EKey::Escape, false, true, false, false, 0}, {EKey::Enter, true, true, true, false, 0},
        {EKey::Escape, true, true, true, true, 1},    {EKey::Up, true, true, false, false, 0},
        {EKey::Enter, false, true, true, false, 0},
    };
    for (const auto& [key, wantsEnter, validate, claimed, handled, validated] : cases) {
        CCountingEdit edit(wantsEnter, validate);
        CMemoryEditView view;
        edit.SetView(&view);
        EXPECT_EQ(edit.ClaimsAllKeys(claimed), claimed || wantsEnter);
        view.Type(u"abc");
        EXPECT_TRUE(edit.IsModified());
        EXPECT_EQ(view.Press(key), handled);
        EXPECT_EQ(std::tuple(edit.validated, edit.IsModified()), std::tuple(validated, validated == 0));
        EXPECT_EQ(view.GetSelectedText(), handled ? u"abc" : u"");
    }
}

TEST(ExEdit, TabMovesTheFocus)
{
    CMemoryEditView views[3];
    CCountingEdit edit(true, true);
    views[0].SetNext(views[1]);
    views[1].SetNext(views[2]);
    edit.SetView(&views[1]);
    views[1].SetFocus(true);
    EXPECT_FALSE(views[1].Press({.key = EKey::Tab, .control = true}));
    EXPECT_FALSE(views[1].Press({.key = EKey::Tab, .alt = true}));
    EXPECT_TRUE(views[1].Press(EKey::Tab) && views[2].HasFocus());
    EXPECT_EQ(edit.validated, 1);
    views[1].SetFocus(true);
    edit.SetValidate(false);
    EXPECT_TRUE(views[1].Press({.key = EKey::Tab, .shift = true}) && views[0].HasFocus());
    EXPECT_FALSE(views[1].HasFocus());
    EXPECT_EQ(edit.validated, 1);
}

TEST(ExEdit, FilterSeesEveryKeyFirst)
{
    CFilter filter;
    filter.edit = std::make_unique<CIntEdit>();
    CMemoryEditView view;
    filter.edit->SetView(&view);
    filter.edit->SetKeyFilter(filter, &CFilter::OnKey);
    view.SelectAll();
    view.Type(u"1a2");
    EXPECT_EQ(view.GetText(), u"12");
    EXPECT_TRUE(view.Press(EKey::Escape));
    EXPECT_EQ(view.GetControl(), nullptr);
    view.Type(u"a");
    EXPECT_EQ(view.GetText(), u"12a");
}

TEST(ExEdit, ViewAndControlGoInAnyOrder)
{
    CIntEdit first;
    CIntEdit second;
    auto view = std::make_unique<CMemoryEditView>();
    first.SetView(view.get());
    second.SetValue(2);
    second.SetView(view.get());
    EXPECT_EQ(first.GetView(), nullptr);
    EXPECT_EQ(view->GetText(), u"2");
    view.reset();
    EXPECT_EQ(second.GetView(), nullptr);
    second.SetValue(3);
    EXPECT_FALSE(second.WindowTextToValue(*std::make_unique<int>(7)));
}
