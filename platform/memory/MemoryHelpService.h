#pragma once

#include "../HelpService.h"

#include <vector>

namespace CommonUI
{

/// A help system without a display: keeps what was opened.
class COMMONUI_API CMemoryHelpService : public CHelpService
{
public:
    bool Open(unsigned int topic) override;
    /// The topics that were opened, the oldest first.
    const std::vector<unsigned int>& GetOpened() const noexcept { return m_opened; }

private:
    std::vector<unsigned int> m_opened;
};

} // namespace CommonUI
