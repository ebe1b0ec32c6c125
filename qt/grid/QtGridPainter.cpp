#include "qt/grid/QtGridPainter.h"

#include "qt/grid/detail/GridRects.h"
#include "qt/QtText.h"

#include <QPainter>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr int c_buttonSpacing = 4; // what styles leave between the picture and the text of a button

SColor FromQColor(const QColor& color)
{
    const auto part = [](int value) { return static_cast<std::uint8_t>(value); };
    return {part(color.red()), part(color.green()), part(color.blue())};
}

QColor ToQColor(SColor color)
{
    return {color.red, color.green, color.blue};
}

Qt::Alignment ToAlignment(EGridAlign align)
{
    switch (align) {
    case EGridAlign::Left:
        return Qt::AlignLeft;
    case EGridAlign::Center:
        return Qt::AlignHCenter;
    default:
        return Qt::AlignRight;
    }
}

QStyle::State StateOf(bool enabled)
{
    return enabled ? QStyle::State_Enabled : QStyle::State_None;
}

// A square of that size in the middle of a rectangle, or the largest that fits.
SRect Centred(const SRect& rect, int size)
{
    size = std::min({size, rect.GetWidth(), rect.GetHeight()});
    const int left = rect.left + (rect.GetWidth() - size) / 2;
    const int top = rect.top + (rect.GetHeight() - size) / 2;
    return {left, top, left + size, top + size};
}

} // namespace

CQtGridPainter::CQtGridPainter(QPainter& painter, const QWidget& widget, const FImages& images)
    : m_painter(painter)
    , m_widget(widget)
    , m_images(images)
{
    // Numbers are the same in every language; painters begin with the application's direction.
    m_painter.setLayoutDirection(Qt::LeftToRight);
    m_option.initFrom(&widget);
    m_option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    m_line = Blend(0.16);
    m_textColor = GetStyleColor(EGridColor::Text);
}

CQtGridPainter::~CQtGridPainter() = default;

template<class TOption>
TOption CQtGridPainter::MakeOption(const SRect& rect) const
{
    TOption option;
    static_cast<QStyleOption&>(option).state = m_option.state;
    option.palette = m_option.palette;
    option.fontMetrics = m_option.fontMetrics;
    option.direction = m_option.direction;
    option.styleObject = m_option.styleObject;
    option.rect = ToQRect(rect);
    return option;
}

// The colour of empty cells with a part of that of their text.
QColor CQtGridPainter::Blend(double part) const
{
    const QColor base = m_option.palette.color(QPalette::Base);
    const QColor text = m_option.palette.color(QPalette::Text);
    const auto mix = [part](int from, int to) { return from + qRound((to - from) * part); };
    return {mix(base.red(), text.red()), mix(base.green(), text.green()), mix(base.blue(), text.blue())};
}

SColor CQtGridPainter::GetStyleColor(EGridColor color) const
{
    switch (color) {
    case EGridColor::Disabled:
        return FromQColor(m_option.palette.color(QPalette::Disabled, QPalette::Text));
    case EGridColor::Selected:
        return FromQColor(m_option.palette.color(QPalette::HighlightedText));
    default:
        return FromQColor(m_option.palette.color(QPalette::Text));
    }
}

void CQtGridPainter::DrawHeader(const SRect& rect, bool marked)
{
    auto option = MakeOption<QStyleOptionHeader>(rect);
    option.orientation = Qt::Horizontal;
    option.position = QStyleOptionHeader::Middle;
    option.state |= QStyle::State_Raised;
    m_widget.style()->drawControl(QStyle::CE_HeaderSection, &option, &m_painter, &m_widget);
    if (!marked)
        return;
    QColor mark = m_option.palette.color(QPalette::Highlight);
    mark.setAlphaF(0.35F);
    m_painter.fillRect(option.rect.adjusted(0, 0, -1, -1), mark);
}

void CQtGridPainter::FillHeaderRest(const SRect& rect)
{
    auto option = MakeOption<QStyleOptionHeader>(rect);
    option.orientation = Qt::Horizontal;
    m_widget.style()->drawControl(QStyle::CE_HeaderEmptyArea, &option, &m_painter, &m_widget);
}

void CQtGridPainter::FillBackground(const SRect& rect, EGridBackground background)
{
    const QRect whole = ToQRect(rect);
    switch (background) {
    case EGridBackground::Header:
    case EGridBackground::MarkedHeader:
        DrawHeader(rect, background == EGridBackground::MarkedHeader);
        return;
    case EGridBackground::Selected:
        m_painter.fillRect(whole, m_option.palette.color(QPalette::Highlight));
        break;
    case EGridBackground::SubHeader:
        m_painter.fillRect(whole, Blend(0.13));
        break;
    case EGridBackground::Plain:
        m_painter.fillRect(whole, m_option.palette.color(QPalette::Base));
        break;
    }
    m_painter.setPen(m_line);
    m_painter.drawLine(whole.bottomLeft(), whole.bottomRight());
    m_painter.drawLine(whole.topRight(), whole.bottomRight());
}

void CQtGridPainter::WriteText(const SRect& rect, std::u16string_view text, EGridAlign align)
{
    const QString shown =
        m_option.fontMetrics.elidedText(ToQString(text), Qt::ElideRight, rect.GetWidth(), Qt::TextSingleLine);
    m_painter.setPen(ToQColor(m_textColor));
    m_painter.drawText(ToQRect(rect),
                       static_cast<int>(ToAlignment(align) | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
}

void CQtGridPainter::DrawCheckBox(const SRect& rect, EGridCheck state, bool enabled)
{
    const QStyle& style = *m_widget.style();
    const int size = style.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &m_widget);
    auto option = MakeOption<QStyleOptionButton>(Centred(rect, size));
    option.state = StateOf(enabled && m_option.state.testFlag(QStyle::State_Enabled)) |
                   (state == EGridCheck::Checked         ? QStyle::State_On
                    : state == EGridCheck::Indeterminate ? QStyle::State_NoChange
                                                         : QStyle::State_Off);
    if (!enabled)
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    // Styles draw the box a shade darker than the window, which does not stand out from a dark ground.
    if (option.palette.color(QPalette::Base).lightness() < 128)
        option.palette.setColor(QPalette::Window, Blend(enabled ? 0.7 : 0.4));
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &m_painter, &m_widget);
}

void CQtGridPainter::DrawPush(const SRect& rect, const SGridButton& button)
{
    auto option = MakeOption<QStyleOptionButton>(rect);
    option.state = StateOf(button.enabled && m_option.state.testFlag(QStyle::State_Enabled)) |
                   (button.pressed ? QStyle::State_Sunken : QStyle::State_Raised);
    if (!button.enabled)
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    int room = rect.GetWidth() - 2 * c_buttonSpacing;
    if (button.imageId != SGridButton::c_noImage && m_images) {
        const int size = m_widget.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &m_widget);
        option.icon = m_images(button.imageId);
        option.iconSize = QSize(size, size).boundedTo(QSize(size, rect.GetHeight()));
        room -= option.iconSize.width() + c_buttonSpacing;
    }
    const QString text = button.kind == SGridButton::EKind::SetUp
                             ? QStringLiteral("\u2026")
                             : m_option.fontMetrics.elidedText(ToQString(button.text), Qt::ElideRight, room);
    // A mnemonic would lead nowhere.
    option.text = QString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
    m_widget.style()->drawControl(QStyle::CE_PushButton, &option, &m_painter, &m_widget);
}

void CQtGridPainter::DrawArrows(const SRect& rect, const SGridButton& button)
{
    const auto draw = [&](QStyle::PrimitiveElement arrow, const SRect& place) {
        auto option = MakeOption<QStyleOption>(Centred(place, std::max(rect.GetHeight() / 2, 8)));
        option.state = StateOf(button.enabled && m_option.state.testFlag(QStyle::State_Enabled));
        if (!button.enabled)
            option.palette.setCurrentColorGroup(QPalette::Disabled);
        // On a selected cell it stands out as the text does.
        for (const auto role : {QPalette::ButtonText, QPalette::WindowText, QPalette::Text})
            option.palette.setColor(role, ToQColor(m_textColor));
        m_widget.style()->drawPrimitive(arrow, &option, &m_painter, &m_widget);
    };
    if (button.kind != SGridButton::EKind::Spin) {
        draw(QStyle::PE_IndicatorArrowDown, rect);
        return;
    }
    const int middle = rect.left + rect.GetWidth() / 2;
    draw(QStyle::PE_IndicatorArrowDown, {rect.left, rect.top, middle, rect.bottom});
    draw(QStyle::PE_IndicatorArrowUp, {middle, rect.top, rect.right, rect.bottom});
}

void CQtGridPainter::DrawButton(const SRect& rect, const SGridButton& button)
{
    if (button.kind == SGridButton::EKind::Push)
        DrawPush(rect, button);
    else if (button.kind == SGridButton::EKind::SetUp)
        DrawPush({rect.left + 1, rect.top + 1, rect.right - 2, rect.bottom - 2}, button);
    else
        DrawArrows(rect, button);
}

void CQtGridPainter::DrawBox(const SRect& rect, SColor outline, SColor fill)
{
    m_painter.fillRect(ToQRect(rect), ToQColor(outline));
    m_painter.fillRect(ToQRect(rect.Shrunk(1, 1)), ToQColor(fill));
}

void CQtGridPainter::DrawExpander(const SRect& rect, bool expanded)
{
    auto option = MakeOption<QStyleOption>(rect);
    option.state |= QStyle::State_Children | (expanded ? QStyle::State_Open : QStyle::State_None);
    m_widget.style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, &m_painter, &m_widget);
}

void CQtGridPainter::DrawFocus(const SRect& rect)
{
    // Two lines, one of which stands out from every ground.
    const QRect frame = ToQRect(rect).adjusted(0, 0, -1, -1);
    m_painter.setPen(m_option.palette.color(QPalette::Text));
    m_painter.drawRect(frame.adjusted(0, 0, -1, -1));
    m_painter.setPen(m_option.palette.color(QPalette::Base));
    m_painter.drawRect(frame.adjusted(1, 1, -2, -2));
}

} // namespace CommonUI
