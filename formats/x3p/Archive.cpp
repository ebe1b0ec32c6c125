#if defined(COMMONUI_WITH_X3P)

#include "formats/x3p/detail/Archive.h"

#include "formats/detail/TextScanner.h"

#include <algorithm>
#include <array>
#include <new>
#include <set>

namespace CommonUI::Formats
{

namespace
{

constexpr std::uintmax_t c_mostBytes = 0xFFFFFFFF; // of an archive of the usual form
constexpr zip_int64_t c_mostEntries = 1000;

// Measured heights shrink to a half or a tenth. What grows more than this, and is large then, is no
// measurement.
constexpr std::uint64_t c_harmlessSize = std::uint64_t{256} << 20;
constexpr std::uint64_t c_mostGrowth = 100;

struct SCloseEntry {
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using CZipEntry = std::unique_ptr<zip_file_t, SCloseEntry>;

// Frees the memory of an error.
class CZipError
{
public:
    CZipError() { zip_error_init(&m_error); }
    ~CZipError() { zip_error_fini(&m_error); }
    CZipError(const CZipError&) = delete;
    CZipError& operator=(const CZipError&) = delete;

    zip_error_t* Get() { return &m_error; }

private:
    zip_error_t m_error{};
};

// Whether the archive has the directory for more and larger entries than the usual form can have: its number
// of entries would be bounded by nothing. It stands in front of the end of the other directory, at the end of
// the file.
bool HasLargeDirectory(std::string_view bytes)
{
    constexpr std::string_view c_end("PK\x05\x06", 4);
    constexpr std::string_view c_largeDirectory("PK\x06\x07", 4);
    constexpr std::size_t c_locatorSize = 20;
    constexpr std::size_t c_tail = 0xFFFF + 22 + c_locatorSize;
    if (bytes.size() > c_tail)
        bytes.remove_prefix(bytes.size() - c_tail);
    for (std::size_t place = bytes.find(c_end); place != bytes.npos; place = bytes.find(c_end, place + 1)) {
        if (place >= c_locatorSize && bytes.substr(place - c_locatorSize).starts_with(c_largeDirectory))
            return true;
    }
    return false;
}

// What fails for want of memory is no fault of the archive.
void CheckMemory(zip_error_t* error)
{
    if (zip_error_code_zip(error) == ZIP_ER_MEMORY)
        throw std::bad_alloc();
}

CZip OpenZip(const CInputFile& file, std::string_view bytes)
{
    CZipError error;
    zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, error.Get());
    if (!source)
        throw std::bad_alloc();
    CZip zip(zip_open_from_source(source, ZIP_RDONLY, error.Get()));
    if (!zip) {
        zip_source_free(source);
        CheckMemory(error.Get());
        file.Fail("the archive is damaged, or cut off");
    }
    return zip;
}

std::string NameOf(zip_t* zip, zip_int64_t index)
{
    const char* const name = zip_get_name(zip, static_cast<zip_uint64_t>(index), ZIP_FL_ENC_RAW);
    return name ? name : "";
}

} // namespace

CArchive::CArchive(CInputFile& file)
    : m_file(file)
{
    if (file.GetSize() > c_mostBytes)
        file.Fail("archives beyond 4 GiB are not supported");
    m_bytes = file.ReadAll();
    if (HasLargeDirectory(m_bytes.View()))
        file.Fail("archives of the form for more than 4 GiB or 65535 entries are not supported");
    m_zip = OpenZip(file, m_bytes.View());
    CheckNames();
}

void CArchive::CheckNames() const
{
    const zip_int64_t count = zip_get_num_entries(m_zip.get(), 0);
    if (count > c_mostEntries)
        m_file.Fail("the archive has " + std::to_string(count) + " entries; more than " +
                    std::to_string(c_mostEntries) + " are refused");
    std::set<std::string> names;
    for (zip_int64_t i = 0; i < count; ++i) {
        const std::string name = NameOf(m_zip.get(), i);
        if (IsClimbing(name))
            m_file.Fail("the archive has an entry " + Quote(name) + ", which leads out of its folder");
        if (!names.insert(name).second)
            m_file.Fail("the archive has two entries " + Quote(name));
    }
}

bool CArchive::Has(const std::string& entry) const
{
    return zip_name_locate(m_zip.get(), entry.c_str(), ZIP_FL_ENC_RAW) >= 0;
}

void CArchive::CheckEntry(const std::string& entry, const zip_stat_t& status) const
{
    constexpr zip_uint64_t c_needed =
        ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
    if ((status.valid & c_needed) != c_needed)
        Fail(entry, "the archive does not say what it holds");
    if (status.encryption_method != ZIP_EM_NONE)
        Fail(entry, "encrypted archives are not supported");
    if (status.comp_method != ZIP_CM_STORE && status.comp_method != ZIP_CM_DEFLATE)
        Fail(entry, "this way of compression is not supported; only stored and deflated entries are");
    if (status.comp_size > m_bytes.size)
        Fail(entry, "the archive ends within it");
    if (status.size > c_harmlessSize && status.size / c_mostGrowth > status.comp_size)
        Fail(entry, "refused, as it grows to more than a hundred times its size and 256 MiB");
    // Deflating shrinks to a thousandth at the most: more is a lie, for which no memory is taken.
    constexpr std::uint64_t c_mostDeflated = 1032;
    constexpr std::uint64_t c_smallest = 64;
    if (status.size > status.comp_size * c_mostDeflated + c_smallest)
        Fail(entry, "the archive gives it a size that it cannot have");
}

std::uint64_t CArchive::SizeOf(const std::string& entry) const
{
    zip_stat_t status{};
    if (zip_stat(m_zip.get(), entry.c_str(), ZIP_FL_ENC_RAW, &status) != 0) {
        CheckMemory(zip_get_error(m_zip.get()));
        m_file.Fail("the archive has no entry " + Quote(entry));
    }
    CheckEntry(entry, status);
    return status.size;
}

std::string CArchive::Read(const std::string& entry, std::uint64_t most) const
{
    const std::uint64_t size = SizeOf(entry);
    if (size > most)
        Fail(entry, "more than " + std::to_string(most) + " bytes are refused");
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(size));
    Read(entry, size, [&](std::string_view piece) { bytes += piece; });
    return bytes;
}

void CArchive::Read(const std::string& entry, std::uint64_t size,
                    const std::function<void(std::string_view piece)>& take) const
{
    const std::uint64_t held = SizeOf(entry);
    if (held != size)
        Fail(entry, std::to_string(size) + " bytes expected, not " + std::to_string(held));
    const CZipEntry opened(zip_fopen(m_zip.get(), entry.c_str(), ZIP_FL_ENC_RAW));
    if (!opened) {
        CheckMemory(zip_get_error(m_zip.get()));
        Fail(entry, "the archive is damaged there");
    }
    std::array<char, 1 << 16> piece;
    for (std::uint64_t done = 0; done < size;) {
        // A call may give less than is asked for, though there is more to come.
        std::size_t filled = 0;
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(piece.size(), size - done));
        while (filled < wanted) {
            const zip_int64_t got = zip_fread(opened.get(), piece.data() + filled, wanted - filled);
            if (got <= 0) {
                CheckMemory(zip_file_get_error(opened.get()));
                Fail(entry, "the archive is damaged there, or has less than it says");
            }
            filled += static_cast<std::size_t>(got);
        }
        take({piece.data(), filled});
        done += filled;
    }
    // The end is where the archive's own checksum is compared.
    if (zip_fread(opened.get(), piece.data(), 1) != 0)
        Fail(entry, "the archive is damaged there, or has more than it says");
}

void CArchive::Fail(const std::string& entry, const std::string& message) const
{
    m_file.Fail(ReplaceControls(ToUtf8(entry)) + ": " + message);
}

bool IsClimbing(std::string_view path)
{
    if (path.empty() || path.find_first_of("\\/") == 0 || path.find(':') != path.npos)
        return true;
    for (std::size_t start = 0; start <= path.size();) {
        const std::size_t end = std::min(path.find_first_of("\\/", start), path.size());
        if (path.substr(start, end - start) == "..")
            return true;
        start = end + 1;
    }
    return false;
}

} // namespace CommonUI::Formats

#endif
