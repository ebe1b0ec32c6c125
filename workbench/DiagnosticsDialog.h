#pragma once

#include <QDialog>

class QPlainTextEdit;

namespace Workbench
{

/// What support asks for, in a text that can be read, searched and copied whole.
class CDiagnosticsDialog : public QDialog
{
    Q_OBJECT

public:
    CDiagnosticsDialog(const QString& text, QWidget* parent);
    ~CDiagnosticsDialog() override;

    QString GetText() const;

private:
    void CopyAll() const;

    QPlainTextEdit* m_text;
};

} // namespace Workbench
