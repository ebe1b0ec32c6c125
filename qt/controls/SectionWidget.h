#pragma once

#include "../../controls/sections/Sections.h"
#include "../../export/Export.h"

#include <QPushButton>

namespace CommonUI
{

/// The head of a section: an arrow and the title. A click, Space and Enter open or close the section; the
/// arrow keys open it in the direction of reading and close it against that. Screen readers hear whether it
/// is open.
class COMMONUIQT_API CSectionHead : public QPushButton
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CSectionHead(QWidget* parent = nullptr);
    ~CSectionHead() override;

    /// Whether it shows that its section is open.
    bool IsExpanded() const noexcept { return m_expanded; }
    /// Shows that its section is open, or closed.
    void SetExpanded(bool expanded);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user wants the section to be open or closed.
    void ExpandWanted(bool expanded);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int GetArrowWidth() const;

    bool m_expanded = false;
};

/// A collapsible section of a page, whose state is one of a CSections.
class COMMONUIQT_API CSectionWidget : public QWidget
{
    Q_OBJECT

public:
    /// @param sections not owned; it lives as long as the widget is used, and may go first when both go. The
    ///     section is added to it, open.
    /// @param name by which files know the section
    CSectionWidget(CSections& sections, const CStr& name, const QString& title, QWidget* parent = nullptr);
    ~CSectionWidget() override;

    /// Gives the section what it shows while it is open, in place of nothing. The section owns it.
    void SetContent(QWidget& content);
    /// The line that opens and closes the section; lives as long as the widget.
    CSectionHead& GetHead() noexcept { return *m_head; }

private:
    void OnChanged(const CStr& name);
    void Show();

    CSections& m_sections;
    CStr m_name;
    CSectionHead* m_head;
    QWidget* m_content = nullptr;
    CClosureConnection m_connection;
};

} // namespace CommonUI
