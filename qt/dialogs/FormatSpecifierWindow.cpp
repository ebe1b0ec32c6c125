#include "qt/dialogs/FormatSpecifierWindow.h"

#include "qt/controls/detail/Isolate.h"
#include "qt/detail/EventGuard.h"
#include "qt/edits/NumericEditWidget.h"
#include "qt/QtText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace CommonUI
{

using CDlg = CFormatSpecifierDlg;

namespace
{

// A list that takes the wheel only while it has the focus.
class CFormatList final : public QComboBox
{
public:
    CFormatList() { setFocusPolicy(Qt::StrongFocus); }

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

} // namespace

CFormatSpecifierWindow::CFormatSpecifierWindow(QWidget* parent)
    : CDialogViewWindow(parent)
    , m_list(new CFormatList)
    , m_count(new CNumericEditWidget)
{
    LayOut();
    RememberPlacement(u"FormatSpecifier");
    // Not only "activated": an item that is found by its letters is just the current one.
    connect(m_list, &QComboBox::currentIndexChanged, this, [this] {
        if (CDlg* const dialog = GetControl())
            Guarded([dialog] { dialog->OnCbnSelchangeFormatCombo(); });
    });
}

CFormatSpecifierWindow::~CFormatSpecifierWindow()
{
    if (GetControl() && GetControl()->IsOpen())
        GetControl()->OnCancel();
}

void CFormatSpecifierWindow::LayOut()
{
    auto* const layout = new QGridLayout(this);
    const auto addRow = [&](int number, QWidget& control) {
        auto* const label = new QLabel;
        label->setBuddy(&control);
        layout->addWidget(label, layout->rowCount(), 0);
        layout->addWidget(&control, layout->rowCount() - 1, 1);
        AddControl(number, control, label);
    };
    addRow(CDlg::c_format, *m_list);
    addRow(CDlg::c_count, *m_count);
    layout->setRowMinimumHeight(layout->rowCount(), fontMetrics().height() / 4);
    for (const int number : {CDlg::c_exampleCaption, CDlg::c_largeExample, CDlg::c_smallExample}) {
        auto* const label = new QLabel;
        label->setTextFormat(Qt::PlainText);
        layout->addWidget(label, layout->rowCount(), 0, 1, 2);
        AddControl(number, *label);
    }
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    AddControl(CDlg::c_ok, *buttons->button(QDialogButtonBox::Ok));
    AddControl(CDlg::c_cancel, *buttons->button(QDialogButtonBox::Cancel));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->setRowStretch(layout->rowCount(), 1);
    layout->addWidget(buttons, layout->rowCount(), 0, 1, 2);
    layout->setColumnStretch(1, 1);
}

void CFormatSpecifierWindow::Attach(CFormatSpecifierDlg& dialog)
{
    dialog.SetView(this);
    m_count->Attach(dialog.GetCountEdit());
}

void CFormatSpecifierWindow::SetText(int control, const CStr& text)
{
    if (control == CDlg::c_largeExample || control == CDlg::c_smallExample)
        CDialogViewWindow::SetText(control, FromQString(ShowNumber(ToQString(text))));
    else
        CDialogViewWindow::SetText(control, text);
}

void CFormatSpecifierWindow::SetItems(const std::vector<SFormatItem>& items)
{
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const SFormatItem& item : items)
        m_list->addItem(ToQString(item.text), static_cast<int>(item.value));
    m_list->setCurrentIndex(-1);
}

void CFormatSpecifierWindow::SelectItem(std::optional<std::size_t> index)
{
    const QSignalBlocker blocker(m_list);
    m_list->setCurrentIndex(index ? static_cast<int>(*index) : -1);
}

std::optional<std::size_t> CFormatSpecifierWindow::GetSelectedItem() const
{
    const int index = m_list->currentIndex();
    return index < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(index));
}

} // namespace CommonUI
