#include "examples/gallery/Pages.h"
#include "examples/gallery/SampleResults.h"
#include "output/results/GridCopy.h"
#include "qt/grid/ResultGridWidget.h"
#include "qt/QtText.h"

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace Gallery
{

namespace
{

using namespace CommonUI;
using CGrid = CGridBaseOutputCtrl;
using SCellInfo = CGrid::SCellInfo;

constexpr int c_rows = 40;
constexpr int c_manyRows = 1000000;

// Three tables as an analysis shows them: what was measured, the results, and their statistics.
class CResultGridPage : public QWidget
{
public:
    explicit CResultGridPage(FLog log)
        : m_log(std::move(log))
        , m_summary(new CResultGridWidget(SCellInfo::Summary))
        , m_results(new CResultGridWidget(SCellInfo::Results))
        , m_statistics(new CResultGridWidget(SCellInfo::Statistics))
    {
        FillSummary();
        FillResults(c_rows);
        auto* const layout = new QVBoxLayout(this);
        m_statistics->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // it follows the results
        AddGrid(*layout, "S&ummary", *m_summary, 0);
        AddGrid(*layout, "&Results", *m_results, 1);
        AddGrid(*layout, "S&tatistics", *m_statistics, 0);
        AddCommands(*layout);
        m_results->GetPane().SetSelectionCallback(*this, &CResultGridPage::OnSelection);
        ShareColumns();
        const int rest = m_results->verticalScrollBar()->sizeHint().width() + 2 * m_results->frameWidth();
        m_results->setMinimumWidth(m_results->GetPane().GetExtent().width + rest);
        const int summary = m_summary->GetPane().GetExtent().width + 2 * m_summary->frameWidth();
        m_summary->setFixedWidth(summary);
    }

    CResultGridWidget& GetResults() { return *m_results; }

private:
    static void AddGrid(QVBoxLayout& layout, const char* name, CResultGridWidget& grid, int stretch)
    {
        auto* const label = new QLabel(QString::fromUtf8(name) + QLatin1Char(':'));
        label->setBuddy(&grid);
        layout.addWidget(label);
        layout.addWidget(&grid, stretch);
        if (stretch == 0)
            grid.setFixedHeight(grid.sizeHint().height());
    }
    // The statistics stand below the results of their column, also when the user changes its width.
    void ShareColumns()
    {
        CResultGridPane& results = m_results->GetPane();
        CResultGridPane& statistics = m_statistics->GetPane();
        for (std::size_t column = 0; column < results.GetColumnCount(); ++column)
            SetWidth(column, std::max(results.GetColumnWidth(column), statistics.GetColumnWidth(column)));
        results.SetColumnWidthCallback(*this, &CResultGridPage::OnWidth);
        statistics.SetColumnWidthCallback(*this, &CResultGridPage::OnWidth);
        QScrollBar* const bars[] = {m_results->horizontalScrollBar(), m_statistics->horizontalScrollBar()};
        connect(bars[0], &QScrollBar::valueChanged, bars[1], &QScrollBar::setValue);
        connect(bars[1], &QScrollBar::valueChanged, bars[0], &QScrollBar::setValue);
    }
    void SetWidth(std::size_t column, int width)
    {
        m_results->GetPane().SetColumnWidth(column, width);
        m_statistics->GetPane().SetColumnWidth(column, width);
    }
    void OnWidth(std::size_t column, int width)
    {
        SetWidth(column, width);
        m_log(QStringLiteral("Width: column %1 has %2 pixels").arg(column).arg(width));
    }
    void AddCommands(QVBoxLayout& layout)
    {
        auto* const line = new QHBoxLayout;
        layout.addLayout(line);
        using ECommand = CResultGridWidget::ECommand;
        const auto add = [&](const char* text, ECommand command, auto action) {
            auto* const button =
                new QPushButton(m_results->GetAction(command).icon(), QString::fromUtf8(text));
            connect(button, &QPushButton::clicked, this, action);
            line->addWidget(button);
        };
        add("&Copy selection", ECommand::Copy, [this] {
            m_results->GetAction(ECommand::Copy).trigger();
            m_log(QStringLiteral("Copied: the selection, as HTML and text"));
        });
        add("Copy &all", ECommand::CopyWhole, [this] { CopyAll(false); });
        add("Copy all tra&nsposed", ECommand::CopyWholeTransposed, [this] { CopyAll(true); });
        line->addStretch();
        auto* const many = new QCheckBox(QStringLiteral("A &million rows"));
        connect(many, &QCheckBox::toggled, this, [this](bool on) { FillResults(on ? c_manyRows : c_rows); });
        line->addWidget(many);
    }
    void CopyAll(bool transpose)
    {
        CopyGrids(&m_summary->GetTable(), &m_results->GetTable(), &m_statistics->GetTable(), transpose);
        m_log(QStringLiteral("Copied: all three tables, as HTML and text"));
    }

    void FillSummary()
    {
        CGrid& grid = m_summary->GetTable();
        grid.AddRow({.name = u"Surface", .cells = {u"ground steel"}});
        grid.AddRow({.name = u"Points", .cells = {u"1024 \u00D7 512"}, .indent = 1});
        grid.AddRow({.name = u"Spacing", .cells = {u"0.5 \u00B5m"}, .indent = 1});
        m_summary->Update();
        m_summary->GetPane().FitColumns();
    }
    void FillResults(int profiles)
    {
        FillSampleResults(profiles, m_results->GetTable(), m_statistics->GetTable());
        m_results->Update();
        m_statistics->Update();
        m_log(QStringLiteral("Results: %1 rows").arg(profiles));
    }
    void OnSelection()
    {
        const SGridRange range = m_results->GetPane().GetSelection().GetRange();
        m_log(QStringLiteral("Selected: rows %1 to %2, columns %3 to %4")
                  .arg(range.firstRow)
                  .arg(range.lastRow)
                  .arg(range.firstColumn)
                  .arg(range.lastColumn));
    }

    FLog m_log;
    CResultGridWidget* m_summary;
    CResultGridWidget* m_results;
    CResultGridWidget* m_statistics;
};

} // namespace

QWidget* MakeResultGridPage(const FLog& log)
{
    return new CResultGridPage(log);
}

void StageResultGridPage(QWidget& page)
{
    CResultGridWidget& results = static_cast<CResultGridPage&>(page).GetResults();
    results.setFocus(Qt::TabFocusReason);
    results.GetPane().SelectCell({2, 2});
    results.GetPane().OnKey({EGridKey::Right, {.shift = true}});
    results.GetPane().OnKey({EGridKey::Down, {.shift = true}});
}

} // namespace Gallery
