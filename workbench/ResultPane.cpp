#include "workbench/ResultPane.h"

#include "workbench/Texts.h"

#include <QVBoxLayout>

#include <utility>

namespace Workbench
{

CResultPane::CResultPane()
    : CDockPane(u"Workbench.Results", Text(EText::Results))
    , m_form(new CAnalysisForm)
    , m_view(new CAnalysisView(u"WorkbenchSurface"))
{
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->addWidget(m_form);
    layout->addWidget(m_view, 1);
    m_view->layout()->setContentsMargins(0, 0, 0, 0);
    setWidget(content);
    connect(m_view, &CAnalysisView::Chosen, this, &CResultPane::Chosen);
    connect(m_form, &CAnalysisForm::Changed, this, [this] {
        Analyze();
        Q_EMIT ChoiceChanged(m_form->GetChoice());
    });
}

CResultPane::~CResultPane() = default;

void CResultPane::SetSurface(std::shared_ptr<const CommonUI::Measurement::SInput> input,
                             std::vector<SOtherSurface> others)
{
    m_form->SetSurfaces(input.get(), std::move(others));
    if (m_form->GetSecond() != m_second)
        Analyze();
    if (input != m_view->GetSurface())
        m_view->SetSurface(std::move(input));
}

void CResultPane::SetChoice(const SAnalysisChoice& choice)
{
    m_form->SetChoice(choice);
    Analyze();
}

void CResultPane::Analyze()
{
    m_second = m_form->GetSecond();
    const SAnalysisChoice& choice = m_form->GetChoice();
    m_view->SetAnalysis(choice.analysis, MakeFurtherOptions(choice, m_second));
}

} // namespace Workbench
