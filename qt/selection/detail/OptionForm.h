#pragma once

#include "dialogs/selection/DialogOption.h"
#include "qt/selection/detail/Mnemonics.h"

#include <QWidget>

#include <functional>
#include <vector>

class QAction;
class QFormLayout;
class QLabel;

namespace CommonUI
{

/// A form with a line for each of some options. What the user does is told to the functions.
class COptionForm final : public QWidget
{
public:
    using FChoice = std::function<void(int id, int value)>;
    using FText = std::function<void(int id, const CStr& text)>;

    COptionForm(FChoice choice, FText text);

    /// Shows options: new fields for others than before, otherwise what the fields hold.
    /// @param mnemonics of the rest of the window
    void Show(const std::vector<SDialogOption>& options, const CMnemonics& mnemonics);
    /// From the top down.
    std::vector<QWidget*> GetFields() const;
    /// Gives the field of an option the focus.
    void FocusOption(int id);

private:
    struct SLine {
        SDialogOption option;
        QWidget* field = nullptr;
        QLabel* label = nullptr; // none of a check box, which has its own text
        QAction* warning = nullptr;
        bool isLabelled = false;
    };

    bool IsSameForm(const std::vector<SDialogOption>& options) const;
    void Make(const std::vector<SDialogOption>& options);
    void Label(CMnemonics mnemonics);
    QWidget* MakeField(SLine& line);
    void Update(SLine& line) const;
    static void ShowFault(SLine& line);

    FChoice m_choice;
    FText m_text;
    QFormLayout* m_layout;
    std::vector<SLine> m_lines;
};

} // namespace CommonUI
