#include "qt/selection/OptionsWindow.h"

#include "qt/selection/detail/OptionForm.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace CommonUI
{

COptionsWindow::COptionsWindow(QWidget* parent)
    : CDialogViewWindow(parent)
    , m_form(new COptionForm(
          [this](int id, int value) {
              if (GetControl())
                  GetControl()->OnChoice(id, value);
          },
          [this](int id, const CStr& text) {
              if (GetControl())
                  GetControl()->OnText(id, text);
          }))
{
    auto* const remark = new QLabel;
    remark->setTextFormat(Qt::PlainText);
    remark->setWordWrap(true);
    remark->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    // What is wrong takes two lines, and shall not make the window jump.
    remark->setMinimumHeight(2 * fontMetrics().lineSpacing());
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    AddControl(COptionsDlg::c_remark, *remark);
    AddControl(CBaseDialog::c_ok, *buttons->button(QDialogButtonBox::Ok));
    AddControl(CBaseDialog::c_cancel, *buttons->button(QDialogButtonBox::Cancel));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_form);
    layout->addWidget(remark);
    layout->addStretch();
    layout->addWidget(buttons);
    setMinimumWidth(68 * fontMetrics().averageCharWidth());
}

COptionsWindow::~COptionsWindow()
{
    if (GetControl() && GetControl()->IsOpen())
        GetControl()->OnCancel();
}

void COptionsWindow::ShowOptions(const std::vector<SDialogOption>& options)
{
    m_form->Show(options, CMnemonics({}));
    if (!focusWidget() && !options.empty())
        m_form->FocusOption(options.front().id);
}

void COptionsWindow::FocusOption(int id)
{
    m_form->FocusOption(id);
}

} // namespace CommonUI
