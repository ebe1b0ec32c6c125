// The controls for windows of the system, alive. win_gallery [--shots FOLDER]: a window, or pictures of it
// and of the dialogs.

#include "examples/win_gallery/Gallery.h"
#include "windows/services/WinServices.h"

#include <shellapi.h>

#include <memory>

namespace
{

constexpr UINT c_writeShots = WM_APP;

std::wstring s_shots; // the folder, or none
std::unique_ptr<WinGallery::CGallery> s_gallery;

INT_PTR CALLBACK OnDialog(HWND window, UINT message, WPARAM wide, LPARAM)
{
    switch (message) {
    case WM_INITDIALOG:
        s_gallery = std::make_unique<WinGallery::CGallery>(window);
        if (!s_shots.empty())
            PostMessageW(window, c_writeShots, 0, 0);
        return TRUE;
    case c_writeShots:
        EndDialog(window, s_gallery->WriteShots(s_shots) ? 0 : 1);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wide) == IDCANCEL)
            EndDialog(window, 0);
        else if (HIWORD(wide) == BN_CLICKED)
            s_gallery->OnButton(LOWORD(wide));
        return TRUE;
    case WM_DESTROY:
        s_gallery.reset();
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE program, HINSTANCE, wchar_t*, int)
{
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count == 3 && std::wstring(arguments[1]) == L"--shots")
        s_shots = arguments[2];
    LocalFree(arguments);
    const CommonUI::CWinServices services(u"Controls");
    return static_cast<int>(DialogBoxW(program, MAKEINTRESOURCEW(WinGallery::c_dialog), nullptr, OnDialog));
}
