#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// One entry of a feed.
struct SFeedEntry {
    CStr title{};                                   ///< plain text, possibly empty
    CStr link{};                                    ///< an address of the web, or empty
    CStr summary{};                                 ///< HTML as MakeSafeHtml gives it
    std::optional<std::chrono::sys_seconds> date{}; ///< when it was changed or published, if the feed says so

    friend bool operator==(const SFeedEntry&, const SFeedEntry&) = default;
};

/// What a feed says, made harmless.
struct SFeed {
    CStr title{};                      ///< plain text, possibly empty
    CStr link{};                       ///< the address of the page that the feed is about, or empty
    std::vector<SFeedEntry> entries{}; ///< the first ones, in the feed's order
    std::size_t leftOut = 0;           ///< how many entries there are besides

    friend bool operator==(const SFeed&, const SFeed&) = default;
};

constexpr std::size_t c_mostFeedEntries = 10;            ///< that are read
constexpr std::size_t c_mostFeedElements = 20'000;       ///< of XML in a feed
constexpr std::size_t c_mostFeedTitleCharacters = 200;   ///< longer titles are cut
constexpr std::size_t c_mostFeedSummaryCharacters = 600; ///< longer summaries are cut

/// Reads a feed: Atom (RFC 4287) or RSS 2.0.
/// @param bytes from anywhere; see CXmlDocument
/// @param address where they are from, for links that need it
/// @return false with a reason, and the feed unchanged, when they are no feed
COMMONUI_API bool ReadFeed(std::string_view bytes, std::u16string_view address, SFeed& feed, CStr& reason);

} // namespace CommonUI
