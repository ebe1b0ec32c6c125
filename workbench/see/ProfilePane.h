#pragma once

#include "measurement/marks/SurfaceMarks.h"
#include "qt/framework/DockPane.h"
#include "workbench/analyze/AnalysisView.h"
#include "workbench/see/ChartWidget.h"

#include <QPointer>

#include <vector>

class QComboBox;
class QLabel;
class QSplitter;

namespace Workbench
{

class CChartCommands;
class CMarkEditor;

/// The profiles along the lines that are drawn over the map, in a dock: all of them in one chart with
/// cursors, and the roughness of the one that is chosen.
class CProfilePane : public CommonUI::CDockPane
{
    Q_OBJECT

public:
    CProfilePane();
    ~CProfilePane() override;

    /// @param editor null for none; it may go first
    void SetEditor(CMarkEditor* editor);
    CChartWidget& GetChart() noexcept { return *m_chart; }
    CAnalysisView& GetRoughness() noexcept { return *m_roughness; }
    QComboBox& GetProfiles() noexcept { return *m_profiles; }
    /// The profile that is chosen as a surface of one line; null without one.
    std::shared_ptr<const CommonUI::Measurement::SInput> GetChosen() const { return m_chosen; }

private:
    void Fill();
    void FillProfiles(const std::vector<CommonUI::Measurement::SMark>& profiles);
    CommonUI::Measurement::SChart MakeChart(const std::vector<CommonUI::Measurement::SMark>& profiles) const;
    void OnProfile(int index);
    void ShowChosen(bool isOther);
    void OnCursors();
    void Save() const;

    QPointer<CMarkEditor> m_editor;
    std::vector<std::size_t> m_marks; // their indices, of each line of the chart
    std::shared_ptr<const CommonUI::Measurement::SInput> m_chosen;
    CommonUI::Measurement::SMark m_chosenMark{};
    QSplitter* m_parts;
    QComboBox* m_profiles;
    QLabel* m_hint;
    CChartWidget* m_chart;
    CChartCommands* m_commands;
    CAnalysisView* m_roughness;
};

} // namespace Workbench
