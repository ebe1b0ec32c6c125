#include "dialogs/start_pane/Feed.h"

#include "dialogs/start_pane/FeedDate.h"
#include "dialogs/start_pane/SafeHtml.h"
#include "platform/network/WebAddress.h"
#include "platform/xml/XmlDocument.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_html = u"html";

// Where a form of feeds keeps what, as paths of XPath.
struct SFeedForm {
    std::u16string_view root;
    std::u16string_view title;
    std::u16string_view link;
    std::u16string_view entry;
    std::u16string_view entryLinks[2];
    std::u16string_view dates[2];
    std::u16string_view summaries[2];
    bool hasTypes; // texts say whether they are HTML; otherwise they are
};

constexpr SFeedForm c_forms[] = {
    {u"feed",
     u"title",
     u"link[not(@rel) or @rel='alternate']/@href",
     u"entry",
     {u"link[not(@rel) or @rel='alternate']/@href", u"link/@href"},
     {u"published", u"updated"},
     {u"summary", u"content"},
     true},
    {u"rss",
     u"channel/title",
     u"channel/link",
     u"channel/item",
     {u"link", u"guid[not(@isPermaLink) or @isPermaLink='true']"},
     {u"pubDate", u"dc:date"},
     {u"description", u"content:encoded"},
     false},
};

class CFeedReader
{
public:
    CFeedReader(const CXmlDocument& xml, const SFeedForm& form, std::u16string_view address)
        : m_xml(xml)
        , m_form(form)
        , m_address(address)
    {
    }

    std::size_t Count(std::u16string_view what) const
    {
        const std::string number = m_xml.QueryText(CStr::Format(u"count(%s)", what), {}).ToUtf8();
        return static_cast<std::size_t>(std::strtod(number.c_str(), nullptr));
    }

    SFeed Read() const
    {
        const std::size_t count = Count(m_form.entry);
        SFeed feed{.title = Title(m_form.title), .link = Link(m_form.link)};
        feed.leftOut = count - std::min(count, c_mostFeedEntries);
        for (std::size_t number = 1; number <= count - feed.leftOut; ++number) {
            SFeedEntry entry = ReadEntry(CStr::Format(u"%s[%d]/", m_form.entry, number));
            if (entry != SFeedEntry{.date = entry.date})
                feed.entries.push_back(std::move(entry));
        }
        return feed;
    }

private:
    SFeedEntry ReadEntry(const CStr& at) const
    {
        SFeedEntry entry{.title = Title(at + u"title")};
        for (const std::u16string_view link : m_form.entryLinks)
            if (entry.link.IsEmpty())
                entry.link = Link(at + link);
        for (const std::u16string_view date : m_form.dates)
            if (!entry.date)
                entry.date = ReadFeedDate(m_xml.QueryText(at + date, {}));
        for (const std::u16string_view summary : m_form.summaries)
            if (entry.summary.IsEmpty())
                entry.summary = Html(at + summary);
        return entry;
    }

    CStr Title(const CStr& at) const
    {
        const CStr text = m_xml.QueryText(at, {});
        return GetTextOfHtml(IsHtml(at) ? text : EscapeHtml(text), c_mostFeedTitleCharacters);
    }
    CStr Html(const CStr& at) const
    {
        const CStr text = m_xml.QueryText(at, {});
        return MakeSafeHtml(IsHtml(at) ? text : EscapeHtml(text), m_address, c_mostFeedSummaryCharacters);
    }
    CStr Link(const CStr& at) const { return ResolveWebAddress(m_xml.QueryText(at, {}), m_address); }
    bool IsHtml(const CStr& at) const
    {
        return !m_form.hasTypes || m_xml.QueryText(at + u"/@type", {}) == c_html;
    }

    const CXmlDocument& m_xml;
    const SFeedForm& m_form;
    std::u16string_view m_address;
};

} // namespace

bool ReadFeed(std::string_view bytes, std::u16string_view address, SFeed& feed, CStr& reason)
{
    const std::unique_ptr<CXmlDocument> xml = MakeXmlDocument();
    for (const SFeedForm& form : c_forms) {
        if (!xml->Load(bytes, form.root, reason))
            continue;
        const CFeedReader reader(*xml, form, address);
        if (reader.Count(u"//*") > c_mostFeedElements) {
            reason = CStr::Format(u"more than %d elements", c_mostFeedElements);
            return false;
        }
        feed = reader.Read();
        return true;
    }
    return false;
}

} // namespace CommonUI
