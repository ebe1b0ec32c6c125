#pragma once

#include "../FileDialogService.h"

#include <vector>

namespace CommonUI
{

/// A service without a display: keeps what was asked and gives the answers prepared for it, in their order;
/// without one it cancels.
class COMMONUI_API CMemoryFileDialogService : public CFileDialogService
{
public:
    /// The choice of the first dialog to come that has none prepared; an empty path cancels.
    void Prepare(const CStr& path) { m_answers.push_back(path); }
    /// What was shown, the oldest first.
    const std::vector<SFileDialog>& GetShown() const noexcept { return m_shown; }

protected:
    bool Show(const SFileDialog& dialog, CStr& path) override;

private:
    std::vector<CStr> m_answers;
    std::vector<SFileDialog> m_shown;
};

} // namespace CommonUI
