#pragma once

#include "platform/FileDialogService.h"
#include "platform/MessageBoxService.h"

#include <QString>
#include <QWidget>

#include <filesystem>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace Workbench
{

/// What is chosen at random for one event: it goes by the seed and the number of the event alone, so that a
/// run goes on as before where events in front of it are left out.
class CChance
{
public:
    CChance(unsigned seed, int event)
    {
        std::seed_seq sequence{seed, static_cast<unsigned>(event)};
        m_random.seed(sequence);
    }

    /// @return 0 to count - 1, or 0
    int Below(int count)
    {
        return count < 2 ? 0 : static_cast<int>(m_random() % static_cast<unsigned>(count));
    }
    bool OneIn(int count) { return Below(count) == 0; }
    template<class TList>
    auto& Pick(TList& list)
    {
        return *std::next(std::begin(list), Below(static_cast<int>(std::size(list))));
    }
    QPoint Within(const QRect& area)
    {
        return area.topLeft() + QPoint(Below(area.width()), Below(area.height()));
    }

private:
    std::mt19937 m_random;
};

/// Files to open: good surfaces, odd ones, and damaged ones.
class CMonkeyFiles
{
public:
    explicit CMonkeyFiles(const std::filesystem::path& folder);
    const std::string& Choose(CChance& chance) const { return chance.Pick(m_paths); }
    /// Gives one of the files the content of another one, or takes it away.
    void Change(CChance& chance) const;

private:
    std::vector<std::string> m_paths;
    std::vector<std::string> m_contents;
};

/// Sends real events at random to the window that takes them: a menu, a dialog, or the main window and its
/// docks. What it sends comes to pass when the event loop goes on, or at once.
class CMonkeyHands
{
public:
    /// The window that takes events; null while there is none.
    static QWidget* GetRoot(QWidget& window, CChance& chance);

    /// Presses a button of the mouse somewhere, may drag, and releases it. @return what was done
    QString UseMouse(QWidget& root, CChance& chance);
    QString TurnWheel(QWidget& root, CChance& chance) const;
    /// Presses keys of editing, of movement, or of a shortcut that an action of the window has.
    QString PressKeys(QWidget& root, const QWidget& window, CChance& chance) const;
    /// Chooses an entry of the menu bar.
    QString OpenMenu(QWidget& window, CChance& chance);
    void Press(QWidget& root, int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) const;

private:
    void Click(QWidget& on, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void Send(QWidget& on, QPoint at, QEvent::Type type, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers);

    int m_time = 1000; // ms, by which the system tells double clicks
    Qt::MouseButtons m_buttons = Qt::NoButton;
};

/// Answers boxes and file dialogs at random.
class CMonkeyAnswers : public CommonUI::CMessageBoxService, public CommonUI::CFileDialogService
{
public:
    CMonkeyAnswers(const CMonkeyFiles& files, std::filesystem::path folder)
        : m_files(files)
        , m_folder(std::move(folder))
    {
    }

    void SetChance(const CChance& chance) { m_chance = chance; }
    CommonUI::EMessageBoxAnswer Show(const CommonUI::SMessageBox& box) override;
    CommonUI::EMessageBoxAnswer ShowWithCheck(const CommonUI::SMessageBox& box,
                                              const CommonUI::CStr& checkText, bool& isChecked) override;

protected:
    bool Show(const CommonUI::SFileDialog& dialog, CommonUI::CStr& path) override;

private:
    const CMonkeyFiles& m_files;
    std::filesystem::path m_folder;
    CChance m_chance{0, 0};
};

} // namespace Workbench
