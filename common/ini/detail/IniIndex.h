#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace CommonUI
{

inline std::uint32_t LoadFour(const char* at) noexcept
{
    std::uint32_t bytes;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes;
}

/// Four ASCII characters as the bytes that they would be, whatever the byte order.
inline std::uint32_t LoadFour(const char16_t* at) noexcept
{
    std::uint64_t units;
    std::memcpy(&units, at, sizeof units);
    const std::uint64_t pairs = (units | (units >> 8)) & 0x0000FFFF0000FFFF;
    return static_cast<std::uint32_t>(pairs | (pairs >> 16));
}

/// A hash of names under a secret key: whoever writes a file cannot choose names that collide. It is the NH
/// construction (32-bit sums multiplied, as in UMAC, RFC 4418, 5.2), its keys stretched from one. ASCII has
/// the same hash as bytes and as UTF-16.
template<class TUnit>
std::uint32_t HashName(std::basic_string_view<TUnit> name, std::uint64_t key) noexcept
{
    constexpr std::uint64_t c_stretch = 0x9E3779B97F4A7C15;
    std::uint64_t sum = key ^ name.size();
    const auto mix = [&](std::uint32_t low, std::uint32_t high) {
        key = (key ^ (key >> 29)) * c_stretch;
        sum += std::uint64_t(std::uint32_t(low + key)) * std::uint32_t(high + (key >> 32));
    };
    const TUnit* at = name.data();
    std::size_t rest = name.size();
    for (; rest > 8; rest -= 8, at += 8)
        mix(LoadFour(at), LoadFour(at + 4));
    if (rest >= 4) {
        mix(LoadFour(at), LoadFour(at + rest - 4));
    } else if (rest > 0) {
        const auto byte = [at](std::size_t i) { return std::uint32_t(static_cast<unsigned char>(at[i])); };
        mix(byte(0) | (byte(rest / 2) << 8) | (byte(rest - 1) << 16), 0);
    }
    sum = (sum ^ (sum >> 32)) * c_stretch;
    return static_cast<std::uint32_t>(sum >> 32);
}

/// A flat hash table of numbers under hashes; what a number stands for, and so what equals what, is the
/// caller's. Several numbers may have the same hash.
class CIniIndex
{
public:
    static constexpr std::uint32_t c_none = 0xFFFFFFFF;

    /// The first number under `hash` for which `matches` returns true, or c_none.
    template<class FMatches>
    std::uint32_t Find(std::uint32_t hash, FMatches&& matches) const
    {
        if (m_entries.empty())
            return c_none;
        for (std::size_t at = hash & m_mask;; at = (at + 1) & m_mask) {
            const SEntry& entry = m_entries[at];
            if (entry.number == c_none)
                return c_none;
            if (entry.hash == hash && matches(entry.number))
                return entry.number;
        }
    }

    /// Adds a number below c_none.
    void Insert(std::uint32_t hash, std::uint32_t number)
    {
        if (2 * (m_used + 1) > m_entries.size())
            Rebuild();
        Place({hash, number});
    }

    /// What follows in the cluster closes the gap, so that however often numbers come and go, nothing is left
    /// to walk over.
    void Erase(std::uint32_t hash, std::uint32_t number)
    {
        if (m_entries.empty())
            return;
        std::size_t gap = hash & m_mask;
        while (m_entries[gap].number != number) {
            if (m_entries[gap].number == c_none)
                return;
            gap = (gap + 1) & m_mask;
        }
        for (std::size_t at = (gap + 1) & m_mask; m_entries[at].number != c_none; at = (at + 1) & m_mask) {
            // One whose search begins behind the gap stays.
            if (((at - m_entries[at].hash) & m_mask) < ((at - gap) & m_mask))
                continue;
            m_entries[gap] = m_entries[at];
            gap = at;
        }
        m_entries[gap].number = c_none;
        --m_used;
    }

    void Clear()
    {
        m_entries.clear();
        m_used = 0;
    }

private:
    struct SEntry {
        std::uint32_t hash = 0;
        std::uint32_t number = c_none;
    };

    void Place(SEntry entry)
    {
        std::size_t at = entry.hash & m_mask;
        while (m_entries[at].number != c_none)
            at = (at + 1) & m_mask;
        m_entries[at] = entry;
        ++m_used;
    }

    void Rebuild()
    {
        std::size_t size = 16;
        while (size < 3 * (m_used + 1))
            size *= 2;
        std::vector<SEntry> old(size);
        old.swap(m_entries);
        m_mask = size - 1;
        m_used = 0;
        for (const SEntry& entry : old) {
            if (entry.number != c_none)
                Place(entry);
        }
    }

    std::vector<SEntry> m_entries; // a power of two of them, at least half of them free
    std::size_t m_mask = 0;
    std::size_t m_used = 0;
};

} // namespace CommonUI
