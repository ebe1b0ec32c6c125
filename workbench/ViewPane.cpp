#include "workbench/ViewPane.h"

#include "workbench/Texts.h"

#include <QFormLayout>
#include <QScrollArea>

namespace Workbench
{

using CommonUI::CFloatEdit;

CViewPane::CViewPane()
    : CDockPane(u"Workbench.View", Text(EText::ViewPane))
{
    auto* const content = new QWidget;
    auto* const form = new QFormLayout(content);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->addRow(QText(EText::Exaggeration), &m_exaggeration);
    form->addRow(QText(EText::LightAround), &m_lightAround);
    form->addRow(QText(EText::LightAbove), &m_lightAbove);
    auto* const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(content);
    setWidget(area);

    CFloatEdit& exaggeration = m_exaggeration.GetEdit();
    exaggeration.SetFormatString(u"%.3g");
    exaggeration.Setup(1, 0.001F, 1e7F, 1);
    exaggeration.SetChangeNotification(*this, &CViewPane::OnExaggeration);
    CFloatEdit& around = m_lightAround.GetEdit();
    around.SetFormatString(u"%.0f°");
    around.Setup(static_cast<float>(m_look.lightAround), 0, 360, 5);
    around.SetChangeNotification(*this, &CViewPane::OnLightAround);
    CFloatEdit& above = m_lightAbove.GetEdit();
    above.SetFormatString(u"%.0f°");
    above.Setup(static_cast<float>(m_look.lightAbove), 0, 90, 5);
    above.SetChangeNotification(*this, &CViewPane::OnLightAbove);
}

CViewPane::~CViewPane()
{
    // The edits are members that the form shows.
    for (QWidget* const edit : {static_cast<QWidget*>(&m_exaggeration), static_cast<QWidget*>(&m_lightAround),
                                static_cast<QWidget*>(&m_lightAbove)})
        edit->setParent(nullptr);
}

void CViewPane::SetLook(const SBlockLook& look, double exaggeration)
{
    m_look = look;
    m_isSetting = true;
    m_exaggeration.GetEdit().SetValue(
        static_cast<float>(look.exaggeration > 0 ? look.exaggeration : exaggeration));
    m_lightAround.GetEdit().SetValue(static_cast<float>(look.lightAround));
    m_lightAbove.GetEdit().SetValue(static_cast<float>(look.lightAbove));
    m_isSetting = false;
}

void CViewPane::OnExaggeration(float value)
{
    if (!m_isSetting)
        m_look.exaggeration = static_cast<double>(value);
    Tell();
}

void CViewPane::OnLightAround(float value)
{
    if (!m_isSetting)
        m_look.lightAround = static_cast<double>(value);
    Tell();
}

void CViewPane::OnLightAbove(float value)
{
    if (!m_isSetting)
        m_look.lightAbove = static_cast<double>(value);
    Tell();
}

void CViewPane::Tell()
{
    if (!m_isSetting)
        Q_EMIT LookChanged(m_look);
}

} // namespace Workbench
