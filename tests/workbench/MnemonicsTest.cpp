#include "tests/workbench/WorkbenchTesting.h"

#include "common/Language.h"

#include <set>

namespace Workbench
{

namespace
{

// The texts with a mnemonic that keys reach in a window.
std::vector<std::string> FindTexts(QMainWindow& window)
{
    std::vector<std::string> texts;
    const auto add = [&](const QString& text) {
        if (!QKeySequence::mnemonic(text).isEmpty())
            texts.push_back(text.toStdString());
    };
    for (const QAction* const menu : window.menuBar()->actions())
        add(menu->text());
    for (const QLabel* const label : window.findChildren<QLabel*>())
        if (label->isVisible() && label->buddy())
            add(label->text());
    for (const QAbstractButton* const button : window.findChildren<QAbstractButton*>())
        if (button->isVisible() && !button->shortcut().isEmpty())
            add(button->text());
    return texts;
}

// The keys of a text in another language. What several things are called has one there for each; those of the
// workbench come before those of dialogs.
std::set<QKeySequence> FindKeys(const std::string& text, const SLanguage& language)
{
    std::set<QKeySequence> own;
    std::set<QKeySequence> others;
    for (const SStringTableRow& english : GetLanguages().front().getTexts())
        for (const SStringTableRow& row : language.getTexts())
            if (row.id == english.id && CStr(english.text).ToUtf8() == text)
                (row.id > 11700 ? own : others).insert(QKeySequence::mnemonic(ToQString(CStr(row.text))));
    return own.empty() ? others : own;
}

} // namespace

class Mnemonics : public CWorkbenchTest
{
protected:
    // One key, one meaning, in each language.
    void ExpectNoClash(const std::string& state)
    {
        QCoreApplication::processEvents();
        for (const SLanguage& language : GetLanguages()) {
            std::map<QKeySequence, std::string> taken;
            for (const std::string& english : FindTexts(*m_window))
                for (const QKeySequence& key : FindKeys(english, language)) {
                    const auto [place, isFree] = taken.emplace(key, english);
                    EXPECT_TRUE(isFree) << state << ", " << language.tag << ": " << english << " and "
                                        << place->second << " have " << key.toString().toStdString();
                }
        }
    }
};

TEST_F(Mnemonics, AreOneThingEachInAllOfTheWindow)
{
    OpenSample();
    WaitForResults();
    QComboBox& analyses = m_window->GetResults().GetForm().GetAnalyses();
    for (int i = 0; i < analyses.count(); ++i) {
        analyses.setCurrentIndex(i);
        WaitForResults();
        ExpectNoClash(analyses.itemText(i).toStdString());
    }
    for (CDockPane* const pane : m_window->findChildren<CDockPane*>()) {
        pane->show();
        pane->raise();
        ExpectNoClash(pane->windowTitle().toStdString());
    }
}

} // namespace Workbench
