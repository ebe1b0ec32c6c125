#pragma once

#include "common/ini/detail/IniDocument.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace CommonUI
{

/// Brings what a program has changed in a document, since it was `base`, into the document that others have
/// made of it meanwhile. Comments and the order are those of the others.
class CIniMerge
{
public:
    /// @param base the bytes from which both have come
    /// @param ours must live longer
    /// @param theirs the bytes that others have saved
    CIniMerge(std::string base, const CIniDocument& ours, std::string theirs);

    /// To be called once. @param isOneValue which sections are taken over as a whole; empty for none
    void Run(const std::function<bool(std::u16string_view)>& isOneValue);

    CIniDocument TakeMerged() { return std::move(m_merged); }
    /// A sentence for each value that both have changed, without a full stop.
    const std::vector<CStr>& GetConflicts() const noexcept { return m_conflicts; }

private:
    using CValue = std::optional<std::string_view>;

    std::vector<CStr> ListSections() const;
    void MergeKeys(const CStr& section);
    void MergeWhole(const CStr& section);
    void Take(const CStr& section, const CStr& key, CValue ours);
    void AddConflict(const CStr& section, const CStr& what);

    CIniDocument m_base;
    CIniDocument m_ours;
    CIniDocument m_theirs;
    CIniDocument m_merged;
    std::vector<CStr> m_conflicts{};
};

} // namespace CommonUI
