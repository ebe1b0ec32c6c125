#pragma once

#include "../../dialogs/start_pane/StartPane.h"
#include "../../export/Export.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTextBrowser;

namespace CommonUI
{

/// The start pane as a widget, to be put into a QDockWidget or beside others. Links open in the browser of
/// the desktop, by a click or by Enter; nothing on the page is loaded or opened otherwise. F5 refreshes,
/// Escape stops.
class COMMONUIQT_API CStartPaneWidget : public QWidget, public CStartPaneView
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CStartPaneWidget(QWidget* parent = nullptr);
    ~CStartPaneWidget() override;

    /// What is shown, for the application to name feeds and a folder for the cache.
    CStartPane& GetPane() noexcept { return m_pane; }

    void ShowPage(const CStr& html) override;
    void ShowStatus(const CStr& text) override;
    void ShowButton(bool canRefresh, bool isLoading) override;
    CStr FormatDay(std::chrono::sys_seconds time) const override;
    CStr FormatTime(std::chrono::sys_seconds time) const override;
    bool OpenAddress(const CStr& address) override;

    /// What shows the page; lives as long as the widget.
    QTextBrowser& GetPage() noexcept { return *m_page; }
    /// The line of text below it; lives as long as the widget.
    QLabel& GetStatus() noexcept { return *m_status; }
    /// The button that refreshes or stops; lives as long as the widget.
    QPushButton& GetButton() noexcept { return *m_button; }

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LayOut();
    void FitButton();
    void Draw();

    QTextBrowser* m_page;
    QLabel* m_status;
    QPushButton* m_button;
    CStr m_html;
    CStartPane m_pane; // goes before what it is shown by
};

} // namespace CommonUI
