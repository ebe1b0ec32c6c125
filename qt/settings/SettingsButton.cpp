#include "qt/settings/SettingsButton.h"

#include "dialogs/settings/SettingsImport.h"
#include "qt/detail/EventGuard.h"
#include "qt/settings/detail/ColorScaleIcon.h"
#include "qt/settings/detail/SettingsTexts.h"
#include "qt/settings/SettingsChooserWindow.h"
#include "qt/settings/SettingsDifferenceWindow.h"
#include "qt/settings/SettingsImportWindow.h"
#include "qt/settings/SettingsManageWindow.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

using EKind = SSettingsMenuItem::EKind;
using ECommand = ESettingsCommand;

constexpr int c_mostLetters = 30;
constexpr int c_fillInterval = 30; // ms

// By what an action is known when the menu is filled again.
QString GetKey(const SSettingsMenuItem& item)
{
    return QStringLiteral("%1 %2 %3")
        .arg(static_cast<int>(item.kind))
        .arg(ToQString(item.text), ToQString(item.entry.m_File));
}

// A modal window may go with its parent.
int Execute(QDialog* dialog)
{
    const QPointer<QDialog> window = dialog;
    const int result = window->exec();
    delete window;
    return result;
}

// Takes an action out of a menu.
void Remove(QMenu& menu, QAction* action)
{
    menu.removeAction(action);
    QMenu* const below = action->menu();
    if (!below)
        return action->deleteLater();
    // The user may have it open.
    below->hide();
    below->deleteLater();
}

// Leaves the first actions of a menu.
void Truncate(QMenu& menu, qsizetype count)
{
    const QList<QAction*> actions = menu.actions();
    for (qsizetype i = count; i < actions.size(); ++i)
        Remove(menu, actions[i]);
}

} // namespace

CSettingsButton::CSettingsButton(ESettingType type, QWidget* parent, bool withCommands)
    : CSettingsButton(std::make_unique<CSettingsMenu>(type, withCommands), parent)
{
}

CSettingsButton::CSettingsButton(std::unique_ptr<CSettingsMenu> menu, QWidget* parent)
    : QToolButton(parent)
    , m_menu(std::move(menu))
    , m_popup(new QMenu(this))
    , m_fillTimer(new QTimer(this))
{
    setPopupMode(InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setFocusPolicy(Qt::StrongFocus);
    setMenu(m_popup);
    if (m_menu->GetType() == ESettingType::ColorScale)
        setIconSize({2 * iconSize().width(), iconSize().height()});
    m_popup->setToolTipsVisible(true);
    connect(m_popup, &QMenu::aboutToShow, this, [this] { Guarded([this] { Open(); }); });
    m_fillTimer->setSingleShot(true);
    connect(m_fillTimer, &QTimer::timeout, this, [this] { Guarded([this] { FillCustom(); }); });
    m_menu->GetScan().GetEvents().Subscribe(*this, &CSettingsButton::OnScan, m_scanConnection);
    m_menu->GetCurrentChanged().Subscribe(*this, &CSettingsButton::OnCurrentChanged, m_currentConnection);
    OnCurrentChanged();
}

CSettingsButton::~CSettingsButton() = default;

QSize CSettingsButton::sizeHint() const
{
    const QSize hint = QToolButton::sizeHint();
    const int letter = fontMetrics().averageCharWidth();
    return {std::min(hint.width() + 2 * letter, c_mostLetters * letter), hint.height()};
}

QSize CSettingsButton::minimumSizeHint() const
{
    return {std::min(sizeHint().width(), 8 * fontMetrics().averageCharWidth()), sizeHint().height()};
}

void CSettingsButton::keyPressEvent(QKeyEvent* event)
{
    const bool opens = event->key() == Qt::Key_Down || event->key() == Qt::Key_Space;
    if (opens)
        ShowPopup();
    else
        QToolButton::keyPressEvent(event);
}

// Without a loop of its own, unlike a click.
void CSettingsButton::ShowPopup()
{
    m_popup->popup(mapToGlobal(QPoint(0, height())));
    if (isRightToLeft())
        m_popup->move(mapToGlobal(QPoint(width() - m_popup->width(), height())));
}

// Text and icon stand where they do in a list.
void CSettingsButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const QIcon icon = std::exchange(option.icon, QIcon());
    const QString text =
        std::exchange(option.text, QString()).replace(QStringLiteral("&&"), QStringLiteral("&"));
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    const int margin = fontMetrics().averageCharWidth();
    const int indicator = style()->pixelMetric(QStyle::PM_MenuButtonIndicator, &option, this);
    QRect place = rect().adjusted(margin, 0, -margin - indicator, 0);
    if (!icon.isNull()) {
        const QRect picture(place.left(), place.center().y() - option.iconSize.height() / 2 + 1,
                            option.iconSize.width(), option.iconSize.height());
        icon.paint(&painter, QStyle::visualRect(layoutDirection(), rect(), picture));
        place.setLeft(picture.right() + margin);
    }
    painter.drawItemText(
        QStyle::visualRect(layoutDirection(), rect(), place),
        static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)),
        palette(), isEnabled(), fontMetrics().elidedText(text, Qt::ElideRight, place.width()),
        QPalette::ButtonText);
}

void CSettingsButton::OnCurrentChanged()
{
    setText(WithoutMnemonic(m_menu->GetText()));
    setToolTip(ToQString(m_menu->GetCurrent().m_IsFile ? m_menu->GetCurrent().m_File : m_menu->GetText()));
    const auto* const colors = m_menu->FindColors(m_menu->GetCurrent());
    setIcon(colors ? MakeColorScaleIcon(*colors) : QIcon());
}

// The menu is filled with what is known. What is looked for comes in while it is open.
void CSettingsButton::Open()
{
    m_custom = nullptr;
    Truncate(*m_popup, 0);
    m_menu->GetScan().Start();
    Fill(*m_popup, m_menu->MakeItems());
}

// Leaves actions alone that the menu has already: the user may be in one of their menus.
void CSettingsButton::Fill(QMenu& menu, const std::vector<SSettingsMenuItem>& items)
{
    const QList<QAction*> actions = menu.actions();
    qsizetype count = 0;
    for (const SSettingsMenuItem& item : items) {
        if (count == actions.size() || actions[count]->data().toString() != GetKey(item))
            break;
        ShowIcon(*actions[count], item);
        if (item.kind == EKind::Group)
            Fill(*actions[count]->menu(), item.items);
        ++count;
    }
    Truncate(menu, count);
    for (auto item = items.begin() + count; item != items.end(); ++item)
        Append(menu, *item);
}

void CSettingsButton::Append(QMenu& menu, const SSettingsMenuItem& item)
{
    QAction* action = nullptr;
    switch (item.kind) {
    case EKind::Set:
        return AppendSet(menu, item);
    case EKind::Group: {
        QMenu* const below = menu.addMenu(WithoutMnemonic(item.text));
        below->setToolTipsVisible(true);
        Fill(*below, item.items);
        action = below->menuAction();
        // The first one: folders are below it.
        if (&menu == m_popup && !m_custom && item.isCustom)
            m_custom = below;
        break;
    }
    case EKind::Heading:
        action = menu.addSection(WithoutMnemonic(item.text));
        break;
    case EKind::Note:
        action = menu.addAction(WithoutMnemonic(item.text));
        action->setEnabled(false);
        break;
    case EKind::Separator:
        action = menu.addSeparator();
        break;
    case EKind::Command:
        action = menu.addAction(ToQString(item.text));
        connect(
            action, &QAction::triggered, this, [this, command = item.command] { Run(command); },
            Qt::QueuedConnection);
        break;
    }
    action->setData(GetKey(item));
}

void CSettingsButton::AppendSet(QMenu& menu, const SSettingsMenuItem& item)
{
    QAction* const action = menu.addAction(WithoutMnemonic(item.text));
    action->setData(GetKey(item));
    action->setCheckable(item.isCurrent);
    action->setChecked(item.isCurrent);
    if (item.entry.m_IsFile)
        action->setToolTip(ToQString(item.entry.m_File));
    ShowIcon(*action, item);
    // When the menu has closed: what is chosen may ask the user, and may destroy the button.
    connect(
        action, &QAction::triggered, this,
        [this, entry = item.entry] { Guarded([&] { m_menu->Choose(entry); }); }, Qt::QueuedConnection);
}

void CSettingsButton::ShowIcon(QAction& action, const SSettingsMenuItem& item) const
{
    const auto* const colors = item.kind == EKind::Set ? m_menu->FindColors(item.entry) : nullptr;
    if (colors)
        action.setIcon(MakeColorScaleIcon(*colors));
}

void CSettingsButton::OnScan(CCustomSettingsScan::EEvent event)
{
    using enum CCustomSettingsScan::EEvent;
    if (event == ColorsFound)
        OnCurrentChanged();
    // Thousands of folders may come in within moments.
    if (event == Ended)
        FillCustom();
    else if (!m_fillTimer->isActive())
        m_fillTimer->start(c_fillInterval);
}

void CSettingsButton::FillCustom()
{
    m_fillTimer->stop();
    if (m_custom && m_popup->isVisible())
        Fill(*m_custom, m_menu->MakeCustomItems());
}

void CSettingsButton::Run(ECommand command)
{
    Guarded([&] {
        switch (command) {
        case ECommand::AllSets:
            Execute(new CSettingsChooserWindow(*m_menu, this));
            break;
        case ECommand::Load:
            m_menu->Load();
            break;
        case ECommand::SaveAs:
            m_menu->SaveAs();
            break;
        case ECommand::Import:
            Import();
            break;
        case ECommand::Compare:
            CompareSets();
            break;
        case ECommand::Manage:
            Execute(new CSettingsManageWindow(*m_menu, this));
            break;
        }
    });
}

void CSettingsButton::Import()
{
    CSettingsImport import(m_menu->GetType());
    const QPointer<CSettingsButton> button = this;
    if (!import.PrepareByPrompt() || !button)
        return;
    const QPointer<CSettingsImportWindow> window = new CSettingsImportWindow(import, m_menu->GetType(), this);
    const bool isDone = window->exec() == QDialog::Accepted;
    const bool isUsed = window && window->IsUsedAtOnce();
    delete window;
    if (!isDone || !button)
        return;
    m_menu->GetScan().Start();
    if (isUsed)
        m_menu->Choose({import.GetTarget(), m_menu->GetType()});
}

void CSettingsButton::CompareSets()
{
    auto* const window = new CSettingsDifferenceWindow(m_menu->GetType(), this);
    if (!m_menu->GetCurrent().m_Name.IsEmpty())
        window->SetLeft(m_menu->GetCurrent());
    Execute(window);
}

} // namespace CommonUI
