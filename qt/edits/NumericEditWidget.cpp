#include "qt/edits/NumericEditWidget.h"

#include "common/StringTable.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/StepTexts.h"
#include "qt/edits/QtEditField.h"
#include "qt/edits/QtSpinButton.h"
#include "qt/edits/QtStepSizePopup.h"
#include "qt/QtText.h"

#include <QAbstractButton>
#include <QAction>
#include <QHBoxLayout>
#include <QLabel>

namespace CommonUI
{

namespace
{

constexpr int c_stepKeys = 10285;

// The text of the label whose buddy the widget is, without the mark of its mnemonic.
QString FindLabelText(const QWidget& widget)
{
    for (const QLabel* const label : widget.window()->findChildren<QLabel*>())
        if (label->buddy() == &widget)
            return label->text().remove(QLatin1Char('&'));
    return {};
}

} // namespace

CNumericEditWidget::CNumericEditWidget(QWidget* parent)
    : QWidget(parent)
    , m_field(new CQtEditField(this))
    , m_spin(new CQtSpinButton(this))
    , m_popup(new CQtStepSizePopup(m_spin))
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->addWidget(m_field);
    layout->addWidget(m_spin);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFocusProxy(m_field);
    // Without it the mnemonic of a label would not lead here.
    setFocusPolicy(m_field->focusPolicy());
    m_spin->setFocusProxy(m_field);
    m_spin->setToolTip(ToQString(GetString(c_stepKeys)));
    AddStepSizeAction(CStepSizeBtn::EType::Larger, Qt::Key_PageUp, c_largerSteps);
    AddStepSizeAction(CStepSizeBtn::EType::Smaller, Qt::Key_PageDown, c_smallerSteps);
}

CNumericEditWidget::~CNumericEditWidget() = default;

void CNumericEditWidget::Attach(CExEdit& edit, CUpDown& spin, CStepSizeCtrl& stepSize)
{
    edit.SetView(m_field);
    spin.SetView(m_spin);
    stepSize.SetView(m_popup);
}

void CNumericEditWidget::AddStepSizeAction(CStepSizeBtn::EType type, Qt::Key key, int textId)
{
    auto* const action = new QAction(ToQString(GetString(textId)), m_field);
    action->setShortcut(QKeySequence(Qt::CTRL | key));
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, &m_popup->GetButton(type), &QAbstractButton::click);
    connect(m_field, &CQtEditField::WritableChanged, action, &QAction::setEnabled);
    m_field->addAction(action);
}

void CNumericEditWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    const QString name = accessibleName().isEmpty() ? FindLabelText(*this) : accessibleName();
    if (!name.isEmpty())
        m_field->setAccessibleName(name);
}

void CNumericEditWidget::hideEvent(QHideEvent* event)
{
    if (CStepSizeCtrl* const popup = m_popup->GetControl())
        popup->Close();
    QWidget::hideEvent(event);
}

CFloatEditWidget::CFloatEditWidget(QWidget* parent)
    : CNumericEditWidget(parent)
{
    Attach(m_edit);
    m_edit.ShowSpinButton(0, true);
}

CFloatEditWidget::~CFloatEditWidget() = default;

CIntEditWidget::CIntEditWidget(QWidget* parent)
    : CNumericEditWidget(parent)
{
    Attach(m_edit);
    m_edit.ShowSpinButton(0, true);
}

CIntEditWidget::~CIntEditWidget() = default;

} // namespace CommonUI
