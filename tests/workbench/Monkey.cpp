#include "tests/workbench/Monkey.h"

#include "tests/workbench/WorkbenchTesting.h"

#include <climits>
#include <fstream>

namespace Workbench
{

namespace
{

std::string MakeSurface(int points, int lines, int (*height)(int x, int y))
{
    std::string text = "aISO-1.0\nNumPoints = " + std::to_string(points) +
                       "\nNumProfiles = " + std::to_string(lines) +
                       "\nXscale = 1e-6\nYscale = 2e-6\nZscale = 1e-9\n*\n";
    for (int y = 0; y < lines; ++y) {
        for (int x = 0; x < points; ++x) {
            const int z = height(x, y);
            text += (z == INT_MAX ? "BAD" : std::to_string(z)) + " ";
        }
        text += "\n";
    }
    return text + "*\n";
}

int Wave(int x, int y)
{
    return x * x % 31 * 20 + y * 7 % 13 * 50;
}

int WaveWithHoles(int x, int y)
{
    return x * y % 11 == 3 ? INT_MAX : Wave(x, y);
}

int Flat(int, int)
{
    return 5;
}

int Missing(int, int)
{
    return INT_MAX;
}

constexpr int c_keys[] = {Qt::Key_Tab,       Qt::Key_Backtab,  Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape,
                          Qt::Key_Up,        Qt::Key_Down,     Qt::Key_Left,   Qt::Key_Right, Qt::Key_Home,
                          Qt::Key_End,       Qt::Key_PageUp,   Qt::Key_Plus,   Qt::Key_Minus, Qt::Key_Delete,
                          Qt::Key_Backspace, Qt::Key_PageDown, Qt::Key_F2,     Qt::Key_F4,    Qt::Key_F6,
                          Qt::Key_F10,       Qt::Key_Menu,     Qt::Key_Insert, Qt::Key_Enter};
constexpr const char* c_texts[] = {"0", "12", "1e9", "-3,5", "0.001 mm", "x", "ü µ", "nan", "999999999999"};

Qt::KeyboardModifiers ChooseModifiers(CChance& chance, int oneIn)
{
    constexpr Qt::KeyboardModifier c_all[] = {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    Qt::KeyboardModifiers modifiers;
    for (const Qt::KeyboardModifier modifier : c_all)
        modifiers.setFlag(modifier, chance.OneIn(oneIn));
    return modifiers;
}

QWidget* ChooseWidget(QWidget& root, CChance& chance)
{
    QWidgetList widgets{&root};
    for (QWidget* const widget : root.findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == root.window() && !widget->visibleRegion().isEmpty())
            widgets += widget;
    return chance.Pick(widgets);
}

QString NameOf(const QWidget& widget)
{
    return QString::fromLatin1(widget.metaObject()->className()) + u' ' + widget.accessibleName();
}

} // namespace

CMonkeyFiles::CMonkeyFiles(const std::filesystem::path& folder)
{
    const std::string wave = MakeSurface(40, 30, Wave);
    const std::pair<const char*, std::string> files[] = {
        {"wave.sdf", wave},
        {"holes & more.sdf", MakeSurface(60, 45, WaveWithHoles)},
        {"flat.sdf", MakeSurface(8, 8, Flat)},
        {"missing.sdf", MakeSurface(5, 4, Missing)},
        {"line.sdf", MakeSurface(90, 1, Wave)},
        {"column.sdf", MakeSurface(1, 50, Wave)},
        {"point.sdf", MakeSurface(1, 1, Wave)},
        {"profile.txt", "x [mm] z [um]\n0 1\n0.1 2\n0.2 1\n0.3 4\n0.4 1\n"},
        {"cut.sdf", wave.substr(0, wave.size() / 2)},
        {"text.txt", "Dear all,\n"},
        {"empty.sdf", ""},
        {"zero.x3p", std::string(100, '\0')},
        {"huge.sdf", "aISO-1.0\nNumPoints = 2000000000\nNumProfiles = 2000000000\n*\n1\n*\n"},
    };
    for (const auto& [name, content] : files) {
        m_paths.push_back((folder / name).string());
        m_contents.push_back(content);
        std::ofstream(m_paths.back(), std::ios::binary) << content;
    }
}

void CMonkeyFiles::Change(CChance& chance) const
{
    const std::string& path = Choose(chance);
    if (chance.OneIn(4))
        std::filesystem::remove(path);
    else
        std::ofstream(path, std::ios::binary) << chance.Pick(m_contents);
}

QWidget* CMonkeyHands::GetRoot(QWidget& window, CChance& chance)
{
    if (QWidget* const popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* const dialog = QApplication::activeModalWidget())
        return dialog;
    QWidgetList roots{&window, &window};
    for (QWidget* const widget : window.findChildren<QWidget*>())
        if (widget->isWindow() && widget->isVisible() && !widget->windowFlags().testFlag(Qt::ToolTip))
            roots += widget;
    return chance.Pick(roots);
}

void CMonkeyHands::Send(QWidget& on, QPoint at, QEvent::Type type, Qt::MouseButton button,
                        Qt::KeyboardModifiers modifiers)
{
    QWidget& window = *on.window();
    if (type == QEvent::MouseButtonPress)
        m_buttons |= button;
    if (type == QEvent::MouseButtonRelease)
        m_buttons &= ~button;
    if (QWindow* const handle = window.windowHandle())
        qt_handleMouseEvent(handle, on.mapTo(&window, at), on.mapToGlobal(at), m_buttons, button, type,
                            modifiers, m_time++);
}

void CMonkeyHands::Click(QWidget& on, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    Send(on, at, QEvent::MouseMove, Qt::NoButton, modifiers);
    Send(on, at, QEvent::MouseButtonPress, button, modifiers);
    Send(on, at, QEvent::MouseButtonRelease, button, modifiers);
}

QString CMonkeyHands::UseMouse(QWidget& root, CChance& chance)
{
    constexpr Qt::MouseButton c_buttons[] = {Qt::LeftButton, Qt::LeftButton,  Qt::LeftButton,
                                             Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    m_time += 1000;
    QWidget& on = *ChooseWidget(root, chance);
    const Qt::KeyboardModifiers modifiers = ChooseModifiers(chance, 8);
    const Qt::MouseButton button = chance.Pick(c_buttons);
    const QPoint at = chance.Within(on.rect());
    const QString what = NameOf(on) + QStringLiteral(" at %1, %2").arg(at.x()).arg(at.y());
    const auto words = [&](const char* verb) {
        return QStringLiteral("%1 %2 button %3 keys %4")
            .arg(QLatin1String(verb), what)
            .arg(button)
            .arg(modifiers.toInt(), 0, 16);
    };
    if (chance.OneIn(3)) {
        Send(on, at, QEvent::MouseMove, Qt::NoButton, modifiers);
        Send(on, at, QEvent::MouseButtonPress, button, modifiers);
        const QRect area = chance.OneIn(2) ? on.rect() : on.window()->rect();
        for (int moves = 1 + chance.Below(5); moves > 0; --moves)
            Send(on, chance.Within(area), QEvent::MouseMove, Qt::NoButton, modifiers);
        Send(on, chance.Within(area), QEvent::MouseButtonRelease, button, modifiers);
        return words("drag");
    }
    if (chance.OneIn(6)) {
        Send(on, at, QEvent::MouseMove, Qt::NoButton, modifiers);
        return words("hover");
    }
    Click(on, at, button, modifiers);
    if (!chance.OneIn(6))
        return words("click");
    Click(on, at, button, modifiers);
    return words("double click");
}

QString CMonkeyHands::TurnWheel(QWidget& root, CChance& chance) const
{
    QWidget& on = *ChooseWidget(root, chance);
    const QPoint at = chance.Within(on.rect());
    const int delta = (chance.OneIn(2) ? 120 : -120) * (1 + chance.Below(4));
    if (QWindow* const handle = on.window()->windowHandle())
        QCoreApplication::postEvent(
            handle, new QWheelEvent(on.mapTo(on.window(), at), on.mapToGlobal(at), {}, {0, delta},
                                    Qt::NoButton, ChooseModifiers(chance, 6), Qt::NoScrollPhase, false));
    return QStringLiteral("wheel %1 on ").arg(delta) + NameOf(on);
}

void CMonkeyHands::Press(QWidget& root, int key, Qt::KeyboardModifiers modifiers, const QString& text) const
{
    QWindow* const handle = root.window()->windowHandle();
    if (!handle || qt_sendShortcutOverrideEvent(handle, static_cast<ulong>(m_time), key, modifiers, text))
        return;
    // The shortcut may have closed the window.
    const QPointer<QWindow> still = handle;
    if (still)
        qt_handleKeyEvent(still, QEvent::KeyPress, key, modifiers, text);
    if (still)
        qt_handleKeyEvent(still, QEvent::KeyRelease, key, modifiers, text);
}

QString CMonkeyHands::PressKeys(QWidget& root, const QWidget& window, CChance& chance) const
{
    if (chance.OneIn(4)) {
        const QString text = QString::fromUtf8(chance.Pick(c_texts));
        for (const QChar character : text)
            Press(root, character.toUpper().unicode(), {}, character);
        return QStringLiteral("type ") + text;
    }
    if (chance.OneIn(3)) {
        QList<QKeySequence> shortcuts;
        for (const QAction* const action : window.findChildren<QAction*>())
            if (!action->shortcut().isEmpty())
                shortcuts += action->shortcut();
        const QKeySequence keys = shortcuts.isEmpty() ? QKeySequence(Qt::Key_F1) : chance.Pick(shortcuts);
        Press(root, keys[0].key(), keys[0].keyboardModifiers());
        return QStringLiteral("shortcut ") + keys.toString();
    }
    const int key = chance.Pick(c_keys);
    const Qt::KeyboardModifiers modifiers = ChooseModifiers(chance, 5);
    const bool isText = key == Qt::Key_Space || key == Qt::Key_Plus || key == Qt::Key_Minus;
    for (int times = chance.OneIn(4) ? 4 : 1; times > 0; --times)
        Press(root, key, modifiers, isText ? QString(QChar(key)) : QString());
    return QStringLiteral("key ") +
           QKeySequence(QKeyCombination(modifiers, static_cast<Qt::Key>(key))).toString();
}

QString CMonkeyHands::OpenMenu(QWidget& window, CChance& chance)
{
    QMenuBar& bar = *qobject_cast<QMainWindow*>(&window)->menuBar();
    const QList<QAction*> menus = bar.actions();
    QAction* const menu = chance.Pick(menus);
    m_time += 1000;
    Click(bar, bar.actionGeometry(menu).center(), Qt::LeftButton, {});
    return QStringLiteral("menu ") + menu->text();
}

EMessageBoxAnswer CMonkeyAnswers::Show(const SMessageBox& box)
{
    switch (box.style & MessageBoxStyle::c_buttonMask) {
    case MessageBoxStyle::c_okCancel:
        return m_chance.OneIn(2) ? EMessageBoxAnswer::Ok : EMessageBoxAnswer::Cancel;
    case MessageBoxStyle::c_yesNo:
        return m_chance.OneIn(2) ? EMessageBoxAnswer::Yes : EMessageBoxAnswer::No;
    default:
        return EMessageBoxAnswer::Ok;
    }
}

EMessageBoxAnswer CMonkeyAnswers::ShowWithCheck(const SMessageBox& box, const CStr&, bool& isChecked)
{
    isChecked = m_chance.OneIn(3);
    return Show(box);
}

// A file to save may be one that is open, may lie in a folder that there is not, and may have another ending.
bool CMonkeyAnswers::Show(const SFileDialog& dialog, CStr& path)
{
    constexpr const char* c_names[] = {"saved", "other", "none/saved"};
    constexpr const char* c_endings[] = {".sdf", ".x3p", ".txt", ".svg", ".png", ".odt", ".pdf", ""};
    if (m_chance.OneIn(5))
        return false;
    if (dialog.isFolder) {
        path = CStr::FromUtf8(m_folder.string());
        return true;
    }
    if (dialog.forOpen || m_chance.OneIn(6)) {
        path = CStr::FromUtf8(m_files.Choose(m_chance));
        return true;
    }
    const bool isProposed = !dialog.extension.IsEmpty() && m_chance.OneIn(2);
    const std::string ending = isProposed ? "." + dialog.extension.ToUtf8() : m_chance.Pick(c_endings);
    path = CStr::FromUtf8((m_folder / (m_chance.Pick(c_names) + ending)).string());
    return true;
}

} // namespace Workbench
