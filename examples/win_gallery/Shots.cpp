#include "examples/win_gallery/Shots.h"

#include <gdiplus.h>

namespace WinGallery
{

namespace
{

HBITMAP Copy(HWND window, int width, int height)
{
    HDC__* const shown = GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
    HDC__* const memory = CreateCompatibleDC(shown);
    HBITMAP__* const picture = CreateCompatibleBitmap(shown, width, height);
    void* const before = SelectObject(memory, picture);
    BitBlt(memory, 0, 0, width, height, shown, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
    ReleaseDC(window, shown);
    return picture;
}

bool WritePng(HBITMAP picture, const std::wstring& file)
{
    constexpr CLSID c_png{0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok)
        return false;
    bool isWritten = false;
    {
        Gdiplus::Bitmap image(picture, nullptr);
        isWritten = image.Save(file.c_str(), &c_png, nullptr) == Gdiplus::Ok;
    }
    Gdiplus::GdiplusShutdown(token);
    return isWritten;
}

} // namespace

bool WriteShot(HWND window, const std::wstring& file)
{
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    RECT place{};
    GetWindowRect(window, &place);
    HBITMAP__* const picture = Copy(window, place.right - place.left, place.bottom - place.top);
    const bool isWritten = WritePng(picture, file);
    DeleteObject(picture);
    return isWritten;
}

} // namespace WinGallery
