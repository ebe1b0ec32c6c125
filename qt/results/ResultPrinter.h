#pragma once

#include "../../dialogs/results/ResultPages.h"
#include "../../export/Export.h"

#include <QFont>
#include <QFontMetricsF>
#include <QRectF>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QPagedPaintDevice;
class QPaintDevice;
class QPainter;
class QWidget;

namespace CommonUI
{

/// Results on paper: each page begins with title, provenance and the headers of its columns, and ends with
/// its number. Columns that do not fit beside each other follow on further pages, again with the names of the
/// rows.
class COMMONUIQT_API CResultPrinter
{
public:
    /// Lays out pages.
    /// @param pages must outlive the printer
    /// @param device with whose resolution it is printed
    /// @param size of what is printed on a page, in pixels of the device
    CResultPrinter(const SResultPages& pages, QPaintDevice& device, const QSizeF& size);
    ~CResultPrinter();
    CResultPrinter(const CResultPrinter&) = delete;
    CResultPrinter& operator=(const CResultPrinter&) = delete;

    /// How many pages there are.
    std::size_t GetPageCount() const noexcept { return m_sheets.size(); }
    /// Prints a page, with its upper left corner at the origin. @param page from 0 on
    void PrintPage(QPainter& painter, std::size_t page) const;

private:
    enum class ELine { Empty, Summary, Result, Statistic, Note };
    struct SLine {
        ELine kind = ELine::Empty;
        std::size_t index = 0;
        bool hasRule = false; // above it
    };
    // Columns that stand beside each other: that of the names and these.
    struct SBlock {
        std::size_t first = 0;
        std::size_t last = 0; // not included
    };
    struct SSummaryLine {
        QString label; // empty where the text of the line before goes on
        QString text;
    };
    struct SSheet {
        std::size_t block = 0;
        bool hasTable = false;
        std::size_t tableLine = 0; // with the first line of its headers
        std::vector<SLine> lines{};
    };

    void MeasureColumns();
    void MakeBlocks();
    void WrapTexts();
    void MakeSheets();
    std::vector<SLine> GetTableLines() const;
    std::size_t CountHeaderLines() const;
    void PrintHeaders(QPainter& painter, const SBlock& block, double top) const;
    void PrintLine(QPainter& painter, const SLine& line, const SBlock& block, double top) const;
    void PrintRow(QPainter& painter, const CGridBaseOutputCtrl& table, std::size_t row, const SBlock& block,
                  double top) const;
    void PrintSummary(QPainter& painter, const SSummaryLine& line, double top) const;
    void PrintRule(QPainter& painter, double top, double width) const;
    void PrintGroup(QPainter& painter, const SBlock& block, std::size_t column, double left,
                    double top) const;
    // Calls print(column, left) for the names and the columns of a block.
    template<class FPrint>
    void ForEachColumn(const SBlock& block, FPrint print) const
    {
        print(0, 0.0);
        double left = m_widths[0] + m_gap;
        for (std::size_t column = block.first; column < block.last; ++column) {
            print(column, left);
            left += m_widths[column] + m_gap;
        }
    }
    void Write(QPainter& painter, const QString& text, const QRectF& place, Qt::Alignment alignment) const;
    double GetWidth(const SBlock& block) const;

    const SResultPages& m_pages;
    QSizeF m_size;
    QFont m_font;
    QFont m_bold;
    QFontMetricsF m_metrics; // at the resolution of the device
    QFontMetricsF m_boldMetrics;
    double m_lineHeight;
    double m_gap;                 // between columns
    std::size_t m_frozenRows = 0; // of the results, below the headers of each page
    std::size_t m_groupLines = 0;
    std::size_t m_headerLines = 1;
    std::vector<double> m_widths{}; // of the columns, that of the names first
    double m_summaryWidth = 0;      // of the labels
    std::vector<SBlock> m_blocks{};
    // Lines that fit.
    std::vector<QString> m_provenance{};
    std::vector<SSummaryLine> m_summary{};
    std::vector<QString> m_notes{};
    std::vector<SSheet> m_sheets{};
};

/// Prints all pages on a device whose page layout is set. @return false where it cannot be painted on
COMMONUIQT_API bool PrintResults(const SResultPages& pages, QPagedPaintDevice& device);
/// The pages as a document for the paper of the user's country; empty where it cannot be made.
COMMONUIQT_API std::string MakePdf(const SResultPages& pages);
/// Has the user choose a printer, then asks for the pages and prints them. Nothing is asked for when the user
/// cancels, or the parent is gone.
/// @param title that the document has while the user chooses
/// @param getPages gives nothing where there is nothing to print any more
COMMONUIQT_API void
AskAndPrint(const CStr& title, const std::function<std::optional<SResultPages>()>& getPages, QWidget& parent);

} // namespace CommonUI
