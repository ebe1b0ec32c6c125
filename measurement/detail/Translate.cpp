#include "measurement/detail/Translate.h"

#include "common/StringTable.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace CommonUI::Measurement
{

namespace
{

// The texts of the library among those of the string table.
constexpr int c_profile = 10073;
constexpr int c_first = 11834;
constexpr int c_last = 11869;

constexpr const char16_t* c_place = u"%s";

// What stands between the places for arguments.
std::vector<CStr> GetPieces(const CStr& pattern)
{
    std::vector<CStr> pieces = pattern.Split(c_place);
    for (CStr& piece : pieces)
        piece = piece.Replace(u"%%", u"%");
    return pieces;
}

// The arguments that make the text of the pattern; nothing where none do.
std::optional<std::vector<CStr>> Match(const CStr& text, const CStr& pattern)
{
    const std::vector<CStr> pieces = GetPieces(pattern);
    if (text.Left(pieces.front().GetLength()) != pieces.front())
        return {};
    std::vector<CStr> arguments;
    CStr rest = text.Mid(pieces.front().GetLength(), text.GetLength());
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        const bool isLast = i + 1 == pieces.size();
        const std::size_t length = pieces[i].GetLength();
        if (rest.GetLength() < length)
            return {};
        const std::size_t end = isLast ? rest.GetLength() - length : rest.Find(pieces[i]);
        if (end > rest.GetLength() || rest.Mid(end, length) != pieces[i])
            return {};
        arguments.push_back(rest.Left(end));
        rest = rest.Mid(end + length, rest.GetLength());
    }
    return rest.IsEmpty() ? std::optional(arguments) : std::nullopt;
}

CStr Fill(const CStr& pattern, const std::vector<CStr>& arguments)
{
    const std::vector<CStr> pieces = GetPieces(pattern);
    CStr text = pieces.front();
    for (std::size_t i = 0; i < arguments.size() && i + 1 < pieces.size(); ++i)
        text += arguments[i] + pieces[i + 1];
    return text;
}

} // namespace

CStr Translate(const CStr& english)
{
    for (const SStringTableRow& row : GetEnglishStringTable()) {
        if (row.id != c_profile && (row.id < c_first || row.id > c_last))
            continue;
        auto arguments = Match(english, row.text);
        if (!arguments)
            continue;
        std::ranges::transform(*arguments, arguments->begin(), Translate);
        return Fill(GetString(row.id), *arguments);
    }
    return english;
}

} // namespace CommonUI::Measurement
