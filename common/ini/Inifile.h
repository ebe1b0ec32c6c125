#pragma once

#include "../../export/Export.h"
#include "../Color.h"
#include "../Rect.h"
#include "../Str.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace CommonUI
{

class CIniDocument;

/// A store of values under keys in sections, kept in an INI file.
///
/// Everything that stands in a file is kept: what was loaded and not changed is saved byte for byte
/// (comments, order, malformed lines, encoding, line ends), and a change touches the line of its key only.
/// Any text can be a section, a key or a value and reads back as it was written. The stored format is
/// described in docs/ini-file.md.
///
/// Names of sections and keys are exact and case-sensitive; a key may end in a blank. Blanks on both sides of
/// the equals sign are ornament: "Key = 5" is the key "Key". Only when no key has the name are the blanks in
/// front of the sign taken the other way: "Key =5" is found as "Key", too, though a write does not change it.
/// Of equal keys in a section the first counts, and sections of the same name are one section. The unnamed
/// section, u"", is what stands before the first header.
///
/// Reading functions return a default when the key is missing, and also, with a warning in the diagnostics
/// (category u"Inifile"), when its value is none of the type. Writing a value that the key already has
/// changes nothing. Nothing here throws for the content of a file. Objects are values; one object may be read
/// by several threads while none changes it.
class COMMONDLL_API CInifile
{
public:
    /// An empty document without a file name; its current section is the unnamed one.
    CInifile();
    /// The copy has the same content, file name and current section, and no other tie with the original.
    CInifile(const CInifile& other);
    /// The moved-from object is empty.
    CInifile(CInifile&& other) noexcept;
    CInifile& operator=(const CInifile& other);
    CInifile& operator=(CInifile&& other) noexcept;
    virtual ~CInifile();

    /// The file that Load and Save use; it need not exist.
    void SetFileName(const CStr& fileName) { m_fileName = fileName; }
    /// The file that Load and Save use; empty where there is none.
    const CStr& GetFileName() const noexcept { return m_fileName; }

    /// Replaces the content by that of the file. The current section stays selected. Returns false, with the
    /// reason in the diagnostics and the document empty, when the file is missing, cannot be read, is larger
    /// than 1 GiB, is no text, or leaves no memory. What is no text has a zero byte, or other control
    /// characters and no UTF-8, and no byte order mark.
    bool Load();
    /// SetFileName, then Load.
    bool Load(const CStr& fileName);
    /// As Load, but the file name of this object stays what it is: the content is a copy of that file.
    bool LoadCopy(const CStr& fileName);
    /// Replaces the content by what the bytes of a file would give, 1 GiB at most. Without memory for it,
    /// std::bad_alloc is thrown and the content stays.
    void LoadBytes(std::string bytes);
    /// As LoadBytes with the bytes that the file of this document has: saves tell by them what others have
    /// changed since.
    void TakeStored(std::string bytes);
    /// The bytes that Save would write.
    std::string GetBytes() const;
    /// Removes all content; file name and current section stay.
    void Clear() { LoadBytes({}); }

    /// Writes the content to the file. The file has its old content or the new one, never a part (see
    /// ReplaceFileBytes). Returns false, with the reason in the diagnostics and the file untouched, when that
    /// fails or there is no file name. A file that was there when Load failed is not replaced: what could not
    /// be read is not lost.
    virtual bool Save();
    /// Says of a section whether its keys are one value, as those of a numbered list are.
    using FIsOneValue = std::function<bool(std::u16string_view section)>;

    /// As Save, beside other programs that save the file in this way, too: what they have changed since it
    /// was loaded or saved here stays, and stands in this document then. Of a key that both have changed the
    /// value of this document counts, and a line in the diagnostics says so.
    ///
    /// The lock of the file is held meanwhile (see CFileLock). Somebody who holds it too long makes this
    /// fail; where there are no locks the file is saved all the same, with a line in the diagnostics.
    /// @param isOneValue sections that are this document's as a whole if it has changed a key of them
    bool SaveMerged(const FIsOneValue& isOneValue = {}) { return SaveChecked(isOneValue, {}); }

    /// As Save, beside other programs, where a file is one value as a whole, such as a settings set, which is
    /// never mixed with another one. What others have made of the file since it was loaded or saved here
    /// stays beside it as "name.changed-2026-11-22", the day being that of UTC, and so does a file that was
    /// never loaded and is no text, as "name.damaged-2026-11-22"; a line in the diagnostics says so. When it
    /// cannot be kept, nothing is saved. The lock is as in SaveMerged.
    bool SaveWhole();

    /// As Save, to another file; the file name of this object stays what it is.
    bool SaveCopy(const CStr& fileName) const;

    /// Gives every key of `other` to this document with its value. Comments do not come along. If a value
    /// has characters that this document's encoding lacks, the document goes over to one that has them.
    void Merge(const CInifile& other);

    /// Takes one line as if it had been read from a file after everything that is there. Lines belong to the
    /// section of the last header so taken, at first to the unnamed section; the current section plays no
    /// part. A line end within the text separates lines.
    void ParseLine(std::u16string_view line);

    /// Makes a section the current one, which the functions below use. It comes into being when a key is
    /// written to it.
    void SelectSection(std::u16string_view name);
    /// The name of the current section, which need not exist; empty for the unnamed one.
    CStr GetSection() const;
    /// Removes all keys of the current section. Its header and comments stay.
    void ClearSection();
    /// Whether a section exists, be it empty. The unnamed one exists when it has a key or a header `[]`.
    bool HasSection(std::u16string_view name) const;
    /// The names of all sections, each once, in the order of the file.
    std::vector<CStr> GetSections() const;

    /// Whether the current section has the key, whatever its value.
    bool HasKey(std::u16string_view key) const;
    /// Removes the key that reading finds under the name, with its duplicates.
    void RemoveKey(std::u16string_view key);
    /// The keys of the current section, each once, in the order of the file.
    std::vector<CStr> GetKeys() const;

    /// 1, true, yes and on are true; 0, false, no and off are false; in any case of letters.
    bool ReadBool(std::u16string_view key, bool byDefault) const;
    /// A decimal number of 32 bits, with a sign or without.
    int ReadInt(std::u16string_view key, int byDefault) const;
    /// A decimal number of 32 bits that is not negative.
    unsigned ReadUnsigned(std::u16string_view key, unsigned byDefault) const;
    /// A number with a decimal point whatever the locale; "inf" and "nan" are numbers.
    double ReadDouble(std::u16string_view key, double byDefault) const;
    /// Red, green and blue from 0 to 255, with commas between.
    SColor ReadColor(std::u16string_view key, const SColor& byDefault) const;
    /// Left, top, right and bottom, with commas between; in no order that is checked.
    SRect ReadRect(std::u16string_view key, const SRect& byDefault) const;
    /// Width and height, with a comma between.
    SSize ReadSize(std::u16string_view key, const SSize& byDefault) const;
    /// Every value is a text. Quotes around all of it are left out.
    CStr ReadText(std::u16string_view key, std::u16string_view byDefault = {}) const;
    /// Texts with commas between. An empty value is an empty list.
    std::vector<CStr> ReadTexts(std::u16string_view key, const std::vector<CStr>& byDefault = {}) const;
    /// Numbers with commas between, each as for ReadDouble. An empty value is an empty list.
    std::vector<double> ReadDoubles(std::u16string_view key, const std::vector<double>& byDefault = {}) const;

    /// Written as 1 or 0.
    void WriteBool(std::u16string_view key, bool value);
    /// Written as a decimal number.
    void WriteInt(std::u16string_view key, int value);
    /// Written as a decimal number.
    void WriteUnsigned(std::u16string_view key, unsigned value);
    /// Written with as few digits as read back to the same bits, infinities and NaN included.
    void WriteDouble(std::u16string_view key, double value);
    /// Written as "red,green,blue".
    void WriteColor(std::u16string_view key, const SColor& value);
    /// Written as "left,top,right,bottom".
    void WriteRect(std::u16string_view key, const SRect& value);
    /// Written as "width,height".
    void WriteSize(std::u16string_view key, const SSize& value);
    /// Written in quotes where it would not read back without them.
    void WriteText(std::u16string_view key, std::u16string_view value);
    /// Says of a key of the current section that the text it has means nothing to its reader, who takes
    /// `instead`, as a name that only later versions know. Writing `instead` leaves the stored text what it
    /// is, until another text is written or another content loaded.
    void KeepUnknown(std::u16string_view key, std::u16string_view instead);
    /// Written with commas between, each in quotes where it would not read back without them.
    void WriteTexts(std::u16string_view key, const std::vector<CStr>& value);
    /// As WriteTexts, for what was used of late, the latest first. If others have changed the list in the
    /// file, too, SaveMerged unites both: what is here comes first, behind it what only they have, unless it
    /// was in the list before and has been taken out here.
    /// @param most how many texts a united list has at most
    void WriteRecentTexts(std::u16string_view key, const std::vector<CStr>& value, std::size_t most);
    /// Written with commas between, each as by WriteDouble.
    void WriteDoubles(std::u16string_view key, const std::vector<double>& value);

private:
    friend class CIniStore;
    friend class CSectionScope;

    // Called with what the file holds before a save replaces it, while the lock is held; what stands in
    // `there` afterwards is taken for it. Returns false to refuse the save, with a reason.
    using FCheck = std::function<bool(std::string& there, CStr& reason)>;

    template<class T>
    T Read(std::u16string_view key, const T& byDefault) const;
    template<class T>
    void Write(std::u16string_view key, const T& value);
    void Swap(CInifile& other) noexcept;
    const CIniDocument& GetDocument() const;
    CIniDocument& GetDocument();
    void SetDocument(std::unique_ptr<CIniDocument> document) noexcept;
    bool IsUnread(const CStr& fileName) const;
    bool LoadFile(const CStr& fileName, std::shared_ptr<const std::string>* stored);
    bool CanSave(const CStr& fileName, CStr& reason) const;
    bool SaveBytes(std::string bytes, CStr& reason);
    bool IsKeptUnknown(std::u16string_view key, std::u16string_view value);
    void Forget();
    void Refuse();
    bool SaveChecked(const FIsOneValue& isOneValue, const FCheck& check);
    bool SaveKeepingTheirs(CStr& reason);
    bool SaveBesideOthers(const FIsOneValue& isOneValue, const FCheck& check, CStr& reason);
    bool SaveWithTheirs(const std::string& theirs, const FIsOneValue& isOneValue, CStr& reason);
    void UniteRecent(CInifile& theirs);

    std::unique_ptr<CIniDocument> m_document; // null for an empty one, so that moving needs no memory
    std::uint64_t m_documentNumber = 0;       // another one for each document: numbers of sections go with it
    std::shared_ptr<const std::string>
        m_stored;      // the file's bytes when it was last loaded or saved; null for none
    CStr m_unreadFile; // that was there but could not be read; empty for none
    CStr m_fileName;
    struct SUnknown {
        CStr stored;
        CStr instead;
    };
    std::map<std::pair<CStr, CStr>, SUnknown> m_unknown;   // by section and key
    std::map<std::pair<CStr, CStr>, std::size_t> m_recent; // lists, by section and key, and their lengths
    unsigned m_section = 0;      // the number of the current section in the document
    unsigned m_parseSection = 0; // the section that ParseLine adds to
};

} // namespace CommonUI
