#include "qt/start_pane/StartPaneWidget.h"

#include "common/StringTable.h"
#include "qt/detail/EventGuard.h"
#include "qt/QtText.h"
#include "qt/start_pane/detail/PageStyle.h"

#include <QAction>
#include <QDateTime>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>
#include <QToolTip>
#include <QUrl>

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr int c_title = 11501;
constexpr int c_refresh = 11506;
constexpr int c_stop = 11507;

// Loads nothing, whatever a page names, and tells where the link under the pointer leads.
class CPageBrowser final : public QTextBrowser
{
public:
    CPageBrowser() { setOpenLinks(false); }

protected:
    QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return QByteArray(); }

    bool viewportEvent(QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip)
            return QTextBrowser::viewportEvent(event);
        const auto& help = static_cast<const QHelpEvent&>(*event);
        QToolTip::showText(help.globalPos(), anchorAt(help.pos()).toHtmlEscaped(), viewport());
        return true;
    }
};

// The link that the cursor selects, as it does when the link has the focus; empty where it does not.
QString GetSelectedLink(const QTextCursor& cursor)
{
    return cursor.hasSelection() ? cursor.charFormat().anchorHref() : QString();
}

// Selects the first link that leads somewhere.
void SelectLink(QTextBrowser& page, const QString& address)
{
    QTextCursor cursor(page.document());
    while (cursor.movePosition(QTextCursor::NextCharacter)) {
        if (cursor.charFormat().anchorHref() != address)
            continue;
        cursor.movePosition(QTextCursor::PreviousCharacter);
        while (cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor))
            if (cursor.charFormat().anchorHref() != address) {
                cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
                break;
            }
        page.setTextCursor(cursor);
        return;
    }
}

QDateTime ToLocal(std::chrono::sys_seconds time)
{
    return QDateTime::fromSecsSinceEpoch(time.time_since_epoch().count());
}

} // namespace

CStartPaneWidget::CStartPaneWidget(QWidget* parent)
    : QWidget(parent)
    , m_page(new CPageBrowser)
    , m_status(new QLabel)
    , m_button(new QPushButton)
{
    const QString title = ToQString(GetString(c_title));
    setWindowTitle(title);
    m_page->setAccessibleName(title);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setWordWrap(true);
    setFocusProxy(m_page);
    LayOut();

    auto* const refresh = new QAction(this);
    refresh->setShortcut(QKeySequence::Refresh);
    refresh->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(refresh);
    connect(refresh, &QAction::triggered, this, [this] { Guarded([this] { m_pane.Refresh(); }); });
    connect(m_button, &QPushButton::clicked, this, [this] { Guarded([this] { m_pane.OnButton(); }); });
    connect(m_page, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        Guarded([&] { m_pane.OnLink(FromQString(link.toString(QUrl::FullyEncoded))); });
    });
    m_pane.SetView(this);
}

CStartPaneWidget::~CStartPaneWidget() = default;

void CStartPaneWidget::LayOut()
{
    auto* const line = new QHBoxLayout;
    line->addWidget(m_status, 1);
    line->addWidget(m_button);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_page, 1);
    layout->addLayout(line);
    FitButton();
}

// The button keeps its width whichever text it has.
void CStartPaneWidget::FitButton()
{
    const QString shown = m_button->text();
    int width = 0;
    for (const int text : {c_refresh, c_stop}) {
        m_button->setText(ToQString(GetString(text)));
        width = std::max(width, m_button->sizeHint().width());
    }
    m_button->setText(shown);
    m_button->setFixedWidth(width);
}

void CStartPaneWidget::ShowPage(const CStr& html)
{
    if (m_html == html)
        return;
    m_html = html;
    Draw();
}

void CStartPaneWidget::Draw()
{
    const int place = m_page->verticalScrollBar()->value();
    const QString link = GetSelectedLink(m_page->textCursor());
    const int line = m_page->fontMetrics().height();
    m_page->document()->setDefaultStyleSheet(MakePageStyle(*m_page));
    m_page->document()->setDocumentMargin(line / 2.0);
    m_page->document()->setIndentWidth(line);
    m_page->setHtml(ToQString(m_html));
    if (!link.isEmpty())
        SelectLink(*m_page, link);
    m_page->verticalScrollBar()->setValue(place);
}

void CStartPaneWidget::ShowStatus(const CStr& text)
{
    m_status->setText(ToQString(text));
}

void CStartPaneWidget::ShowButton(bool canRefresh, bool isLoading)
{
    m_button->setVisible(canRefresh);
    m_button->setText(ToQString(GetString(isLoading ? c_stop : c_refresh)));
}

CStr CStartPaneWidget::FormatDay(std::chrono::sys_seconds time) const
{
    return FromQString(locale().toString(ToLocal(time).date(), QLocale::ShortFormat));
}

CStr CStartPaneWidget::FormatTime(std::chrono::sys_seconds time) const
{
    return FromQString(locale().toString(ToLocal(time), QLocale::ShortFormat));
}

bool CStartPaneWidget::OpenAddress(const CStr& address)
{
    return QDesktopServices::openUrl(QUrl(ToQString(address)));
}

void CStartPaneWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool isLook = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
                        event->type() == QEvent::StyleChange;
    if (isLook) {
        FitButton();
        Draw();
    }
}

void CStartPaneWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_pane.IsLoading())
        Guarded([this] { m_pane.Stop(); });
    else
        QWidget::keyPressEvent(event);
}

} // namespace CommonUI
