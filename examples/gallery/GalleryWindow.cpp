#include "examples/gallery/GalleryWindow.h"

#include "examples/gallery/Pages.h"
#include "examples/gallery/Palettes.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QStackedWidget>

#include <algorithm>

namespace Gallery
{

CGalleryWindow::CGalleryWindow()
    : m_list(new QListWidget)
    , m_pages(new QStackedWidget)
    , m_log(new QPlainTextEdit)
{
    setWindowTitle(QStringLiteral("Gallery"));
    auto* const layout = new QHBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(MakeRightSide(), 1);

    m_list->setAccessibleName(QStringLiteral("Pages"));
    m_log->setAccessibleName(QStringLiteral("Calls"));
    m_log->setReadOnly(true);
    m_log->setMaximumBlockCount(1000);
    int width = 0;
    for (const SPage& page : GetPages()) {
        m_list->addItem(QString::fromUtf8(page.name));
        auto* const area = new QScrollArea;
        area->setWidgetResizable(true);
        area->setFrameShape(QFrame::NoFrame);
        QWidget* const content = page.make([this](const QString& line) { Write(line); });
        content->layout()->setContentsMargins(0, 0, 0, 0); // flush with what is below the pages
        area->setWidget(content);
        m_pages->addWidget(area);
        width = std::max(width, content->sizeHint().width());
    }
    m_log->clear();
    m_list->setSpacing(2);
    m_list->setFixedWidth(m_list->sizeHintForColumn(0) + 6 * fontMetrics().averageCharWidth());
    connect(m_list, &QListWidget::currentRowChanged, m_pages, &QStackedWidget::setCurrentIndex);
    SelectPage(0);
    // The pages have the room that the widest one needs.
    resize(width + m_list->width() + 3 * layout->contentsMargins().left(), 50 * fontMetrics().height());
}

QWidget* CGalleryWindow::MakeRightSide()
{
    auto* const dark = new QCheckBox(QStringLiteral("&Dark colours"));
    dark->setChecked(QGuiApplication::palette().color(QPalette::Window).lightness() < 128);
    connect(dark, &QCheckBox::toggled, this, [](bool checked) { SetDark(checked); });
    auto* const label = new QLabel(QStringLiteral("Ca&lls:"));
    label->setBuddy(m_log);

    auto* const side = new QWidget;
    auto* const layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pages, 5);
    layout->addWidget(label);
    layout->addWidget(m_log, 1);
    layout->addWidget(dark);
    return side;
}

void CGalleryWindow::SelectPage(int index)
{
    m_list->setCurrentRow(index);
}

QWidget& CGalleryWindow::GetPage(int index) const
{
    return *static_cast<QScrollArea*>(m_pages->widget(index))->widget();
}

void CGalleryWindow::Write(const QString& line)
{
    m_log->appendPlainText(line);
}

} // namespace Gallery
