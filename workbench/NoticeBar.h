#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace Workbench
{

/// A sentence above what it is about, with something to do about it. It takes no focus away and waits until
/// somebody has time for it.
class CNoticeBar : public QFrame
{
    Q_OBJECT

public:
    CNoticeBar(const QString& command, const QString& dismiss);

    /// Shows a sentence, or hides the bar with an empty one.
    void SetText(const QString& text);
    QString GetText() const;
    QPushButton& GetCommand() noexcept { return *m_command; }

Q_SIGNALS:
    void Accepted();
    void Dismissed();

private:
    QLabel* m_text;
    QPushButton* m_command;
};

} // namespace Workbench
