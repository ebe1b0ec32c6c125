#include "examples/gallery/Pages.h"
#include "platform/MessageLoop.h"
#include "platform/network/MemoryHttpService.h"
#include "qt/start_pane/StartPaneWidget.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace Gallery
{

namespace
{

using namespace CommonUI;

constexpr const char16_t* c_news = u"https://news.example/atom";
constexpr const char16_t* c_tutorials = u"https://tutorials.example/atom";
constexpr const char16_t* c_modules = u"https://modules.example/rss";

constexpr const char* c_newsFeed = R"(<feed><link href="https://news.example/"/>
<entry><title>Release 4.2 measures grains on curved surfaces</title><link href="/4-2"/>
<updated>2026-02-27T10:00:00Z</updated>
<summary type="html">&lt;p>Spheres and cylinders are removed before thresholds are applied. See
&lt;a href="/4-2/grains">what changes&lt;/a> for surfaces that you have measured already.&lt;/p></summary></entry>
<entry><title>Round robin on Sa below 1&#160;nm: call for laboratories</title><link href="/round-robin"/>
<updated>2026-02-12T08:00:00Z</updated>
<summary type="html">Twelve samples, three of them &lt;b>polished silicon&lt;/b>, travel from April on.</summary>
</entry></feed>)";

constexpr const char* c_tutorialsFeed = R"(<feed>
<entry><title>From a scan to a report in five minutes</title><link href="/first-report"/>
<updated>2026-01-19T00:00:00Z</updated>
<summary type="html">&lt;ul>&lt;li>Level the surface&lt;li>Choose the parameters&lt;li>Save the
template&lt;/ul></summary></entry>
<entry><title>Which cut-off for which roughness?</title><link href="/cut-off"/>
<updated>2025-11-03T00:00:00Z</updated></entry></feed>)";

SHttpAnswer MakeAnswer(const char* feed)
{
    return {.status = 200, .headers = {{"ETag", "\"sample\""}}, .body = feed};
}

// The pane on a web of samples, which fails where it is told to.
class CStartPanePage : public QWidget
{
public:
    explicit CStartPanePage(const FLog& log)
        : m_log(log)
        , m_down(new QCheckBox(QStringLiteral("The server of tutorials is d&own")))
    {
        connect(m_down, &QCheckBox::toggled, this, [this](bool isDown) { SetDown(isDown); });
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(&m_pane, 1);
        layout->addWidget(m_down);
        m_pane.layout()->setContentsMargins(0, 0, 0, 0);

        m_web.SetAnswer(c_news, MakeAnswer(c_newsFeed));
        m_web.SetAnswer(c_modules,
                        {.outcome = EHttpOutcome::Untrusted, .detail = u"The certificate has expired"});
        SetDown(false);
        const SFeedSource sources[] = {
            {EFeedKind::News, c_news}, {EFeedKind::Tutorials, c_tutorials}, {EFeedKind::Modules, c_modules}};
        m_pane.GetPane().SetSources(sources);
    }

    // News from today, tutorials that are known from yesterday, and a server that is not to be trusted.
    void Stage()
    {
        CStartPane& pane = m_pane.GetPane();
        const auto today = std::chrono::sys_days(std::chrono::year(2026) / 3 / 2) + std::chrono::hours(9);
        for (const bool isDown : {false, true}) {
            m_down->setChecked(isDown);
            pane.SetClock([=] { return today - std::chrono::hours(isDown ? 0 : 24); });
            pane.Refresh();
            GetMessageLoop().RunUntil([&] { return !pane.IsLoading(); });
        }
    }

private:
    void SetDown(bool isDown)
    {
        if (isDown)
            m_web.SetAnswer(c_tutorials, {.outcome = EHttpOutcome::NoServer});
        else
            m_web.SetAnswer(c_tutorials, MakeAnswer(c_tutorialsFeed));
        m_log(isDown ? QStringLiteral("Tutorials: no server") : QStringLiteral("Tutorials: a server"));
    }

    FLog m_log;
    QCheckBox* m_down;
    CMemoryHttpService m_web;
    CServiceScope<CHttpService> m_scope{m_web};
    CStartPaneWidget m_pane; // goes before its web
};

} // namespace

QWidget* MakeStartPanePage(const FLog& log)
{
    return new CStartPanePage(log);
}

void StageStartPanePage(QWidget& page)
{
    static_cast<CStartPanePage&>(page).Stage();
}

} // namespace Gallery
