#pragma once

#include "common/ini/detail/IniEncoding.h"
#include "common/ini/detail/IniGroups.h"
#include "common/ini/detail/IniIndex.h"
#include "common/ini/detail/IniLine.h"
#include "common/Str.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// The lines of an INI file with everything that stands in them, and an index of its keys.
///
/// Lines and stored values are WTF-8 whatever the encoding of the file. All bytes lie in one text: the file's
/// as it was read, behind it every line that was changed or added; a line is a record of positions in it, and
/// the records are linked in the order of the file.
class CIniDocument
{
public:
    /// The size of a file at most, so that every position fits into 32 bits.
    static constexpr std::size_t c_maximumSize = std::size_t(1) << 30;

    /// Takes the bytes of a file.
    explicit CIniDocument(std::string bytes = {});
    std::string ToBytes() const;
    /// Removes all content, without memory being needed. Sections keep their numbers.
    void Clear() noexcept;

    EIniEncoding GetEncoding() const noexcept { return m_encoding; }
    /// Goes over to an encoding that holds every character of `text`, if the present one does not.
    void MakeRoomFor(std::string_view text) { m_encoding = WideEnough(m_encoding, text); }

    /// The number of the section of that name; it stays when the section comes and goes. 0 is the unnamed
    /// section, which begins the file.
    std::uint32_t GetSection(std::u16string_view name);
    CStr GetSectionName(std::uint32_t section) const;
    /// How many numbers of sections there are.
    std::size_t CountSections() const noexcept { return m_sections.size(); }
    /// Whether the file has a header of the section, or, of the unnamed one, a header or a key.
    bool HasSection(std::u16string_view name) const;
    /// The names of the sections that the file has, each once, in its order.
    std::vector<CStr> GetSections() const;
    /// The names of the keys of a section in the order of the file, each once.
    std::vector<CStr> GetKeys(std::uint32_t section) const;
    void ClearSection(std::uint32_t section);
    /// Puts the lines of a section, from each header to the last line that is no filler, behind all others,
    /// unless the last header of the file is one of it. The unnamed section stays where it is.
    void MoveToEnd(std::uint32_t section);

    /// The stored value without the blanks around it; nothing when there is no such key. It is valid until
    /// the next change. A key is found by its name, else by what its name could be as well: the blanks in
    /// front of the equals sign belong to the name unless some stand behind it too, but it is read both ways.
    std::optional<std::string_view> GetValue(std::uint32_t section, std::u16string_view key) const
    {
        return FindValue(section, key, true);
    }
    /// As GetValue, for the line that SetValue would change: the key is found by its name only.
    std::optional<std::string_view> GetValueToChange(std::uint32_t section, std::u16string_view key) const
    {
        return FindValue(section, key, false);
    }
    /// Changes the value in its line, or adds a line at the end of the section. `value` is in stored form.
    void SetValue(std::uint32_t section, std::u16string_view key, std::string_view value);
    /// Removes the key that GetValue finds.
    void RemoveKey(std::uint32_t section, std::u16string_view key);

    /// Adds a line as it stands, without its line end: a header at the end of the file, any other behind the
    /// last line of `section`. Returns the section of the lines after it.
    std::uint32_t AddLine(std::string_view line, std::uint32_t section);

private:
    static constexpr std::uint32_t c_none = CIniIndex::c_none;

    enum class EKind : std::uint8_t { Filler, Malformed, Header, Key, Duplicate, Removed };

    // A line, or a run of filler lines.
    struct SRecord {
        std::uint32_t begin = 0;
        std::uint32_t length = 0;     // with the line end
        std::uint32_t name = 0;       // of a key: where its name lies, in m_names when it is stored in quotes
        std::uint32_t nameLength = 0; // without blanks that are ornament
        std::uint32_t value = 0;      // where the value of a key begins, with the blanks before it
        std::uint32_t section = c_none; // of a header or key
        std::uint32_t next = c_none;    // the next line of the file
        std::uint32_t sibling = c_none; // of a key, a duplicate; of a header, the next one of the section
        EKind kind = EKind::Filler;
        bool quoted = false;
    };

    struct SSection {
        std::string name;
        std::uint32_t firstHeader = c_none;
        std::uint32_t lastHeader = c_none;
        std::uint32_t last = c_none; // its last line that is no filler; new keys go behind it
    };

    std::string_view TextOf(const SRecord& record) const
    {
        return std::string_view(m_text).substr(record.begin, record.length);
    }
    std::string_view NameOf(const SRecord& record) const
    {
        return std::string_view(record.quoted ? m_names : m_text).substr(record.name, record.nameLength);
    }
    std::string_view ValueOf(const SRecord& record) const;
    // Whether the blanks in front of the equals sign are ornament.
    static bool IsSpaced(const SRecord& record) noexcept
    {
        return !record.quoted && record.name + record.nameLength + 1 != record.value;
    }
    std::string_view OtherNameOf(const SRecord& record) const;

    template<class TUnit>
    std::uint32_t FindSection(std::basic_string_view<TUnit> name) const;
    std::uint32_t AddSection(std::string_view name);
    bool Exists(std::uint32_t section) const;
    template<class TUnit>
    std::uint32_t HashKey(std::uint32_t section, std::basic_string_view<TUnit> key) const;
    template<class TUnit>
    auto HasOtherName(std::uint32_t section, std::basic_string_view<TUnit> name) const;
    template<class TUnit>
    std::uint32_t FindLine(std::uint32_t section, std::basic_string_view<TUnit> key, bool otherNames) const;
    std::optional<std::string_view> FindValue(std::uint32_t section, std::u16string_view key,
                                              bool otherNames) const;
    std::uint32_t LastLineOf(std::uint32_t section) const;
    template<class FVisit>
    void VisitKeys(std::uint32_t section, FVisit&& visit) const;

    void Parse(std::string text);
    std::uint32_t AddRecord(std::size_t begin, CLineEnds::SLine ends, std::uint32_t section,
                            std::uint32_t after);
    void AddHeader(std::uint32_t line, const SIniLine& parts);
    void AddKey(std::uint32_t line, const SIniLine& parts);
    void Link(std::uint32_t line, std::uint32_t after);
    std::uint32_t InsertLine(std::string_view line, std::uint32_t section, std::uint32_t after);
    void AddKeyLine(std::uint32_t section, std::u16string_view key, std::string_view value);
    std::uint32_t SeparateFileComment();
    void EnsureLineEnd(std::uint32_t line);
    void ChangeText(SRecord& record, const std::string& text);
    std::size_t AppendText(std::string_view text);
    void QuoteName(SRecord& record);
    void EraseKey(std::uint32_t line);
    void CompactIfWasteful();
    std::string JoinLines() const;

    EIniEncoding m_encoding = EIniEncoding::Utf8;
    std::string m_mark;
    std::string m_tail;
    std::string m_lineEnd; // the most frequent one of the file

    std::string m_text;
    std::string m_names;     // the names that are stored in quotes, as what they stand for
    std::size_t m_waste = 0; // how many bytes of text and records serve no line
    std::vector<SRecord> m_lines;
    std::uint32_t m_firstLine = c_none;
    std::uint32_t m_lastLine = c_none;
    CIniIndex m_keys;        // the first line of each key, with ornament and without
    CIniGroups m_otherNames; // the same lines by their other names
    std::vector<SSection> m_sections;
    CIniIndex m_sectionNames;
    std::uint64_t m_hashKey;
};

} // namespace CommonUI
