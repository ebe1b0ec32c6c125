#pragma once

#include "../../export/Export.h"
#include "Inifile.h"
#include "StoreAccount.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace CommonUI
{

/// The version of what a program stores, and how what earlier versions have stored becomes that.
struct SStoreSchema {
    /// From 1. Files that tell of no version are of version 0.
    int version = 1;
    /// What brings a document from the version of its index to the next one; a missing or empty step changes
    /// nothing. A step leaves what it does not know as it is.
    std::vector<std::function<void(CInifile&)>> steps{};
};

/// A file in which a program keeps something from one start to the next, beside others that use the same
/// file, and which heals:
///
/// The last version that was loaded whole is kept beside it, as "~name.backup". A file that is no text, is
/// cut off or is not in the encoding that it tells of is put aside as "name.damaged-2026-11-22", the day
/// being that of UTC, and the last whole version takes its place. Where there is none, the file stays as it
/// is and can neither be loaded nor saved. A file of an earlier version is kept as "name.version-0", or its
/// number, when a save brings it to the program's version. What a newer program has stored stays.
///
/// The version stands in a section of its own, [FileFormat], which is the store's. Nothing here throws for
/// the content of a file.
class COMMONDLL_API CIniStore
{
public:
    /// Nothing is read before Load.
    /// @param fileName need not be there; empty for a document without a file
    explicit CIniStore(const CStr& fileName = {}, SStoreSchema schema = {});

    /// The document, which the program reads and changes.
    CInifile& GetInifile() noexcept { return m_ini; }
    /// The document, to be read.
    const CInifile& GetInifile() const noexcept { return m_ini; }

    /// Loads the file, repairs it before where it has to be and can be, and brings the document to the
    /// program's version. Where there is no file the document is empty. Returns false, with the reason in the
    /// account and the diagnostics and the document empty, when there is a file that cannot be loaded.
    bool Load();
    /// Saves the document as CInifile::SaveMerged does. Refuses a file that another program has brought to a
    /// newer version since it was loaded.
    bool Save(const CInifile::FIsOneValue& isOneValue = {});

    /// What was found, taken and kept by the last Load, and by saves since.
    const SStoreAccount& GetAccount() const noexcept { return m_account; }

private:
    void ReportAccount() const;
    bool LoadFile();
    bool LoadRepaired();
    bool Read(std::string& bytes, std::optional<std::string>& backup);
    bool FindDamage(const std::string& bytes, const std::optional<std::string>& backup);
    bool Repair(const std::string& damaged, const std::optional<std::string>& backup);
    bool KeepBackup(const std::string& bytes);
    void Migrate();
    bool Check(std::string& there, const std::optional<std::string>& backup, CStr& reason);
    bool CheckWhole(std::string& there, const std::optional<std::string>& backup, CStr& reason);
    bool KeepEarlier(const std::string& there, int version, CStr& reason);

    SStoreSchema m_schema;
    CInifile m_ini{};
    SStoreAccount m_account{};
    std::optional<std::string> m_backup{}; // what it was at the last load or save, and no newer than that
};

} // namespace CommonUI
