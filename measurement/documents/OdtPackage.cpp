#include "measurement/documents/detail/OdtPackage.h"

#ifdef COMMONUI_WITH_ODT

#include "measurement/charts/Svg.h"
#include "measurement/Request.h"

#include <array>
#include <memory>
#include <zip.h>

namespace CommonUI::Measurement
{

namespace
{

constexpr const char* c_mediaType = "application/vnd.oasis.opendocument.text";

struct SFreeSource {
    void operator()(zip_source_t* source) const { zip_source_free(source); }
};
struct SDiscardZip {
    void operator()(zip_t* zip) const { zip_discard(zip); }
};
using CSource = std::unique_ptr<zip_source_t, SFreeSource>;
using CZip = std::unique_ptr<zip_t, SDiscardZip>;

[[noreturn]] void Fail()
{
    throw ERequest(u"", u"the package of the document cannot be made");
}

// @param bytes have to live until the archive is closed
void AddEntry(zip_t* zip, const std::string& name, const std::string& bytes, zip_int32_t compression)
{
    CSource source(zip_source_buffer(zip, bytes.data(), bytes.size(), 0));
    if (!source)
        throw std::bad_alloc();
    const zip_int64_t index = zip_file_add(zip, name.c_str(), source.get(), ZIP_FL_ENC_UTF_8);
    if (index < 0)
        Fail();
    static_cast<void>(source.release()); // the archive has it
    const auto entry = static_cast<zip_uint64_t>(index);
    // A fixed time: the package says nothing of when it was made.
    constexpr zip_uint16_t c_firstDay = 1 << 5 | 1;
    if (zip_set_file_compression(zip, entry, compression, 0) != 0 ||
        zip_file_set_dostime(zip, entry, 0, c_firstDay, 0) != 0)
        Fail();
}

} // namespace

void COdtPackage::Add(const std::string& name, const std::string& mediaType, std::string bytes)
{
    m_entries.push_back({name, mediaType, std::move(bytes)});
}

std::string COdtPackage::GetManifest() const
{
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<manifest:manifest xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\" "
        "manifest:version=\"1.2\">\n"
        "<manifest:file-entry manifest:full-path=\"/\" manifest:version=\"1.2\" "
        "manifest:media-type=\"" +
        std::string(c_mediaType) + "\"/>\n";
    for (const SEntry& entry : m_entries)
        text += "<manifest:file-entry manifest:full-path=\"" + EscapeXml(entry.name) +
                "\" manifest:media-type=\"" + entry.mediaType + "\"/>\n";
    return text + "</manifest:manifest>\n";
}

void COdtPackage::Write(const FWriteText& write) const
{
    const CSource source(zip_source_buffer_create(nullptr, 0, 0, nullptr));
    if (!source)
        throw std::bad_alloc();
    CZip zip(zip_open_from_source(source.get(), ZIP_TRUNCATE, nullptr));
    if (!zip)
        Fail();
    // One for the archive, which goes when that is closed, and one to read what it has become.
    zip_source_keep(source.get());
    // The first entry, as it is, by which programs know what the file is.
    const std::string mediaType = c_mediaType;
    const std::string manifest = GetManifest();
    AddEntry(zip.get(), "mimetype", mediaType, ZIP_CM_STORE);
    for (const SEntry& entry : m_entries)
        AddEntry(zip.get(), entry.name, entry.bytes, ZIP_CM_DEFLATE);
    AddEntry(zip.get(), "META-INF/manifest.xml", manifest, ZIP_CM_DEFLATE);
    if (zip_close(zip.get()) != 0)
        Fail();
    static_cast<void>(zip.release()); // closing has freed it
    if (zip_source_open(source.get()) != 0)
        Fail();
    std::array<char, 1 << 16> piece;
    zip_int64_t got = 0;
    while ((got = zip_source_read(source.get(), piece.data(), piece.size())) > 0)
        write({piece.data(), static_cast<std::size_t>(got)});
    zip_source_close(source.get());
    if (got < 0)
        Fail();
}

} // namespace CommonUI::Measurement

#endif
