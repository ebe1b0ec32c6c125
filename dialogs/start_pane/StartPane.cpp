#include "dialogs/start_pane/StartPane.h"

#include "common/Diagnostics.h"
#include "common/StringTable.h"
#include "dialogs/start_pane/detail/StartPaneTexts.h"
#include "dialogs/start_pane/StartPage.h"
#include "platform/network/WebAddress.h"

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr int c_unchanged = 304; // of HTTP
constexpr int c_ok = 200;

std::chrono::sys_seconds GetSystemTime()
{
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

CStr WithDetail(const CStr& reason, const CStr& detail)
{
    return detail.IsEmpty() ? reason : CStr::Format(GetString(c_reasonWithDetail), reason, detail);
}

CStr ReasonOf(const SHttpAnswer& answer)
{
    if (answer.outcome == EHttpOutcome::Answered)
        return CStr::Format(GetString(c_httpStatus), answer.status);
    const CStr reason = GetString(c_httpOutcomes + static_cast<int>(answer.outcome));
    const bool isExplained =
        answer.outcome == EHttpOutcome::Untrusted || answer.outcome == EHttpOutcome::Failed;
    return WithDetail(reason, isExplained ? answer.detail : CStr());
}

// What a server has said is no way to other headers.
void AddHeader(SHttpRequest& request, const char* name, const std::string& value)
{
    if (!value.empty() && value.find_first_of("\r\n") == value.npos)
        request.headers.push_back({name, value});
}

} // namespace

CStartPaneView::~CStartPaneView() = default;

CStartPane::CStartPane()
    : m_clock(GetSystemTime)
{
}

CStartPane::~CStartPane()
{
    CViewedControl::Link(*this, nullptr);
    Stop();
}

void CStartPane::SetView(CStartPaneView* view)
{
    Link(*this, view);
    Show();
}

void CStartPane::SetCacheFolder(const CStr& folder)
{
    m_cache.reset();
    if (!folder.IsEmpty())
        m_cache.emplace(folder);
}

void CStartPane::SetLimits(std::size_t largestSize, std::chrono::milliseconds longestTime)
{
    m_limits.largestSize = largestSize;
    m_limits.longestTime = longestTime;
}

void CStartPane::SetSources(std::span<const SFeedSource> sources)
{
    Stop();
    m_sections.clear();
    m_fetches.assign(sources.size(), {});
    for (const SFeedSource& source : sources) {
        m_sections.push_back({.source = source});
        LoadKept(m_sections.size() - 1);
    }
    Show();
}

void CStartPane::LoadKept(std::size_t index)
{
    SFeedSection& section = m_sections[index];
    SCachedFeed kept;
    CStr reason;
    if (!m_cache || !m_cache->Load(section.source.address, kept))
        return;
    if (!ReadFeed(kept.body, kept.source, section.feed, reason)) {
        GetDiagnostics().Write(
            u"StartPane", EDiagnosticLevel::Warning,
            CStr::Format(u"The kept feed of \"%s\" cannot be read: %s.", section.source.address, reason));
        return;
    }
    section.fetched = kept.fetched;
    section.state = EFeedState::Kept;
    kept.body.clear();
    m_fetches[index].known = std::move(kept);
}

void CStartPane::RefreshOlderThan(std::chrono::seconds age)
{
    const auto now = m_clock();
    for (std::size_t index = 0; index < m_sections.size(); ++index) {
        const auto& fetched = m_sections[index].fetched;
        const bool isOld = age.count() == 0 || !fetched || now - *fetched >= age || *fetched > now;
        if (isOld && m_fetches[index].request == 0)
            Start(index);
    }
    Show();
}

void CStartPane::Start(std::size_t index)
{
    SFeedSection& section = m_sections[index];
    SFetch& fetch = m_fetches[index];
    SHttpRequest request = m_limits;
    request.address = section.source.address;
    AddHeader(request, "Accept",
              "application/atom+xml, application/rss+xml, application/xml;q=0.9, text/xml;q=0.9");
    AddHeader(request, "If-None-Match", fetch.known.entityTag);
    AddHeader(request, "If-Modified-Since", fetch.known.lastModified);
    fetch.before = std::exchange(section.state, EFeedState::Loading);
    section.received = 0;
    fetch.request = GetHttpService().Get(
        request, [this, index](const SHttpAnswer& answer) { OnAnswer(index, answer); },
        [this, index](std::size_t received, std::size_t) { OnProgress(index, received); });
}

void CStartPane::Stop()
{
    for (std::size_t index = 0; index < m_sections.size(); ++index)
        if (const auto request = std::exchange(m_fetches[index].request, 0); request != 0) {
            GetHttpService().Cancel(request);
            m_sections[index].state = m_fetches[index].before;
        }
    Show();
}

bool CStartPane::IsLoading() const noexcept
{
    return std::any_of(m_fetches.begin(), m_fetches.end(),
                       [](const SFetch& fetch) { return fetch.request != 0; });
}

void CStartPane::OnProgress(std::size_t index, std::size_t received)
{
    m_sections[index].received = received;
    ShowStatus();
}

void CStartPane::OnAnswer(std::size_t index, const SHttpAnswer& answer)
{
    SFeedSection& section = m_sections[index];
    m_fetches[index].request = 0;
    section.received = 0;
    section.reason = Take(index, answer);
    if (section.reason.IsEmpty())
        section.state = EFeedState::Current;
    else
        section.state = section.fetched ? EFeedState::Offline : EFeedState::Failed;
    Show();
}

// Shows and keeps what the server says. Returns why there is nothing to take.
CStr CStartPane::Take(std::size_t index, const SHttpAnswer& answer)
{
    SFeedSection& section = m_sections[index];
    const bool isUnchanged = answer.status == c_unchanged && section.fetched;
    if (answer.outcome != EHttpOutcome::Answered || (answer.status != c_ok && !isUnchanged))
        return ReasonOf(answer);
    CStr reason;
    if (!isUnchanged && !ReadFeed(answer.body, answer.address, section.feed, reason))
        return WithDetail(GetString(c_noFeed), reason);
    section.fetched = m_clock();
    if (isUnchanged)
        KeepUnchanged(index);
    else
        Keep(index, answer);
    return {};
}

void CStartPane::Keep(std::size_t index, const SHttpAnswer& answer)
{
    SCachedFeed& known = m_fetches[index].known;
    const SFeedSection& section = m_sections[index];
    known = {.address = section.source.address,
             .source = answer.address,
             .fetched = *section.fetched,
             .entityTag = std::string(answer.GetHeader("ETag")),
             .lastModified = std::string(answer.GetHeader("Last-Modified"))};
    if (!m_cache)
        return;
    SCachedFeed whole = known;
    whole.body = answer.body;
    m_cache->Store(whole);
}

void CStartPane::KeepUnchanged(std::size_t index)
{
    SCachedFeed whole;
    if (!m_cache || !m_cache->Load(m_sections[index].source.address, whole))
        return;
    whole.fetched = *m_sections[index].fetched;
    m_cache->Store(whole);
}

void CStartPane::OnButton()
{
    if (IsLoading())
        Stop();
    else
        Refresh();
}

void CStartPane::OnLink(const CStr& address)
{
    if (GetView() && IsWebAddress(address) && !GetView()->OpenAddress(address))
        GetDiagnostics().Write(u"StartPane", EDiagnosticLevel::Warning,
                               CStr::Format(u"There is nothing to open \"%s\" with.", address));
}

void CStartPane::Show()
{
    if (CStartPaneView* const view = GetView()) {
        view->ShowPage(MakeStartPage(m_sections, *view));
        view->ShowButton(!m_sections.empty(), IsLoading());
    }
    ShowStatus();
}

void CStartPane::ShowStatus()
{
    if (CStartPaneView* const view = GetView())
        view->ShowStatus(MakeStartStatus(m_sections, *view));
}

} // namespace CommonUI
