#include "qt/framework/SelectionListWindow.h"

#include "qt/detail/EventGuard.h"
#include "qt/QtText.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace CommonUI
{

using CDlg = CSelectionListDlg;

// The rows of the dialog: nothing is copied, however many there are.
class CSelectionListWindow::CModel final : public QAbstractListModel
{
public:
    explicit CModel(CSelectionListWindow& window)
        : QAbstractListModel(&window)
        , m_window(window)
    {
    }

    void Reset()
    {
        beginResetModel();
        endResetModel();
    }
    void ShowChecks()
    {
        if (const int rows = rowCount({}); rows > 0)
            Q_EMIT dataChanged(index(0), index(rows - 1), {Qt::CheckStateRole});
    }

    int rowCount(const QModelIndex& parent) const override
    {
        const bool hasRows = !parent.isValid() && m_window.GetControl();
        return hasRows ? static_cast<int>(m_window.GetControl()->GetRows().size()) : 0;
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const CDlg* const dialog = m_window.GetControl();
        const auto row = static_cast<std::size_t>(index.row());
        if (!dialog || row >= dialog->GetRows().size())
            return {};
        const std::size_t entry = dialog->GetRows()[row];
        if (role == Qt::DisplayRole)
            return ToQString(dialog->GetEntries()[entry]);
        if (role == Qt::CheckStateRole && dialog->GetMode() == CDlg::EMode::Several)
            return static_cast<int>(dialog->IsChosen(entry) ? Qt::Checked : Qt::Unchecked);
        return {};
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        CDlg* const dialog = m_window.GetControl();
        if (role != Qt::CheckStateRole || !dialog)
            return false;
        Guarded([&] { dialog->OnRowChecked(static_cast<std::size_t>(index.row()), value.toInt() != 0); });
        return true;
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const CDlg* const dialog = m_window.GetControl();
        const bool isSeveral = dialog && dialog->GetMode() == CDlg::EMode::Several;
        return QAbstractListModel::flags(index).setFlag(Qt::ItemIsUserCheckable, isSeveral);
    }

private:
    CSelectionListWindow& m_window;
};

CSelectionListWindow::CSelectionListWindow(QWidget* parent)
    : CDialogViewWindow(parent)
    , m_model(new CModel(*this))
    , m_filter(new QLineEdit)
    , m_list(new QListView)
    , m_count(new QLabel)
    , m_checkButtons(new QWidget)
{
    LayOut();
    Connect();
    RememberPlacement(u"SelectionList");
}

CSelectionListWindow::~CSelectionListWindow()
{
    if (GetControl() && GetControl()->IsOpen())
        GetControl()->OnCancel();
}

void CSelectionListWindow::LayOut()
{
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    m_list->setModel(m_model);
    m_list->viewport()->installEventFilter(this);
    m_list->setUniformItemSizes(true); // a long list is not measured row by row
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setMinimumHeight(8 * fontMetrics().lineSpacing());
    m_count->setTextFormat(Qt::PlainText);

    auto* const layout = new QVBoxLayout(this);
    const auto addLabelled = [&](int number, QWidget& control, int stretch) {
        auto* const label = new QLabel;
        label->setBuddy(&control);
        layout->addWidget(label);
        layout->addWidget(&control, stretch);
        AddControl(number, control, label);
    };
    addLabelled(CDlg::c_filter, *m_filter, 0);
    addLabelled(CDlg::c_list, *m_list, 1);
    layout->addWidget(m_count);
    AddControl(CDlg::c_count, *m_count);

    auto* const checks = new QHBoxLayout(m_checkButtons);
    checks->setContentsMargins(0, 0, 0, 0);
    for (const bool checked : {true, false}) {
        auto* const button = new QPushButton;
        button->setAutoDefault(false);
        checks->addWidget(button);
        AddControl(checked ? CDlg::c_all : CDlg::c_none, *button);
        connect(button, &QPushButton::clicked, this, [this, checked] {
            if (CDlg* const dialog = GetControl())
                Guarded([=] { dialog->OnCheckRows(checked); });
        });
    }
    checks->addStretch();
    layout->addWidget(m_checkButtons);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    AddControl(CDlg::c_ok, *buttons->button(QDialogButtonBox::Ok));
    AddControl(CDlg::c_cancel, *buttons->button(QDialogButtonBox::Cancel));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

void CSelectionListWindow::Connect()
{
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        CDlg* const dialog = GetControl();
        if (dialog && !m_isUpdating)
            Guarded([&] { dialog->OnFilterChanged(FromQString(text)); });
    });
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { TellRow(); });
    connect(m_list, &QListView::doubleClicked, this, [this] {
        if (CDlg* const dialog = GetControl())
            Guarded([=] { dialog->OnRowActivated(); });
    });
}

void CSelectionListWindow::TellRow()
{
    CDlg* const dialog = GetControl();
    if (!dialog || m_isUpdating)
        return;
    const QModelIndex current = m_list->currentIndex();
    const auto row = static_cast<std::size_t>(current.row());
    Guarded([&] { dialog->OnRowSelected(current.isValid() ? std::optional(row) : std::nullopt); });
}

void CSelectionListWindow::Attach(CSelectionListDlg& dialog)
{
    dialog.SetView(this);
    // On the ground of fields the boxes of dark colours cannot be seen.
    const bool isSeveral = dialog.GetMode() == CDlg::EMode::Several;
    m_list->viewport()->setBackgroundRole(isSeveral ? QPalette::Window : QPalette::Base);
    m_checkButtons->setVisible(isSeveral);
}

void CSelectionListWindow::SetText(int control, const CStr& text)
{
    CDialogViewWindow::SetText(control, text);
    // Screen readers do not look for the label of a list.
    if (control == CDlg::c_list)
        m_list->setAccessibleName(ToQString(text).remove(QLatin1Char('&')));
}

void CSelectionListWindow::UpdateRows()
{
    const bool before = std::exchange(m_isUpdating, true);
    m_model->Reset();
    m_isUpdating = before;
}

void CSelectionListWindow::UpdateChoice()
{
    m_model->ShowChecks();
}

void CSelectionListWindow::SelectRow(std::optional<std::size_t> row)
{
    const bool before = std::exchange(m_isUpdating, true);
    m_list->setCurrentIndex(row ? m_model->index(static_cast<int>(*row)) : QModelIndex());
    m_isUpdating = before;
}

void CSelectionListWindow::SetFilterText(const CStr& text)
{
    const bool before = std::exchange(m_isUpdating, true);
    m_filter->setText(ToQString(text));
    m_filter->setFocus();
    m_isUpdating = before;
}

bool CSelectionListWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_filter && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown)
            return QApplication::sendEvent(m_list, event);
    }
    // What is current stays in view in a smaller window, also in one that opens as small as it was.
    if (watched == m_list->viewport() && event->type() == QEvent::Resize)
        QMetaObject::invokeMethod(
            m_list, [this] { m_list->scrollTo(m_list->currentIndex()); }, Qt::QueuedConnection);
    return CDialogViewWindow::eventFilter(watched, event);
}

CQtSelectionListDlg::CQtSelectionListDlg(QWidget* parent, EMode mode, const CStr& caption, const CStr& prompt,
                                         std::vector<CStr> entries)
    : CSelectionListDlg(mode, caption, prompt, std::move(entries))
    , m_window(new CSelectionListWindow(parent))
{
    m_window->Attach(*this);
}

CQtSelectionListDlg::~CQtSelectionListDlg()
{
    EndDialog(c_cancel);
    delete m_window;
}

} // namespace CommonUI
