#pragma once

#include "qt/edits/NumericEditWidget.h"
#include "qt/framework/DockPane.h"
#include "workbench/BlockWidget.h"

namespace Workbench
{

/// How the block is shown, in a dock: exaggeration and light.
class CViewPane : public CommonUI::CDockPane
{
    Q_OBJECT

public:
    CViewPane();
    ~CViewPane() override;

    /// @param exaggeration that of the surface, where the look leaves it to it
    void SetLook(const SBlockLook& look, double exaggeration);
    CommonUI::CFloatEditWidget& GetExaggeration() noexcept { return m_exaggeration; }

Q_SIGNALS:
    /// The user has changed one of the numbers.
    void LookChanged(const Workbench::SBlockLook& look);

private:
    void OnExaggeration(float value);
    void OnLightAround(float value);
    void OnLightAbove(float value);
    void Tell();

    SBlockLook m_look;
    bool m_isSetting = false;
    CommonUI::CFloatEditWidget m_exaggeration;
    CommonUI::CFloatEditWidget m_lightAround;
    CommonUI::CFloatEditWidget m_lightAbove;
};

} // namespace Workbench
