#include "qt/results/ResultWindow.h"

#include "qt/detail/EventGuard.h"
#include "qt/results/ResultPanelWidget.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace CommonUI
{

CResultWindow::CResultWindow(QWidget* parent)
    : CDialogViewWindow(parent)
    , m_panel(new CResultPanelWidget)
{
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close | QDialogButtonBox::Help);
    // The keys of the tables end nothing.
    for (QAbstractButton* const button : buttons->buttons())
        static_cast<QPushButton*>(button)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this, [this] {
        if (GetControl())
            Guarded([this] { GetControl()->OnHelpInfo(); });
    });
    AddControl(CBaseDialog::c_cancel, *buttons->button(QDialogButtonBox::Close));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_panel, 1);
    layout->addWidget(buttons);
    setSizeGripEnabled(true);
    RememberPlacement(u"Results");
}

CResultWindow::~CResultWindow()
{
    if (GetControl() && GetControl()->IsOpen())
        GetControl()->OnCancel();
}

void CResultWindow::Attach(CResultDialog& dialog)
{
    dialog.SetView(this);
    m_panel->Attach(dialog.GetPanel());
}

QSize CResultWindow::sizeHint() const
{
    const QSize usual(100 * fontMetrics().averageCharWidth(), 40 * fontMetrics().height());
    return CDialogViewWindow::sizeHint().expandedTo(usual);
}

CQtResultDialog::CQtResultDialog(QWidget* parent, CResultLayoutManager& layouts)
    : CResultDialog(layouts)
    , m_window(new CResultWindow(parent))
{
    m_window->Attach(*this);
}

CQtResultDialog::~CQtResultDialog()
{
    EndDialog(c_cancel);
    delete m_window;
}

} // namespace CommonUI
