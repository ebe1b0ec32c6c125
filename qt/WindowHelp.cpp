#include "qt/detail/WindowHelp.h"

#include "platform/HelpService.h"
#include "qt/detail/EventGuard.h"

#include <QEvent>
#include <QShortcut>
#include <QWhatsThis>

#include <utility>

namespace CommonUI
{

namespace
{

class CWindowHelp final : public QObject
{
public:
    CWindowHelp(QDialog& window, std::function<void()> ask)
        : QObject(&window)
        , m_ask(std::move(ask))
    {
        window.setWindowFlag(Qt::WindowContextHelpButtonHint);
        window.installEventFilter(this);
        const auto* const key = new QShortcut(Qt::Key_F1, &window);
        connect(key, &QShortcut::activated, this, [this] { Guarded(m_ask); });
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() != QEvent::EnterWhatsThisMode)
            return false;
        QWhatsThis::leaveWhatsThisMode();
        Guarded(m_ask);
        return true;
    }

private:
    std::function<void()> m_ask;
};

} // namespace

void AddHelp(QDialog& window, std::function<void()> ask)
{
    new CWindowHelp(window, std::move(ask));
}

void AddHelp(QDialog& window, unsigned int topic)
{
    AddHelp(window, [topic] { GetHelpService().Open(topic); });
}

} // namespace CommonUI
