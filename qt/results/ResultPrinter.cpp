#include "qt/results/ResultPrinter.h"

#include "dialogs/results/ResultTexts.h"
#include "platform/MessageBoxService.h"
#include "qt/QtText.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QLocale>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

using CGrid = CGridBaseOutputCtrl;

constexpr int c_pointSize = 9;
constexpr double c_margin = 15; // mm
// Beside those of the provenance: title and an empty line above; an empty line and the page's number below.
constexpr std::size_t c_linesAround = 4;
// Narrow paper still gets some lines and columns.
constexpr std::size_t c_leastLines = 10;

constexpr double c_lineSpacing = 1.15;

QFont MakeFont(QFont::Weight weight)
{
    QFont font;
    font.setPointSize(c_pointSize);
    font.setWeight(weight);
    return font;
}

// Of values, whose digits are all of one width, only those as long as the longest so far are measured.
class CWidest
{
public:
    explicit CWidest(const QFontMetricsF& metrics)
        : m_metrics(metrics)
    {
    }
    void AddValue(const CStr& text)
    {
        if (text.GetLength() < m_length)
            return;
        m_length = text.GetLength();
        Add(text);
    }
    void Add(const CStr& text) { width = std::max(width, m_metrics.horizontalAdvance(ToQString(text))); }

    double width = 0;

private:
    const QFontMetricsF& m_metrics;
    std::size_t m_length = 0;
};

std::vector<CStr> HeaderLines(const CGrid& table, std::size_t column)
{
    const CStr& header = column == 0 ? table.GetNameHeader() : table.GetColumns()[column - 1].header;
    return header.Split(u"\r\n");
}

Qt::Alignment AlignmentOf(std::size_t column)
{
    return column == 0 ? Qt::AlignLeft : Qt::AlignRight;
}

// How many characters at the beginning have room, at least one.
qsizetype CountFitting(const QString& word, const QFontMetricsF& metrics, double width)
{
    qsizetype count = 1;
    while (count + 1 < word.size() && metrics.horizontalAdvance(word.left(count + 1)) <= width)
        ++count;
    const bool splitsPair = count > 1 && word[count].isLowSurrogate();
    return splitsPair ? count - 1 : count;
}

QStringList WrapLines(const QString& text, const QFontMetricsF& metrics, double width)
{
    QStringList lines;
    for (QString word : text.split(u' ')) {
        const QString longer = lines.isEmpty() ? word : lines.constLast() + u' ' + word;
        if (!lines.isEmpty() && metrics.horizontalAdvance(longer) <= width)
            lines.back() = longer;
        else
            lines += word;
        // A word that is wider than the page goes on in the next line.
        for (word = lines.constLast(); word.size() > 1 && metrics.horizontalAdvance(word) > width;
             word = lines.constLast()) {
            const qsizetype fitting = CountFitting(word, metrics, width);
            lines.back() = word.left(fitting);
            lines += word.mid(fitting);
        }
    }
    return lines;
}

void Print(const std::optional<SResultPages>& pages, QPrinter& printer)
{
    if (!pages)
        return;
    printer.setDocName(ToQString(pages->title)); // results may have come while the user chose
    if (!PrintResults(*pages, printer))
        GetMessageBoxService().Show({.text = GetResultText(EResultText::NotPrinted),
                                     .style = MessageBoxStyle::c_ok | MessageBoxStyle::c_error});
}

} // namespace

CResultPrinter::CResultPrinter(const SResultPages& pages, QPaintDevice& device, const QSizeF& size)
    : m_pages(pages)
    , m_size(size)
    , m_font(MakeFont(QFont::Normal))
    , m_bold(MakeFont(QFont::Bold))
    , m_metrics(m_font, &device)
    , m_boldMetrics(m_bold, &device)
    , m_lineHeight(m_metrics.height() * c_lineSpacing)
    , m_gap(m_metrics.averageCharWidth() * 2)
{
    const auto& rows = pages.results->GetRows();
    while (m_frozenRows < rows.size() && rows[m_frozenRows].subHeader)
        ++m_frozenRows;
    MeasureColumns();
    MakeBlocks();
    WrapTexts();
    MakeSheets();
}

CResultPrinter::~CResultPrinter() = default;

void CResultPrinter::MeasureColumns()
{
    const CGrid& results = *m_pages.results;
    for (std::size_t column = 0; column < results.GetWidth(); ++column) {
        CWidest header(m_boldMetrics);
        CWidest cells(m_metrics);
        for (const CStr& line : HeaderLines(results, column))
            header.Add(line);
        for (const CGrid* const table : {m_pages.results, m_pages.statistics})
            for (const CGrid::SRow& row : table->GetRows())
                if (column == 0 || row.subHeader)
                    cells.Add(table->GetCellText(row, column));
                else
                    cells.AddValue(table->GetCellText(row, column));
        m_widths.push_back(std::min(std::max(header.width, cells.width), m_size.width() / 2));
        m_headerLines = std::max(m_headerLines, HeaderLines(results, column).size());
        if (column > 0 && !results.GetColumns()[column - 1].group.IsEmpty())
            m_groupLines = 1;
    }
    CWidest labels(m_metrics);
    for (const CGrid::SRow& row : m_pages.summary->GetRows())
        labels.Add(row.name);
    m_summaryWidth = std::min(labels.width, m_size.width() / 2);
}

void CResultPrinter::MakeBlocks()
{
    SBlock block{1, 1};
    for (std::size_t column = 1; column < m_widths.size(); ++column) {
        SBlock wider{block.first, column + 1};
        if (block.last > block.first && GetWidth(wider) > m_size.width()) {
            m_blocks.push_back(block);
            wider.first = column;
        }
        block = wider;
    }
    m_blocks.push_back(block);
}

double CResultPrinter::GetWidth(const SBlock& block) const
{
    double width = m_widths[0];
    for (std::size_t column = block.first; column < block.last; ++column)
        width += m_gap + m_widths[column];
    return width;
}

void CResultPrinter::WrapTexts()
{
    for (const QString& line : WrapLines(ToQString(m_pages.provenance), m_metrics, m_size.width()))
        m_provenance.push_back(line);
    for (const CGrid::SRow& row : m_pages.summary->GetRows()) {
        QString label = ToQString(row.name);
        const QString text = row.cells.empty() ? QString() : ToQString(row.cells[0]);
        for (const QString& line : WrapLines(text, m_metrics, m_size.width() - m_summaryWidth - m_gap))
            m_summary.push_back({std::exchange(label, QString()), line});
    }
    for (const CStr& note : m_pages.notes)
        for (const QString& line : WrapLines(ToQString(note), m_metrics, m_size.width()))
            m_notes.push_back(line);
}

std::vector<CResultPrinter::SLine> CResultPrinter::GetTableLines() const
{
    std::vector<SLine> lines;
    for (std::size_t row = m_frozenRows; row < m_pages.results->GetRows().size(); ++row)
        lines.push_back({ELine::Result, row});
    for (std::size_t row = 0; row < m_pages.statistics->GetRows().size(); ++row)
        lines.push_back({ELine::Statistic, row, row == 0});
    return lines;
}

std::size_t CResultPrinter::CountHeaderLines() const
{
    return m_groupLines + m_headerLines + m_frozenRows;
}

void CResultPrinter::MakeSheets()
{
    const std::size_t around = c_linesAround + m_provenance.size();
    const auto onPage = static_cast<std::size_t>(m_size.height() / m_lineHeight);
    const std::size_t room = std::max(onPage, around + c_leastLines) - around;
    const auto add = [&](const SLine& line) {
        if (m_sheets.empty() || m_sheets.back().lines.size() >= room)
            m_sheets.emplace_back();
        m_sheets.back().lines.push_back(line);
    };
    const std::size_t headers = CountHeaderLines();
    for (std::size_t line = 0; line < m_summary.size(); ++line)
        add({ELine::Summary, line});
    const std::vector<SLine> lines = GetTableLines();
    for (std::size_t block = 0; block < m_blocks.size() && !lines.empty(); ++block) {
        // The first table stands below the summary, every other one on a page of its own.
        const bool isBelow =
            block == 0 && !m_sheets.empty() && m_sheets.back().lines.size() + headers + 2 < room;
        if (isBelow)
            add({});
        else
            m_sheets.emplace_back();
        for (const SLine& line : lines) {
            if (m_sheets.back().lines.size() >= room)
                m_sheets.emplace_back();
            SSheet& sheet = m_sheets.back();
            if (!sheet.hasTable) {
                sheet.hasTable = true;
                sheet.block = block;
                sheet.tableLine = sheet.lines.size();
                sheet.lines.resize(sheet.lines.size() + headers);
            }
            sheet.lines.push_back(line);
        }
    }
    if (!m_notes.empty())
        add({});
    for (std::size_t note = 0; note < m_notes.size(); ++note)
        add({ELine::Note, note});
    if (m_sheets.empty())
        m_sheets.emplace_back();
}

void CResultPrinter::PrintPage(QPainter& painter, std::size_t page) const
{
    const SSheet& sheet = m_sheets.at(page);
    const double width = m_size.width();
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.setPen(Qt::black);
    painter.setFont(m_bold);
    Write(painter, ToQString(m_pages.title), {0, 0, width, m_lineHeight}, Qt::AlignLeft);
    painter.setFont(m_font);
    double top = m_lineHeight;
    for (const QString& line : m_provenance) {
        Write(painter, line, {0, top, width, m_lineHeight}, Qt::AlignLeft);
        top += m_lineHeight;
    }
    top += m_lineHeight;
    const CStr number = CStr::Format(GetResultText(EResultText::Page), page + 1, m_sheets.size());
    Write(painter, ToQString(number), {0, m_size.height() - m_lineHeight, width, m_lineHeight},
          Qt::AlignRight);
    const SBlock& block = m_blocks[sheet.block];
    if (sheet.hasTable)
        PrintHeaders(painter, block, top + static_cast<double>(sheet.tableLine) * m_lineHeight);
    for (std::size_t line = 0; line < sheet.lines.size(); ++line)
        PrintLine(painter, sheet.lines[line], block, top + static_cast<double>(line) * m_lineHeight);
}

// Texts stand in their columns, in every language from left to right, and are cut off at their ends.
void CResultPrinter::Write(QPainter& painter, const QString& text, const QRectF& place,
                           Qt::Alignment alignment) const
{
    if (text.isEmpty())
        return;
    const QFontMetricsF& metrics = painter.font().bold() ? m_boldMetrics : m_metrics;
    double width = metrics.horizontalAdvance(text);
    const bool fits = width <= place.width() + 1;
    const QString shown = fits ? text : metrics.elidedText(text, Qt::ElideRight, place.width());
    width = std::min(width, place.width());
    const double room = alignment == Qt::AlignLeft    ? 0
                        : alignment == Qt::AlignRight ? place.width() - width
                                                      : (place.width() - width) / 2;
    painter.drawText(QPointF(place.left() + room, place.top() + metrics.ascent()), shown);
}

void CResultPrinter::PrintHeaders(QPainter& painter, const SBlock& block, double top) const
{
    const CGrid& results = *m_pages.results;
    painter.setFont(m_bold);
    ForEachColumn(block, [&](std::size_t column, double left) {
        const std::vector<CStr> lines = HeaderLines(results, column);
        double y = top + static_cast<double>(m_groupLines + m_headerLines - lines.size()) * m_lineHeight;
        for (const CStr& line : lines) {
            Write(painter, ToQString(line), {left, y, m_widths[column], m_lineHeight}, AlignmentOf(column));
            y += m_lineHeight;
        }
        PrintGroup(painter, block, column, left, top);
    });
    painter.setFont(m_font);
    for (std::size_t row = 0; row < m_frozenRows; ++row)
        PrintRow(painter, results, row, block,
                 top + static_cast<double>(m_groupLines + m_headerLines + row) * m_lineHeight);
    PrintRule(painter, top + static_cast<double>(CountHeaderLines()) * m_lineHeight, GetWidth(block));
}

// The name of a group stands over its columns, of which others may be in another block.
void CResultPrinter::PrintGroup(QPainter& painter, const SBlock& block, std::size_t column, double left,
                                double top) const
{
    const auto& columns = m_pages.results->GetColumns();
    if (column == 0 || columns[column - 1].group.IsEmpty())
        return;
    const CStr& group = columns[column - 1].group;
    if (column > block.first && columns[column - 2].group == group)
        return;
    double width = m_widths[column];
    for (std::size_t next = column + 1; next < block.last && columns[next - 1].group == group; ++next)
        width += m_gap + m_widths[next];
    Write(painter, ToQString(group), {left, top, width, m_lineHeight}, Qt::AlignHCenter);
}

void CResultPrinter::PrintLine(QPainter& painter, const SLine& line, const SBlock& block, double top) const
{
    switch (line.kind) {
    case ELine::Empty:
        return;
    case ELine::Summary:
        PrintSummary(painter, m_summary[line.index], top);
        return;
    case ELine::Note:
        Write(painter, m_notes[line.index], {0, top, m_size.width(), m_lineHeight}, Qt::AlignLeft);
        return;
    case ELine::Result:
    case ELine::Statistic:
        break;
    }
    if (line.hasRule)
        PrintRule(painter, top, GetWidth(block));
    PrintRow(painter, line.kind == ELine::Result ? *m_pages.results : *m_pages.statistics, line.index, block,
             top);
}

void CResultPrinter::PrintRow(QPainter& painter, const CGrid& table, std::size_t row, const SBlock& block,
                              double top) const
{
    const CGrid::SRow& shown = table.GetRows()[row];
    ForEachColumn(block, [&](std::size_t column, double left) {
        Write(painter, ToQString(table.GetCellText(shown, column)),
              {left, top, m_widths[column], m_lineHeight}, AlignmentOf(column));
    });
}

void CResultPrinter::PrintSummary(QPainter& painter, const SSummaryLine& line, double top) const
{
    Write(painter, line.label, {0, top, m_summaryWidth, m_lineHeight}, Qt::AlignLeft);
    const double left = m_summaryWidth + m_gap;
    Write(painter, line.text, {left, top, m_size.width() - left, m_lineHeight}, Qt::AlignLeft);
}

void CResultPrinter::PrintRule(QPainter& painter, double top, double width) const
{
    painter.setPen(QPen(Qt::gray, m_lineHeight / 20));
    painter.drawLine(QPointF(0, top), QPointF(width, top));
    painter.setPen(Qt::black);
}

bool PrintResults(const SResultPages& pages, QPagedPaintDevice& device)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const QRectF page(painter.viewport());
    const CResultPrinter printer(pages, device, page.size());
    for (std::size_t i = 0; i < printer.GetPageCount(); ++i) {
        if (i > 0 && !device.newPage())
            return false;
        printer.PrintPage(painter, i);
    }
    return painter.end();
}

std::string MakePdf(const SResultPages& pages)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(ToQString(pages.title));
        const bool isMetric = QLocale().measurementSystem() == QLocale::MetricSystem;
        writer.setPageSize(QPageSize(isMetric ? QPageSize::A4 : QPageSize::Letter));
        writer.setPageMargins(QMarginsF(c_margin, c_margin, c_margin, c_margin), QPageLayout::Millimeter);
        if (!PrintResults(pages, writer))
            return {};
    }
    return buffer.data().toStdString();
}

void AskAndPrint(const CStr& title, const std::function<std::optional<SResultPages>()>& getPages,
                 QWidget& parent)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(ToQString(title));
    printer.setPageMargins(QMarginsF(c_margin, c_margin, c_margin, c_margin), QPageLayout::Millimeter);
    // Its parent may be destroyed meanwhile, and destroys it then.
    const QPointer<QPrintDialog> dialog(new QPrintDialog(&printer, &parent));
    const bool isAccepted = dialog->exec() == QDialog::Accepted;
    if (dialog && isAccepted)
        Print(getPages(), printer);
    delete dialog;
}

} // namespace CommonUI
