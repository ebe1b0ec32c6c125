#pragma once

#include "common/file/FileSystem.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace CommonUI
{

/// Hands on to the system and records what is written in which order, so that what a disk holds after a power
/// cut can be had for every moment.
class CPowerCuts : public CFileSystem
{
public:
    using CFolder = std::map<std::string, std::string>; // contents by name

    /// @param before what the folder holds now
    explicit CPowerCuts(CFolder before)
        : m_before(std::move(before))
    {
    }

    std::size_t CountSteps() const { return m_steps.size(); }
    /// What the folder holds when the power goes behind a number of steps. Of what was not flushed there is a
    /// share of so many quarters.
    CFolder CutBehind(std::size_t steps, std::size_t quarters) const
    {
        CDisk disk;
        for (const auto& [name, content] : m_before)
            disk[name] = {content, content.size()};
        for (std::size_t i = 0; i < steps; ++i)
            m_steps[i](disk);
        CFolder folder;
        for (const auto& [name, file] : disk) {
            const std::size_t unsafe = file.content.size() - file.flushed;
            folder[name] = file.content.substr(0, file.flushed + unsafe * quarters / 4);
        }
        return folder;
    }
    bool hasLinks = true;

    CFile Create(const std::filesystem::path& path) override
    {
        const CFile file = m_system.Create(path);
        const std::string name = m_names[file] = NameOf(path);
        Add([name](CDisk& disk) { disk[name] = {}; });
        return file;
    }
    void Write(CFile file, std::string_view bytes) override
    {
        m_system.Write(file, bytes);
        Add([name = m_names[file], written = std::string(bytes)](CDisk& disk) {
            disk[name].content += written;
        });
    }
    void Flush(CFile file) override
    {
        m_system.Flush(file);
        Add([name = m_names[file]](CDisk& disk) { disk[name].flushed = disk[name].content.size(); });
    }
    void Close(CFile file) override { m_system.Close(file); }
    void Replace(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        m_system.Replace(from, to);
        Add([from = NameOf(from), to = NameOf(to)](CDisk& disk) {
            disk[to] = disk[from];
            disk.erase(from);
        });
    }
    void Link(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        if (!hasLinks)
            return CFileSystem::Link(from, to);
        m_system.Link(from, to);
        Add([from = NameOf(from), to = NameOf(to)](CDisk& disk) { disk[to] = disk[from]; });
    }
    void List(const std::filesystem::path& folder,
              const std::function<void(const std::filesystem::path&)>& visit) override
    {
        m_system.List(folder, visit);
    }
    std::optional<CFile> TryLock(const std::filesystem::path& path, std::string_view holder) override
    {
        return m_system.TryLock(path, holder);
    }
    void Unlock(CFile lock, const std::filesystem::path& path) noexcept override
    {
        m_system.Unlock(lock, path);
    }
    std::uint64_t GetProcess() const noexcept override { return m_system.GetProcess(); }

private:
    struct SFile {
        std::string content{};
        std::size_t flushed = 0;
    };
    using CDisk = std::map<std::string, SFile>;

    static std::string NameOf(const std::filesystem::path& path) { return path.filename().string(); }
    void Add(std::function<void(CDisk&)> step) { m_steps.push_back(std::move(step)); }

    CFileSystem& m_system = GetFileSystem();
    CFolder m_before;
    std::map<CFile, std::string> m_names{};
    std::vector<std::function<void(CDisk&)>> m_steps{};
};

} // namespace CommonUI
