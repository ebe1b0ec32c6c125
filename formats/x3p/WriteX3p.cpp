#include "formats/detail/Writers.h"

#if defined(COMMONUI_WITH_X3P)

#include "formats/detail/BinaryHeights.h"
#include "formats/detail/Dates.h"
#include "formats/x3p/detail/Archive.h"
#include "formats/x3p/detail/Digest.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace CommonUI::Formats
{

namespace
{

constexpr const char* c_dataEntry = "bindata/data.bin";
constexpr const char* c_maskEntry = "bindata/valid.bin";
constexpr const char* c_checksumEntry = "md5checksum.hex";

struct SFreeSource {
    void operator()(zip_source_t* source) const { zip_source_free(source); }
};
using CSource = std::unique_ptr<zip_source_t, SFreeSource>;

[[noreturn]] void Fail()
{
    throw EWriteError("the archive cannot be made");
}

// An archive that is made in memory.
class CArchiveWriter
{
public:
    explicit CArchiveWriter(std::chrono::sys_seconds time)
        : m_time(std::chrono::system_clock::to_time_t(time))
        , m_source(zip_source_buffer_create(nullptr, 0, 0, nullptr))
    {
        if (!m_source)
            throw std::bad_alloc();
        m_zip.reset(zip_open_from_source(m_source.get(), ZIP_TRUNCATE, nullptr));
        if (!m_zip)
            Fail();
        // One for the archive, which goes when that is closed, and one to read what it has become.
        zip_source_keep(m_source.get());
    }
    CArchiveWriter(const CArchiveWriter&) = delete;
    CArchiveWriter& operator=(const CArchiveWriter&) = delete;

    /// @param bytes have to live until the end of the work
    void Add(const char* entry, const std::string& bytes)
    {
        CSource source(zip_source_buffer(m_zip.get(), bytes.data(), bytes.size(), 0));
        if (!source)
            throw std::bad_alloc();
        const zip_int64_t index = zip_file_add(m_zip.get(), entry, source.get(), ZIP_FL_ENC_UTF_8);
        if (index < 0)
            Fail();
        static_cast<void>(source.release()); // the archive has it
        zip_file_set_mtime(m_zip.get(), static_cast<zip_uint64_t>(index), m_time, 0);
    }

    std::string Finish()
    {
        if (zip_close(m_zip.get()) != 0)
            Fail();
        static_cast<void>(m_zip.release()); // closing has freed it
        zip_stat_t status{};
        if (zip_source_open(m_source.get()) != 0 || zip_source_stat(m_source.get(), &status) != 0)
            Fail();
        std::string bytes(static_cast<std::size_t>(status.size), '\0');
        if (zip_source_read(m_source.get(), bytes.data(), bytes.size()) !=
            static_cast<zip_int64_t>(bytes.size()))
            Fail();
        zip_source_close(m_source.get());
        return bytes;
    }

private:
    std::time_t m_time;
    CSource m_source;
    CZip m_zip{};
};

std::string DataOf(const Analysis::SSurface& surface)
{
    std::string data;
    data.reserve(surface.heights.size() * sizeof(double));
    for (const double height : surface.heights)
        AppendLittle(data, height);
    return data;
}

// A bit for each point, whether it is there; the first has the lowest bit of the first byte.
std::string MaskOf(const Analysis::SSurface& surface)
{
    constexpr std::size_t c_bits = 8;
    std::string mask((surface.heights.size() + c_bits - 1) / c_bits, '\0');
    for (std::size_t i = 0; i < surface.heights.size(); ++i) {
        if (!std::isnan(surface.heights[i]))
            mask[i / c_bits] = static_cast<char>(mask[i / c_bits] | 1 << i % c_bits);
    }
    return mask;
}

std::string AxisText(const char* name, char kind, double increment)
{
    std::string text =
        std::string("      <") + name + "><AxisType>" + kind + "</AxisType><DataType>D</DataType>";
    text += "<Increment>";
    AppendNumber(text, increment);
    return text + "</Increment><Offset>0</Offset></" + name + ">\n";
}

std::string LinkText(const char* path, const char* entry, const char* checksum, const std::string& bytes)
{
    const std::string link(path);
    const std::string sum(checksum);
    return "      <" + link + ">" + entry + "</" + link + ">\n      <" + sum + ">" + DigestOf(bytes) + "</" +
           sum + ">\n";
}

// The date that the surface has from its file, with seconds, without which it is none for XML; nothing where
// it has none.
std::string DateText(const Analysis::SSurface& surface)
{
    constexpr std::size_t c_minutes = 16; // how long a date is without seconds
    std::string date = DateOfXml(surface.date);
    if (date.empty())
        return {};
    if (date.size() == c_minutes || date[c_minutes] != ':')
        date.insert(c_minutes, ":00");
    return "  <Record2><Date>" + date + "</Date></Record2>\n";
}

std::string DocumentOf(const Analysis::SSurface& surface, const std::string& data, const std::string& mask)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<p:ISO5436_2 xmlns:p=\"http://www.opengps.eu/2008/ISO5436_2\">\n"
                       "  <Record1>\n    <Revision>ISO5436 - 2000</Revision>\n    <FeatureType>";
    text += surface.lines == 1 ? "PRF" : "SUR";
    text += "</FeatureType>\n    <Axes>\n";
    text += AxisText("CX", 'I', surface.dx) + AxisText("CY", 'I', surface.dy) + AxisText("CZ", 'A', 1);
    text += "    </Axes>\n  </Record1>\n" + DateText(surface) + "  <Record3>\n    <MatrixDimension><SizeX>";
    text += std::to_string(surface.points) + "</SizeX><SizeY>" + std::to_string(surface.lines);
    text += "</SizeY><SizeZ>1</SizeZ></MatrixDimension>\n    <DataLink>\n";
    text += LinkText("PointDataLink", c_dataEntry, "MD5ChecksumPointData", data);
    if (!mask.empty())
        text += LinkText("ValidPointsLink", c_maskEntry, "MD5ChecksumValidPoints", mask);
    text += "    </DataLink>\n  </Record3>\n  <Record4><ChecksumFile>";
    return text + c_checksumEntry + "</ChecksumFile></Record4>\n</p:ISO5436_2>\n";
}

std::pair<std::string, std::string> DocumentAndChecksum(const Analysis::SSurface& surface,
                                                        const std::string& data, const std::string& mask)
{
    try {
        std::string document = DocumentOf(surface, data, mask);
        std::string checksum = DigestOf(document) + " *main.xml\n";
        return {std::move(document), std::move(checksum)};
    } catch (const ENoDigest& error) {
        throw EWriteError(error.what());
    }
}

} // namespace

std::string WriteX3p(const Analysis::SSurface& surface, std::chrono::sys_seconds time)
{
    constexpr std::size_t c_mostPoints = 500'000'000; // with which an archive keeps the usual form
    if (surface.heights.size() > c_mostPoints)
        throw EWriteError("X3P is written with 500 million points at the most");
    const bool hasMissing = std::ranges::any_of(surface.heights, [](double z) { return std::isnan(z); });
    const std::string data = DataOf(surface);
    const std::string mask = hasMissing ? MaskOf(surface) : std::string();
    const auto [document, checksum] = DocumentAndChecksum(surface, data, mask);
    CArchiveWriter archive(time);
    archive.Add("main.xml", document);
    archive.Add(c_checksumEntry, checksum);
    archive.Add(c_dataEntry, data);
    if (hasMissing)
        archive.Add(c_maskEntry, mask);
    return archive.Finish();
}

} // namespace CommonUI::Formats

#else

namespace CommonUI::Formats
{

std::string WriteX3p(const Analysis::SSurface&, std::chrono::sys_seconds)
{
    throw EWriteError("this build of the library writes no X3P");
}

} // namespace CommonUI::Formats

#endif
