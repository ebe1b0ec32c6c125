#pragma once

#include <QWidget>

class QListWidget;
class QPlainTextEdit;
class QStackedWidget;

namespace Gallery
{

/// The pages, one of which is shown, and below it what its controls have called.
class CGalleryWindow : public QWidget
{
public:
    CGalleryWindow();

    void SelectPage(int index);
    QWidget& GetPage(int index) const;
    void Write(const QString& line);

private:
    QWidget* MakeRightSide();

    QListWidget* m_list;
    QStackedWidget* m_pages;
    QPlainTextEdit* m_log;
};

} // namespace Gallery
