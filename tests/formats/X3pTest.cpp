#if defined(COMMONUI_WITH_X3P)

#include "formats/SurfaceWriter.h"
#include "tests/common/FailingAllocation.h"
#include "tests/formats/SurfaceFile.h"
#include "tests/formats/ZipArchive.h"
#include "tests/TestData.h"

#include <cstdint>
#include <cstring>
#include <limits>

using namespace CommonUI::Formats;
using CommonUI::CAllocatedBytes;
using CommonUI::Analysis::c_missing;
using CommonUI::Analysis::SSurface;

namespace
{

class X3p : public SurfaceFile
{
};

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t place = text.find(from);
    EXPECT_NE(place, text.npos) << from;
    return place == text.npos ? text : text.replace(place, from.size(), to);
}

// Changes a field of an entry where the archive's directory describes it.
template<class T>
std::string WithField(std::string archive, const std::string& entry, std::size_t offset, T value)
{
    constexpr std::size_t c_nameOffset = 46;
    for (std::size_t place = archive.find("PK\1\2"); place != archive.npos;
         place = archive.find("PK\1\2", place + 1)) {
        if (archive.compare(place + c_nameOffset, entry.size(), entry) == 0)
            std::memcpy(archive.data() + place + offset, &value, sizeof value);
    }
    return archive;
}

constexpr std::size_t c_flags = 8;
constexpr std::size_t c_method = 10;
constexpr std::size_t c_packed = 20;
constexpr std::size_t c_size = 24;
constexpr const char* c_data = "bindata/data.bin";

// Three by two points of which the third is masked out.
const std::string c_xml = R"(<?xml version="1.0" encoding="UTF-8"?>
<p:ISO5436_2 xmlns:p="http://www.opengps.eu/2008/ISO5436_2">
<Record1><Revision>ISO5436 - 2000</Revision><FeatureType>SUR</FeatureType><Axes>
<CX><AxisType>I</AxisType><DataType>D</DataType><Increment>1e-6</Increment><Offset>0</Offset></CX>
<CY><AxisType>I</AxisType><DataType>D</DataType><Increment>2E-6</Increment><Offset>5</Offset></CY>
<CZ><AxisType>A</AxisType><DataType>I</DataType><Increment> 1e-9 </Increment><Offset>1e-6</Offset></CZ>
</Axes></Record1>
<Record3><MatrixDimension><SizeX>3</SizeX><SizeY>2</SizeY><SizeZ>1</SizeZ></MatrixDimension>
<DataLink><PointDataLink>bindata/data.bin</PointDataLink>
<ValidPointsLink>bindata/valid.bin</ValidPointsLink></DataLink></Record3>
</p:ISO5436_2>
)";
const std::string c_link = "<PointDataLink>bindata/data.bin</PointDataLink>";
const std::string c_axisX = "<CX><AxisType>I</AxisType><DataType>D</DataType><Increment>1e-6</Increment>";
const std::string c_axisZ = "<DataType>I</DataType><Increment> 1e-9 </Increment><Offset>1e-6</Offset></CZ>";
const std::string c_mask = "<ValidPointsLink>bindata/valid.bin</ValidPointsLink>";
const CEntries c_entries = {{"main.xml", c_xml},
                            {c_data, Numbers<std::int16_t>({1, -2, 32767, 0, 5, 6})},
                            {"bindata/valid.bin", "\x3B"}};

CEntries With(CEntries entries, const std::string& name, const std::string& bytes)
{
    entries[name] = bytes;
    return entries;
}

// The entries with a change of the description.
CEntries WithXml(const std::string& from, const std::string& to)
{
    return With(c_entries, "main.xml", Replaced(c_xml, from, to));
}

// The description with its points in it.
CEntries WithList(const std::string& axisZ, const std::string& list)
{
    std::string xml = Replaced(c_xml, c_axisZ, axisZ + "<Offset/></CZ>");
    const std::size_t start = xml.find("<DataLink>");
    xml.replace(start, xml.find("</Record3>") - start, "<DataList>" + list + "</DataList>");
    return {{"main.xml", xml}};
}

} // namespace

TEST_F(X3p, ReadsIntegersWithMask)
{
    ExpectThreeByTwo(Read(Zip(c_entries)), {1.001e-6, 0.998e-6, c_missing, 1e-6, 1.005e-6, 1.006e-6});
}

TEST_F(X3p, ReadsTheDate)
{
    const std::pair<const char*, const char*> cases[] = {
        {"2024-05-31T14:30:00.0+02:00", "2024-05-31T14:30:00.0+02:00"},
        {"2024-05-31", ""},
        {"2024-05-31 14:30:00", ""},
        {"2024-02-30T14:30:00", ""},
        {"2024-05-31T14:30:00 by me", ""},
    };
    for (const auto& [stated, date] : cases) {
        const std::string record = "</Record1><Record2><Date>" + std::string(stated) + "</Date></Record2>";
        EXPECT_EQ(Read(Zip(WithXml("</Record1>", record))).date, date) << stated;
    }
}

TEST_F(X3p, ReadsAllTypes)
{
    const auto read = [&](const std::string& axisZ, const std::string& data) {
        return Read(Zip(With(WithXml(c_axisZ, axisZ + "<Offset/></CZ>"), c_data, data)));
    };
    const std::vector<double> heights = {1e-9, -2e-9, c_missing, 0, 5e-9, 6e-9};
    ExpectHeights(read("<DataType>L</DataType><Increment>1e-9</Increment>",
                       Numbers<std::int32_t>({1, -2, 1 << 30, 0, 5, 6})),
                  heights);
    const SSurface floats = read("<DataType>F</DataType>",
                                 Numbers<float>({1, -2, 3, 0, 5, std::numeric_limits<float>::quiet_NaN()}));
    ExpectHeights(floats, {1, -2, c_missing, 0, 5, c_missing});
    // What is masked out may be anything.
    ExpectHeights(read("<DataType>D</DataType><Increment>0</Increment>",
                       Numbers({1e-9, -2e-9, std::numeric_limits<double>::infinity(), 0.0, 5e-9, 6e-9})),
                  heights);
}

TEST_F(X3p, ReadsPointsThatStandInTheDescription)
{
    const std::vector<double> heights = {1e-9, -2e-9, c_missing, 0, c_missing, 6e-9};
    const std::string axis = "<DataType>D</DataType>";
    ExpectHeights(Read(Zip(WithList(axis, "<Datum>1e-9</Datum><Datum> -2e-9 </Datum><Datum/>"
                                          "<Datum>0</Datum><Datum>NaN</Datum><Datum>6e-9</Datum>"))),
                  heights);
    const std::string xyz = "<Datum>0;0;1e-9</Datum><Datum>1e-6;0;-2e-9</Datum><Datum></Datum>"
                            "<Datum>0;2e-6;0</Datum><Datum>1e-6;2e-6;</Datum><Datum>2e-6;2e-6;6e-9</Datum>";
    ExpectHeights(Read(Zip(WithList(axis, xyz))), heights);
    CEntries entries = WithList(axis, Replaced(xyz, "<Datum></Datum>", "<Datum>2e-6;0;NaN</Datum>"));
    entries["main.xml"] =
        Replaced(entries["main.xml"], c_axisX, "<CX><AxisType>A</AxisType><DataType>D</DataType>");
    const SSurface surface = Read(Zip(entries));
    EXPECT_EQ(surface.dx, 1e-6);
    ExpectHeights(surface, heights);
}

TEST_F(X3p, ReadsAbsolutePositionsThatAreEven)
{
    const std::string xml =
        Replaced(Replaced(c_xml, c_axisX, "<CX><AxisType>A</AxisType><DataType>F</DataType>"), c_axisZ,
                 "<DataType>L</DataType><Increment>1e-9</Increment></CZ>");
    const auto archive = [&](float third) {
        std::string data;
        for (int i = 0; i < 6; ++i)
            data += Numbers<float>({i == 5 ? third : static_cast<float>(i % 3)}) + Numbers<std::int32_t>({i});
        return Zip(With(With(c_entries, "main.xml", xml), c_data, data));
    };
    const SSurface surface = Read(archive(2));
    EXPECT_EQ(surface.dx, 1);
    EXPECT_EQ(surface.dy, 2e-6);
    ExpectHeights(surface, {0, 1e-9, c_missing, 3e-9, 4e-9, 5e-9});
    ExpectRefused(archive(2.2f), "a.sdf: the positions are not evenly spaced: point 6");
}

TEST_F(X3p, ReadsProfiles)
{
    const std::string size = "<SizeX>3</SizeX><SizeY>2</SizeY>";
    std::string xml = Replaced(Replaced(c_xml, "SUR", "PRF"), size, "<SizeX>6</SizeX><SizeY>1</SizeY>");
    const auto expectProfile = [&](const std::string& text) {
        const SSurface profile = Read(Zip(With(c_entries, "main.xml", text)));
        EXPECT_EQ(profile.lines, 1u);
        EXPECT_EQ(profile.points, 6u);
        EXPECT_EQ(profile.dy, profile.dx);
        EXPECT_EQ(profile.missing, 1u);
    };
    expectProfile(xml);
    xml.replace(xml.find("<CY>"), xml.find("</CY>") + 5 - xml.find("<CY>"), "");
    const std::size_t start = xml.find("<MatrixDimension>");
    xml.replace(start, xml.find("<DataLink>") - start, "<ListDimension>6</ListDimension>");
    expectProfile(xml);
    ExpectRefused(Zip(WithXml("SUR", "PRF")), "a.sdf: main.xml: SizeY: a profile has one line, not 2");
}

TEST_F(X3p, ChecksumsAreThoseOfMd5)
{
    const SSurface zero{.points = 1, .lines = 1, .dx = 1, .dy = 1, .heights = {0}};
    m_folder.Write("z.x3p", WriteSurface(zero, EFormat::X3p, {}));
    zip_t* const zip = zip_open((GetPath() / "z.x3p").string().c_str(), ZIP_RDONLY, nullptr);
    ASSERT_TRUE(zip);
    std::string xml(4096, '\0');
    zip_file_t* const entry = zip_fopen(zip, "main.xml", 0);
    xml.resize(static_cast<std::size_t>(zip_fread(entry, xml.data(), xml.size())));
    zip_fclose(entry);
    zip_discard(zip);
    EXPECT_NE(xml.find("<MD5ChecksumPointData>7dea362b3fac8e00956a4952a3d4f474<"), xml.npos) << xml;
}

TEST_F(X3p, WrongChecksumsAreRefused)
{
    const std::string sum = "<MD5ChecksumPointData>";
    const auto withSum = [&](const std::string& digits) {
        return Zip(WithXml(c_link, c_link + sum + digits + "</MD5ChecksumPointData>"));
    };
    ExpectRefused(withSum("7dea362b3fac8e00956a4952a3d4f474"),
                  "a.sdf: bindata/data.bin: its MD5 checksum is not the one in main.xml");
    ExpectRefused(Zip(With(c_entries, "md5checksum.hex", "d41d8cd98f00b204e9800998ecf8427e *main.xml\n")),
                  "a.sdf: main.xml: its MD5 checksum is not the one in 'md5checksum.hex'");
    ExpectRefused(Zip(With(c_entries, "md5checksum.hex", "")), "a.sdf: main.xml: its MD5 checksum");
    ExpectRefused(Zip(WithXml("</Record3>", "</Record3><Record4><ChecksumFile>md5checksum.hex"
                                            "</ChecksumFile></Record4>")),
                  "a.sdf: the archive has no entry 'md5checksum.hex'");
}

// A line of the record: what is replaced in the description, by what, and the message.
TEST_F(X3p, RefusesBadDescriptions)
{
    for (const std::string& row : ReadTestLines("refused-x3p-descriptions.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        ExpectRefused(Zip(WithXml(cells[0], cells[1])), "a.sdf: main.xml: " + cells[2]);
    }
    const std::string axis = "<DataType>D</DataType>";
    ExpectRefused(Zip(WithList(axis, "<Datum>1</Datum>")), "a.sdf: main.xml: DataList: 6 points promised, 1");
    for (const char* datum : {"x", "1;2;3;4", "0;0;inf"}) {
        std::string list = std::string("<Datum>") + datum + "</Datum>";
        list += "<Datum/><Datum/><Datum/><Datum/><Datum/>";
        ExpectRefused(Zip(WithList(axis, list)), "a.sdf: main.xml: DataList: numbers such as");
    }
    // Nesting takes no stack.
    std::string deep;
    for (int i = 0; i < 1'000'000; ++i)
        deep += "<a>";
    ExpectRefused(Zip(With(c_entries, "main.xml", deep)), "a.sdf: main.xml: no XML: ");
}

// Archives that lie, climb or grow, each of which has to be refused before much memory is taken.
TEST_F(X3p, RefusesHostileArchives)
{
    const std::string good = Zip(c_entries);
    CEntries many = c_entries;
    for (int i = 0; i < 1000; ++i)
        many[std::to_string(i)] = "";
    std::string twice = Zip(With(c_entries, "bindata/dat2.bin", "twice"));
    for (std::size_t place = twice.find("dat2"); place != twice.npos; place = twice.find("dat2"))
        twice[place + 3] = 'a';
    const std::string huge = Zip(WithXml("<SizeX>3</SizeX>", "<SizeX>2000000000</SizeX>"));
    const std::uint32_t hugeSize = 4'000'000'000;
    const std::string claims = WithField<std::uint32_t>(
        Zip(With(WithXml("<SizeX>3</SizeX><SizeY>2</SizeY>", "<SizeX>2000000000</SizeX><SizeY>1</SizeY>"),
                 c_data, std::string(100'000, '\1'))),
        c_data, c_size, hugeSize);
    const std::string end = good.substr(good.rfind("PK\5\6"));
    const std::string large =
        good.substr(0, good.size() - end.size()) + "PK\6\7" + std::string(16, '\0') + end;
    const std::pair<std::string, const char*> rows[] = {
        {"PK\3\4", "a.sdf: the archive is damaged, or cut off"},
        {good.substr(0, good.size() - 1), "a.sdf: the archive is damaged, or cut off"},
        {large, "a.sdf: archives of the form for more than 4 GiB or 65535 entries"},
        {Zip(many), "a.sdf: the archive has 1003 entries; more than 1000 are refused"},
        {twice, "a.sdf: the archive has two entries 'bindata/data.bin'"},
        {Zip(With(c_entries, "/x\x1B", "")), "a.sdf: the archive has an entry '/x?', which leads out"},
        {Zip({{"a", ""}}), "a.sdf: the archive has no entry 'main.xml'"},
        {Zip({{"main.xml", c_xml}}), "a.sdf: the archive has no entry 'bindata/data.bin'"},
        {Zip(With(c_entries, "main.xml", std::string(17 << 20, ' '))),
         "a.sdf: main.xml: more than 16777216 bytes are refused"},
        {Zip(With(c_entries, c_data, "123")), "a.sdf: bindata/data.bin: 12 bytes expected, not 3"},
        {Zip(With(c_entries, "bindata/valid.bin", "12")),
         "a.sdf: bindata/valid.bin: 1 bytes expected, not 2"},
        {huge, "a.sdf: bindata/data.bin: 8000000000 bytes expected, not 12"},
        {claims, "a.sdf: bindata/data.bin: refused, as it grows to more than a hundred times its size"},
        {WithField<std::uint32_t>(good, c_data, c_size, 100'000'000),
         "a.sdf: bindata/data.bin: the archive gives it a size that it cannot have"},
        {WithField<std::uint32_t>(good, c_data, c_packed, 1'000'000),
         "a.sdf: bindata/data.bin: the archive ends"},
        {WithField<std::uint16_t>(good, c_data, c_method, 14),
         "a.sdf: bindata/data.bin: this way of compression"},
        {WithField<std::uint16_t>(good, c_data, c_flags, 1), "a.sdf: bindata/data.bin: encrypted"},
    };
    for (const auto& [bytes, expected] : rows) {
        const CAllocatedBytes allocated;
        ExpectRefused(bytes, expected);
        EXPECT_LT(allocated.Get(), bytes.size() * 4 + (32 << 20)) << expected;
    }
    for (const std::string name : {"../x", "a/..", "a\\..\\x"})
        ExpectRefused(Zip(With(c_entries, name, "")),
                      "a.sdf: the archive has an entry '" + name + "', which leads out");
    // Sizes that agree with the description and not with what is packed.
    const std::string more = Zip(With(c_entries, c_data, std::string(14, '\0')));
    const std::string less = Zip(With(c_entries, c_data, std::string(10, '\0')));
    for (const std::string& archive : {more, less})
        ExpectRefused(WithField<std::uint32_t>(archive, c_data, c_size, 12),
                      "a.sdf: bindata/data.bin: the archive is damaged there");
#if !defined(_WIN32) // where a file has no holes unless it is asked for
    m_folder.Write("a.sdf", good);
    std::filesystem::resize_file(GetPath() / "a.sdf", std::uintmax_t{1} << 43);
    EXPECT_EQ(ReadBad(GetPath() / "a.sdf"), "a.sdf: archives beyond 4 GiB are not supported");
#endif
}

// Whatever a byte becomes, and wherever the file ends: the surface is refused, or read as something that
// fits.
TEST_F(X3p, DamagedFilesAreRefusedOrRead)
{
    const SSurface surface{
        .points = 3, .lines = 2, .dx = 1e-6, .dy = 2e-6, .heights = {1e-9, c_missing, 3e-9, 4e-9, 5e-9, 0}};
    const std::string good = WriteSurface(surface, EFormat::X3p, {});
    const auto expectSane = [&](const std::string& bytes) {
        try {
            const SSurface read = Read(bytes);
            EXPECT_EQ(read.heights.size(), read.points * read.lines);
            EXPECT_EQ(read.points, 3u);
            EXPECT_EQ(read.heights[3], 4e-9);
        } catch (const EReadError& error) {
            EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
        }
    };
    for (std::size_t i = 0; i < good.size(); ++i) {
        if (i % 8 == 0)
            expectSane(good.substr(0, i));
        constexpr int c_changes[] = {1, 0x80, 0xFF};
        std::string damaged = good;
        damaged[i] = static_cast<char>(damaged[i] ^ c_changes[i % 3]);
        expectSane(damaged);
    }
}

TEST_F(X3p, ReportsProgressAndCanBeCancelled)
{
    SSurface surface{.points = 100'000, .lines = 1, .dx = 1, .dy = 1};
    surface.heights.resize(surface.points);
    ExpectProgress(WriteSurface(surface, EFormat::X3p, {}), 10);
}

#endif
