#include "windows/services/WinClipboard.h"

#include "windows/detail/MessageWindow.h"
#include "windows/detail/WinText.h"

#include <cstring>
#include <utility>

namespace CommonUI
{

namespace
{

// Memory that the clipboard can take over: filled, or not there.
class CSharedMemory
{
public:
    CSharedMemory(const void* data, std::size_t size)
        : m_memory(GlobalAlloc(GMEM_MOVEABLE, size))
    {
        if (void* const bytes = m_memory ? GlobalLock(m_memory) : nullptr) {
            std::memcpy(bytes, data, size);
            GlobalUnlock(m_memory);
        } else {
            Free();
        }
    }
    ~CSharedMemory() { Free(); }
    CSharedMemory(const CSharedMemory&) = delete;
    CSharedMemory& operator=(const CSharedMemory&) = delete;

    bool IsThere() const noexcept { return m_memory != nullptr; }
    bool Give(UINT format)
    {
        if (!SetClipboardData(format, m_memory))
            return false;
        m_memory = nullptr; // the system's now
        return true;
    }

private:
    void Free()
    {
        if (m_memory)
            GlobalFree(std::exchange(m_memory, nullptr));
    }

    HGLOBAL m_memory;
};

// Others have it open for moments, to look what came.
bool OpenPatiently(HWND owner)
{
    constexpr int c_tries = 16;
    constexpr DWORD c_pause = 20;
    for (int i = 0; i < c_tries; ++i) {
        if (OpenClipboard(owner))
            return true;
        Sleep(c_pause);
    }
    return false;
}

std::wstring ToLines(const CStr& text)
{
    return ToWide(text.Replace(u"\r\n", u"\n").Replace(u"\n", u"\r\n"));
}

} // namespace

CWinClipboard::CWinClipboard()
    : m_owner(std::make_unique<CMessageWindow>())
{
}

CWinClipboard::~CWinClipboard() = default;

bool CWinClipboard::Put(const CStr& html, const CStr& text)
{
    static const UINT htmlFormat = RegisterClipboardFormatW(L"HTML Format");
    const std::string bytes = MakeClipboardHtml(html);
    const std::wstring lines = ToLines(text);
    // All memory first: what is there goes only for what is ready to come.
    CSharedMemory htmlMemory(bytes.c_str(), bytes.size() + 1);
    CSharedMemory textMemory(lines.c_str(), (lines.size() + 1) * sizeof(wchar_t));
    if (!htmlMemory.IsThere() || !textMemory.IsThere() || !OpenPatiently(m_owner->GetHandle()))
        return false;
    const bool isEmpty = EmptyClipboard() != 0;
    const bool done = isEmpty && htmlMemory.Give(htmlFormat) && textMemory.Give(CF_UNICODETEXT);
    if (isEmpty && !done)
        EmptyClipboard(); // rather nothing than one half
    CloseClipboard();
    return done;
}

} // namespace CommonUI
