#pragma once

#include "../MessageBoxService.h"

#include <vector>

namespace CommonUI
{

/// A service without a display: keeps what was shown and gives the answers prepared for it, in their order,
/// then the cautious ones. The text goes to the diagnostics, at level Warning.
class COMMONUI_API CMemoryMessageBoxService : public CMessageBoxService
{
public:
    EMessageBoxAnswer Show(const SMessageBox& box) override;
    EMessageBoxAnswer ShowWithCheck(const SMessageBox& box, const CStr& checkText, bool& isChecked) override;
    void Beep(unsigned int icon) override { m_beeps.push_back(icon); }

    /// The answer of the first box to come that has none prepared.
    void Prepare(EMessageBoxAnswer answer) { m_answers.push_back(answer); }
    /// Has the user check the check box of every box that has one from now on, or of none.
    void SetChecking(bool checking) noexcept { m_isChecking = checking; }
    /// The text of the check box of the box shown last; empty where it had none.
    const CStr& GetCheckText() const noexcept { return m_checkText; }
    /// What was shown, the oldest first.
    const std::vector<SMessageBox>& GetShown() const noexcept { return m_shown; }
    /// The icons of the sounds that were made, the oldest first.
    const std::vector<unsigned int>& GetBeeps() const noexcept { return m_beeps; }

private:
    std::vector<EMessageBoxAnswer> m_answers;
    std::vector<SMessageBox> m_shown;
    std::vector<unsigned int> m_beeps;
    CStr m_checkText;
    bool m_isChecking = false;
};

} // namespace CommonUI
