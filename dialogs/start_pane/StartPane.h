#pragma once

#include "../../common/Str.h"
#include "../../controls/View.h"
#include "../../export/Export.h"
#include "../../platform/network/HttpService.h"
#include "FeedCache.h"
#include "FeedSection.h"
#include "StartPaneView.h"

#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace CommonUI
{

/// The pane that shows news, tutorials, revisions and modules from feeds that the application names. There
/// are none at first, and naming them fetches nothing: that takes a refresh, by the user or the application.
/// Feeds are fetched by GetHttpService() and asked for under the condition that they have changed. What
/// cannot be fetched is shown from the cache, with the reason.
///
/// Used on the user-interface thread. It must not outlive the services that it uses.
class COMMONUI_API CStartPane : public CViewedControl<CStartPaneView>
{
public:
    /// Tells the time of day in UTC.
    using FClock = std::function<std::chrono::sys_seconds()>;

    CStartPane();
    /// Stops what is loading.
    ~CStartPane();

    /// Gives the pane its window; null takes it away. The view is not owned.
    void SetView(CStartPaneView* view);
    /// Where feeds are kept for when there is no network; nowhere at first, and with an empty text. To be
    /// called before SetSources.
    void SetCacheFolder(const CStr& folder);
    /// What an answer may cost; as SHttpRequest has it at first.
    void SetLimits(std::size_t largestSize, std::chrono::milliseconds longestTime);
    /// The time of day; that of the system at first.
    void SetClock(FClock clock) { m_clock = std::move(clock); }

    /// Shows other feeds, in this order, as far as the cache has them. What is loading stops.
    void SetSources(std::span<const SFeedSource> sources);
    /// Fetches all feeds that are not loading already.
    void Refresh() { RefreshOlderThan(std::chrono::seconds(0)); }
    /// Fetches the feeds that were never fetched, or so long ago or longer.
    void RefreshOlderThan(std::chrono::seconds age);
    /// Stops what is loading; those feeds are as they were before.
    void Stop();

    /// Whether the answer of a server is still to come, for any of the feeds.
    bool IsLoading() const noexcept;
    /// The feeds and what is known of each, in the order of SetSources.
    const std::vector<SFeedSection>& GetSections() const noexcept { return m_sections; }

    /// The user has pressed the button.
    void OnButton();
    /// The user has followed a link: it is opened if it leads to the web.
    void OnLink(const CStr& address);

private:
    // What is not for show; one for each section.
    struct SFetch {
        CHttpService::TIdentifier request = 0; // that runs
        EFeedState before = EFeedState::NotFetched;
        SCachedFeed known{}; // of what is shown; its body is in the cache alone
    };

    void LoadKept(std::size_t index);
    void Start(std::size_t index);
    void OnProgress(std::size_t index, std::size_t received);
    void OnAnswer(std::size_t index, const SHttpAnswer& answer);
    CStr Take(std::size_t index, const SHttpAnswer& answer);
    void Keep(std::size_t index, const SHttpAnswer& answer);
    void KeepUnchanged(std::size_t index);
    void Show();
    void ShowStatus();

    std::optional<CFeedCache> m_cache;
    SHttpRequest m_limits;
    FClock m_clock;
    std::vector<SFeedSection> m_sections;
    std::vector<SFetch> m_fetches;
};

} // namespace CommonUI
