#pragma once

#include "../../export/Export.h"
#include "../Str.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace CommonUI
{

/// Keeps everybody else who asks for the lock of a file from it, as long as the object lives: other
/// processes, and other objects of this one. It binds only those who ask; others can read and write the file.
///
/// The lock is a file "~name.lock" beside it, which goes with the lock, also when the process is killed. Its
/// text says who holds the lock.
class COMMONDLL_API CFileLock
{
public:
    /// How long somebody else may hold the lock before it is given up.
    COMMONUI_CONSTANT std::chrono::milliseconds c_patience{10'000};

    /// Waits until the lock is free.
    /// @param fileName of the file, which need not be there; a symbolic link stands for what it leads to
    explicit CFileLock(const CStr& fileName, std::chrono::milliseconds patience = c_patience);
    ~CFileLock();
    CFileLock(const CFileLock&) = delete;
    CFileLock& operator=(const CFileLock&) = delete;

    /// Whether nobody else can have the lock until this object goes.
    bool IsHeld() const noexcept { return m_lock.has_value(); }
    /// Whether somebody else held the lock all the time. Where neither is so the file system has no locks, or
    /// refuses them.
    bool IsTaken() const noexcept { return m_isTaken; }
    /// Why the lock is not held, such as "process 4711 holds its lock".
    const CStr& GetReason() const noexcept { return m_reason; }

private:
    std::filesystem::path m_path{};
    std::optional<std::intptr_t> m_lock{};
    bool m_isTaken = false;
    CStr m_reason{};
};

/// Who holds the lock of a file now, such as "process 4711"; empty if nobody does, or does not say so.
COMMONDLL_API CStr GetLockHolder(const CStr& fileName);

} // namespace CommonUI
