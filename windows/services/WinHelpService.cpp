#include "windows/services/WinHelpService.h"

#include "windows/detail/Api.h"
#include "windows/detail/Shell.h"
#include "windows/detail/WinText.h"

#include <shlwapi.h>

namespace CommonUI
{

namespace
{

constexpr DWORD c_longestAddress = 4096;

// Empty where there is none.
std::wstring GetProgramFor(const std::wstring& extension)
{
    std::wstring program(c_longestAddress, L'\0');
    DWORD size = c_longestAddress;
    if (FAILED(AssocQueryStringW(ASSOCF_INIT_IGNOREUNKNOWN, ASSOCSTR_EXECUTABLE, extension.c_str(), L"open",
                                 program.data(), &size)))
        return {};
    program.resize(program.find(L'\0'));
    return program;
}

} // namespace

CWinHelpService::~CWinHelpService() = default;

bool CWinHelpService::Show(const std::filesystem::path& page, const CStr& chapter)
{
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(page, error).make_preferred();
    std::wstring address(c_longestAddress, L'\0');
    DWORD size = c_longestAddress;
    if (error || FAILED(UrlCreateFromPathW(full.c_str(), address.data(), &size, 0)))
        return false;
    address.resize(address.find(L'\0'));
    const CStr anchor = chapter.IsEmpty() ? CStr() : u"#" + chapter;
    return OpenPage(full, FromWide(address) + anchor);
}

bool CWinHelpService::OpenPage(const std::filesystem::path& page, const CStr& address)
{
    // The shell itself would lose the chapter.
    const std::wstring program = GetProgramFor(page.extension().wstring());
    const bool hasChapter = address.Contains(u"#");
    return (hasChapter && !program.empty() && OpenByShell(program, L"\"" + ToWide(address) + L"\"")) ||
           OpenByShell(page.wstring(), L"");
}

} // namespace CommonUI
