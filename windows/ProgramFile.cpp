#include "windows/detail/ProgramFile.h"

#include "windows/detail/Api.h"

#include <string>

namespace CommonUI
{

std::filesystem::path GetProgramFile()
{
    constexpr std::size_t c_longest = 32768; // of what Windows has
    std::wstring name(c_longest, L'\0');
    name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    return name;
}

} // namespace CommonUI
