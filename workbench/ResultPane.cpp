#include "workbench/ResultPane.h"

#include "measurement/Choices.h"
#include "measurement/ResultSets.h"
#include "qt/selection/QtSelectionDlg.h"
#include "workbench/Texts.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <exception>

namespace Workbench
{

using namespace CommonUI;
using Measurement::CBackgroundResults;

namespace
{

constexpr const char16_t* c_setName = u"WorkbenchSurface"; // under which the layout is kept

// As wide as a name with its value and unit.
class CContent : public QWidget
{
public:
    QSize sizeHint() const override
    {
        return {70 * fontMetrics().averageCharWidth(), QWidget::sizeHint().height()};
    }
};

// A name stands for the file, which is the same before and after a step.
bool IsSameFile(const Measurement::SInput* one, const Measurement::SInput* other)
{
    return one && other && one->surface.fileName == other->surface.fileName;
}

// What the results are of: the surface, and what was done to it.
CStr Describe(const Measurement::SInput& input)
{
    const Analysis::SSurface& surface = input.surface;
    CStr text = CStr::Format(Text(EText::Size), CStr::FromUtf8(surface.fileName),
                             static_cast<int>(surface.points), static_cast<int>(surface.lines));
    for (std::size_t i = 0; i < input.steps.size(); ++i)
        text += CStr::Format(u"\n%zu. %s", i + 1, input.steps[i]);
    return text;
}

} // namespace

CResultPane::CResultPane()
    : CDockPane(u"Workbench.Results", Text(EText::Results))
    , m_state(new QLabel)
    , m_tables(new CResultPanelWidget)
    , m_choose(new QPushButton(QText(EText::Parameters)))
    , m_results([this](const CBackgroundResults::SAnswer& answer) { Show(answer); })
{
    auto* const content = new CContent;
    auto* const layout = new QVBoxLayout(content);
    layout->addWidget(m_state);
    layout->addWidget(m_choose, 0, Qt::AlignLeft);
    layout->addWidget(m_tables, 1);
    setWidget(content);
    m_state->setWordWrap(true);
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_tables->Attach(m_panel);
    connect(m_choose, &QPushButton::clicked, this, &CResultPane::Choose);
    GetAnalysisPreferencesManager().GetChangeList().Subscribe(*this, &CResultPane::OnPreferences,
                                                              m_connection);
    SetSurface(nullptr);
}

CResultPane::~CResultPane() = default;

QString CResultPane::GetState() const
{
    return m_state->text();
}

EAnalysis CResultPane::GetAnalysis() const
{
    return m_input && m_input->surface.IsProfile() ? EAnalysis::RoughnessProfile : EAnalysis::Roughness;
}

void CResultPane::SetSurface(std::shared_ptr<const Measurement::SInput> input)
{
    const bool isOther = !IsSameFile(input.get(), m_input.get());
    m_input = std::move(input);
    if (isOther)
        ShowSet({.name = c_setName});
    Compute();
}

void CResultPane::Choose()
{
    CQtSelectionDlg dialog(GetAnalysisPreferencesManager(), GetAnalysis(), this);
    dialog.DoModal();
    Q_EMIT Chosen(); // whatever was chosen there, or elsewhere meanwhile
}

void CResultPane::OnPreferences(const SPreferencesChange& change)
{
    if (change.analysis == GetAnalysis() && change.kind == EPreferencesChange::Parameters)
        Compute();
}

// What is shown stays until there is something else to show.
void CResultPane::Compute()
{
    if (!m_input) {
        m_results.Cancel();
        m_state->setText(QText(EText::NoSurface));
        return;
    }
    m_state->setText(ToQString(Describe(*m_input)) + QLatin1Char('\n') + QText(EText::Computing));
    try {
        m_results.Request(
            m_input, Measurement::MakeChoices(GetAnalysisPreferencesManager(), {.usesPreferences = true}));
    } catch (const std::exception& error) {
        m_results.Cancel();
        Show({.error = CStr::FromUtf8(error.what()), .input = m_input});
    }
}

void CResultPane::Show(const CBackgroundResults::SAnswer& answer)
{
    QString state = ToQString(Describe(*answer.input));
    if (!answer.error.IsEmpty())
        state += QLatin1Char('\n') + ToQString(CStr::Format(Text(EText::NoResults), answer.error));
    m_state->setText(state);
    ShowSet(answer.tables ? Measurement::MakeSurfaceSet(answer.tables->GetResults(), c_setName)
                          : SResultSet{.name = c_setName});
}

void CResultPane::ShowSet(SResultSet set)
{
    set.summary.clear(); // the pane is narrow, and the report has it
    m_panel.SetResults(std::make_shared<const SResultSet>(std::move(set)));
}

} // namespace Workbench
