#include "windows/services/WinFileDialogService.h"

#include "common/Diagnostics.h"
#include "common/PathText.h"
#include "windows/detail/Com.h"
#include "windows/detail/OwnerWindow.h"
#include "windows/detail/WinText.h"

#include <shobjidl.h>

#include <deque>
#include <vector>

namespace CommonUI
{

namespace
{

void SetFilters(IFileDialog& window, const CStr& text)
{
    std::deque<std::wstring> texts; // whose places stay
    std::vector<COMDLG_FILTERSPEC> filters;
    const auto keep = [&texts](const std::wstring& kept) { return texts.emplace_back(kept).c_str(); };
    for (const SFileFilter& filter : ParseFileFilters(text)) {
        std::wstring masks;
        for (const CStr& mask : filter.masks)
            masks += (masks.empty() ? L"" : L";") + ToWide(mask);
        filters.push_back({keep(ToWide(filter.text) + L" (" + masks + L")"), keep(masks)});
    }
    if (!filters.empty())
        window.SetFileTypes(static_cast<UINT>(filters.size()), filters.data());
}

// Leaves it to the dialog where the folder is not there.
void SetFolder(IFileDialog& window, const CStr& path)
{
    const std::filesystem::path folder = ToPath(path).make_preferred();
    CComOwner<IShellItem> item;
    if (SUCCEEDED(SHCreateItemFromParsingName(folder.c_str(), nullptr, IID_IShellItem, item.ReceiveAny())))
        window.SetFolder(item.Get());
}

bool Opens(const SFileDialog& dialog)
{
    return dialog.forOpen || dialog.isFolder;
}

void Prepare(IFileDialog& window, const SFileDialog& dialog)
{
    FILEOPENDIALOGOPTIONS options = 0;
    window.GetOptions(&options);
    options |= FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR | FOS_PATHMUSTEXIST;
    if (dialog.isFolder) {
        window.SetOptions(options | FOS_PICKFOLDERS);
        if (!dialog.folder.IsEmpty())
            SetFolder(window, dialog.folder);
        return;
    }
    window.SetOptions(options | (dialog.forOpen ? FOS_FILEMUSTEXIST : FOS_OVERWRITEPROMPT));
    SetFilters(window, dialog.filter);
    // Opening would find no file without an extension.
    if (!dialog.forOpen && !dialog.extension.IsEmpty())
        window.SetDefaultExtension(ToWide(dialog.extension).c_str());
    const CStr ownFolder = GetFolder(dialog.file);
    if (const CStr& folder = ownFolder.IsEmpty() ? dialog.folder : ownFolder; !folder.IsEmpty())
        SetFolder(window, folder);
    if (const CStr name = GetFileName(dialog.file); !name.IsEmpty())
        window.SetFileName(ToWide(name).c_str());
}

HRESULT ReadResult(IFileDialog& window, CStr& path)
{
    CComOwner<IShellItem> item;
    wchar_t* name = nullptr;
    HRESULT result = window.GetResult(item.Receive());
    if (SUCCEEDED(result))
        result = item->GetDisplayName(SIGDN_FILESYSPATH, &name);
    if (SUCCEEDED(result))
        path = FromWide(name);
    CoTaskMemFree(name);
    return result;
}

} // namespace

CWinFileDialogService::~CWinFileDialogService() = default;

bool CWinFileDialogService::Show(const SFileDialog& dialog, CStr& path)
{
    const CComScope com;
    CComOwner<IFileDialog> window;
    HRESULT result = CoCreateInstance(Opens(dialog) ? CLSID_FileOpenDialog : CLSID_FileSaveDialog, nullptr,
                                      CLSCTX_INPROC_SERVER, IID_IFileDialog, window.ReceiveAny());
    if (SUCCEEDED(result)) {
        Prepare(*window.Get(), dialog);
        result = window->Show(GetOwnerWindow());
    }
    if (SUCCEEDED(result))
        result = ReadResult(*window.Get(), path);
    if (FAILED(result) && result != HRESULT_FROM_WIN32(ERROR_CANCELLED))
        GetDiagnostics().Write(
            u"Windows", EDiagnosticLevel::Error,
            CStr::Format(u"there is no file dialog: error %08lX", static_cast<unsigned long>(result)));
    return SUCCEEDED(result);
}

} // namespace CommonUI
