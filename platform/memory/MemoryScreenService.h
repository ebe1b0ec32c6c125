#pragma once

#include "../ScreenService.h"

#include <utility>

namespace CommonUI
{

/// Monitors that the application names: for programs without a display, and for tests.
class COMMONUI_API CMemoryScreenService : public CScreenService
{
public:
    /// From the start there are none.
    void SetScreens(std::vector<SScreen> screens) { m_screens = std::move(screens); }
    std::vector<SScreen> GetScreens() const override { return m_screens; }

private:
    std::vector<SScreen> m_screens;
};

} // namespace CommonUI
