#include "formats/detail/Readers.h"

#if defined(COMMONUI_WITH_X3P)

#include "formats/detail/EvenSpacing.h"
#include "formats/x3p/detail/Archive.h"
#include "formats/x3p/detail/Description.h"
#include "formats/x3p/detail/Digest.h"
#include "formats/x3p/detail/Points.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Formats
{

namespace
{

constexpr std::uint64_t c_mostXml = 16 << 20; // bytes; a document takes some twenty times as much memory
constexpr std::uint64_t c_mostChecksum = 4096;

// Compares with the checksum file, which is what md5sum prints.
void CheckDocument(const CArchive& archive, const std::string& xml, const std::string& named)
{
    constexpr std::size_t c_digits = 32;
    const std::string entry = named.empty() ? "md5checksum.hex" : named;
    if (named.empty() && !archive.Has(entry))
        return;
    const std::string text = archive.Read(entry, c_mostChecksum);
    if (!EqualsNoCase(Trim(text).substr(0, c_digits), DigestOf(xml)))
        archive.Fail(c_mainEntry, "its MD5 checksum is not the one in " + Quote(entry));
}

// The bytes that a link leads to. They are compared with their checksum when all have come.
void ReadLinked(const CArchive& archive, const SX3pLink& link, std::uint64_t size,
                const std::function<void(std::string_view piece)>& take)
{
    CDigest digest;
    archive.Read(link.entry, size, [&](std::string_view piece) {
        digest.Add(piece);
        take(piece);
    });
    if (!link.checksum.empty() && !EqualsNoCase(link.checksum, digest.Finish()))
        archive.Fail(link.entry, "its MD5 checksum is not the one in main.xml");
}

void ReadBinary(const CArchive& archive, const SX3pLink& link, const FProgress& progress, CX3pPoints& points)
{
    ReadLinked(archive, link, points.GetBytes(), [&](std::string_view piece) {
        points.TakeBytes(piece);
        if (progress)
            progress(static_cast<double>(points.GetHeights().size()) /
                     static_cast<double>(points.GetCount()));
    });
}

void ReadTexts(const CArchive& archive, const std::vector<std::string_view>& texts, CX3pPoints& points)
{
    if (texts.size() != points.GetCount())
        archive.Fail(c_mainEntry, "DataList: " + std::to_string(points.GetCount()) + " points promised, " +
                                      std::to_string(texts.size()) + " found");
    for (const std::string_view text : texts) {
        if (!points.TakeText(text))
            archive.Fail(c_mainEntry,
                         "DataList: numbers such as '1e-6;2e-6;3e-9' expected, not " + Quote(text));
    }
}

// Makes points missing whose bit is 0. The first point has the lowest bit of the first byte.
void ApplyMask(const CArchive& archive, const SX3pLink& link, std::vector<double>& heights)
{
    constexpr std::size_t c_bits = 8;
    std::size_t first = 0;
    ReadLinked(archive, link, (heights.size() + c_bits - 1) / c_bits, [&](std::string_view piece) {
        for (const char byte : piece) {
            const std::size_t count = std::min(c_bits, heights.size() - first);
            for (std::size_t bit = 0; bit < count; ++bit) {
                if ((static_cast<unsigned char>(byte) >> bit & 1) == 0)
                    heights[first + bit] = Analysis::c_missing;
            }
            first += count;
        }
    });
}

// What is missing may hold anything in the file.
void CheckHeights(const CArchive& archive, const std::vector<double>& heights)
{
    const auto found = std::ranges::find_if(heights, IsBeyondHeights);
    if (found != heights.end())
        archive.GetFile().Fail("point " + std::to_string(found - heights.begin() + 1) +
                               ": a height beyond 1e9 m");
}

// The spacing along an axis, from the positions where it has some.
double SpacingOf(const CArchive& archive, const SX3pAxis& axis, const std::vector<double>& positions,
                 std::size_t repeat, std::size_t count, const std::vector<double>& heights)
{
    if (!axis.isAbsolute)
        return axis.scale.factor;
    const CInputFile& file = archive.GetFile();
    if (count < 2)
        file.Fail("one position along an absolute axis has no spacing");
    const auto [spacing, uneven] =
        FindSpacing(positions, repeat, count, [&](std::size_t i) { return std::isnan(heights[i]); });
    if (!IsPlausibleLength(spacing))
        file.Fail(
            "positions have to grow along each axis, and their spacing to be one from 1e-18 m to 1e9 m");
    if (uneven)
        file.Fail("the positions are not evenly spaced: point " + std::to_string(*uneven + 1) +
                  " is more than a tenth of the spacing beside its place");
    return spacing;
}

} // namespace

bool HasX3p()
{
    return true;
}

Analysis::SSurface ReadX3p(CInputFile& file, const FProgress& progress)
{
    const CArchive archive(file);
    const std::string xml = archive.Read(c_mainEntry, c_mostXml);
    const CX3pDocument document(archive, xml);
    const SX3pDescription description = document.Describe();
    CheckDocument(archive, xml, description.checksumEntry);

    CX3pPoints points(description);
    if (!description.data.entry.empty())
        ReadBinary(archive, description.data, progress, points);
    else
        ReadTexts(archive, document.GetData(), points);
    if (!description.mask.entry.empty())
        ApplyMask(archive, description.mask, points.GetHeights());
    const std::vector<double>& heights = points.GetHeights();
    CheckHeights(archive, heights);

    Analysis::SSurface surface{
        .points = description.points, .lines = description.lines, .date = description.date};
    surface.dx = SpacingOf(archive, description.x, points.GetX(), 1, surface.points, heights);
    surface.dy = description.isProfile ? surface.dx
                                       : SpacingOf(archive, description.y, points.GetY(), surface.points,
                                                   surface.lines, heights);
    surface.heights = std::move(points.GetHeights());
    return surface;
}

} // namespace CommonUI::Formats

#else

namespace CommonUI::Formats
{

bool HasX3p()
{
    return false;
}

Analysis::SSurface ReadX3p(CInputFile& file, const FProgress&)
{
    file.Fail("this build of the library reads no X3P");
}

} // namespace CommonUI::Formats

#endif
