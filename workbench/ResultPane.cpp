#include "workbench/ResultPane.h"

#include "qt/grid/ResultGridWidget.h"
#include "workbench/Texts.h"

#include <QVBoxLayout>

#include <utility>

namespace Workbench
{

CResultPane::CResultPane()
    : CDockPane(u"Workbench.Results", Text(EText::Results))
    , m_form(new CAnalysisForm)
    , m_grains(new CGrainForm)
    , m_view(new CAnalysisView(u"WorkbenchSurface"))
{
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->addWidget(m_form);
    layout->addWidget(m_grains);
    layout->addWidget(m_view, 1);
    m_view->layout()->setContentsMargins(0, 0, 0, 0);
    setWidget(content);
    connect(m_view, &CAnalysisView::Chosen, this, &CResultPane::Chosen);
    connect(m_form, &CAnalysisForm::Changed, this, [this] {
        Analyze();
        Q_EMIT ChoiceChanged(m_form->GetChoice());
    });
    connect(m_grains, &CGrainForm::Changed, this, [this] {
        m_form->SetGrains(m_grains->GetChoice());
        Analyze();
        Q_EMIT ChoiceChanged(m_form->GetChoice());
    });
    connect(m_view, &CAnalysisView::Answered, this, &CResultPane::ShowGrains);
    GetTable().GetPane().SetSelectionCallback(*this, &CResultPane::OnRow);
    m_grains->hide();
}

CResultPane::~CResultPane() = default;

CommonUI::CResultGridWidget& CResultPane::GetTable() const
{
    return *m_view->GetTables().GetTable(CommonUI::EResultTable::Results);
}

void CResultPane::SetSurface(const std::shared_ptr<const SurfaceView::SViewedSurface>& surface,
                             std::vector<SOtherSurface> others, CGrainOverlay* overlay)
{
    const auto input = surface ? surface->input : nullptr;
    m_form->SetSurfaces(input.get(), std::move(others));
    const bool isOtherMap = overlay != m_overlay;
    if (isOtherMap)
        SetOverlay(overlay);
    if (surface && surface->heights && input != m_view->GetSurface())
        m_grains->SetHeights(*surface->heights);
    // What was entered is a height of that surface.
    if (m_form->GetSecond() != m_second || isOtherMap)
        Analyze();
    if (input != m_view->GetSurface())
        m_view->SetSurface(input);
}

void CResultPane::SetOverlay(CGrainOverlay* overlay)
{
    if (m_overlay) {
        m_overlay->disconnect(this);
        m_overlay->SetGrains(nullptr);
    }
    m_overlay = overlay;
    m_grains->Forget();
    if (overlay)
        connect(overlay, &CGrainOverlay::Picked, this, &CResultPane::SelectRow);
}

void CResultPane::SetChoice(const SAnalysisChoice& choice)
{
    m_form->SetChoice(choice);
    m_grains->SetChoice(choice.grains);
    Analyze();
}

SAnalysisRequest CResultPane::GetRequest() const
{
    const SAnalysisChoice& choice = m_form->GetChoice();
    SAnalysisRequest request{.analysis = choice.analysis,
                             .options = MakeFurtherOptions(choice, m_form->GetSecond())};
    if (choice.analysis == CommonUI::EAnalysis::Measure)
        request.method = m_grains->GetMethod();
    return request;
}

void CResultPane::Analyze()
{
    m_second = m_form->GetSecond();
    const SAnalysisRequest request = GetRequest();
    const bool isOfGrains = request.analysis == CommonUI::EAnalysis::Measure;
    m_grains->setVisible(isOfGrains);
    if (!isOfGrains && m_overlay)
        m_overlay->SetGrains(nullptr);
    m_view->SetAnalysis(request.analysis, request.options, request.method);
}

void CResultPane::ShowGrains(const CommonUI::Measurement::CBackgroundResults::SAnswer& answer)
{
    if (m_overlay)
        m_overlay->SetGrains(answer.grains);
    if (answer.grains)
        m_grains->ShowThreshold(answer.grains->limit.threshold);
}

// The first row, or column, has the units; the others are the grains, and behind them may be statistics.
void CResultPane::OnRow()
{
    if (m_isShowing || !m_overlay || !m_overlay->GetGrains() || !GetTable().hasFocus())
        return;
    const CommonUI::SGridCell cell = GetTable().GetPane().GetSelection().GetFocus();
    const std::size_t grain = GetPanel().GetTables().IsTransposed() ? cell.column : cell.row;
    if (grain > 0 && grain <= m_overlay->GetGrains()->map.count)
        m_overlay->ShowGrain(static_cast<std::uint32_t>(grain));
}

void CResultPane::SelectRow(std::uint32_t grain)
{
    if (grain == 0)
        return;
    m_isShowing = true;
    const bool isTransposed = GetPanel().GetTables().IsTransposed();
    GetTable().GetPane().SelectCell(isTransposed ? CommonUI::SGridCell{0, grain}
                                                 : CommonUI::SGridCell{grain, 0});
    m_isShowing = false;
}

} // namespace Workbench
