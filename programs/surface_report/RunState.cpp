#include "programs/surface_report/RunState.h"

#include "common/file/FileBytes.h"

#include <array>
#include <bit>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace SurfaceReport
{

namespace fs = std::filesystem;

namespace
{

constexpr const char* c_title = "surface_report state 1";

class CHash
{
public:
    void Add(const char* bytes, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            m_hash = (m_hash ^ static_cast<unsigned char>(bytes[i])) * 0x100000001B3ULL;
    }
    std::uint64_t Get() const { return m_hash; }

private:
    std::uint64_t m_hash = 0xCBF29CE484222325ULL;
};

std::uint64_t HashOf(const std::string& text)
{
    CHash hash;
    hash.Add(text.data(), text.size());
    return hash.Get();
}

} // namespace

SFingerprint TakeFingerprint(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::array<char, 1 << 16> piece{};
    CHash hash;
    SFingerprint fingerprint;
    while (file) {
        file.read(piece.data(), piece.size());
        hash.Add(piece.data(), static_cast<std::size_t>(file.gcount()));
        fingerprint.size += static_cast<std::uintmax_t>(file.gcount());
    }
    if (!file.eof())
        throw std::runtime_error(path.string() + ": the file cannot be read");
    fingerprint.hash = hash.Get();
    return fingerprint;
}

CRunState::CRunState(fs::path file, std::string key)
    : m_file(std::move(file))
    , m_key(std::move(key))
{
}

// Each line: size, hash and how many values, the bits of each, the path: decimal numbers with blanks between.
void CRunState::Load()
{
    std::ifstream file(m_file, std::ios::binary);
    std::string line;
    if (!std::getline(file, line) || line != c_title || !std::getline(file, line) ||
        line != std::to_string(HashOf(m_key)))
        return;
    while (std::getline(file, line)) {
        std::istringstream stream(line);
        SEntry entry{};
        std::size_t count = 0;
        stream >> entry.fingerprint.size >> entry.fingerprint.hash >> count;
        for (std::uint64_t bits = 0; entry.values.size() < count && stream >> bits;)
            entry.values.push_back(std::bit_cast<double>(bits));
        std::string path;
        if (stream.ignore() && std::getline(stream, path) && entry.values.size() == count)
            m_entries[path] = std::move(entry);
    }
}

const std::vector<double>* CRunState::Find(const std::string& path, const SFingerprint& fingerprint) const
{
    const auto found = m_entries.find(path);
    return found != m_entries.end() && found->second.fingerprint == fingerprint ? &found->second.values
                                                                                : nullptr;
}

void CRunState::Add(const std::string& path, const SFingerprint& fingerprint,
                    const std::vector<double>& values)
{
    if (path.find('\n') == std::string::npos)
        m_entries[path] = {fingerprint, values};
}

void CRunState::Save() const
{
    std::string text = c_title + ('\n' + std::to_string(HashOf(m_key))) + '\n';
    for (const auto& [path, entry] : m_entries) {
        text += std::to_string(entry.fingerprint.size) + ' ' + std::to_string(entry.fingerprint.hash) + ' ' +
                std::to_string(entry.values.size());
        for (const double value : entry.values)
            text += ' ' + std::to_string(std::bit_cast<std::uint64_t>(value));
        text += ' ' + path + '\n';
    }
    CommonUI::CStr reason;
    if (!CommonUI::ReplaceFileBytes(m_file.u16string(), text, reason))
        throw std::runtime_error(m_file.string() + ": " + reason.ToUtf8());
}

} // namespace SurfaceReport
