#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "Feed.h"

#include <chrono>
#include <cstddef>
#include <optional>

namespace CommonUI
{

/// What a feed is about.
enum class EFeedKind { News, Tutorials, Revisions, Modules };

/// Where a part of the start pane is from.
struct SFeedSource {
    EFeedKind kind = EFeedKind::News; ///< gives the title where there is no other
    CStr address{};                   ///< see IsWebAddress
    CStr title{};                     ///< above the entries; empty for that of the kind

    friend bool operator==(const SFeedSource&, const SFeedSource&) = default;
};

/// What is known of a feed.
enum class EFeedState {
    NotFetched, ///< nothing, and nobody has asked
    Kept,       ///< what the cache has, and nobody has asked for more
    Loading,    ///< what was known before, if anything; an answer is on its way
    Current,    ///< what the server says
    Offline,    ///< what was known before, as it could not be fetched now
    Failed      ///< nothing, as it could not be fetched
};

/// A part of the start pane: a feed and its state.
struct SFeedSection {
    SFeedSource source{};                              ///< where the feed is from
    EFeedState state = EFeedState::NotFetched;         ///< decides what the other members mean
    SFeed feed{};                                      ///< what is shown; empty where nothing is known
    std::optional<std::chrono::sys_seconds> fetched{}; ///< when the server gave the feed or confirmed it
    CStr reason{};            ///< why it is Offline or Failed, to stand in a sentence
    std::size_t received = 0; ///< while it loads: bytes so far
};

/// The title above a section.
COMMONUI_API CStr GetSectionTitle(const SFeedSource& source);

} // namespace CommonUI
