#include "workbench/NoticeBar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace Workbench
{

CNoticeBar::CNoticeBar(const QString& command, const QString& dismiss)
    : m_text(new QLabel)
    , m_command(new QPushButton(command))
{
    auto* const icon = new QLabel;
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(fontMetrics().height()));
    auto* const close = new QPushButton(dismiss);
    auto* const layout = new QHBoxLayout(this);
    layout->addWidget(icon);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_command);
    layout->addWidget(close);
    m_text->setWordWrap(true);
    setFrameShape(QFrame::StyledPanel);
    setVisible(false);
    connect(m_command, &QPushButton::clicked, this, &CNoticeBar::Accepted);
    connect(close, &QPushButton::clicked, this, &CNoticeBar::Dismissed);
}

QString CNoticeBar::GetText() const
{
    return m_text->text();
}

void CNoticeBar::SetText(const QString& text)
{
    const bool isNew = text != m_text->text();
    m_text->setText(text);
    setVisible(!text.isEmpty());
    if (!isNew || text.isEmpty())
        return;
    setAccessibleName(text);
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

} // namespace Workbench
