#pragma once

#include "../../dialogs/settings/SettingsImport.h"
#include "../../export/Export.h"

#include <QDialog>

class QCheckBox;

namespace CommonUI
{

/// Shows what an import would change, which has been prepared, and has it done: CSettingsImport. The window
/// stays open when that fails.
class COMMONUIQT_API CSettingsImportWindow : public QDialog
{
    Q_OBJECT

public:
    /// @param import outlives the window
    explicit CSettingsImportWindow(CSettingsImport& import, ESettingType type, QWidget* parent = nullptr);
    ~CSettingsImportWindow() override;

    /// Whether the tool shall get the set.
    bool IsUsedAtOnce() const;
    void accept() override;

private:
    CSettingsImport& m_import;
    QCheckBox* m_use;
};

} // namespace CommonUI
