#include "workbench/ResultPane.h"

#include "workbench/Texts.h"

namespace Workbench
{

CResultPane::CResultPane()
    : CDockPane(u"Workbench.Results", Text(EText::Results))
    , m_view(new CRoughnessView(u"WorkbenchSurface"))
{
    setWidget(m_view);
    connect(m_view, &CRoughnessView::Chosen, this, &CResultPane::Chosen);
}

CResultPane::~CResultPane() = default;

void CResultPane::SetSurface(std::shared_ptr<const CommonUI::Measurement::SInput> input)
{
    m_view->SetSurface(std::move(input));
}

} // namespace Workbench
