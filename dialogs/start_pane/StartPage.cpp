#include "dialogs/start_pane/StartPage.h"

#include "common/StringTable.h"
#include "common/TextBuilder.h"
#include "dialogs/start_pane/detail/StartPaneTexts.h"
#include "dialogs/start_pane/SafeHtml.h"
#include "dialogs/start_pane/StartPaneView.h"
#include "platform/network/WebAddress.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

CStr Paragraph(std::u16string_view cssClass, std::u16string_view html)
{
    return CStr::Format(u"<p class=\"%s\">%s</p>", cssClass, html);
}

CStr Link(const CStr& address, const CStr& text)
{
    const CStr escaped = EscapeHtml(text);
    return address.IsEmpty() ? escaped : CStr::Format(u"<a href=\"%s\">%s</a>", EscapeHtml(address), escaped);
}

class CPageWriter
{
public:
    explicit CPageWriter(const CStartPaneView& view)
        : m_view(view)
    {
    }

    CStr Write(std::span<const SFeedSection> sections)
    {
        if (sections.empty())
            m_page += Paragraph(u"state", EscapeHtml(GetString(c_nothingConfigured)));
        for (const SFeedSection& section : sections)
            WriteSection(section);
        return m_page.Take();
    }

private:
    void WriteSection(const SFeedSection& section)
    {
        const bool isFault = section.state == EFeedState::Offline || section.state == EFeedState::Failed;
        m_page += CStr::Format(u"<h2>%s</h2>", EscapeHtml(GetSectionTitle(section.source)));
        m_page += Paragraph(isFault ? u"fault" : u"state", EscapeHtml(StateOf(section)));
        for (const SFeedEntry& entry : section.feed.entries)
            WriteEntry(entry);
        if (section.fetched && section.feed.entries.empty())
            m_page += Paragraph(u"state", EscapeHtml(GetString(c_noEntries)));
        if (section.feed.leftOut != 0)
            m_page += Paragraph(u"entry", Link(section.feed.link,
                                               CStr::Format(GetString(c_moreEntries), section.feed.leftOut)));
    }

    void WriteEntry(const SFeedEntry& entry)
    {
        CStr head = Link(entry.link, entry.title.IsEmpty() ? GetString(c_noTitle) : entry.title);
        if (entry.date)
            head += CStr::Format(u"<br/><span class=\"date\">%s</span>",
                                 EscapeHtml(m_view.FormatDay(*entry.date)));
        m_page += Paragraph(u"entry", head);
        if (!entry.summary.IsEmpty())
            m_page += CStr::Format(u"<div class=\"summary\">%s</div>", entry.summary);
    }

    CStr StateOf(const SFeedSection& section) const
    {
        const CStr time = section.fetched ? m_view.FormatTime(*section.fetched) : CStr();
        switch (section.state) {
        case EFeedState::NotFetched:
            return CStr::Format(GetString(c_notFetched), GetWebServer(section.source.address));
        case EFeedState::Kept:
            return CStr::Format(GetString(c_asOf), time);
        case EFeedState::Loading:
            return GetString(c_loading);
        case EFeedState::Current:
            return CStr::Format(GetString(c_updated), time);
        case EFeedState::Offline:
            return CStr::Format(GetString(c_offlineSince), time, section.reason);
        case EFeedState::Failed:
            break;
        }
        return CStr::Format(GetString(c_notAvailable), section.reason);
    }

    const CStartPaneView& m_view;
    CTextBuilder m_page;
};

} // namespace

CStr GetSectionTitle(const SFeedSource& source)
{
    return source.title.IsEmpty() ? GetString(c_feedKinds + static_cast<int>(source.kind)) : source.title;
}

CStr MakeStartPage(std::span<const SFeedSection> sections, const CStartPaneView& view)
{
    return CPageWriter(view).Write(sections);
}

CStr MakeStartStatus(std::span<const SFeedSection> sections, const CStartPaneView& view)
{
    const auto count = [&](EFeedState state) {
        return std::count_if(sections.begin(), sections.end(),
                             [state](const SFeedSection& section) { return section.state == state; });
    };
    const auto all = static_cast<std::ptrdiff_t>(sections.size());
    if (all == 0)
        return {};
    if (count(EFeedState::Loading) != 0) {
        std::size_t received = 0;
        for (const SFeedSection& section : sections)
            received += section.received;
        return received == 0 ? GetString(c_loading)
                             : CStr::Format(GetString(c_loadingSize), (received + 999) / 1000);
    }
    if (const auto faults = count(EFeedState::Offline) + count(EFeedState::Failed); faults != 0)
        return CStr::Format(GetString(c_someNotFetched), faults, all);
    if (count(EFeedState::Current) < all)
        return GetString(c_notRefreshed);
    const auto oldest =
        std::min_element(sections.begin(), sections.end(),
                         [](const SFeedSection& a, const SFeedSection& b) { return a.fetched < b.fetched; });
    return CStr::Format(GetString(c_updated), view.FormatTime(oldest->fetched.value()));
}

} // namespace CommonUI
