#include "qt/QtMessageBoxService.h"

#include "platform/HelpService.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/ParentWindow.h"
#include "qt/QtText.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace CommonUI
{

namespace
{

QMessageBox::Icon GetIcon(unsigned int style)
{
    switch (style & MessageBoxStyle::c_iconMask) {
    case MessageBoxStyle::c_error:
        return QMessageBox::Critical;
    case MessageBoxStyle::c_question:
        return QMessageBox::Question;
    case MessageBoxStyle::c_warning:
        return QMessageBox::Warning;
    default:
        return QMessageBox::NoIcon;
    }
}

/// The buttons; closing the box counts as the last one.
void AddButtons(QMessageBox& window, unsigned int style)
{
    switch (style & MessageBoxStyle::c_buttonMask) {
    case MessageBoxStyle::c_okCancel:
        window.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        window.setEscapeButton(QMessageBox::Cancel);
        break;
    case MessageBoxStyle::c_yesNo:
        window.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        window.setEscapeButton(QMessageBox::No);
        break;
    default:
        window.setStandardButtons(QMessageBox::Ok);
        window.setEscapeButton(QMessageBox::Ok);
        break;
    }
}

void AddHelp(QMessageBox& window, unsigned int topic)
{
    const QPushButton* const help = window.addButton(QMessageBox::Help);
    // Qt would close the box.
    QObject::disconnect(help, &QAbstractButton::clicked, nullptr, nullptr);
    QObject::connect(help, &QAbstractButton::clicked, &window,
                     [topic] { Guarded([topic] { GetHelpService().Open(topic); }); });
}

EMessageBoxAnswer GetAnswer(int button)
{
    switch (button) {
    case QMessageBox::Yes:
        return EMessageBoxAnswer::Yes;
    case QMessageBox::No:
        return EMessageBoxAnswer::No;
    case QMessageBox::Cancel:
        return EMessageBoxAnswer::Cancel;
    default:
        return EMessageBoxAnswer::Ok;
    }
}

} // namespace

CQtMessageBoxService::~CQtMessageBoxService() = default;

EMessageBoxAnswer CQtMessageBoxService::Show(const SMessageBox& box)
{
    QMessageBox window(GetParentWindow());
    window.setIcon(GetIcon(box.style));
    window.setWindowTitle(QGuiApplication::applicationDisplayName());
    window.setTextFormat(Qt::PlainText);
    window.setText(ToQString(box.text));
    AddButtons(window, box.style);
    if (box.style & MessageBoxStyle::c_help)
        AddHelp(window, box.helpTopic);
    return GetAnswer(window.exec());
}

void CQtMessageBoxService::Beep(unsigned int)
{
    QApplication::beep();
}

} // namespace CommonUI
