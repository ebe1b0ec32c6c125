#include "output/results/EndResults.h"
#include "output/results/GridBaseOutputCtrl.h"
#include "tests/fuzz/FuzzBytes.h"
#include "tests/fuzz/Targets.h"

#include <cmath>
#include <string>
#include <vector>

using namespace CommonUI;

namespace
{

// The tokens between runs of delimiters.
std::vector<CStr> Tokens(const CStr& line, const CStr& delimiters)
{
    std::vector<CStr> tokens;
    CStr token;
    for (const char16_t unit : line)
        if (!delimiters.Contains(std::u16string_view(&unit, 1)))
            token += unit;
        else if (!token.IsEmpty())
            tokens.push_back(std::exchange(token, {}));
    if (!token.IsEmpty())
        tokens.push_back(token);
    return tokens;
}

} // namespace

// Any line as a row of a table: its cells are the tokens, and come back from the copied text.
void Fuzz::RunTokens(std::string_view bytes)
{
    CFuzzBytes input(bytes);
    const auto delimiters = CStr::FromUtf8(input.Piece());
    const auto line = CStr::FromUtf8(input.Rest());
    CGridBaseOutputCtrl grid(CGridBaseOutputCtrl::SCellInfo::Results);
    for (int column = 0; column < 3; ++column)
        grid.AddColumn({CStr::Format(u"c%d", column), {}});
    const std::vector<CStr> tokens = Tokens(line, delimiters);
    Expect(grid.InsertTokenizableRow(line, delimiters) == !tokens.empty(), "a line with a token is a row");
    if (tokens.empty()) {
        Expect(grid.GetRows().empty(), "a line without a token adds nothing");
        return;
    }
    const CGridBaseOutputCtrl::SRow& row = grid.GetRows().front();
    Expect(row.name == tokens[0], "the first token is the name");
    for (std::size_t i = 1; i < std::min<std::size_t>(tokens.size(), 4); ++i)
        Expect(grid.GetCellText(row, i) == (tokens[i].Trim().IsEmpty() ? CStr() : tokens[i]),
               "others are cells");

    // What the library writes itself is read back.
    SEndResultItem item(u"name");
    for (const CStr& token : tokens)
        item.AddText(token.Replace(u"\t", u" "));
    CGridBaseOutputCtrl table(CGridBaseOutputCtrl::SCellInfo::Results);
    for (const CStr& value : item.GetValues())
        table.AddColumn({value, {}});
    const CStr text = item.CreateTokenizableString({}, static_cast<int>(item.GetCount()));
    Expect(table.InsertTokenizableRow(text, u"\t"), "a row of results is a line");
    Expect(table.GetRows().front().cells.size() == item.GetCount(), "it has as many cells");
}
