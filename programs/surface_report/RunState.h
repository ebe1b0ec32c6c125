#pragma once

#include "programs/surface_report/FileTable.h"
#include "programs/surface_report/RunHead.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace SurfaceReport
{

/// By what a file is known to be the same: its size and a hash of its bytes, FNV-1a of 64 bits.
struct SFingerprint {
    std::uintmax_t size = 0;
    std::uint64_t hash = 0;

    bool operator==(const SFingerprint&) const = default;
};

/// @throws std::runtime_error for a file that cannot be read, and for what is no regular file
SFingerprint TakeFingerprint(const std::filesystem::path& path);

/// The same hash, of a text.
std::uint64_t HashOf(std::string_view text);

/// The bytes of a path, UTF-8 where the system's paths are, by which a run knows its file.
std::string KeyOf(const std::filesystem::path& file);

/// The report of a file, written or to be written.
struct SStoredReport {
    std::filesystem::path place; ///< relative, without extension
    std::string making{};        ///< with what it was made, see DescribeMaking; empty until it is written
};

/// What a run on many files has come to so far.
struct SStoredRun {
    struct SEntry {
        /// The place of the row in the table; nothing for one of an earlier run that has no place yet.
        std::optional<std::size_t> place{};
        SFingerprint fingerprint{};
        SFileRow row{};
        std::string file{}; ///< the key of its file
    };

    SRunHead head{};
    std::size_t fileCount = 0; ///< of the run, finished or not
    std::vector<SEntry> entries{};
    std::map<std::string, SStoredReport> reports{}; ///< by the keys of their files
};

/// What WriteRun has written.
/// @throws std::runtime_error for a file that cannot be read or is none of its files
SStoredRun ReadRun(const std::filesystem::path& file);
/// All values come back to the bit.
std::string WriteRun(const SStoredRun& run);

/// What a run on many files has finished, in a file that a later run goes on from. Files that failed are
/// tried again.
class CRunState
{
public:
    CRunState(std::filesystem::path file, SRunHead head, std::size_t fileCount);

    /// Takes over what a run whose values depend on the same has left; nothing where there is none.
    void Load();
    /// The row of a file that was finished and has not changed; null otherwise.
    const SFileRow* Find(const std::string& file, const SFingerprint& fingerprint) const;
    /// Whether a file was finished, changed or not.
    bool Knows(const std::string& file) const { return m_entries.contains(file); }
    /// @param place of the row in the table
    void Add(std::size_t place, const std::string& file, const SFingerprint& fingerprint,
             const SFileRow& row);
    /// The reports by the keys of their files, with those of files that this run has not.
    std::map<std::string, SStoredReport>& GetReports() noexcept { return m_reports; }
    /// @throws std::runtime_error where it cannot be written
    void Save() const;

private:
    std::filesystem::path m_file;
    SRunHead m_head;
    std::size_t m_fileCount;
    std::map<std::string, SStoredRun::SEntry> m_entries{}; // by the key of the file
    std::map<std::string, SStoredReport> m_reports{};
};

} // namespace SurfaceReport
