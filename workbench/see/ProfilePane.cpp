#include "workbench/see/ProfilePane.h"

#include "formats/SurfaceWriter.h"
#include "workbench/see/ChartCommands.h"
#include "workbench/see/MarkEditor.h"
#include "workbench/see/SaveAndCopy.h"
#include "workbench/see/SeeTexts.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSplitter>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

namespace Workbench
{

using CommonUI::CRange;
using CommonUI::CStr;
using CommonUI::ToQString;
using CommonUI::Analysis::ExtractProfile;
using CommonUI::Analysis::SLineProfile;
using CommonUI::Analysis::SPlace;
using CommonUI::Analysis::SSurface;
using CommonUI::Measurement::EMark;
using CommonUI::Measurement::SChart;
using CommonUI::Measurement::SChartLine;
using CommonUI::Measurement::SInput;
using CommonUI::Measurement::SMark;

namespace
{

CStr NameOf(const SMark& mark)
{
    return CStr::Format(Text(ESeeText::ProfileName), mark.number);
}

SLineProfile ProfileOf(const SSurface& surface, const SMark& mark)
{
    return ExtractProfile(surface, mark.points[0], mark.points[1]);
}

std::shared_ptr<const SInput> MakeInput(const SSurface& surface, const SMark& mark)
{
    const SLineProfile profile = ProfileOf(surface, mark);
    auto input = std::make_shared<SInput>();
    input->surface = {.points = profile.heights.size(),
                      .lines = 1,
                      .dx = profile.spacing,
                      .dy = profile.spacing,
                      .heights = profile.heights,
                      .missing = static_cast<std::size_t>(std::ranges::count_if(
                          profile.heights, [](double height) { return std::isnan(height); })),
                      .channel = surface.channel,
                      .fileName = surface.fileName + ", " + NameOf(mark).ToUtf8(),
                      .date = surface.date};
    return input;
}

} // namespace

CProfilePane::CProfilePane()
    : CDockPane(u"Workbench.Profiles", Text(ESeeText::Profiles))
    , m_parts(new QSplitter(Qt::Vertical))
    , m_profiles(new QComboBox)
    , m_hint(new QLabel(QText(ESeeText::NoProfile)))
    , m_chart(new CChartWidget)
    , m_commands(new CChartCommands(*m_chart))
    , m_roughness(new CAnalysisView(u"WorkbenchProfile"))
{
    auto* const upper = new QWidget;
    auto* const layout = new QVBoxLayout(upper);
    auto* const row = new QHBoxLayout;
    auto* const label = new QLabel(QText(ESeeText::ChosenProfile));
    label->setBuddy(m_profiles);
    m_profiles->setAccessibleName(
        QText(ESeeText::ChosenProfile).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    row->addWidget(label);
    row->addWidget(m_profiles, 1);
    layout->addLayout(row);
    layout->addWidget(m_hint);
    layout->addWidget(m_chart, 1);
    layout->addWidget(m_commands);
    m_parts->setChildrenCollapsible(false);
    m_parts->addWidget(upper);
    m_parts->addWidget(m_roughness);
    m_parts->setStretchFactor(0, 2);
    m_parts->setStretchFactor(1, 1);
    setWidget(m_parts);
    // Chart and table lie beside each other where there is more room for it.
    connect(this, &QDockWidget::dockLocationChanged, this, [this](Qt::DockWidgetArea area) {
        const bool isWide = area == Qt::BottomDockWidgetArea || area == Qt::TopDockWidgetArea;
        m_parts->setOrientation(isWide ? Qt::Horizontal : Qt::Vertical);
    });
    m_hint->setWordWrap(true);
    connect(m_profiles, &QComboBox::currentIndexChanged, this, &CProfilePane::OnProfile);
    connect(m_chart, &CChartWidget::CursorsChanged, this, &CProfilePane::OnCursors);
    connect(m_commands, &CChartCommands::SaveWanted, this, &CProfilePane::Save);
    Fill();
}

CProfilePane::~CProfilePane() = default;

void CProfilePane::SetEditor(CMarkEditor* editor)
{
    if (m_editor == editor && editor)
        return;
    if (m_editor)
        m_editor->disconnect(this);
    m_editor = editor;
    m_chosenMark = {};
    if (editor)
        connect(editor, &CMarkEditor::Changed, this, &CProfilePane::Fill);
    Fill();
}

// Nothing new where another mark has changed: who looks at a profile keeps what is seen of it.
void CProfilePane::Fill()
{
    std::vector<SMark> profiles;
    m_marks.clear();
    for (std::size_t i = 0; m_editor && i < m_editor->GetMarks().size(); ++i) {
        const SMark& mark = m_editor->GetMarks()[i];
        if (mark.kind != EMark::Profile || mark.points[0] == mark.points[1])
            continue;
        profiles.push_back(mark);
        m_marks.push_back(i);
    }
    FillProfiles(profiles);
    m_hint->setVisible(profiles.empty());
    m_chart->setVisible(!profiles.empty());
    m_commands->SetChartThere(!profiles.empty());
    m_chart->SetChart(MakeChart(profiles), true);
    ShowChosen(false);
}

void CProfilePane::FillProfiles(const std::vector<SMark>& profiles)
{
    const QSignalBlocker blocker(m_profiles);
    m_profiles->clear();
    for (const SMark& mark : profiles)
        m_profiles->addItem(ToQString(NameOf(mark)));
    m_profiles->setEnabled(!profiles.empty());
    const auto& chosen = m_editor ? m_editor->GetChosen() : std::nullopt;
    auto found = std::ranges::find(m_marks, chosen ? chosen->mark : m_marks.size() + 1000);
    if (found == m_marks.end()) { // that of before, else the first one
        const auto same = std::ranges::find(profiles, m_chosenMark.number, &SMark::number);
        found = m_marks.begin() + (same == profiles.end() ? 0 : same - profiles.begin());
    }
    if (!m_marks.empty())
        m_profiles->setCurrentIndex(static_cast<int>(found - m_marks.begin()));
}

SChart CProfilePane::MakeChart(const std::vector<SMark>& profiles) const
{
    SChart chart{.title = Text(ESeeText::Profiles),
                 .x = {.name = u"x", .range = {0, 1}, .isLength = true},
                 .y = {.name = u"z", .range = {0, 1}, .isLength = true}};
    double longest = 0;
    constexpr double c_none = std::numeric_limits<double>::infinity();
    CRange<double> heights{c_none, -c_none};
    for (const SMark& mark : profiles) {
        const SLineProfile profile = ProfileOf(m_editor->GetSurface(), mark);
        SChartLine line{.name = NameOf(mark), .color = mark.number - 1};
        for (const double height : profile.heights) {
            line.points.push_back({static_cast<double>(line.points.size()) * profile.spacing, height});
            if (!std::isnan(height))
                heights = heights.Including(height);
        }
        longest = std::max(longest, profile.GetLength());
        chart.lines.push_back(std::move(line));
    }
    if (longest > 0)
        chart.x.range = {0, longest};
    if (!heights.IsEmpty()) {
        const CRange<double> room = CommonUI::Measurement::MakeRoom(heights);
        const double margin = room.GetLength() / 20;
        chart.y.range = {room.GetLower() - margin, room.GetUpper() + margin};
    }
    return chart;
}

void CProfilePane::OnProfile(int index)
{
    if (m_editor && index >= 0)
        m_editor->Choose(m_marks[static_cast<std::size_t>(index)]);
    ShowChosen(true);
}

void CProfilePane::ShowChosen(bool isOther)
{
    const int index = m_profiles->currentIndex();
    if (!m_editor || index < 0) {
        m_chosenMark = {};
        m_chosen = nullptr;
        m_roughness->SetSurface(nullptr);
        OnCursors();
        return;
    }
    m_chart->SetRead(static_cast<std::size_t>(index));
    const SMark& mark = m_editor->GetMarks()[m_marks[static_cast<std::size_t>(index)]];
    const auto input = MakeInput(m_editor->GetSurface(), mark);
    const bool isSame =
        m_chosen && mark == m_chosenMark && input->surface.heights == m_chosen->surface.heights;
    m_chosenMark = mark;
    if (isSame && !isOther)
        return;
    m_chosen = input;
    m_roughness->SetSurface(m_chosen);
}

void CProfilePane::OnCursors()
{
    m_commands->ShowReadOut();
    if (!m_editor)
        return;
    std::vector<SPlace> spots;
    const int index = m_profiles->currentIndex();
    const auto& marks = m_editor->GetMarks();
    if (index >= 0 && m_marks[static_cast<std::size_t>(index)] < marks.size()) {
        const auto& points = marks[m_marks[static_cast<std::size_t>(index)]].points;
        const double length = std::hypot(points[1].x - points[0].x, points[1].y - points[0].y);
        for (const auto& cursor : m_chart->GetCursors())
            if (cursor && *cursor <= length)
                spots.push_back({.x = points[0].x + *cursor / length * (points[1].x - points[0].x),
                                 .y = points[0].y + *cursor / length * (points[1].y - points[0].y)});
    }
    m_editor->SetSpots(std::move(spots));
}

void CProfilePane::Save() const
{
    if (!m_chosen)
        return;
    const CStr path = ChooseFileToSave(u"Profiles (*.txt)|*.txt||", u"txt", NameOf(m_chosenMark) + u".txt");
    if (path.IsEmpty())
        return;
    try {
        SaveFile(path, CommonUI::Formats::WriteSurface(
                           m_chosen->surface, CommonUI::Formats::EFormat::Profile,
                           std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now())));
    } catch (const CommonUI::Formats::EWriteError& error) {
        TellNotSaved(CStr::FromUtf8(error.what()));
    }
}

} // namespace Workbench
