#include "examples/gallery/Pages.h"
#include "qt/controls/TabWindow.h"
#include "qt/QtText.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace Gallery
{

namespace
{

using namespace CommonUI;

class CTabsPage : public QWidget
{
public:
    explicit CTabsPage(FLog log)
        : m_log(std::move(log))
    {
        auto* const layout = new QVBoxLayout(this);
        auto* const keys = new QLabel(QStringLiteral(
            "Ctrl+Tab goes through the tabs by their last use, Ctrl+Page Down by their place; with "
            "Shift it moves the tab. Ctrl+F4 closes."));
        keys->setWordWrap(true);
        layout->addWidget(keys);
        auto* const window = new CTabWindow(m_tabs);
        layout->addWidget(window, 1);
        m_close = new QCheckBox(QStringLiteral("Tabs may be &closed"));
        m_close->setChecked(true);
        layout->addWidget(m_close);
        m_tabs.SetCloseQuestion(*this, &CTabsPage::MayClose);
        for (int i = 0; i < 9; ++i) {
            auto* const text = new QPlainTextEdit(QStringLiteral("Page %1").arg(i + 1));
            text->setTabChangesFocus(true);
            const CStr title = i == 0 ? CStr(u"Overview") : CStr::Format(u"Surface %d", i);
            text->setAccessibleName(ToQString(title));
            window->AddPage({title, title, i > 0}, *text);
        }
        m_tabs.SetCurrent(2);
        m_tabs.GetCurrentChanged().Subscribe(*this, &CTabsPage::OnCurrent, m_connection);
    }

private:
    bool MayClose(const CStr& key)
    {
        m_log(QStringLiteral("Close: %1").arg(ToQString(key)));
        return m_close->isChecked();
    }
    void OnCurrent()
    {
        if (const auto current = m_tabs.GetCurrent())
            m_log(QStringLiteral("In front: %1").arg(ToQString(m_tabs.GetTabs()[*current].title)));
    }

    FLog m_log;
    CTabs m_tabs;
    QCheckBox* m_close;
    CClosureConnection m_connection;
};

} // namespace

QWidget* MakeTabsPage(const FLog& log)
{
    return new CTabsPage(log);
}

} // namespace Gallery
