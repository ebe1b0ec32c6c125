#include "workbench/see/ChartCommands.h"

#include "workbench/see/ChartWidget.h"
#include "workbench/see/SaveAndCopy.h"
#include "workbench/see/SeeTexts.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace Workbench
{

CChartCommands::CChartCommands(CChartWidget& chart)
    : m_chart(chart)
    , m_readOut(new QLabel)
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const auto text : {ESeeText::Copy, ESeeText::CopyPicture, ESeeText::Save}) {
        m_buttons.push_back(new QPushButton(QText(text)));
        layout->addWidget(m_buttons.back());
    }
    layout->addStretch(1);
    layout->addWidget(m_readOut);
    m_readOut->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_readOut->setMinimumHeight(3 * fontMetrics().lineSpacing()); // the chart keeps its size
    connect(&m_chart, &CChartWidget::CursorsChanged, this, &CChartCommands::ShowReadOut);
    connect(m_buttons[0], &QPushButton::clicked, this,
            [this] { CopyTable(MakeChartText(m_chart.GetChart())); });
    connect(m_buttons[1], &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setPixmap(m_chart.MakePicture(c_pictureScale)); });
    connect(m_buttons[2], &QPushButton::clicked, this, &CChartCommands::SaveWanted);
}

void CChartCommands::SetChartThere(bool isThere)
{
    m_readOut->setVisible(isThere);
    for (QPushButton* const button : m_buttons)
        button->setEnabled(isThere);
}

void CChartCommands::ShowReadOut()
{
    m_readOut->setText(m_chart.GetReadOut());
}

} // namespace Workbench
