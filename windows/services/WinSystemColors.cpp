#include "windows/services/WinSystemColors.h"

#include "windows/detail/CallGuard.h"
#include "windows/detail/MessageWindow.h"
#include "windows/detail/Theme.h"

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

SColor ToColor(DWORD color)
{
    return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

SSystemColors ReadColors()
{
    SSystemColors colors;
    if (const auto accent = ReadUserNumber(L"Software\\Microsoft\\Windows\\DWM", L"AccentColor"))
        colors.accent = ToColor(*accent);
    if (IsHighContrast()) {
        colors.scheme = EColorScheme::HighContrast;
        colors.highContrast = {ToColor(GetSysColor(COLOR_WINDOW)), ToColor(GetSysColor(COLOR_WINDOWTEXT)),
                               ToColor(GetSysColor(COLOR_HIGHLIGHT)),
                               ToColor(GetSysColor(COLOR_HIGHLIGHTTEXT)),
                               ToColor(GetSysColor(COLOR_HOTLIGHT))};
    } else if (WantsDarkPrograms()) {
        colors.scheme = EColorScheme::Dark;
    }
    return colors;
}

} // namespace

// Hears what the system tells all windows. It tells one change in several messages: the colours are read
// behind them.
class CWinSystemColors::CListener final : public CMessageWindow
{
public:
    explicit CListener(CWinSystemColors& owner)
        : CMessageWindow(EKind::TopLevel)
        , m_owner(owner)
    {
    }

protected:
    LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer) override
    {
        constexpr UINT c_read = WM_APP;
        constexpr UINT c_changes[] = {WM_SETTINGCHANGE, WM_SYSCOLORCHANGE, WM_THEMECHANGED,
                                      WM_DWMCOLORIZATIONCOLORCHANGED};
        if (std::find(std::begin(c_changes), std::end(c_changes), message) != std::end(c_changes) &&
            !m_isWaiting)
            m_isWaiting = PostMessageW(GetHandle(), c_read, 0, 0) != 0;
        if (message != c_read)
            return CMessageWindow::OnMessage(message, wide, longer);
        m_isWaiting = false;
        GuardedCall([this] { m_owner.Read(); });
        return 0;
    }

private:
    CWinSystemColors& m_owner;
    bool m_isWaiting = false;
};

CWinSystemColors::CWinSystemColors()
    : m_colors(ReadColors())
    , m_system(std::make_unique<CListener>(*this))
{
}

CWinSystemColors::~CWinSystemColors() = default;

void CWinSystemColors::Read()
{
    const SSystemColors before = std::exchange(m_colors, ReadColors());
    if (m_colors != before)
        TellChanged();
}

} // namespace CommonUI
