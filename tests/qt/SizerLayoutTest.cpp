#include "qt/framework/SizerLayout.h"

#include "tests/qt/WidgetTesting.h"

using namespace CommonUI;
using namespace SizerRules;

namespace
{

struct SForm {
    SForm()
    {
        auto* const layout = new CSizerLayout(window, {160, 100});
        layout->Add(*label, {7, 7, 50, 21}, c_stay);
        layout->Add(*edit, {55, 7, 153, 21}, c_growWidth);
        layout->Add(*list, {7, 28, 153, 72}, c_grow, {50, 30});
        layout->Add(*ok, {103, 79, 153, 93}, c_moveCorner);
    }

    QWidget window;
    QLabel* label = new QLabel(QStringLiteral("Name:"));
    QLineEdit* edit = new QLineEdit;
    QListWidget* list = new QListWidget;
    QPushButton* ok = new QPushButton(QStringLiteral("OK"));
};

} // namespace

TEST(SizerLayout, FollowsTheWindowAndIsMirrored)
{
    SForm form;
    form.window.show();
    const QRect list = form.list->geometry();
    const QRect ok = form.ok->geometry();
    const QSize before = form.window.size();
    EXPECT_EQ(before, form.window.sizeHint());
    form.window.resize(before + QSize(100, 60));
    EXPECT_EQ(form.list->geometry(), list.adjusted(0, 0, 100, 60));
    EXPECT_EQ(form.ok->geometry(), ok.translated(100, 60));
    form.window.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.ok->geometry().left(), before.width() + 100 - (ok.right() + 101));
    form.window.resize(1, 1);
    EXPECT_EQ(form.window.size(), form.window.minimumSizeHint());
    EXPECT_TRUE(form.window.rect().contains(form.label->geometry() | form.ok->geometry()));
    delete form.list;
    EXPECT_EQ(form.window.layout()->count(), 3);
}

TEST(SizerLayout, GrowsWithTextsAndFonts)
{
    SForm form;
    form.window.show();
    const int width = form.window.width();
    form.ok->setText(QStringLiteral("Ein sehr viel längerer Text, der nicht abgeschnitten wird"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.window.width() > width; }))
        << "no window is smaller than its controls need";
    EXPECT_GE(form.ok->width(), form.ok->minimumSizeHint().width());
    QFont font = form.window.font();
    font.setPointSize(2 * font.pointSize());
    form.window.setFont(font);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.ok->width() >= form.ok->minimumSizeHint().width(); }));
    EXPECT_GE(form.edit->height(), form.edit->minimumSizeHint().height());
}
