#include "qt/services/QtSystemColors.h"

#include "controls/color/Contrast.h"
#include "qt/detail/EventGuard.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <utility>

namespace CommonUI
{

namespace
{

SColor ToColor(const QPalette& palette, QPalette::ColorRole role)
{
    const QColor color = palette.color(QPalette::Active, role);
    return {static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
            static_cast<std::uint8_t>(color.blue())};
}

bool IsHighContrast(const QPalette& palette)
{
    const SColor ground = ToColor(palette, QPalette::Window);
    const bool isExtreme = ground == SColor{0, 0, 0} || ground == SColor{255, 255, 255};
    constexpr double c_least = 7; // that of criterion 1.4.6 of WCAG 2
    return isExtreme && ToColor(palette, QPalette::Button) == ground &&
           ToColor(palette, QPalette::Base) == ground &&
           GetContrast(ToColor(palette, QPalette::WindowText), ground) >= c_least;
}

} // namespace

SSystemColors DescribePalette(const QPalette& palette)
{
    const SColor ground = ToColor(palette, QPalette::Window);
    const SColor text = ToColor(palette, QPalette::WindowText);
    SSystemColors colors;
    colors.accent = ToColor(palette, QPalette::Highlight);
    if (IsHighContrast(palette)) {
        colors.scheme = EColorScheme::HighContrast;
        colors.highContrast = {ground, text, *colors.accent, ToColor(palette, QPalette::HighlightedText),
                               ToColor(palette, QPalette::Link)};
    } else if (GetLuminance(text) > GetLuminance(ground)) {
        colors.scheme = EColorScheme::Dark;
    }
    return colors;
}

CQtSystemColors::CQtSystemColors()
    : m_colors(DescribePalette(QApplication::palette()))
{
    qApp->installEventFilter(this);
}

CQtSystemColors::~CQtSystemColors() = default;

bool CQtSystemColors::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ThemeChange && !std::exchange(m_waiting, true))
        QTimer::singleShot(0, this, [this] { Read(); });
    return QObject::eventFilter(watched, event);
}

void CQtSystemColors::Read()
{
    m_waiting = false;
    // What the application has set hides what the desktop says.
    const QPalette own = QApplication::palette();
    QApplication::setPalette(QPalette());
    m_colors = DescribePalette(QApplication::palette());
    QApplication::setPalette(own);
    Guarded([this] { TellChanged(); });
}

} // namespace CommonUI
