#include "workbench/DiagnosticsDialog.h"

#include "platform/Clipboard.h"
#include "workbench/see/SeeTexts.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace Workbench
{

CDiagnosticsDialog::CDiagnosticsDialog(const QString& text, QWidget* parent)
    : QDialog(parent)
    , m_text(new QPlainTextEdit(text))
{
    const QString title = QText(ESeeText::Diagnostics).remove(QLatin1Char('&')).remove(QChar(0x2026));
    setWindowTitle(title);
    m_text->setAccessibleName(title);
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* const copy = buttons->addButton(QText(ESeeText::CopyAll), QDialogButtonBox::ActionRole);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addWidget(buttons);
    connect(copy, &QPushButton::clicked, this, &CDiagnosticsDialog::CopyAll);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(50 * fontMetrics().height(), 35 * fontMetrics().height());
}

CDiagnosticsDialog::~CDiagnosticsDialog() = default;

QString CDiagnosticsDialog::GetText() const
{
    return m_text->toPlainText();
}

void CDiagnosticsDialog::CopyAll() const
{
    const QString text = GetText();
    CommonUI::GetClipboard().Put(
        CommonUI::FromQString(QStringLiteral("<pre>") + text.toHtmlEscaped() + QStringLiteral("</pre>")),
        CommonUI::FromQString(text));
}

} // namespace Workbench
