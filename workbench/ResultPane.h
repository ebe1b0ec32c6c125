#pragma once

#include "qt/framework/DockPane.h"
#include "workbench/see/RoughnessView.h"

namespace Workbench
{

/// The roughness parameters of a surface in a dock, with what a result dialog has for them: see
/// CRoughnessView.
class CResultPane : public CommonUI::CDockPane
{
    Q_OBJECT

public:
    CResultPane();
    ~CResultPane() override;

    /// @param input null for none
    void SetSurface(std::shared_ptr<const CommonUI::Measurement::SInput> input);
    /// Opens the dialog in which the parameters are chosen.
    void Choose() { m_view->Choose(); }
    CommonUI::CResultPanel& GetPanel() noexcept { return m_view->GetPanel(); }
    bool IsBusy() const noexcept { return m_view->IsBusy(); }
    /// What is said above the table.
    QString GetState() const { return m_view->GetState(); }

Q_SIGNALS:
    /// The user has changed the preferences.
    void Chosen();

private:
    CRoughnessView* m_view;
};

} // namespace Workbench
