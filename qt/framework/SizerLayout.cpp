#include "qt/framework/SizerLayout.h"

#include "qt/dialogs/detail/DialogUnits.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace CommonUI
{

namespace
{

QRect ToQRect(const SRect& rect)
{
    return {rect.left, rect.top, rect.GetWidth(), rect.GetHeight()};
}

// By how much a place is too small.
double GetLack(int needed, double place)
{
    return place > 0 ? needed / place : 1;
}

} // namespace

CSizerLayout::CSizerLayout(QWidget& window, const SSize& size)
    : QLayout(&window)
    , m_size(size)
{
    setContentsMargins(0, 0, 0, 0); // the template has them
}

CSizerLayout::~CSizerLayout()
{
    while (QLayoutItem* const item = takeAt(0))
        delete item;
}

void CSizerLayout::Add(QWidget& control, const SRect& place, const SSizerRule& rule, const SSize& minimum)
{
    CSizer(m_size).Add(place, rule, minimum); // throws for a wrong rule
    addChildWidget(&control);
    m_entries.push_back({new QWidgetItem(&control), place, rule, minimum});
    invalidate();
}

// What comes without a rule stays in the corner.
void CSizerLayout::addItem(QLayoutItem* item)
{
    m_entries.push_back({item, {}, SizerRules::c_stay, {}});
    invalidate();
}

int CSizerLayout::count() const
{
    return static_cast<int>(m_entries.size());
}

QLayoutItem* CSizerLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_entries[static_cast<std::size_t>(index)].item : nullptr;
}

QLayoutItem* CSizerLayout::takeAt(int index)
{
    QLayoutItem* const item = itemAt(index);
    if (item) {
        m_entries.erase(m_entries.begin() + index);
        invalidate();
    }
    return item;
}

void CSizerLayout::invalidate()
{
    m_sizer.reset();
    QLayout::invalidate();
}

const CSizer& CSizerLayout::GetSizer() const
{
    if (!m_sizer)
        m_sizer = MakeSizer();
    return *m_sizer;
}

CSizer CSizerLayout::MakeSizer() const
{
    const CDialogUnits units(*parentWidget());
    double horizontal = 1;
    double vertical = 1;
    for (const SEntry& entry : m_entries) {
        const QSize least = entry.item->minimumSize();
        horizontal = std::max(horizontal, GetLack(least.width(), units.GetWidth(entry.place.GetWidth())));
        vertical = std::max(vertical, GetLack(least.height(), units.GetHeight(entry.place.GetHeight())));
    }
    CSizer sizer(m_size);
    for (const auto& [item, place, rule, minimum] : m_entries) {
        const double width = units.GetWidth(1) * horizontal;
        const double height = units.GetHeight(1) * vertical;
        const SSize least = {static_cast<int>(item->minimumSize().width() / width) + 1,
                             static_cast<int>(item->minimumSize().height() / height) + 1};
        sizer.Add(place, rule, {std::max(least.cx, minimum.cx), std::max(least.cy, minimum.cy)});
    }
    return sizer.Scaled(units.GetWidth(1) * horizontal, units.GetHeight(1) * vertical);
}

void CSizerLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const std::vector<SRect> places = GetSizer().Compute({rect.width(), rect.height()});
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QRect place = ToQRect(places[i]).translated(rect.topLeft());
        m_entries[i].item->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), rect, place));
    }
}

QSize CSizerLayout::sizeHint() const
{
    return {GetSizer().GetSize().cx, GetSizer().GetSize().cy};
}

QSize CSizerLayout::minimumSize() const
{
    const SSize least = GetSizer().GetMinimumSize();
    return {least.cx, least.cy};
}

} // namespace CommonUI
