#include "workbench/see/ResultView.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace Workbench
{

namespace
{

// A window has several of these views, and keys of its own: Alt reaches none of their buttons.
void DropMnemonics(const QWidget& view)
{
    const auto drop = [](auto& widget) { widget.setText(widget.text().remove(QLatin1Char('&'))); };
    for (QAbstractButton* const button : view.findChildren<QAbstractButton*>())
        drop(*button);
    for (QLabel* const label : view.findChildren<QLabel*>())
        if (label->buddy())
            drop(*label);
}

} // namespace

CResultView::CResultView(const QString& choose)
    : m_state(new QLabel)
    , m_tables(new CommonUI::CResultPanelWidget)
{
    auto* const button = new QPushButton(choose);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_state);
    layout->addWidget(button, 0, Qt::AlignLeft);
    layout->addWidget(m_tables, 1);
    m_state->setWordWrap(true);
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_tables->Attach(m_panel);
    DropMnemonics(*this);
    connect(button, &QPushButton::clicked, this, &CResultView::ChooseAsked);
}

CResultView::~CResultView() = default;

QString CResultView::GetState() const
{
    return m_state->text();
}

void CResultView::SetState(const QString& state)
{
    m_state->setText(state);
}

void CResultView::ShowSet(CommonUI::SResultSet set)
{
    set.summary.clear();
    m_panel.SetResults(std::make_shared<const CommonUI::SResultSet>(std::move(set)));
}

QSize CResultView::sizeHint() const
{
    return {70 * fontMetrics().averageCharWidth(), QWidget::sizeHint().height()};
}

} // namespace Workbench
