#include "common/ini/detail/IniDocument.h"

#include "common/detail/Wtf8.h"
#include "common/ini/detail/IniQuotes.h"

#include <algorithm>
#include <limits>
#include <random>
#include <stdexcept>
#include <utility>

namespace CommonUI
{

namespace
{

std::uint64_t GetHashKey()
{
    static const std::uint64_t key = (std::uint64_t(std::random_device()()) << 32) | std::random_device()();
    return key;
}

std::uint32_t To32(std::size_t position)
{
    return static_cast<std::uint32_t>(position);
}

// Calls `use` with a name as WTF-8. ASCII, as most names are, needs no copy for it: it is taken as it is.
template<class FUse>
std::uint32_t WithName(std::u16string_view name, FUse&& use)
{
    return IsAscii(name) ? use(name) : use(std::string_view(ToWtf8(name)));
}

bool IsSameName(std::string_view a, std::string_view b)
{
    return a == b;
}

bool IsSameName(std::string_view a, std::u16string_view ascii)
{
    if (a.size() != ascii.size())
        return false;
    std::size_t i = 0;
    for (; i + 4 <= a.size(); i += 4) {
        if (LoadFour(a.data() + i) != LoadFour(ascii.data() + i))
            return false;
    }
    for (; i < a.size(); ++i) {
        if (static_cast<unsigned char>(a[i]) != ascii[i])
            return false;
    }
    return true;
}

// How often each line end occurs.
struct SLineEndCounts {
    std::size_t both = 0;
    std::size_t feed = 0;
    std::size_t carriageReturn = 0;

    void Add(std::string_view lineEnd)
    {
        if (!lineEnd.empty())
            ++(lineEnd.size() == 2 ? both : lineEnd == "\n" ? feed : carriageReturn);
    }
    const char* GetMostFrequent() const
    {
        if (both > feed && both >= carriageReturn)
            return "\r\n";
        return carriageReturn > feed ? "\r" : "\n";
    }
};

// How much of the filler at the beginning of a file is about the file: comments up to the first blank line
// behind them, with it.
std::size_t FileCommentLength(std::string_view filler)
{
    CLineEnds lineEnds(filler);
    bool hasComment = false;
    for (std::size_t begin = 0; begin < filler.size();) {
        const CLineEnds::SLine ends = lineEnds.Next(begin);
        const bool isBlank = SkipBlanks(filler, begin) >= ends.end;
        if (isBlank && hasComment)
            return ends.next;
        hasComment |= !isBlank;
        begin = ends.next;
    }
    return 0;
}

} // namespace

CIniDocument::CIniDocument(std::string bytes)
    : m_hashKey(GetHashKey())
{
    SIniContent content = DecodeIni(std::move(bytes));
    m_encoding = content.encoding;
    m_mark = std::move(content.mark);
    m_tail = std::move(content.tail);
    AddSection({});
    Parse(std::move(content.text));
}

std::string CIniDocument::ToBytes() const
{
    return EncodeIni(m_encoding, m_mark, JoinLines(), m_tail);
}

void CIniDocument::Clear() noexcept
{
    m_encoding = EIniEncoding::Utf8;
    m_mark.clear();
    m_tail.clear();
    Parse({});
}

// Takes the text as all lines of the document. Sections keep their numbers.
void CIniDocument::Parse(std::string text)
{
    m_text = std::move(text);
    m_names.clear();
    m_waste = 0;
    m_lines.clear();
    m_firstLine = m_lastLine = c_none;
    m_keys.Clear();
    m_otherNames.Clear();
    for (SSection& section : m_sections)
        section = {std::move(section.name)};

    SLineEndCounts counts;
    CLineEnds lineEnds(m_text);
    std::uint32_t section = 0;
    for (std::size_t begin = 0; begin < m_text.size();) {
        const CLineEnds::SLine ends = lineEnds.Next(begin);
        counts.Add(std::string_view(m_text).substr(ends.end, ends.next - ends.end));
        const std::uint32_t line = AddRecord(begin, ends, section, m_lastLine);
        if (m_lines[line].kind == EKind::Header)
            section = m_lines[line].section;
        begin = ends.next;
    }
    m_lineEnd = counts.GetMostFrequent();
}

// Takes the line of the text as the one behind `after`, in `section` unless it is a header. Filler goes into
// the record of the filler before it. Returns the record.
std::uint32_t CIniDocument::AddRecord(std::size_t begin, CLineEnds::SLine ends, std::uint32_t section,
                                      std::uint32_t after)
{
    const SIniLine parts = ParseIniLine(std::string_view(m_text).substr(begin, ends.end - begin));
    const std::uint32_t length = To32(ends.next - begin);
    if (parts.kind == EIniLine::Filler && after != c_none) {
        SRecord& previous = m_lines[after];
        if (previous.kind == EKind::Filler && previous.begin + previous.length == begin) {
            previous.length += length;
            return after;
        }
    }
    const std::uint32_t line = To32(m_lines.size());
    SRecord& record = m_lines.emplace_back();
    record.begin = To32(begin);
    record.length = length;
    record.section = section;
    Link(line, after);
    if (parts.kind == EIniLine::Filler)
        return line;
    if (parts.kind == EIniLine::Header)
        AddHeader(line, parts);
    else if (parts.kind == EIniLine::Key)
        AddKey(line, parts);
    else
        record.kind = EKind::Malformed;
    m_sections[record.section].last = line;
    return line;
}

void CIniDocument::AddHeader(std::uint32_t line, const SIniLine& parts)
{
    SRecord& record = m_lines[line];
    const std::string_view stored = TextOf(record).substr(parts.begin, parts.end - parts.begin);
    const std::string unquoted = parts.quoted ? ToWtf8(Unquote(stored)) : std::string();
    const std::string_view name = parts.quoted ? unquoted : stored;
    record.kind = EKind::Header;
    record.section = FindSection(name);
    if (record.section == c_none)
        record.section = AddSection(name);
    SSection& section = m_sections[record.section];
    if (section.firstHeader == c_none)
        section.firstHeader = line;
    else
        m_lines[section.lastHeader].sibling = line;
    section.lastHeader = line;
}

// What the name would be if the blanks in front of the equals sign were no ornament, or were ornament; empty
// when there are none.
std::string_view CIniDocument::OtherNameOf(const SRecord& record) const
{
    if (record.quoted || record.name == record.value - 1 || !IsBlank(m_text[record.value - 2]))
        return {};
    const auto stored = std::string_view(m_text).substr(record.name, record.value - 1 - record.name);
    return IsSpaced(record) ? stored : TrimBlanksRight(stored);
}

template<class TUnit>
std::uint32_t CIniDocument::HashKey(std::uint32_t section, std::basic_string_view<TUnit> key) const
{
    return HashName(key, m_hashKey + section);
}

template<class TUnit>
auto CIniDocument::HasOtherName(std::uint32_t section, std::basic_string_view<TUnit> name) const
{
    return [this, section, name](std::uint32_t line) {
        return m_lines[line].section == section && IsSameName(OtherNameOf(m_lines[line]), name);
    };
}

void CIniDocument::AddKey(std::uint32_t line, const SIniLine& parts)
{
    SRecord& record = m_lines[line];
    record.value = record.begin + To32(parts.value);
    record.name = record.begin + To32(parts.begin);
    record.nameLength = To32(parts.end - parts.begin);
    if (parts.quoted) {
        const std::string unquoted = ToWtf8(Unquote(NameOf(record)));
        record.quoted = true;
        record.name = To32(m_names.size());
        record.nameLength = To32(unquoted.size());
        m_names += unquoted;
    }
    const std::string_view name = NameOf(record);
    const std::uint32_t hash = HashKey(record.section, name);
    const std::uint32_t first = m_keys.Find(hash, [&](std::uint32_t other) {
        return m_lines[other].section == record.section && NameOf(m_lines[other]) == name &&
               IsSpaced(m_lines[other]) == IsSpaced(record);
    });
    if (first != c_none) {
        record.kind = EKind::Duplicate;
        record.sibling = std::exchange(m_lines[first].sibling, line);
        return;
    }
    record.kind = EKind::Key;
    m_keys.Insert(hash, line);
    if (const std::string_view other = OtherNameOf(record); !other.empty())
        m_otherNames.Add(HashKey(record.section, other), line, HasOtherName(record.section, other));
}

void CIniDocument::Link(std::uint32_t line, std::uint32_t after)
{
    std::uint32_t& link = after == c_none ? m_firstLine : m_lines[after].next;
    m_lines[line].next = std::exchange(link, line);
    if (m_lines[line].next == c_none)
        m_lastLine = line;
}

template<class FVisit>
void CIniDocument::VisitKeys(std::uint32_t section, FVisit&& visit) const
{
    const auto visitPart = [&](std::uint32_t line) {
        for (; line != c_none && m_lines[line].kind != EKind::Header; line = m_lines[line].next) {
            if (m_lines[line].kind == EKind::Key)
                visit(line);
        }
    };
    if (section == 0)
        visitPart(m_firstLine);
    for (std::uint32_t header = m_sections[section].firstHeader; header != c_none;
         header = m_lines[header].sibling)
        visitPart(m_lines[header].next);
}

template<class TUnit>
std::uint32_t CIniDocument::FindSection(std::basic_string_view<TUnit> name) const
{
    return m_sectionNames.Find(HashName(name, m_hashKey), [&](std::uint32_t section) {
        return IsSameName(m_sections[section].name, name);
    });
}

std::uint32_t CIniDocument::AddSection(std::string_view name)
{
    const std::uint32_t section = To32(m_sections.size());
    m_sections.push_back({std::string(name)});
    m_sectionNames.Insert(HashName(name, m_hashKey), section);
    return section;
}

std::uint32_t CIniDocument::GetSection(std::u16string_view name)
{
    const std::uint32_t found = WithName(name, [this](auto same) { return FindSection(same); });
    return found != c_none ? found : AddSection(ToWtf8(name));
}

CStr CIniDocument::GetSectionName(std::uint32_t section) const
{
    return FromWtf8(m_sections[section].name);
}

bool CIniDocument::Exists(std::uint32_t section) const
{
    bool exists = m_sections[section].firstHeader != c_none;
    if (!exists)
        VisitKeys(section, [&exists](std::uint32_t) { exists = true; });
    return exists;
}

bool CIniDocument::HasSection(std::u16string_view name) const
{
    const std::uint32_t section = WithName(name, [this](auto same) { return FindSection(same); });
    return section != c_none && Exists(section);
}

std::vector<CStr> CIniDocument::GetSections() const
{
    std::vector<CStr> names;
    if (Exists(0))
        names.emplace_back();
    for (std::uint32_t line = m_firstLine; line != c_none; line = m_lines[line].next) {
        const std::uint32_t section = m_lines[line].section;
        if (section != 0 && m_lines[line].kind == EKind::Header && m_sections[section].firstHeader == line)
            names.push_back(GetSectionName(section));
    }
    return names;
}

std::vector<CStr> CIniDocument::GetKeys(std::uint32_t section) const
{
    std::vector<CStr> names;
    VisitKeys(section, [&](std::uint32_t line) {
        // A line with ornament may be hidden behind one without.
        const std::string_view name = NameOf(m_lines[line]);
        if (!IsSpaced(m_lines[line]) || FindLine(section, name, false) == line)
            names.push_back(FromWtf8(name));
    });
    return names;
}

void CIniDocument::ClearSection(std::uint32_t section)
{
    VisitKeys(section, [this](std::uint32_t line) { EraseKey(line); });
    CompactIfWasteful();
}

std::string_view CIniDocument::ValueOf(const SRecord& record) const
{
    std::string_view value = TextOf(record).substr(record.value - record.begin);
    while (!value.empty() && (value.back() == '\n' || value.back() == '\r'))
        value.remove_suffix(1);
    return TrimBlanks(value);
}

// The line of the key: one without ornament, else one with, else, if `otherNames`, the first one of that
// other name.
template<class TUnit>
std::uint32_t CIniDocument::FindLine(std::uint32_t section, std::basic_string_view<TUnit> key,
                                     bool otherNames) const
{
    const std::uint32_t hash = HashKey(section, key);
    std::uint32_t spaced = c_none;
    const std::uint32_t found = m_keys.Find(hash, [&](std::uint32_t line) {
        const SRecord& record = m_lines[line];
        if (record.section != section || !IsSameName(NameOf(record), key))
            return false;
        if (!IsSpaced(record))
            return true;
        spaced = line;
        return false;
    });
    if (found != c_none)
        return found;
    return spaced == c_none && otherNames ? m_otherNames.Find(hash, HasOtherName(section, key)) : spaced;
}

std::optional<std::string_view> CIniDocument::FindValue(std::uint32_t section, std::u16string_view key,
                                                        bool otherNames) const
{
    const std::uint32_t line = WithName(key, [&](auto name) { return FindLine(section, name, otherNames); });
    return line == c_none ? std::nullopt : std::optional(ValueOf(m_lines[line]));
}

void CIniDocument::SetValue(std::uint32_t section, std::u16string_view key, std::string_view value)
{
    const std::uint32_t line = WithName(key, [&](auto name) { return FindLine(section, name, false); });
    if (line == c_none) {
        AddKeyLine(section, key, value);
        return;
    }
    SRecord& record = m_lines[line];
    const std::string_view old = ValueOf(record);
    if (old == value)
        return;
    std::string text(TextOf(record));
    text.replace(static_cast<std::size_t>(old.data() - TextOf(record).data()), old.size(), value);
    ChangeText(record, text);
    const SIniLine parts = ParseIniLine(text);
    if (!record.quoted && (parts.quoted || parts.end - parts.begin != record.nameLength))
        QuoteName(record);
    CompactIfWasteful();
}

// Keeps the name what it is: a quote at its beginning may find its partner in a new value, and when a value
// goes, blanks behind it may make ornament of blanks in front of the equals sign.
void CIniDocument::QuoteName(SRecord& record)
{
    std::string text(TextOf(record));
    text.replace(record.name - record.begin, record.nameLength, Quote(FromWtf8(NameOf(record)), m_encoding));
    ChangeText(record, text);
    Parse(JoinLines());
}

void CIniDocument::AddKeyLine(std::uint32_t section, std::u16string_view key, std::string_view value)
{
    if (section != 0 && m_sections[section].firstHeader == c_none) {
        const std::string name = QuoteSection(GetSectionName(section), m_encoding);
        InsertLine("[" + name + "]", section, m_lastLine);
    }
    const std::string line = QuoteKey(key, m_encoding).append("=").append(value);
    const std::uint32_t last = m_sections[section].last;
    InsertLine(line, section, section == 0 && last == c_none ? SeparateFileComment() : last);
}

// The line behind which the first key of the unnamed section goes: the comment about the file, which gets a
// record of its own, or c_none.
std::uint32_t CIniDocument::SeparateFileComment()
{
    const std::uint32_t first = m_firstLine;
    if (first == c_none || m_lines[first].kind != EKind::Filler)
        return c_none;
    if (first == m_lastLine)
        return first;
    const std::uint32_t length = To32(FileCommentLength(TextOf(m_lines[first])));
    if (length == 0)
        return c_none;
    if (length < m_lines[first].length) {
        SRecord rest;
        rest.begin = m_lines[first].begin + length;
        rest.length = m_lines[first].length - length;
        m_lines[first].length = length;
        m_lines.push_back(rest);
        Link(To32(m_lines.size()) - 1, first);
    }
    return first;
}

void CIniDocument::RemoveKey(std::uint32_t section, std::u16string_view key)
{
    const std::string name = ToWtf8(key);
    std::uint32_t line = FindLine(section, std::string_view(name), true);
    for (; line != c_none; line = FindLine(section, std::string_view(name), false))
        EraseKey(line);
    CompactIfWasteful();
}

void CIniDocument::EraseKey(std::uint32_t line)
{
    const std::uint32_t section = m_lines[line].section;
    const std::string_view other = OtherNameOf(m_lines[line]);
    m_keys.Erase(HashKey(section, NameOf(m_lines[line])), line);
    for (; line != c_none; line = m_lines[line].sibling) {
        SRecord& record = m_lines[line];
        m_waste += record.length + sizeof(SRecord);
        record.length = 0;
        record.kind = EKind::Removed;
    }
    m_otherNames.DropFront(HashKey(section, other), HasOtherName(section, other),
                           [this](std::uint32_t gone) { return m_lines[gone].kind == EKind::Removed; });
}

void CIniDocument::MoveToEnd(std::uint32_t section)
{
    std::uint32_t lastHeader = c_none;
    for (std::uint32_t line = m_firstLine; line != c_none; line = m_lines[line].next)
        if (m_lines[line].kind == EKind::Header)
            lastHeader = line;
    if (section == 0 || !Exists(section) || m_sections[section].lastHeader == lastHeader)
        return;
    EnsureLineEnd(m_lastLine);
    std::string others, moved, filler;
    bool isWithin = false;
    for (std::uint32_t line = m_firstLine; line != c_none; line = m_lines[line].next) {
        const SRecord& record = m_lines[line];
        if (record.kind == EKind::Filler) {
            filler += TextOf(record);
            continue;
        }
        // What stands in front of a header is about that.
        if (record.kind == EKind::Header) {
            others += std::exchange(filler, {});
            isWithin = record.section == section;
        }
        (isWithin ? moved : others).append(std::exchange(filler, {})).append(TextOf(record));
    }
    Parse(others + filler + moved);
}

std::uint32_t CIniDocument::AddLine(std::string_view line, std::uint32_t section)
{
    CLineEnds lineEnds(line);
    std::size_t begin = 0;
    do {
        const CLineEnds::SLine ends = lineEnds.Next(begin);
        const std::string_view one = line.substr(begin, ends.end - begin);
        const bool isHeader = ParseIniLine(one).kind == EIniLine::Header;
        const std::uint32_t added = InsertLine(one, section, isHeader ? m_lastLine : LastLineOf(section));
        if (isHeader)
            section = m_lines[added].section;
        begin = ends.next;
    } while (begin < line.size());
    return section;
}

// The section's last line, filler included; c_none for an unnamed section without lines.
std::uint32_t CIniDocument::LastLineOf(std::uint32_t section) const
{
    std::uint32_t last = m_sections[section].last;
    for (;;) {
        const std::uint32_t next = last == c_none ? m_firstLine : m_lines[last].next;
        if (next == c_none || m_lines[next].kind == EKind::Header)
            return last;
        last = next;
    }
}

std::uint32_t CIniDocument::InsertLine(std::string_view line, std::uint32_t section, std::uint32_t after)
{
    EnsureLineEnd(after);
    const std::size_t begin = AppendText(std::string(line) + m_lineEnd);
    return AddRecord(begin, {begin + line.size(), m_text.size()}, section, after);
}

// Only the last line of a file can lack its line end; it needs one when something is to follow.
void CIniDocument::EnsureLineEnd(std::uint32_t line)
{
    if (line == c_none)
        return;
    const std::string_view text = TextOf(m_lines[line]);
    if (!text.empty() && text.back() != '\n' && text.back() != '\r')
        ChangeText(m_lines[line], std::string(text) + m_lineEnd);
}

void CIniDocument::ChangeText(SRecord& record, const std::string& text)
{
    const std::uint32_t begin = To32(AppendText(text));
    m_waste += record.length;
    record.value += begin - record.begin;
    if (!record.quoted)
        record.name += begin - record.begin;
    record.begin = begin;
    record.length = To32(text.size());
}

std::size_t CIniDocument::AppendText(std::string_view text)
{
    const std::size_t begin = m_text.size();
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - begin)
        throw std::length_error("CIniDocument");
    m_text += text;
    return begin;
}

void CIniDocument::CompactIfWasteful()
{
    if (m_waste > m_text.size() / 2 + 0x10000)
        Parse(JoinLines());
}

std::string CIniDocument::JoinLines() const
{
    std::string text;
    text.reserve(m_text.size());
    std::size_t begin = 0;
    std::size_t end = 0;
    for (std::uint32_t line = m_firstLine; line != c_none; line = m_lines[line].next) {
        const SRecord& record = m_lines[line];
        if (record.begin != end) {
            text.append(m_text, begin, end - begin);
            begin = record.begin;
        }
        end = record.begin + record.length;
    }
    return text.append(m_text, begin, end - begin);
}

} // namespace CommonUI
