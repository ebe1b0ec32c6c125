#if defined(COMMONUI_WITH_X3P)

#include "formats/x3p/detail/Description.h"

#include "formats/detail/Dates.h"
#include "formats/detail/TextScanner.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace CommonUI::Formats
{

namespace
{

constexpr std::size_t c_longestPath = 255;

// Whether the name of an element, a prefix for its namespace aside, is this one.
bool IsCalled(const pugi::xml_node& node, std::string_view name)
{
    const std::string_view full = node.name();
    return full.substr(full.find(':') + 1) == name;
}

pugi::xml_node ChildOf(const pugi::xml_node& node, std::string_view name)
{
    return node.find_child([&](const pugi::xml_node& child) { return IsCalled(child, name); });
}

std::string_view TextOf(const pugi::xml_node& node, const char* name)
{
    return Trim(ChildOf(node, name).child_value());
}

pugi::xml_node RecordOf(const pugi::xml_node& root, const char* record, const char* name)
{
    return ChildOf(ChildOf(root, record), name);
}

} // namespace

CX3pDocument::CX3pDocument(const CArchive& archive, const std::string& xml)
    : m_archive(archive)
{
    const auto result =
        m_document.load_buffer(xml.data(), xml.size(), pugi::parse_default | pugi::parse_doctype);
    if (result.status == pugi::status_out_of_memory)
        throw std::bad_alloc();
    if (!result)
        m_archive.Fail(c_mainEntry, std::string("no XML: ") + result.description() + " at byte " +
                                        std::to_string(result.offset));
    // Entities are never expanded. Who declares any has nothing good in mind.
    for (const pugi::xml_node& node : m_document) {
        if (node.type() == pugi::node_doctype)
            m_archive.Fail(c_mainEntry, "a document type declaration is refused");
    }
    m_root = m_document.document_element();
    if (!IsCalled(m_root, "ISO5436_2"))
        m_archive.Fail(c_mainEntry,
                       "not X3P: the outermost element is " + Quote(m_root.name()) + ", not ISO5436_2");
}

SX3pDescription CX3pDocument::Describe() const
{
    SX3pDescription description;
    const std::string_view kind = TextOf(ChildOf(m_root, "Record1"), "FeatureType");
    if (kind == "PCL")
        Fail("FeatureType", "point clouds (PCL) are not supported; surfaces (SUR) and profiles (PRF) are");
    if (kind != "SUR" && kind != "PRF")
        Fail("FeatureType", "SUR or PRF expected, not " + Quote(kind));
    description.isProfile = kind == "PRF";
    ReadSize(description);
    description.x = ReadAxis("CX");
    description.z = ReadAxis("CZ");
    CheckHeights(description.z);
    // That of a profile says at most that its data have positions across, which nobody needs.
    const pugi::xml_node across = ChildOf(RecordOf(m_root, "Record1", "Axes"), "CY");
    if (!description.isProfile || TextOf(across, "AxisType") == "A")
        description.y = ReadAxis("CY");
    const pugi::xml_node link = RecordOf(m_root, "Record3", "DataLink");
    description.data = ReadLink(link, "PointDataLink", "MD5ChecksumPointData");
    description.mask = ReadLink(link, "ValidPointsLink", "MD5ChecksumValidPoints");
    if (link && description.data.entry.empty())
        Fail("DataLink", "there is no PointDataLink");
    description.checksumEntry = ReadLink(ChildOf(m_root, "Record4"), "ChecksumFile", "").entry;
    description.date = DateOfXml(TextOf(ChildOf(m_root, "Record2"), "Date"));
    return description;
}

std::vector<std::string_view> CX3pDocument::GetData() const
{
    std::vector<std::string_view> data;
    for (const pugi::xml_node& node : RecordOf(m_root, "Record3", "DataList")) {
        if (IsCalled(node, "Datum"))
            data.push_back(Trim(node.child_value()));
    }
    return data;
}

void CX3pDocument::Fail(const char* element, const std::string& message) const
{
    m_archive.Fail(c_mainEntry, std::string(element) + ": " + message);
}

std::size_t CX3pDocument::ReadCount(const pugi::xml_node& dimension, const char* name) const
{
    const std::string_view text = TextOf(dimension, name);
    std::uint32_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || end != text.data() + text.size() || count == 0)
        Fail(name, "a number of points from 1 to 4294967295 expected, not " + Quote(text));
    return count;
}

// @param missing what it is where there is no such element
double CX3pDocument::ReadNumber(const pugi::xml_node& axis, const char* name, double missing) const
{
    const std::string_view text = TextOf(axis, name);
    double number = missing;
    if (!text.empty() && !ParseNumber(text, number))
        Fail(axis.name(), std::string(name) + ": a finite number expected, not " + Quote(text));
    return number;
}

SX3pAxis CX3pDocument::ReadAxis(const char* name) const
{
    struct SType {
        std::string_view key;
        ENumber type;
    };
    constexpr SType c_types[] = {
        {"I", ENumber::Int16}, {"L", ENumber::Int32}, {"F", ENumber::Float}, {"D", ENumber::Double}};
    const pugi::xml_node node = ChildOf(RecordOf(m_root, "Record1", "Axes"), name);
    if (!node)
        Fail("Axes", std::string("there is no axis ") + name);
    const std::string_view kind = TextOf(node, "AxisType");
    if (kind != "A" && kind != "I")
        Fail(name, "AxisType: A or I expected, not " + Quote(kind));
    SX3pAxis axis{.isAbsolute = kind == "A"};
    const std::string_view key = TextOf(node, "DataType");
    const auto* const type = std::ranges::find(c_types, key, &SType::key);
    const bool isKnown = type != std::end(c_types);
    if (!isKnown && (axis.isAbsolute || !key.empty()))
        Fail(name, "DataType: I, L, F or D expected, not " + Quote(key));
    if (isKnown)
        axis.type = type->type;
    const bool isInteger = axis.type == ENumber::Int16 || axis.type == ENumber::Int32;
    axis.scale.factor = ReadNumber(node, "Increment", 0);
    axis.scale.offset = ReadNumber(node, "Offset", 0);
    // Numbers with a point are metres where nothing else is said; some writers say so with a 0.
    if (axis.isAbsolute && !isInteger && axis.scale.factor == 0)
        axis.scale.factor = 1;
    if (!IsPlausibleLength(axis.scale.factor))
        Fail(name, "Increment: a length from 1e-18 m to 1e9 m expected");
    return axis;
}

void CX3pDocument::CheckHeights(const SX3pAxis& axis) const
{
    if (!axis.isAbsolute)
        Fail("CZ", "AxisType: heights are absolute, A, not I");
    if (IsBeyondHeights(axis.scale.offset))
        Fail("CZ", "Offset: a length up to 1e9 m expected");
}

SX3pLink CX3pDocument::ReadLink(const pugi::xml_node& node, const char* path, const char* checksum) const
{
    SX3pLink link{.entry = std::string(TextOf(node, path)), .checksum = std::string(TextOf(node, checksum))};
    if (!link.entry.empty() && IsClimbing(link.entry))
        Fail(path, "the path " + Quote(link.entry) + " leads out of the archive");
    if (link.entry.size() > c_longestPath)
        Fail(path, "a path of more than 255 characters is refused");
    return link;
}

void CX3pDocument::ReadSize(SX3pDescription& description) const
{
    const pugi::xml_node record = ChildOf(m_root, "Record3");
    const pugi::xml_node matrix = ChildOf(record, "MatrixDimension");
    if (description.isProfile && !matrix) {
        description.points = ReadCount(record, "ListDimension");
        description.lines = 1;
        return;
    }
    description.points = ReadCount(matrix, "SizeX");
    description.lines = ReadCount(matrix, "SizeY");
    if (description.isProfile && description.lines != 1)
        Fail("SizeY", "a profile has one line, not " + std::to_string(description.lines));
    if (ReadCount(matrix, "SizeZ") != 1)
        Fail("SizeZ", "surfaces of several layers are not supported");
    // So that their bytes can be counted, too.
    constexpr std::uint64_t c_mostPoints = std::numeric_limits<std::uint32_t>::max();
    if (description.lines > c_mostPoints / description.points)
        Fail("MatrixDimension", "more than 4294967295 points are not supported");
}

} // namespace CommonUI::Formats

#endif
