#include "workbench/series/SeriesWindow.h"

#include "common/ControlCharacters.h"
#include "measurement/series/SeriesTable.h"
#include "platform/MessageBoxService.h"
#include "qt/framework/WindowPlacer.h"
#include "qt/results/ResultPanelWidget.h"
#include "workbench/analyze/AnalyzeTexts.h"
#include "workbench/series/SeriesForm.h"
#include "workbench/series/SeriesTexts.h"
#include "workbench/Texts.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>
#include <utility>

namespace Workbench
{

using namespace CommonUI;
using Measurement::SSeriesItem;
using Measurement::SSeriesRow;

namespace
{

constexpr int c_progressTime = 50; // ms
constexpr int c_cancelText = 10262;

CStr WithoutMark(const CStr& text)
{
    return text.Replace(u"&", u"").Replace(u":", u"").Replace(u"\u2026", u"");
}

CStr Describe(const Measurement::CProcessSteps& steps)
{
    CStr text;
    for (const Measurement::SProcessStep& step : steps)
        if (step.isOn)
            text += (text.IsEmpty() ? CStr() : CStr(u"; ")) + step.Describe();
    return text;
}

bool HaveSameSteps(const std::vector<SSeriesItem>& items)
{
    return std::ranges::all_of(items,
                               [&](const SSeriesItem& item) { return item.steps == items.front().steps; });
}

} // namespace

CSeriesWindow::CSeriesWindow(FSeriesSource source, QWidget* parent)
    : QDialog(parent)
    , m_source(source)
    , m_form(new CSeriesForm(std::move(source)))
    , m_compute(new QPushButton(QText(ESeriesText::Compute)))
    , m_cancel(new QPushButton(ToQString(GetString(c_cancelText))))
    , m_progress(new QProgressBar)
    , m_state(new QLabel)
    , m_timer(new QTimer(this))
    , m_tables(new CResultPanelWidget)
    , m_series([this](std::vector<SSeriesRow> rows) { OnDone(std::move(rows)); })
{
    setWindowTitle(ToQString(WithoutMark(Text(ESeriesText::Command))));
    m_tables->Attach(m_panel);
    m_state->setWordWrap(true);
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_progress->setAccessibleName(windowTitle());
    m_progress->setTextVisible(false);
    auto* const run = new QHBoxLayout;
    run->addWidget(m_compute);
    run->addWidget(m_cancel);
    run->addWidget(m_progress, 1);
    QSizePolicy stays = m_progress->sizePolicy();
    stays.setRetainSizeWhenHidden(true);
    m_progress->setSizePolicy(stays);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    m_compute->setAutoDefault(false);
    m_cancel->setAutoDefault(false);
    static_cast<QPushButton*>(buttons->button(QDialogButtonBox::Close))->setAutoDefault(false);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_form, 1);
    layout->addLayout(run);
    layout->addWidget(m_state);
    layout->addWidget(m_tables, 3);
    layout->addWidget(buttons);
    setSizeGripEnabled(true);
    resize(65 * fontMetrics().height(), 60 * fontMetrics().height());
    new CWindowPlacer(*this, u"WorkbenchSeries"); // owned by the window
    m_timer->setInterval(c_progressTime);
    connect(m_timer, &QTimer::timeout, this, &CSeriesWindow::ShowProgress);
    connect(m_compute, &QPushButton::clicked, this, &CSeriesWindow::Compute);
    connect(m_cancel, &QPushButton::clicked, this, &CSeriesWindow::Cancel);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_form, &CSeriesForm::Changed, this, [this] {
        ShowState();
        Q_EMIT ChoiceChanged(m_form->GetChoice());
    });
    GetAnalysisPreferencesManager().GetChangeList().Subscribe(*this, &CSeriesWindow::OnPreferences,
                                                              m_connection);
    ShowState();
}

CSeriesWindow::~CSeriesWindow() = default;

QString CSeriesWindow::GetState() const
{
    return m_state->text();
}

void CSeriesWindow::Update()
{
    m_form->UpdateOpen();
}

void CSeriesWindow::keyPressEvent(QKeyEvent* event)
{
    if (IsBusy() && event->key() == Qt::Key_Escape)
        Cancel();
    else
        QDialog::keyPressEvent(event);
}

void CSeriesWindow::Compute()
{
    std::vector<SSeriesItem> items = m_form->GetItems();
    if (items.empty())
        return m_state->setText(QText(ESeriesText::NothingChosen));
    SSeriesSource source = m_source();
    source.open.clear();
    try {
        auto request = MakeSeriesRequest(source, {});
        m_steps = HaveSameSteps(items) ? items.front().steps : Measurement::CProcessSteps();
        m_request = request;
        m_failure = {};
        m_computed = std::move(source);
        m_rows.clear();
        m_progress->setRange(0, static_cast<int>(items.size()));
        request.items = std::move(items);
        m_series.Start(std::move(request));
    } catch (const std::exception& error) {
        m_state->setText(ToQString(CStr::FromUtf8(error.what())));
        return;
    }
    m_timer->start();
    ShowState();
    m_cancel->setFocus();
}

// An earlier table goes, too: nobody could tell to what it belongs.
void CSeriesWindow::Cancel()
{
    m_series.Cancel();
    m_timer->stop();
    m_panel.SetResults(std::make_shared<const SResultSet>());
    m_request.reset();
    m_computed.options.second = nullptr;
    ShowState();
    m_compute->setFocus();
}

void CSeriesWindow::ShowProgress()
{
    const auto done = static_cast<int>(m_series.GetDone());
    m_progress->setValue(done);
    m_state->setText(ToQString(CStr::Format(Text(ESeriesText::Progress), done, m_progress->maximum(),
                                            static_cast<int>(m_series.GetFailed()))));
}

void CSeriesWindow::ShowState()
{
    const bool isBusy = IsBusy();
    m_form->setEnabled(!isBusy);
    m_compute->setEnabled(!isBusy && !m_form->IsLooking());
    m_cancel->setEnabled(isBusy);
    m_progress->setVisible(isBusy);
    if (isBusy)
        return ShowProgress();
    QString state;
    if (m_form->IsLooking())
        state = QText(ESeriesText::Looking);
    else if (!m_rows.empty())
        state = ToQString(CStr::Format(Text(ESeriesText::Done), static_cast<int>(m_rows.size()),
                                       static_cast<int>(std::ranges::count_if(
                                           m_rows, [](const auto& row) { return row.HasFailed(); }))));
    if (const CStr& failure = m_form->GetFailure().IsEmpty() ? m_failure : m_form->GetFailure();
        !failure.IsEmpty())
        state = ToQString(failure);
    else if (!m_rows.empty() && !m_hasAll)
        state += QLatin1Char(' ') + QText(ESeriesText::ParametersAdded);
    m_state->setText(state);
}

void CSeriesWindow::OnDone(std::vector<SSeriesRow> rows)
{
    m_timer->stop();
    m_rows = std::move(rows);
    m_request->refuse = nullptr;
    m_request->choices.method.further.reset();
    m_computed.options.second = nullptr; // a surface that is closed shall go
    ShowTable();
    ShowState();
    m_compute->setFocus();
}

void CSeriesWindow::OnPreferences(const SPreferencesChange& change)
{
    if (m_rows.empty() || IsBusy() || change.analysis != m_computed.analysis)
        return;
    ShowTable();
    ShowState();
}

void CSeriesWindow::ShowTable()
{
    m_failure = {};
    try {
        const Measurement::SChoices shown = m_computed.Choose();
        m_hasAll = HasAllValues(*m_request, shown);
        CStr name = u"WorkbenchSeries" + CAnalysisPreferencesData::GetININame(m_computed.analysis);
        SResultSet set = MakeSeriesSet(m_rows, *m_request, shown, name, Text(ESeriesText::SeeSummary));
        set.title = WithoutMark(Text(ESeriesText::Command));
        Summarize(set);
        m_panel.SetResults(std::make_shared<const SResultSet>(std::move(set)));
    } catch (const std::exception& error) {
        m_failure = CStr::FromUtf8(error.what());
    }
}

// A surface that failed has its sentence here, too, where it is read and not only looked up.
void CSeriesWindow::Summarize(SResultSet& set) const
{
    const auto failed = std::ranges::count_if(m_rows, [](const auto& row) { return row.HasFailed(); });
    set.summary = {{Text(EText::Surfaces), CStr::Format(u"%d", static_cast<int>(m_rows.size()))},
                   {Text(ESeriesText::Failed), CStr::Format(u"%d", static_cast<int>(failed))},
                   {WithoutMark(Text(EAnalyzeText::Analysis)),
                    CAnalysisPreferencesData::GetFriendlyName(m_computed.analysis)}};
    if (m_request->HasMeans())
        set.summary.back().second += u": " + Text(ESeriesText::Means);
    if (const CStr steps = Describe(m_steps); !steps.IsEmpty())
        set.summary.emplace_back(Text(EText::Steps), steps);
    for (const SSeriesRow& row : m_rows)
        if (!row.remark.IsEmpty())
            set.summary.emplace_back(ReplaceControls(row.name, u' '), ReplaceControls(row.remark, u' '));
}

} // namespace Workbench
