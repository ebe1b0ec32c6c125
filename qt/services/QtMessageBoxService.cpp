#include "qt/services/QtMessageBoxService.h"

#include "platform/HelpService.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/ParentWindow.h"
#include "qt/QtText.h"

#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPointer>
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

struct SButtons {
    QMessageBox::StandardButtons all;
    QMessageBox::StandardButton last; // what closing the box counts as
};

SButtons GetButtons(unsigned int style)
{
    switch (style & MessageBoxStyle::c_buttonMask) {
    case MessageBoxStyle::c_okCancel:
        return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel};
    case MessageBoxStyle::c_yesNo:
        return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
    default:
        return {QMessageBox::Ok, QMessageBox::Ok};
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
    bool isChecked = false;
    return ShowWithCheck(box, {}, isChecked);
}

EMessageBoxAnswer CQtMessageBoxService::ShowWithCheck(const SMessageBox& box, const CStr& checkText,
                                                      bool& isChecked)
{
    const SButtons buttons = GetButtons(box.style);
    // Its parent may be destroyed meanwhile, and destroys it then.
    const QPointer<QMessageBox> window = new QMessageBox(GetParentWindow());
    window->setIcon(GetIcon(box.style));
    window->setWindowTitle(QGuiApplication::applicationDisplayName());
    window->setTextFormat(Qt::PlainText);
    window->setText(ToQString(box.text));
    window->setStandardButtons(buttons.all);
    window->setEscapeButton(buttons.last);
    // Who presses Enter without reading a warning shall do no harm.
    if ((box.style & MessageBoxStyle::c_iconMask) == MessageBoxStyle::c_warning)
        window->setDefaultButton(buttons.last);
    if (box.style & MessageBoxStyle::c_help)
        AddHelp(*window, box.helpTopic);
    if (!checkText.IsEmpty())
        window->setCheckBox(new QCheckBox(ToQString(checkText)));
    const int button = window->exec();
    isChecked = window && window->checkBox() && window->checkBox()->isChecked();
    delete window;
    // No button at all when the parent or the program has ended.
    return GetAnswer(button != 0 ? button : buttons.last);
}

void CQtMessageBoxService::Beep(unsigned int)
{
    QApplication::beep();
}

} // namespace CommonUI
