#pragma once

#include "windows/detail/Api.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>

namespace CommonUI
{

/// Has the library call a function of the test in place of one of the system, as long as the object lives:
/// for failures that the system cannot be brought to.
template<class FFunction>
class CReplacedCall
{
public:
    CReplacedCall(const char* name, FFunction function)
        : m_place(Find(name))
    {
        EXPECT_TRUE(m_place) << name;
        m_system = Exchange(function);
    }
    ~CReplacedCall() { Exchange(m_system); }
    CReplacedCall(const CReplacedCall&) = delete;
    CReplacedCall& operator=(const CReplacedCall&) = delete;

private:
    // The place in the table by which the library calls what it imports.
    static FFunction* Find(const char* name)
    {
        const HMODULE library = GetModuleHandleW(L"CommonUIWin.dll");
        auto* const base = reinterpret_cast<BYTE*>(library ? library : GetModuleHandleW(nullptr));
        const auto* const header = reinterpret_cast<const IMAGE_NT_HEADERS*>(
            base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
        const IMAGE_DATA_DIRECTORY& imports =
            header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
        for (auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
             from->Name != 0; ++from) {
            const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
            auto* places = reinterpret_cast<FFunction*>(base + from->FirstThunk);
            for (; names->u1.AddressOfData != 0; ++names, ++places) {
                const auto* const entry =
                    reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
                if (!IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal) && std::strcmp(entry->Name, name) == 0)
                    return places;
            }
        }
        return nullptr;
    }
    FFunction Exchange(FFunction function)
    {
        DWORD before = 0;
        if (!m_place || !VirtualProtect(m_place, sizeof *m_place, PAGE_READWRITE, &before))
            return nullptr;
        const FFunction old = std::exchange(*m_place, function);
        VirtualProtect(m_place, sizeof *m_place, before, &before);
        return old;
    }

    FFunction* m_place;
    FFunction m_system = nullptr;
};

} // namespace CommonUI
