#pragma once

#include "programs/surface_report/FileTable.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace SurfaceReport
{

/// By what a file is known to be the same: its size and a hash of its bytes, FNV-1a of 64 bits.
struct SFingerprint {
    std::uintmax_t size = 0;
    std::uint64_t hash = 0;

    bool operator==(const SFingerprint&) const = default;
};

/// @throws std::runtime_error for a file that cannot be read
SFingerprint TakeFingerprint(const std::filesystem::path& path);

/// What a run on many files has finished, in a file that a later run goes on from. Files that failed are
/// tried again.
class CRunState
{
public:
    /// @param key what the values depend on besides the files, such as options
    CRunState(std::filesystem::path file, std::string key);

    /// Takes over what a run with the same key has left; nothing where there is none.
    void Load();
    /// The values of a file that has not changed; null where it was not finished.
    const std::vector<double>* Find(const std::string& path, const SFingerprint& fingerprint) const;
    void Add(const std::string& path, const SFingerprint& fingerprint, const std::vector<double>& values);
    /// @throws std::runtime_error where it cannot be written
    void Save() const;

private:
    struct SEntry {
        SFingerprint fingerprint;
        std::vector<double> values;
    };

    std::filesystem::path m_file;
    std::string m_key;
    std::map<std::string, SEntry> m_entries{};
};

} // namespace SurfaceReport
