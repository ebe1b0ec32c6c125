#include "programs/surface_report/RunState.h"

#include "common/file/FileBytes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace SurfaceReport
{

namespace fs = std::filesystem;
using CommonUI::CStr;

namespace
{

constexpr std::string_view c_title = "surface_report state 2";
constexpr std::string_view c_row = "row";
constexpr std::string_view c_report = "report";
constexpr std::string_view c_noPlace = "-";

// Texts have no tab and no line end in the file.
constexpr std::string_view c_plain = "\\\t\r\n";
constexpr std::string_view c_escaped = "\\trn";

std::string Escape(std::string_view text)
{
    std::string escaped;
    for (const char c : text) {
        const std::size_t found = c_plain.find(c);
        if (found == c_plain.npos)
            escaped += c;
        else
            escaped.append({'\\', c_escaped[found]});
    }
    return escaped;
}

std::string Unescape(std::string_view text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t found =
            text[i] == '\\' && i + 1 < text.size() ? c_escaped.find(text[i + 1]) : c_escaped.npos;
        if (found == c_escaped.npos)
            plain += text[i];
        else
            plain += c_plain[(++i, found)];
    }
    return plain;
}

// The fields of a line, of which there are some at least.
std::vector<std::string> SplitLine(std::string_view line, std::size_t least)
{
    std::vector<std::string> fields;
    for (std::size_t begin = 0; begin <= line.size();) {
        const std::size_t end = std::min(line.find('\t', begin), line.size());
        fields.push_back(Unescape(line.substr(begin, end - begin)));
        begin = end + 1;
    }
    if (fields.size() < least)
        throw std::runtime_error("a line of it is cut off");
    return fields;
}

std::string JoinLine(const std::vector<std::string>& fields)
{
    std::string line;
    for (const std::string& field : fields)
        line += (line.empty() ? "" : "\t") + Escape(field);
    return line + '\n';
}

std::uint64_t ReadNumber(std::string_view text)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::runtime_error("\"" + std::string(text) + "\" in it is no number");
    return number;
}

// The bits of each value as decimal numbers, with blanks between.
std::string JoinValues(const std::vector<double>& values)
{
    std::string text;
    for (const double value : values)
        text += (text.empty() ? "" : " ") + std::to_string(std::bit_cast<std::uint64_t>(value));
    return text;
}

std::vector<double> SplitValues(std::string_view text)
{
    std::vector<double> values;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        values.push_back(std::bit_cast<double>(ReadNumber(text.substr(0, end))));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return values;
}

// The fields in front of the reasons, of which each has two: the number of the value and the text.
constexpr std::size_t c_rowFields = 9;

std::vector<std::string> FieldsOf(const SStoredRun::SEntry& entry)
{
    const SFileRow& row = entry.row;
    std::vector<std::string> fields{std::string(c_row),
                                    entry.place ? std::to_string(*entry.place) : std::string(c_noPlace),
                                    std::to_string(entry.fingerprint.size),
                                    std::to_string(entry.fingerprint.hash),
                                    entry.file,
                                    row.sha256,
                                    row.date,
                                    row.remark.ToUtf8(),
                                    JoinValues(row.values)};
    for (const auto& [index, reason] : row.reasons)
        fields.insert(fields.end(), {std::to_string(index), reason});
    return fields;
}

SStoredRun::SEntry EntryOf(const std::vector<std::string>& fields)
{
    SStoredRun::SEntry entry{.fingerprint = {.size = ReadNumber(fields[2]), .hash = ReadNumber(fields[3])},
                             .row = {.name = CStr::FromUtf8(fields[4]),
                                     .values = SplitValues(fields[8]),
                                     .remark = CStr::FromUtf8(fields[7]),
                                     .sha256 = fields[5],
                                     .date = fields[6]},
                             .file = fields[4]};
    if (fields[1] != c_noPlace)
        entry.place = static_cast<std::size_t>(ReadNumber(fields[1]));
    for (std::size_t i = c_rowFields; i + 1 < fields.size(); i += 2)
        entry.row.reasons[static_cast<std::size_t>(ReadNumber(fields[i]))] = fields[i + 1];
    return entry;
}

// What lies elsewhere than in the folder of reports is none of them.
void TakeReport(const std::vector<std::string>& fields, SStoredRun& run)
{
    const fs::path place = std::u8string(fields[2].begin(), fields[2].end());
    if (place.is_relative() && std::ranges::find(place, "..") == place.end())
        run.reports[fields[1]] = {place, fields[3]};
}

void TakeLine(std::string_view line, SStoredRun& run)
{
    const std::vector<std::string> fields = SplitLine(line, line.starts_with(c_row) ? c_rowFields : 2);
    const std::string& kind = fields.front();
    if (kind == c_row)
        run.entries.push_back(EntryOf(fields));
    else if (kind == c_report && fields.size() == 4)
        TakeReport(fields, run);
    else if (kind == "files")
        run.fileCount = static_cast<std::size_t>(ReadNumber(fields[1]));
    else if (kind == "key")
        run.head.key.push_back(fields[1]);
    else if (kind == "column")
        run.head.columns.push_back(fields[1]);
    else if (kind == "shown")
        run.head.shown.push_back(fields[1]);
    else if (kind == "fact" && fields.size() == 4)
        run.head.facts.push_back({fields[1], fields[2], fields[3]});
    else
        throw std::runtime_error("\"" + kind + "\" in it is unknown");
}

class CHash
{
public:
    void Add(const char* bytes, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            m_hash = (m_hash ^ static_cast<unsigned char>(bytes[i])) * 0x100000001B3ULL;
    }
    std::uint64_t Get() const { return m_hash; }

private:
    std::uint64_t m_hash = 0xCBF29CE484222325ULL;
};

} // namespace

std::uint64_t HashOf(std::string_view text)
{
    CHash hash;
    hash.Add(text.data(), text.size());
    return hash.Get();
}

std::string KeyOf(const fs::path& file)
{
    const std::u8string bytes = file.u8string();
    return {bytes.begin(), bytes.end()};
}

SFingerprint TakeFingerprint(const fs::path& path)
{
    // A pipe would be waited for.
    std::error_code unknown;
    const fs::file_status status = fs::status(path, unknown);
    if (fs::exists(status) && !fs::is_regular_file(status))
        throw std::runtime_error(path.string() + ": it is no regular file");
    std::ifstream file(path, std::ios::binary);
    std::array<char, 1 << 16> piece{};
    CHash hash;
    SFingerprint fingerprint;
    while (file) {
        file.read(piece.data(), piece.size());
        hash.Add(piece.data(), static_cast<std::size_t>(file.gcount()));
        fingerprint.size += static_cast<std::uintmax_t>(file.gcount());
    }
    if (!file.eof())
        throw std::runtime_error(path.string() + ": the file cannot be read");
    fingerprint.hash = hash.Get();
    return fingerprint;
}

SStoredRun ReadRun(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::string line;
    if (!stream)
        throw std::runtime_error(file.string() + ": there is no such file");
    try {
        SStoredRun run;
        if (!std::getline(stream, line) || line != c_title)
            throw std::runtime_error("it is not what a run on many files leaves");
        while (std::getline(stream, line))
            TakeLine(line, run);
        return run;
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(file.string() + ": " + error.what());
    }
}

std::string WriteRun(const SStoredRun& run)
{
    std::string text = std::string(c_title) + '\n';
    text += JoinLine({"files", std::to_string(run.fileCount)});
    for (const std::string& key : run.head.key)
        text += JoinLine({"key", key});
    for (const std::string& column : run.head.columns)
        text += JoinLine({"column", column});
    for (const std::string& shown : run.head.shown)
        text += JoinLine({"shown", shown});
    for (const SRunFact& fact : run.head.facts)
        text += JoinLine({"fact", fact.key, fact.label, fact.text});
    for (const SStoredRun::SEntry& entry : run.entries)
        text += JoinLine(FieldsOf(entry));
    for (const auto& [file, report] : run.reports)
        text += JoinLine({std::string(c_report), file, KeyOf(report.place), report.making});
    return text;
}

CRunState::CRunState(fs::path file, SRunHead head, std::size_t fileCount)
    : m_file(std::move(file))
    , m_head(std::move(head))
    , m_fileCount(fileCount)
{
}

void CRunState::Load()
{
    try {
        SStoredRun run = ReadRun(m_file);
        if (run.head.key != m_head.key || run.head.columns != m_head.columns)
            return;
        for (SStoredRun::SEntry& entry : run.entries) {
            entry.place.reset();
            if (!entry.row.values.empty() && !entry.row.HasFailedValue())
                m_entries[entry.file] = std::move(entry);
        }
        m_reports = std::move(run.reports);
    } catch (const std::runtime_error&) {
        return; // nothing that can be gone on from
    }
}

const SFileRow* CRunState::Find(const std::string& file, const SFingerprint& fingerprint) const
{
    const auto found = m_entries.find(file);
    return found != m_entries.end() && found->second.fingerprint == fingerprint ? &found->second.row
                                                                                : nullptr;
}

void CRunState::Add(std::size_t place, const std::string& file, const SFingerprint& fingerprint,
                    const SFileRow& row)
{
    m_entries[file] = {place, fingerprint, row, file};
}

void CRunState::Save() const
{
    SStoredRun run{.head = m_head, .fileCount = m_fileCount, .reports = m_reports};
    run.entries.reserve(m_entries.size());
    for (const auto& [path, entry] : m_entries)
        run.entries.push_back(entry);
    // In the order of the table; what has no place stands in front.
    std::ranges::stable_sort(run.entries, {}, &SStoredRun::SEntry::place);
    CStr reason;
    if (!CommonUI::ReplaceFileBytes(m_file.u16string(), WriteRun(run), reason))
        throw std::runtime_error(m_file.string() + ": " + reason.ToUtf8());
}

} // namespace SurfaceReport
