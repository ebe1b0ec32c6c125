#include "workbench/see/CurvePane.h"

#include "measurement/charts/HeightCharts.h"
#include "measurement/charts/SpectrumChart.h"
#include "workbench/see/ChartCommands.h"
#include "workbench/see/SaveAndCopy.h"
#include "workbench/see/SeeTexts.h"
#include "workbench/Texts.h"

#include <QBuffer>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

#include <exception>
#include <utility>

namespace Workbench
{

using namespace CommonUI::Measurement;
using CommonUI::CStr;
using CommonUI::Analysis::SSurface;

namespace
{

constexpr std::size_t c_mostFrequencies = 512;

// What cannot be computed stays empty: a sentence in the place of the chart says so.
CCurvePane::CCurves ComputeCurves(const SSurface& surface)
{
    CCurvePane::CCurves curves;
    try {
        const CommonUI::Analysis::CMaterialRatio curve(surface.heights);
        curves[0] = {MakeHistogramChart(ComputeHistogram(curve)), DrawHistogram(curve)};
        curves[1] = {MakeMaterialRatioChart(MakeMaterialRatioFigure(curve, !surface.IsProfile())),
                     DrawMaterialRatio(curve, !surface.IsProfile())};
        const auto spectrum = CommonUI::Analysis::ComputePowerSpectrum(surface, c_mostFrequencies);
        if (spectrum.size() >= 2)
            curves[2] = {MakeSpectrumChart(MakeSpectrumFigure(spectrum)), DrawSpectrum(spectrum)};
    } catch (const std::exception&) {
        return curves;
    }
    return curves;
}

} // namespace

CCurvePane::CCurvePane()
    : CDockPane(u"Workbench.Curves", Text(ESeeText::Curves))
    , m_choice(new QComboBox)
    , m_state(new QLabel)
    , m_chart(new CChartWidget)
    , m_commands(new CChartCommands(*m_chart))
{
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    auto* const row = new QHBoxLayout;
    auto* const label = new QLabel(QText(ESeeText::ChosenCurve));
    label->setBuddy(m_choice);
    for (const auto text : {ESeeText::Histogram, ESeeText::MaterialRatio, ESeeText::Spectrum})
        m_choice->addItem(QText(text));
    m_choice->setAccessibleName(
        QText(ESeeText::ChosenCurve).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    row->addWidget(label);
    row->addWidget(m_choice, 1);
    layout->addLayout(row);
    layout->addWidget(m_state);
    layout->addWidget(m_chart, 1);
    layout->addWidget(m_commands);
    setWidget(content);
    m_state->setWordWrap(true);
    connect(m_choice, &QComboBox::currentIndexChanged, this, &CCurvePane::Show);
    connect(m_commands, &CChartCommands::SaveWanted, this, &CCurvePane::Save);
    Show();
}

CCurvePane::~CCurvePane() = default;

void CCurvePane::SetSurface(std::shared_ptr<const SurfaceView::SViewedSurface> surface)
{
    if (surface == m_surface)
        return;
    m_surface = std::move(surface);
    m_curves = nullptr;
    m_work.Cancel();
    Compute();
    Show();
}

void CCurvePane::showEvent(QShowEvent* event)
{
    CDockPane::showEvent(event);
    Compute();
    Show();
}

void CCurvePane::Compute()
{
    if (!m_surface || m_curves || m_work.IsBusy() || !isVisible())
        return;
    m_work.Request([this, surface = m_surface](const auto&) {
        auto curves = std::make_shared<const CCurves>(ComputeCurves(surface->GetSurface()));
        return [this, curves] {
            m_curves = curves;
            Show();
        };
    });
}

const CCurvePane::SCurve& CCurvePane::GetCurve() const
{
    static const SCurve none;
    return m_curves ? (*m_curves)[static_cast<std::size_t>(m_choice->currentIndex())] : none;
}

void CCurvePane::Show()
{
    const SCurve& curve = GetCurve();
    const bool isThere = !curve.chart.lines.empty();
    m_state->setText(!m_surface        ? QText(EText::NoSurface)
                     : m_work.IsBusy() ? QText(EText::Computing)
                                       : QText(ESeeText::NoCurve));
    m_state->setVisible(!isThere);
    m_chart->setVisible(isThere);
    m_commands->SetChartThere(isThere);
    m_chart->SetChart(curve.chart);
    m_chart->SetRead(isThere ? curve.chart.lines.size() - 1 : 0); // what explains the curve comes before
}

void CCurvePane::Save() const
{
    const CStr path = ChooseFileToSave(u"Pictures (*.svg;*.png)|*.svg;*.png||", u"svg",
                                       CommonUI::FromQString(m_choice->currentText()) + u".svg");
    if (path.IsEmpty())
        return;
    if (!CommonUI::ToQString(path).endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        SaveFile(path, MakeSvgFile(GetCurve().svg));
        return;
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    m_chart->MakePicture(CChartCommands::c_pictureScale).save(&buffer, "PNG");
    SaveFile(path, std::string_view(bytes.data(), static_cast<std::size_t>(bytes.size())));
}

} // namespace Workbench
