#include "common/ini/IniStore.h"

#include "common/detail/Today.h"
#include "common/Diagnostics.h"
#include "common/file/detail/CompanionName.h"
#include "common/file/FileBytes.h"
#include "common/file/FileLock.h"
#include "common/file/KeptFile.h"
#include "common/ini/detail/IniDamage.h"
#include "common/ini/detail/IniDocument.h"
#include "common/ini/detail/StoreTexts.h"
#include "common/ini/detail/WithinMemory.h"
#include "common/ini/SectionScope.h"
#include "common/StringTable.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <utility>

namespace CommonUI
{

namespace
{

using EFound = SStoreAccount::EFound;

CStr Describe(const SIniDamage& damage)
{
    switch (damage.kind) {
    case EIniDamage::NoText:
        return GetString(c_noText);
    case EIniDamage::WrongEncoding:
        return GetString(c_wrongEncoding);
    case EIniDamage::CutOff:
        break;
    }
    return CStr::Format(GetString(c_cutOff), damage.line);
}

// What is damaged itself is none. `bytes` of the file itself, beside which it was kept.
std::optional<std::string> ReadBackup(const CStr& fileName)
{
    std::string bytes;
    CStr reason;
    if (!ReadFileBytes(GetBackupName(fileName), bytes, CIniDocument::c_maximumSize, reason) ||
        FindIniDamage(bytes))
        return std::nullopt;
    return bytes;
}

int ReadVersion(CInifile& ini)
{
    const CSectionScope scope(ini, c_versionSection);
    return std::max(ini.ReadInt(c_versionKey, 0), 0);
}

int VersionOf(const std::string& bytes)
{
    CInifile ini;
    ini.LoadBytes(bytes);
    return ReadVersion(ini);
}

void Report(EDiagnosticLevel level, const CStr& text)
{
    GetDiagnostics().Write(u"Inifile", level, text);
}

} // namespace

CIniStore::CIniStore(const CStr& fileName, SStoreSchema schema)
    : m_schema(std::move(schema))
{
    m_ini.SetFileName(fileName);
}

bool CIniStore::Load()
{
    m_ini.Forget();
    m_account = {};
    m_backup.reset();
    const bool loaded = WithinMemory(m_account.reason, [this] { return LoadFile(); });
    if (!loaded) {
        if (m_account.found != EFound::Damaged)
            m_account.found = EFound::Unreadable;
        m_ini.Refuse();
    }
    if (m_account.found == EFound::Damaged || m_account.found == EFound::Unreadable)
        ReportAccount();
    return loaded;
}

// That there is no memory for it changes nothing.
void CIniStore::ReportAccount() const
{
    CStr ignored;
    WithinMemory(ignored, [this] {
        for (const CStr& sentence : m_account.GetSentences())
            Report(EDiagnosticLevel::Warning, sentence);
        return true;
    });
}

bool CIniStore::LoadFile()
{
    m_account.fileName = m_ini.GetFileName();
    m_account.programVersion = m_schema.version;
    if (!IsThere(m_account.fileName))
        return true;
    std::string bytes;
    std::optional<std::string> backup;
    if (!Read(bytes, backup))
        return false;
    if (FindDamage(bytes, backup))
        return LoadRepaired();
    m_ini.TakeStored(bytes);
    m_backup = backup == bytes || KeepBackup(bytes) ? bytes : std::move(backup);
    Migrate();
    return true;
}

// The backup first, so that it is no newer than the file.
bool CIniStore::Read(std::string& bytes, std::optional<std::string>& backup)
{
    backup = ReadBackup(m_account.fileName);
    return ReadFileBytes(m_account.fileName, bytes, CIniDocument::c_maximumSize, m_account.reason);
}

bool CIniStore::FindDamage(const std::string& bytes, const std::optional<std::string>& backup)
{
    const auto damage = backup ? FindIniDamage(bytes, *backup) : FindIniDamage(bytes);
    m_account.found = damage ? EFound::Damaged : EFound::Whole;
    m_account.reason = damage ? Describe(*damage) : CStr();
    return damage.has_value();
}

// Looks again while nobody else can: another program may have been faster.
bool CIniStore::LoadRepaired()
{
    const CFileLock lock(m_account.fileName);
    std::string bytes;
    std::optional<std::string> backup;
    if (lock.IsTaken()) {
        m_account.noRepair = lock.GetReason();
        return false;
    }
    if (!Read(bytes, backup))
        return false;
    if (FindDamage(bytes, backup)) {
        if (!Repair(bytes, backup))
            return false;
        bytes = *backup;
    }
    m_ini.TakeStored(std::move(bytes));
    m_backup = std::move(backup);
    Migrate();
    return true;
}

// The file is never away, and what it holds is kept before anything takes its place.
bool CIniStore::Repair(const std::string& damaged, const std::optional<std::string>& backup)
{
    if (!backup)
        return false;
    CStr keptAs;
    if (!KeepFile(m_account.fileName, damaged, u"damaged-" + Today(), keptAs, m_account.noRepair) ||
        !ReplaceFileBytes(m_account.fileName, *backup, m_account.noRepair))
        return false;
    m_account.keptAs = keptAs;
    return true;
}

// Another program may have saved meanwhile, and kept what it loaded then: nothing older takes its place. Who
// has the lock saves, and a later load keeps that.
bool CIniStore::KeepBackup(const std::string& bytes)
{
    constexpr std::chrono::milliseconds c_patience{100};
    const CFileLock lock(m_account.fileName, c_patience);
    std::string now;
    CStr ignored;
    return !lock.IsTaken() && ReadFileBytes(m_account.fileName, now, CIniDocument::c_maximumSize, ignored) &&
           now == bytes && KeepBackupFile(m_account.fileName, bytes, m_account.noBackup);
}

void CIniStore::Migrate()
{
    m_account.version = ReadVersion(m_ini);
    const int last = std::min(m_schema.version, static_cast<int>(m_schema.steps.size()));
    for (int version = m_account.version; version < last; ++version) {
        if (const auto& step = m_schema.steps[static_cast<std::size_t>(version)])
            step(m_ini);
    }
}

bool CIniStore::Save(const CInifile::FIsOneValue& isOneValue)
{
    m_account.fileName = m_ini.GetFileName();
    m_account.programVersion = m_schema.version;
    if (m_account.version < m_schema.version) {
        const CSectionScope scope(m_ini, c_versionSection);
        m_ini.WriteInt(c_versionKey, m_schema.version);
    }
    // So that a file that is cut off lacks it.
    m_ini.GetDocument().MoveToEnd(m_ini.GetDocument().GetSection(c_versionSection));
    m_account.hasOthers = false;
    const std::uint64_t document = m_ini.m_documentNumber;
    std::optional<std::string> backup = m_backup;
    if (!m_ini.SaveChecked(isOneValue, [&](std::string& there, CStr& reason) {
            backup = ReadBackup(m_account.fileName);
            return Check(there, backup, reason);
        }))
        return false;
    m_backup = std::move(backup);
    m_account.hasOthers = m_ini.m_documentNumber != document;
    m_account.version = std::max(m_account.version, m_schema.version);
    return true;
}

bool CIniStore::Check(std::string& there, const std::optional<std::string>& backup, CStr& reason)
{
    const bool isAsLoaded = m_ini.m_stored && there == *m_ini.m_stored;
    if (!isAsLoaded && !CheckWhole(there, backup, reason))
        return false;
    const int version = VersionOf(there);
    if (version > std::max(m_account.version, m_schema.version)) {
        reason = CStr::Format(GetString(c_changedByNewer), version);
        return false;
    }
    return version >= m_schema.version || there.empty() || KeepEarlier(there, version, reason);
}

// What somebody has damaged since it was loaded is put aside; what it was then is a whole version, too, and
// no older than the backup, unless that has become another one: somebody has saved and loaded since.
bool CIniStore::CheckWhole(std::string& there, const std::optional<std::string>& backup, CStr& reason)
{
    const bool hasNewerBackup = backup && backup != m_backup;
    const std::optional<std::string> whole = m_ini.m_stored && !hasNewerBackup ? *m_ini.m_stored : backup;
    const auto damage = whole ? FindIniDamage(there, *whole) : FindIniDamage(there);
    if (!damage)
        return true;
    m_account.found = EFound::Damaged;
    m_account.reason = reason = Describe(*damage);
    m_account.keptAs = m_account.noRepair = {};
    if (!Repair(there, whole))
        return false;
    ReportAccount();
    there = *whole;
    return true;
}

bool CIniStore::KeepEarlier(const std::string& there, int version, CStr& reason)
{
    return KeepFile(m_account.fileName, there, CStr::Format(u"version-%d", version), m_account.earlierKeptAs,
                    reason);
}

} // namespace CommonUI
