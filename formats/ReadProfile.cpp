#include "formats/detail/EvenSpacing.h"
#include "formats/detail/LengthUnit.h"
#include "formats/detail/Readers.h"

#include <array>
#include <cmath>

namespace CommonUI::Formats
{

namespace
{

// What the first line says of the columns.
struct SHead {
    std::array<double, 2> units{}; // of x and z, or of z alone
    std::size_t columns = 0;
    bool hasMore = false;
    char separator = ' ';
};

SHead ReadHead(std::string_view line)
{
    SHead head;
    for (std::size_t open = line.find_first_of("[("); open != line.npos; open = line.find_first_of("[(")) {
        const std::size_t close = line.find(line[open] == '[' ? ']' : ')', open);
        if (close == line.npos)
            break;
        const std::optional<double> unit = FindLengthUnit(Trim(line.substr(open + 1, close - open - 1)));
        line.remove_prefix(close + 1);
        if (!unit)
            continue;
        head.hasMore = head.columns == head.units.size();
        if (head.hasMore)
            break;
        head.units[head.columns++] = *unit;
        const std::string_view rest = Trim(line);
        if (head.columns == 1 && (rest.starts_with(';') || rest.starts_with(',')))
            head.separator = rest.front();
    }
    return head;
}

// The positions of a profile, as far as it has any, and its heights.
struct SColumns {
    std::vector<double> positions{};
    std::vector<double> heights{};
};

void SkipSeparator(CTextScanner& scanner, char separator)
{
    scanner.SkipBlanks();
    if (separator != ' ' && scanner.Peek() == separator)
        scanner.SkipByte();
    scanner.SkipBlanks();
}

double ReadNumber(CTextScanner& scanner, double unit)
{
    if (scanner.IsAtEnd() || scanner.Peek() == '\n')
        scanner.Fail(scanner.GetPosition(), "a position and a height expected");
    return scanner.ReadHeight(unit);
}

double ReadPosition(CTextScanner& scanner, double unit)
{
    const char* const place = scanner.GetPosition();
    const double position = ReadNumber(scanner, unit);
    if (std::isnan(position))
        scanner.Fail(place, "a position is missing");
    return position;
}

// The scanner stands at a number.
void ReadRow(CTextScanner& scanner, const SHead& head, SColumns& columns)
{
    if (head.columns == 2) {
        columns.positions.push_back(ReadPosition(scanner, head.units[0]));
        SkipSeparator(scanner, head.separator);
    }
    columns.heights.push_back(ReadNumber(scanner, head.units[head.columns - 1]));
    scanner.SkipBlanks();
    if (!scanner.IsAtEnd() && scanner.Peek() != '\n')
        scanner.Fail(scanner.GetPosition(), "a number more than there are columns");
}

double SpacingOf(const CTextScanner& scanner, const std::vector<double>& positions)
{
    if (positions.size() < 2)
        scanner.Fail(scanner.GetPosition(), "a profile needs two points to have a spacing");
    const auto [spacing, uneven] = FindSpacing(positions, 1, positions.size(), [](auto) { return false; });
    if (!IsPlausibleLength(spacing))
        scanner.Fail(scanner.GetPosition(),
                     "the positions have to grow, and their spacing to be one from 1e-18 m to 1e9 m");
    if (uneven)
        scanner.Fail(scanner.GetPosition(), "the positions are not evenly spaced: point " +
                                                std::to_string(*uneven + 1) +
                                                " is more than a tenth of the spacing beside its place");
    return spacing;
}

void CheckSpacing(const CTextScanner& scanner, const char* place, const SHead& head,
                  std::optional<double> spacing)
{
    if (head.hasMore)
        scanner.Fail(place, "more than two columns");
    if (head.columns == 2 && spacing)
        scanner.Fail(place, "the file has positions of its own, so no spacing may be given");
    if (head.columns == 1 && !spacing)
        scanner.Fail(place, "the file has heights alone, so a spacing has to be given");
    if (spacing && !IsPlausibleLength(*spacing))
        scanner.Fail(place, "a spacing from 1e-18 m to 1e9 m has to be given");
}

} // namespace

bool IsProfileHead(std::string_view line)
{
    // The lines of a matrix's header have a colon.
    const bool isComment = line.starts_with('#');
    return ReadHead(line).columns != 0 && !(isComment && line.find(':') != line.npos);
}

Analysis::SSurface ReadProfile(CTextScanner& scanner, std::optional<double> spacing)
{
    const char* const start = scanner.GetPosition();
    const SHead head = ReadHead(scanner.ReadLine());
    CheckSpacing(scanner, start, head, spacing);
    if (head.separator != ' ')
        scanner.SetSeparator(head.separator);
    SColumns columns;
    for (scanner.SkipSpace(); !scanner.IsAtEnd(); scanner.SkipSpace())
        ReadRow(scanner, head, columns);
    if (columns.heights.empty())
        scanner.Fail(scanner.GetPosition(), "no values after the first line");
    const double dx = head.columns == 2 ? SpacingOf(scanner, columns.positions) : *spacing;
    return {.points = columns.heights.size(),
            .lines = 1,
            .dx = dx,
            .dy = dx,
            .heights = std::move(columns.heights)};
}

} // namespace CommonUI::Formats
