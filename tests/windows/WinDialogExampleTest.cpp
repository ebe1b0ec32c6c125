// Built where the examples are.
#ifdef COMMONUI_WINDOWS_DIALOG

#include "tests/windows/ControlTesting.h"

#include <filesystem>

using namespace CommonUI;

namespace
{

// The program of the manual, in a process of its own, which gives no sign that its dialog is shown.
class CProgram
{
public:
    CProgram()
    {
        STARTUPINFOW start{};
        start.cb = sizeof start;
        std::wstring file = std::filesystem::path(COMMONUI_WINDOWS_DIALOG).wstring();
        EXPECT_TRUE(CreateProcessW(file.c_str(), file.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &start, &m_process));
        WaitForInputIdle(m_process.hProcess, c_patience);
    }
    ~CProgram()
    {
        TerminateProcess(m_process.hProcess, 2);
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    CProgram(const CProgram&) = delete;
    CProgram& operator=(const CProgram&) = delete;

    HWND FindDialog() const
    {
        HWND found = nullptr;
        EnumThreadWindows(
            m_process.dwThreadId,
            [](HWND window, LPARAM result) CALLBACK -> BOOL {
                if (TextOf(window) != u"Cut-off" || !IsWindowVisible(window))
                    return TRUE;
                *reinterpret_cast<HWND*>(result) = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }
    DWORD WaitForEnd() const
    {
        DWORD code = STILL_ACTIVE;
        EXPECT_EQ(WaitForSingleObject(m_process.hProcess, c_patience), WAIT_OBJECT_0);
        GetExitCodeProcess(m_process.hProcess, &code);
        return code;
    }

private:
    static constexpr DWORD c_patience = 60'000;

    PROCESS_INFORMATION m_process{};
};

} // namespace

TEST(WinDialogExample, TakesANumberAndCloses)
{
    const CProgram program;
    HWND dialog = nullptr;
    for (int i = 0; i < 6000 && !dialog; ++i, Sleep(10))
        dialog = program.FindDialog();
    ASSERT_TRUE(dialog);
    const HWND field = GetDlgItem(dialog, 101);
    ASSERT_TRUE(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
    for (const wchar_t character : {L'2', L',', L'5'})
        SendMessageW(field, WM_CHAR, static_cast<WPARAM>(character), 1);
    SendMessageW(field, WM_KEYDOWN, VK_RETURN, 1);
    wchar_t text[20] = {};
    SendMessageW(field, WM_GETTEXT, 20, reinterpret_cast<LPARAM>(text)); // of another process
    EXPECT_EQ(FromWide(text), u"2.50 mm");
    const HWND table = GetDlgItem(dialog, 102);
    EXPECT_TRUE(GetWindowLongW(table, GWL_STYLE) & WS_TABSTOP) << "the table in place of the text";
    SendMessageW(dialog, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(program.WaitForEnd(), 0U);
}

#endif
