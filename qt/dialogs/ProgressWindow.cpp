#include "qt/dialogs/ProgressWindow.h"

#include "common/StringTable.h"
#include "qt/dialogs/detail/DialogUnits.h"
#include "qt/dialogs/detail/WrappedLabel.h"
#include "qt/QtText.h"

#include <QApplication>
#include <QEvent>
#include <QIcon>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

// The place of a button whose text may need more than the template has.
QRect Widen(const QRect& place, const QPushButton& button)
{
    const int text = button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width();
    const int margin = button.style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, &button);
    const int missing = std::max(0, text + 2 * margin - place.width());
    return place.adjusted(-missing / 2, 0, missing - missing / 2, 0);
}

} // namespace

CProgressWindow::CProgressWindow(QWidget* parent)
    : CDialogViewWindow(parent)
    , m_text(new CWrappedLabel(this))
    , m_bar(new QProgressBar(this))
    , m_cancel(new QPushButton(this))
{
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(ToQString(GetString(ProgressTemplate::c_dialog)));
    m_cancel->setAutoDefault(false);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
    AddControl(ProgressTemplate::c_text, *m_text);
    AddControl(ProgressTemplate::c_bar, *m_bar);
    AddControl(ProgressTemplate::c_cancel, *m_cancel);
    SetLayout({});
    qApp->installEventFilter(this);
}

CProgressWindow::~CProgressWindow()
{
    RepeatQuit();
}

void CProgressWindow::Show(bool visible)
{
    CDialogViewWindow::Show(visible);
    if (!IsDialogOpen())
        RepeatQuit();
}

bool CProgressWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Quit || watched != qApp || !IsDialogOpen())
        return CDialogViewWindow::eventFilter(watched, event);
    m_quit = true;
    event->ignore();
    reject();
    return true;
}

// Makes a request again that has come too early, in the loop that runs when the dialog has returned.
void CProgressWindow::RepeatQuit()
{
    if (std::exchange(m_quit, false))
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

SSize CProgressWindow::MeasureText(const CStr& text, int width) const
{
    const CDialogUnits units(*m_text);
    QSizeF size = m_text->Measure(ToQString(text), units.GetWidth(width));
    // The Cancel button below must stay on the screen.
    size.setHeight(std::min(size.height(), screen()->availableSize().height() / 2.0));
    return units.ToUnits(size);
}

void CProgressWindow::SetLayout(const SProgressLayout& layout)
{
    const CDialogUnits units(*m_text);
    const QRect cancel = Widen(units.ToPixels(layout.cancel), *m_cancel);
    setFixedSize(units.ToPixels(layout.dialog));
    const auto place = [&](QWidget& control, const QRect& rect) {
        control.setGeometry(QStyle::visualRect(layoutDirection(), this->rect(), rect));
    };
    place(*m_text, units.ToPixels(layout.text));
    place(*m_bar, units.ToPixels(layout.bar));
    place(*m_cancel, cancel);
}

void CProgressWindow::SetIcon(const void* icon)
{
    setWindowIcon(*static_cast<const QIcon*>(icon));
}

void CProgressWindow::BringParentToTop()
{
    if (GetWindowBelow())
        GetWindowBelow()->raise();
}

void CProgressWindow::SetBarRange(int minimum, int maximum)
{
    // Qt's bar without a range is a busy one.
    m_bar->setRange(minimum, std::max(maximum, minimum + 1));
}

void CProgressWindow::SetBarPosition(int position)
{
    m_bar->setValue(position);
}

void CProgressWindow::changeEvent(QEvent* event)
{
    CDialogViewWindow::changeEvent(event);
    const bool resized = event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange;
    // Has the text measured and everything laid out again.
    if (resized && GetControl())
        GetControl()->SetText(CStr(GetControl()->GetText()));
}

void CProgressWindow::paintEvent(QPaintEvent* event)
{
    if (!GetControl() || GetControl()->OnPaint())
        CDialogViewWindow::paintEvent(event);
}

} // namespace CommonUI
