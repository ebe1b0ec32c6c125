#include "output/results/Footnotes.h"

#include "output/results/Markup.h"

#include <algorithm>

namespace CommonUI
{

CStr CFootnotes::Add(const CStr& symbol, const CStr& reason)
{
    if (reason.IsEmpty())
        return reason;
    auto note = std::ranges::find(m_notes, reason, &SNote::reason);
    if (note == m_notes.end())
        note = m_notes.insert(note, {reason, {}});
    // From the last one on: cells come column by column.
    if (std::ranges::find(note->symbols.rbegin(), note->symbols.rend(), symbol) == note->symbols.rend())
        note->symbols.push_back(symbol);
    return note->reason;
}

std::vector<CStr> CFootnotes::GetLines() const
{
    std::vector<CStr> lines;
    for (const SNote& note : m_notes) {
        CStr symbols;
        for (const CStr& symbol : note.symbols)
            symbols += (symbols.IsEmpty() ? CStr() : CStr(u", ")) + symbol;
        lines.push_back(CStr::Format(u"%d %s: %s", lines.size() + 1, symbols, note.reason));
    }
    return lines;
}

std::string CFootnotes::GetHtml() const
{
    std::string html;
    for (const CStr& line : GetLines()) {
        const std::size_t number = line.Find(u' ');
        html += "<br>\n<sup>" + line.Left(number).ToUtf8() + "</sup>" +
                EscapeMarkup(line.Mid(number, line.GetLength() - number)).ToUtf8();
    }
    return html.empty() ? html : "\n<small>" + html + "\n</small>\n";
}

} // namespace CommonUI
