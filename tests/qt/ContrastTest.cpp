// What is drawn stands out from its ground, in light colours and in dark ones.
#include "qt/dialogs/QtProgressDialog.h"
#include "qt/grid/ResultGridWidget.h"
#include "qt/start_pane/StartPaneWidget.h"

#include <gtest/gtest.h>
#include <QtWidgets>

#include <algorithm>
#include <cmath>
#include <set>

using namespace CommonUI;

namespace
{

// Runs its body with either palette.
class Contrast : public testing::TestWithParam<bool>
{
protected:
    Contrast()
    {
        const QPalette light = QApplication::style()->standardPalette();
        QApplication::setPalette(GetParam() ? QPalette(QColor(60, 63, 67), QColor(43, 45, 48)) : light);
    }
    ~Contrast() override { QApplication::setPalette(m_before); }

    QPalette m_before = QApplication::palette();
};

// By WCAG 2.
double ContrastOf(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& color) {
        const auto part = [](double value) {
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
    };
    const auto [less, more] = std::minmax({luminance(one), luminance(other)});
    return (more + 0.05) / (less + 0.05);
}

double ContrastWithin(const QImage& picture)
{
    double most = 1;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            most = std::max(most, ContrastOf(picture.pixelColor(x, y), picture.pixelColor(0, 0)));
    return most;
}

} // namespace

TEST_P(Contrast, ACancelledDialogCanBeRead)
{
    CQtProgressDialog dialog(nullptr, u"Batch", u" Waiting for the surface in hand");
    dialog.Create();
    dialog.SetCanceled(true);
    QLabel& label = *dialog.GetWindow()->findChild<QLabel*>();
    EXPECT_FALSE(label.isEnabled());
    EXPECT_GE(ContrastWithin(label.grab().toImage()), 4.5);
}

TEST_P(Contrast, PartsOfAGridCanBeToldApart)
{
    const CGridWidget widget;
    QImage picture(40, 20, QImage::Format_RGB32);
    QPainter qtPainter(&picture);
    const CQtGridPainter::FImages none;
    CQtGridPainter painter(qtPainter, widget, none);
    const auto groundOf = [&](EGridBackground background) {
        painter.FillBackground({0, 0, 40, 20}, background);
        return picture.pixelColor(20, 10);
    };
    const QColor plain = groundOf(EGridBackground::Plain);
    const QColor marked = groundOf(EGridBackground::MarkedHeader);
    EXPECT_GE(ContrastOf(groundOf(EGridBackground::SubHeader), plain), 1.25);
    EXPECT_GE(ContrastOf(groundOf(EGridBackground::Header), marked), 1.2);
    EXPECT_GE(ContrastOf(widget.palette().color(QPalette::Text), marked), 4.5);
}

TEST_P(Contrast, CommandsThatCopyHavePictures)
{
    using ECommand = CResultGridWidget::ECommand;
    CResultGridWidget grid(CGridBaseOutputCtrl::SCellInfo::Results);
    std::set<QByteArray> pictures;
    for (int command = 0; command <= static_cast<int>(ECommand::CopyWholeTransposed); ++command) {
        QImage picture(20, 20, QImage::Format_RGB32);
        picture.fill(grid.palette().color(QPalette::Button));
        QPainter painter(&picture);
        grid.GetAction(static_cast<ECommand>(command)).icon().paint(&painter, 2, 2, 16, 16);
        EXPECT_GE(ContrastWithin(picture), 4.5) << command;
        pictures.emplace(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes());
    }
    EXPECT_EQ(pictures.size(), 5U) << "no two alike";
}

TEST_P(Contrast, APageCanBeRead)
{
    CStartPaneWidget pane;
    pane.ShowPage(u"<p class=\"state\">a</p><p class=\"fault\">b</p><p class=\"entry\"><a href=\"x\">c</a>"
                  u"<span class=\"date\">d</span></p><p>e</p>");
    const QPalette& palette = pane.GetPage().palette();
    std::set<QRgb> colors;
    QTextCursor cursor(pane.GetPage().document());
    while (cursor.movePosition(QTextCursor::NextCharacter)) {
        const QBrush brush = cursor.charFormat().foreground();
        const QColor color = brush.style() == Qt::NoBrush ? palette.color(QPalette::Text) : brush.color();
        EXPECT_GE(ContrastOf(color, palette.color(QPalette::Base)), 4.5) << color.name().toStdString();
        colors.insert(color.rgb());
    }
    EXPECT_EQ(colors.size(), 4U) << "links, faults, what is said about them, and texts";
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, Contrast, testing::Bool());
