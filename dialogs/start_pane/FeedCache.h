#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>

namespace CommonUI
{

/// A feed as its server gave it.
struct SCachedFeed {
    CStr address{};                     ///< that was asked for
    CStr source{};                      ///< where the answer is from, behind all redirects
    std::chrono::sys_seconds fetched{}; ///< when the server gave it, or last said that it has not changed
    std::string entityTag{};            ///< the header "ETag", or empty
    std::string lastModified{};         ///< the header "Last-Modified", or empty
    std::string body{};                 ///< the feed itself, byte for byte

    friend bool operator==(const SCachedFeed&, const SCachedFeed&) = default;
};

/// Keeps feeds in a folder, so that there is something to show without a network. Every feed is a file that a
/// reader finds whole or not at all; a file that is damaged is removed, and a line in the diagnostics says
/// so. Used by one thread at a time; several programs may share a folder.
class COMMONUI_API CFeedCache
{
public:
    COMMONUI_CONSTANT std::size_t c_defaultSize = std::size_t{8} << 20; ///< of all feeds together, in bytes

    /// @param folder comes into being with the first feed; files in it that are no feeds are left alone
    /// @param largestSize of all feeds together, in bytes; those written the longest ago have to go
    explicit CFeedCache(const CStr& folder, std::size_t largestSize = c_defaultSize);

    /// @return false, and the feed unchanged, if there is none of the address
    bool Load(const CStr& address, SCachedFeed& feed) const;
    /// Keeps a feed in place of the one of its address. Header values that are no single line are left out.
    /// @return false, with a line in the diagnostics, when it cannot be kept; what was there before remains
    bool Store(const SCachedFeed& feed) const;

private:
    std::filesystem::path GetFile(const CStr& address) const;
    void MakeRoom(const std::filesystem::path& newest) const;

    std::filesystem::path m_folder;
    std::size_t m_largestSize;
};

} // namespace CommonUI
