#include "qt/grid/detail/GridListEditor.h"

#include "qt/QtText.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>

#include <utility>

namespace CommonUI
{

CGridListEditor::CGridListEditor(const SGridEdit& edit, QWidget& parent, FDone done)
    : CGridEditor(std::move(done))
    , m_box(new QComboBox(&parent))
{
    m_box->setFrame(false);
    for (const CStr& option : edit.options)
        m_box->addItem(ToQString(option));
    m_box->setCurrentIndex(
        m_box->findText(ToQString(edit.text), Qt::MatchFixedString | Qt::MatchCaseSensitive));
    if (!edit.typed.IsEmpty()) {
        const int typed = m_box->findText(ToQString(edit.typed), Qt::MatchStartsWith);
        m_box->setCurrentIndex(typed < 0 ? m_box->currentIndex() : typed);
    }
    connect(m_box, &QComboBox::activated, this, [this] { m_end = EGridEditEnd::Taken; });
    Watch();
}

QWidget& CGridListEditor::GetWidget() const
{
    return *m_box;
}

CStr CGridListEditor::GetText() const
{
    return FromQString(m_box->currentText());
}

void CGridListEditor::DropDown()
{
    m_dropped = true;
    m_end = EGridEditEnd::Cancelled;
    m_box->view()->window()->installEventFilter(this);
    m_box->showPopup();
}

bool CGridListEditor::eventFilter(QObject* watched, QEvent* event)
{
    // The list has the focus then, and ends the editor when it closes.
    if (watched == m_box && event->type() == QEvent::FocusOut && m_dropped)
        return false;
    if (watched == m_box)
        return CGridEditor::eventFilter(watched, event);
    // The list closes before it says that something has been chosen, and needs the box a while longer.
    if (event->type() == QEvent::Hide)
        QMetaObject::invokeMethod(
            this, [this] { Finish(m_end); }, Qt::QueuedConnection);
    return false;
}

} // namespace CommonUI
