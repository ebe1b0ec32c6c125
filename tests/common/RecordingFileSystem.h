#pragma once

#include "common/file/FileSystem.h"

#include <cerrno>
#include <map>
#include <system_error>

namespace CommonUI
{

/// Hands on to the system and keeps what a disk would hold if the power went now: of a file what was flushed.
/// One of the calls can fail.
class CRecordingFileSystem : public CFileSystem
{
public:
    /// @param failing the number of the call that fails, from 1; 0 for none
    explicit CRecordingFileSystem(int failing = 0)
        : m_failing(failing)
    {
    }

    bool HasFailed() const { return m_failing > 0 && m_calls >= m_failing; }
    /// What a power cut would leave of a file that was replaced; as of one that was never flushed, at worst
    /// nothing.
    const std::map<std::filesystem::path, std::string>& GetReplaced() const { return m_replaced; }
    bool hasLocks = true;
    bool hasLinks = true;
    int lists = 0; // how often a folder was listed

    CFile Create(const std::filesystem::path& path) override
    {
        Count();
        const CFile file = m_system.Create(path);
        m_names[file] = path;
        m_written[path].clear();
        return file;
    }
    void Write(CFile file, std::string_view bytes) override
    {
        if (IsNextToFail())
            m_system.Write(file, bytes.substr(0, bytes.size() / 2));
        Count();
        m_system.Write(file, bytes);
        m_written[m_names[file]] += bytes;
    }
    void Flush(CFile file) override
    {
        Count();
        m_system.Flush(file);
        m_flushed[m_names[file]] = m_written[m_names[file]];
    }
    void Close(CFile file) override
    {
        m_system.Close(file);
        Count();
    }
    void Replace(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        Count();
        m_system.Replace(from, to);
        m_replaced[to] = m_flushed[from];
    }
    void Link(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        if (!hasLinks)
            throw std::system_error(EPERM, std::generic_category(), "cannot link");
        Count();
        m_system.Link(from, to);
    }
    void List(const std::filesystem::path& folder,
              const std::function<void(const std::filesystem::path&)>& visit) override
    {
        ++lists;
        m_system.List(folder, visit);
    }
    std::optional<CFile> TryLock(const std::filesystem::path& path, std::string_view holder) override
    {
        if (!hasLocks)
            throw std::system_error(ENOLCK, std::generic_category(), "cannot lock");
        Count();
        return m_system.TryLock(path, holder);
    }
    std::optional<std::string> FindHolder(const std::filesystem::path& path) override
    {
        return m_system.FindHolder(path);
    }
    void Unlock(CFile lock, const std::filesystem::path& path) noexcept override
    {
        m_system.Unlock(lock, path);
    }
    std::uint64_t GetProcess() const noexcept override { return m_system.GetProcess(); }

private:
    bool IsNextToFail() const { return m_calls + 1 == m_failing; }
    void Count()
    {
        if (++m_calls == m_failing)
            throw std::system_error(EIO, std::generic_category(), "cannot write");
    }

    CFileSystem& m_system = GetFileSystem();
    int m_failing;
    int m_calls = 0;
    std::map<CFile, std::filesystem::path> m_names{};
    std::map<std::filesystem::path, std::string> m_written{};
    std::map<std::filesystem::path, std::string> m_flushed{};
    std::map<std::filesystem::path, std::string> m_replaced{};
};

} // namespace CommonUI
