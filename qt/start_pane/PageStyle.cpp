#include "qt/start_pane/detail/PageStyle.h"

#include <QColor>
#include <QPalette>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace CommonUI
{

namespace
{

constexpr double c_leastContrast = 4.5; // for texts, by WCAG 2

double LuminanceOf(const QColor& color)
{
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double ContrastOf(const QColor& one, const QColor& other)
{
    const auto [less, more] = std::minmax({LuminanceOf(one), LuminanceOf(other)});
    return (more + 0.05) / (less + 0.05);
}

QColor Mix(const QColor& one, const QColor& other, double share)
{
    const auto mix = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

// The colour, or as little of the text's in it as makes it readable.
QString ReadableName(const QColor& color, const QPalette& palette)
{
    const QColor ground = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    double share = 0;
    while (share < 1 && ContrastOf(Mix(color, text, share), ground) < c_leastContrast)
        share += 0.1;
    return Mix(color, text, std::min(share, 1.0)).name();
}

} // namespace

QString MakePageStyle(const QWidget& widget)
{
    const QPalette& palette = widget.palette();
    const QColor dim = Mix(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.5);
    const int line = widget.fontMetrics().height();
    return QStringLiteral("h2 { font-size: large; margin-top: %1px; margin-bottom: 0px; }"
                          "p { margin-top: %2px; margin-bottom: 0px; }"
                          ".state, .date { color: %3; }"
                          ".fault { color: %4; }"
                          ".entry { margin-top: %5px; }"
                          ".summary, ul, ol, blockquote { margin-top: %2px; margin-bottom: 0px; }"
                          "a { color: %6; }")
        .arg(line)
        .arg(line / 4)
        .arg(ReadableName(dim, palette), ReadableName(QColor(200, 50, 40), palette))
        .arg(line * 2 / 3)
        .arg(ReadableName(palette.color(QPalette::Link), palette));
}

} // namespace CommonUI
