#if defined(_WIN32)

#include "tests/gl/FaultyDriver.h"

#include <stdexcept>
#include <string_view>

namespace
{

int s_countdown = 0;
GLenum s_lasting = GL_NO_ERROR;
GLenum(APIENTRY* s_driver)() = nullptr;

GLenum APIENTRY GetError()
{
    if (s_lasting != GL_NO_ERROR)
        return s_lasting;
    if (s_countdown > 0 && --s_countdown == 0)
        glEnable(GL_NONE);
    return s_driver();
}

// The place in the import table of a module that holds the address of a function of another one.
ULONG_PTR* FindImport(HMODULE module, std::string_view function)
{
    auto* const base = reinterpret_cast<BYTE*>(module);
    const auto at = [base](auto offset) { return base + offset; };
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const header = reinterpret_cast<const IMAGE_NT_HEADERS*>(at(dos->e_lfanew));
    const auto& table = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(at(table.VirtualAddress));
    for (; from->Name != 0; ++from) {
        const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(at(from->OriginalFirstThunk));
        auto* entry = reinterpret_cast<IMAGE_THUNK_DATA*>(at(from->FirstThunk));
        for (; name->u1.AddressOfData != 0; ++name, ++entry) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal))
                continue;
            const auto* const import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(at(name->u1.AddressOfData));
            if (reinterpret_cast<const char*>(import->Name) == function)
                return &entry->u1.Function;
        }
    }
    throw std::runtime_error("the library does not import the function");
}

// The library calls through its import table: a function of this program does not come before the driver's.
void Redirect()
{
    if (s_driver)
        return;
    ULONG_PTR* const entry = FindImport(GetModuleHandleW(L"CommonUIDLL.dll"), "glGetError");
    DWORD protection = 0;
    if (!VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &protection))
        throw std::runtime_error("the import table cannot be written");
    s_driver = reinterpret_cast<GLenum(APIENTRY*)()>(*entry);
    *entry = reinterpret_cast<ULONG_PTR>(&GetError);
    VirtualProtect(entry, sizeof *entry, protection, &protection);
}

} // namespace

void FaultyDriver::FailBefore(int count)
{
    Redirect();
    s_countdown = count;
}

void FaultyDriver::StayBroken(GLenum code)
{
    Redirect();
    s_lasting = code;
}

#endif
