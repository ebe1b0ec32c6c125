#pragma once

#include "../../common/file/FileLock.h"
#include "../../export/Export.h"
#include "ProcessStep.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace CommonUI::Measurement
{

/// An open surface as a journal has it.
struct SSessionSurface {
    CStr path{};           ///< of the surface's file
    CProcessSteps steps{}; ///< done to it, those that are off included

    friend bool operator==(const SSessionSurface&, const SSessionSurface&) = default;
};

/// The open surfaces of a program, in its order.
using CSession = std::vector<SSessionSurface>;

/// What a running program has open, in a file of its own, "session-1.journal" or the first number that is
/// free: for the next start, should this one not end well. Who holds the lock of the file lives; when a
/// process dies, its journal stays and its lock goes.
class COMMONUIMEASUREMENT_API CSessionJournal
{
public:
    /// Takes a file of the folder; nothing is written yet.
    explicit CSessionJournal(const std::filesystem::path& folder);
    /// Leaves the file, as a process does that dies.
    ~CSessionJournal();
    CSessionJournal(const CSessionJournal&) = delete;
    CSessionJournal& operator=(const CSessionJournal&) = delete;

    /// Returns when the session is on the disk. A session without surfaces has no file.
    /// @return false, with a reason, where it cannot be written; the file is then what it was
    bool Write(const CSession& session, CStr& reason);
    /// The program ends well: the file goes.
    void Close();
    /// The path of the journal, whether it is written or not.
    const CStr& GetPath() const noexcept { return m_path; }

private:
    CStr m_path{};
    std::optional<CFileLock> m_lock{};
    CSession m_written{};
};

/// The journal of a program that has died. As long as the object lives, no other program takes it.
class COMMONUIMEASUREMENT_API CDeadJournal
{
public:
    /// Reads a journal, and puts one aside that is damaged. @param lock of the journal, held from now on
    CDeadJournal(const CStr& path, std::unique_ptr<CFileLock> lock);

    /// The path at which the journal was found.
    const CStr& GetPath() const noexcept { return m_path; }
    /// Empty where the journal is damaged.
    const CSession& GetSession() const noexcept { return m_session; }
    /// Why the journal cannot be read, in a sentence that says where it is kept now; empty where it can.
    const CStr& GetDamage() const noexcept { return m_damage; }
    /// The surfaces are open, or nobody wants them: the file goes.
    void Remove();
    /// Only some are still to be opened.
    void Keep(const CSession& rest);

private:
    bool PutAside(const std::string& bytes, CStr& keptAs) const;

    CStr m_path;
    std::unique_ptr<CFileLock> m_lock;
    CSession m_session{};
    CStr m_damage{};
};

/// The journals of a folder that no living program has.
COMMONUIMEASUREMENT_API std::vector<CDeadJournal> FindDeadJournals(const std::filesystem::path& folder);

} // namespace CommonUI::Measurement
