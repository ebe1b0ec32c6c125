#include "common/ini/Inifile.h"

#include "common/detail/Today.h"
#include "common/detail/Wtf8.h"
#include "common/Diagnostics.h"
#include "common/Exceptions.h"
#include "common/file/detail/CompanionName.h"
#include "common/file/FileBytes.h"
#include "common/file/FileLock.h"
#include "common/file/KeptFile.h"
#include "common/ini/detail/IniDamage.h"
#include "common/ini/detail/IniDocument.h"
#include "common/ini/detail/IniEncoding.h"
#include "common/ini/detail/IniMerge.h"
#include "common/ini/detail/IniValue.h"
#include "common/ini/detail/WithinMemory.h"
#include "common/ini/SectionScope.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstdint>
#include <new>
#include <optional>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_category = u"Inifile";
constexpr std::u16string_view c_cannotSave = u"Cannot save";
constexpr std::u16string_view c_noText = u"it is no text";

template<class T>
bool IsSame(const T& a, const T& b)
{
    return a == b;
}

bool IsSame(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool IsSame(const std::vector<double>& a, const std::vector<double>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](double x, double y) { return IsSame(x, y); });
}

bool Warn(const CStr& text)
{
    GetDiagnostics().Write(c_category, EDiagnosticLevel::Warning, text);
    return false;
}

// What failed, with which file and why. Functions that promise false do so without memory for this, too.
bool WarnOfFile(std::u16string_view what, const CStr& fileName, const CStr& reason)
{
    try {
        return Warn(CStr(what) + u" \"" + fileName + u"\": " + reason);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

// Saves a file that nobody else saves meanwhile; where there are no locks it is saved all the same.
template<class FSave>
bool SaveLocked(const CStr& fileName, CStr& reason, FSave save)
{
    const CFileLock lock(fileName);
    if (lock.IsTaken())
        reason = lock.GetReason();
    if (lock.IsTaken() || !save())
        return false;
    if (!lock.IsHeld())
        WarnOfFile(u"There was no lock for", fileName, lock.GetReason());
    return true;
}

// Not zero, which is that of no document.
std::uint64_t MakeDocumentNumber() noexcept
{
    static std::atomic<std::uint64_t> latest{0};
    return ++latest;
}

void WarnUnreadable(const CStr& section, std::u16string_view key, std::string_view stored)
{
    constexpr std::size_t c_mostShown = 80;
    Warn(u"Section \"" + section + u"\", key \"" + key + u"\": the value \"" +
         FromWtf8(stored.substr(0, c_mostShown)) + u"\" cannot be read; its default is used");
}

bool Contains(const std::vector<CStr>& texts, const CStr& text)
{
    return std::ranges::find(texts, text) != texts.end();
}

} // namespace

CInifile::CInifile() = default;

CInifile::CInifile(const CInifile& other)
    : m_document(other.m_document ? std::make_unique<CIniDocument>(*other.m_document) : nullptr)
    , m_documentNumber(MakeDocumentNumber())
    , m_stored(other.m_stored)
    , m_unreadFile(other.m_unreadFile)
    , m_fileName(other.m_fileName)
    , m_unknown(other.m_unknown)
    , m_recent(other.m_recent)
    , m_section(other.m_section)
    , m_parseSection(other.m_parseSection)
{
}

CInifile::CInifile(CInifile&& other) noexcept
{
    Swap(other);
}

CInifile& CInifile::operator=(const CInifile& other)
{
    CInifile copy(other);
    Swap(copy);
    return *this;
}

CInifile& CInifile::operator=(CInifile&& other) noexcept
{
    CInifile moved(std::move(other));
    Swap(moved);
    return *this;
}

CInifile::~CInifile() = default;

void CInifile::Swap(CInifile& other) noexcept
{
    m_document.swap(other.m_document);
    std::swap(m_documentNumber, other.m_documentNumber);
    m_stored.swap(other.m_stored);
    m_unreadFile.Swap(other.m_unreadFile);
    m_fileName.Swap(other.m_fileName);
    m_unknown.swap(other.m_unknown);
    m_recent.swap(other.m_recent);
    std::swap(m_section, other.m_section);
    std::swap(m_parseSection, other.m_parseSection);
}

const CIniDocument& CInifile::GetDocument() const
{
    if (m_document)
        return *m_document;
    // Never destroyed: destructors of static objects may still read.
    static const CIniDocument& empty = *new CIniDocument;
    return empty;
}

CIniDocument& CInifile::GetDocument()
{
    if (!m_document)
        SetDocument(std::make_unique<CIniDocument>());
    return *m_document;
}

bool CInifile::Load()
{
    m_stored = nullptr;
    return LoadFile(m_fileName, &m_stored);
}

bool CInifile::Load(const CStr& fileName)
{
    SetFileName(fileName);
    return Load();
}

void CInifile::SetDocument(std::unique_ptr<CIniDocument> document) noexcept
{
    m_document = std::move(document);
    m_documentNumber = MakeDocumentNumber();
}

bool CInifile::LoadCopy(const CStr& fileName)
{
    return LoadFile(fileName, nullptr);
}

bool CInifile::LoadFile(const CStr& fileName, std::shared_ptr<const std::string>* stored)
{
    if (m_document)
        m_document->Clear();
    m_parseSection = 0;
    m_unreadFile = {};
    m_unknown.clear();
    CStr reason;
    const bool loaded = WithinMemory(reason, [&] {
        std::string bytes;
        if (!ReadFileBytes(fileName, bytes, CIniDocument::c_maximumSize, reason))
            return false;
        if (!IsIniText(bytes)) {
            reason = c_noText;
            return false;
        }
        auto kept = stored ? std::make_shared<const std::string>(bytes) : nullptr;
        // A file of the shortest possible lines needs some 25 times its size.
        LoadBytes(std::move(bytes));
        if (stored)
            *stored = std::move(kept);
        return true;
    });
    if (loaded)
        return true;
    m_unreadFile = fileName;
    return WarnOfFile(u"Cannot load", fileName, reason);
}

// Takes the bytes for what the file holds.
void CInifile::TakeStored(std::string bytes)
{
    auto stored = std::make_shared<const std::string>(bytes);
    LoadBytes(std::move(bytes));
    m_stored = std::move(stored);
    m_unreadFile = {};
}

// Is empty, as where there is no file.
void CInifile::Forget()
{
    if (m_document)
        m_document->Clear();
    m_parseSection = 0;
    m_stored = nullptr;
    m_unreadFile = {};
    m_unknown.clear();
}

// Is empty, and does not replace the file, which could not be read.
void CInifile::Refuse()
{
    Forget();
    m_unreadFile = m_fileName;
}

void CInifile::LoadBytes(std::string bytes)
{
    if (bytes.size() > CIniDocument::c_maximumSize)
        throw EInternal(u"Inifile", __LINE__, u"CInifile::LoadBytes", u"more than 1 GiB");
    auto document = std::make_unique<CIniDocument>(std::move(bytes));
    m_section = document->GetSection(GetSection());
    m_parseSection = 0;
    SetDocument(std::move(document));
    m_unknown.clear();
}

std::string CInifile::GetBytes() const
{
    return GetDocument().ToBytes();
}

bool CInifile::IsUnread(const CStr& fileName) const
{
    return !m_unreadFile.IsEmpty() && fileName == m_unreadFile && IsThere(fileName);
}

bool CInifile::CanSave(const CStr& fileName, CStr& reason) const
{
    if (fileName.IsEmpty())
        reason = u"the document has no file name";
    else if (IsUnread(fileName))
        reason = u"the file that is there could not be read";
    else
        return true;
    return false;
}

// What is stored now is known without memory being needed for it any more.
bool CInifile::SaveBytes(std::string bytes, CStr& reason)
{
    auto stored = std::make_shared<const std::string>(std::move(bytes));
    if (!ReplaceFileBytes(m_fileName, *stored, reason))
        return false;
    m_stored = std::move(stored);
    return true;
}

bool CInifile::Save()
{
    CStr reason;
    const auto save = [&] { return CanSave(m_fileName, reason) && SaveBytes(GetBytes(), reason); };
    return WithinMemory(reason, save) || WarnOfFile(c_cannotSave, m_fileName, reason);
}

bool CInifile::SaveCopy(const CStr& fileName) const
{
    CStr reason;
    const auto save = [&] {
        return CanSave(fileName, reason) && ReplaceFileBytes(fileName, GetBytes(), reason);
    };
    return WithinMemory(reason, save) || WarnOfFile(c_cannotSave, fileName, reason);
}

bool CInifile::SaveWhole()
{
    CStr reason;
    const auto saveWhole = [&] { return SaveKeepingTheirs(reason); };
    const auto save = [&] {
        return CanSave(m_fileName, reason) && SaveLocked(m_fileName, reason, saveWhole);
    };
    return WithinMemory(reason, save) || WarnOfFile(c_cannotSave, m_fileName, reason);
}

bool CInifile::SaveKeepingTheirs(CStr& reason)
{
    std::string bytes = GetBytes();
    if (!IsThere(m_fileName))
        return SaveBytes(std::move(bytes), reason);
    std::string theirs;
    if (!ReadFileBytes(m_fileName, theirs, CIniDocument::c_maximumSize, reason))
        return false;
    // Who saves to a file that was not loaded wants it replaced.
    const bool isTheirs = m_stored ? theirs != *m_stored : !IsIniText(theirs);
    if (isTheirs && theirs != bytes) {
        const CStr why = (m_stored ? u"changed-" : u"damaged-") + Today();
        CStr keptAs;
        if (!KeepFile(m_fileName, theirs, why, keptAs, reason))
            return false;
        Warn(u"\"" + m_fileName + u"\" had another content than this program knew, which is now \"" + keptAs +
             u"\"");
    }
    return SaveBytes(std::move(bytes), reason);
}

bool CInifile::SaveChecked(const FIsOneValue& isOneValue, const FCheck& check)
{
    CStr reason;
    const auto merge = [&] { return SaveBesideOthers(isOneValue, check, reason); };
    const auto save = [&] { return CanSave(m_fileName, reason) && SaveLocked(m_fileName, reason, merge); };
    return WithinMemory(reason, save) || WarnOfFile(c_cannotSave, m_fileName, reason);
}

bool CInifile::SaveBesideOthers(const FIsOneValue& isOneValue, const FCheck& check, CStr& reason)
{
    std::string theirs;
    if (!IsThere(m_fileName))
        return SaveBytes(GetBytes(), reason);
    if (!ReadFileBytes(m_fileName, theirs, CIniDocument::c_maximumSize, reason) ||
        (check && !check(theirs, reason)))
        return false;
    if (m_stored && theirs == *m_stored)
        return SaveBytes(GetBytes(), reason);
    if (!IsIniText(theirs)) {
        reason = c_noText;
        return false;
    }
    return SaveWithTheirs(theirs, isOneValue, reason);
}

// The document stays what it is until the file is saved.
bool CInifile::SaveWithTheirs(const std::string& theirs, const FIsOneValue& isOneValue, CStr& reason)
{
    std::optional<CInifile> ours;
    std::optional<CInifile> united;
    if (!m_recent.empty()) {
        ours = *this;
        united.emplace().LoadBytes(theirs);
        ours->UniteRecent(*united);
    }
    CIniMerge merge(m_stored ? *m_stored : std::string(), ours ? ours->GetDocument() : GetDocument(),
                    united ? united->GetBytes() : theirs);
    merge.Run(isOneValue);
    const CStr section = GetSection();
    auto merged = std::make_unique<CIniDocument>(merge.TakeMerged());
    const unsigned number = merged->GetSection(section);
    // New sections come behind all others, but a store ends with its version.
    merged->MoveToEnd(merged->GetSection(c_versionSection));
    if (!SaveBytes(merged->ToBytes(), reason))
        return false;
    SetDocument(std::move(merged));
    m_section = number;
    m_parseSection = 0;
    for (const CStr& line : merge.GetConflicts())
        Warn(u"\"" + m_fileName + u"\": " + line);
    return true;
}

// Gives both the united lists, so that merging finds nothing to choose between.
void CInifile::UniteRecent(CInifile& theirs)
{
    CInifile base;
    base.LoadBytes(m_stored ? *m_stored : std::string());
    for (const auto& [place, most] : m_recent) {
        const auto& [section, key] = place;
        const CSectionScope scopeOfOurs(*this, section);
        const CSectionScope scopeOfTheirs(theirs, section);
        base.SelectSection(section);
        const std::vector<CStr> before = base.ReadTexts(key);
        const std::vector<CStr> theirTexts = theirs.ReadTexts(key);
        std::vector<CStr> united = ReadTexts(key);
        if (united == before || theirTexts == before || united == theirTexts)
            continue;
        for (const CStr& text : theirTexts)
            if (united.size() < most && !Contains(united, text) && !Contains(before, text))
                united.push_back(text);
        WriteTexts(key, united);
        theirs.WriteTexts(key, united);
    }
}

void CInifile::Merge(const CInifile& other)
{
    if (this == &other)
        return;
    for (std::uint32_t from = 0; from < other.GetDocument().CountSections(); ++from) {
        const std::uint32_t to = GetDocument().GetSection(other.GetDocument().GetSectionName(from));
        for (const CStr& key : other.GetDocument().GetKeys(from)) {
            const std::string_view value = *other.GetDocument().GetValue(from, key);
            GetDocument().MakeRoomFor(value);
            GetDocument().SetValue(to, key, value);
        }
    }
}

void CInifile::ParseLine(std::u16string_view line)
{
    const std::string text = ToWtf8(line);
    GetDocument().MakeRoomFor(text);
    m_parseSection = GetDocument().AddLine(text, m_parseSection);
}

void CInifile::SelectSection(std::u16string_view name)
{
    m_section = GetDocument().GetSection(name);
}

CStr CInifile::GetSection() const
{
    return GetDocument().GetSectionName(m_section);
}

void CInifile::ClearSection()
{
    GetDocument().ClearSection(m_section);
}

bool CInifile::HasSection(std::u16string_view name) const
{
    return GetDocument().HasSection(name);
}

std::vector<CStr> CInifile::GetSections() const
{
    return GetDocument().GetSections();
}

bool CInifile::HasKey(std::u16string_view key) const
{
    return GetDocument().GetValue(m_section, key).has_value();
}

void CInifile::RemoveKey(std::u16string_view key)
{
    GetDocument().RemoveKey(m_section, key);
}

std::vector<CStr> CInifile::GetKeys() const
{
    return GetDocument().GetKeys(m_section);
}

template<class T>
T CInifile::Read(std::u16string_view key, const T& byDefault) const
{
    const auto stored = GetDocument().GetValue(m_section, key);
    if (!stored)
        return byDefault;
    T value{};
    if (ParseIniValue(*stored, value))
        return value;
    WarnUnreadable(GetSection(), key, *stored);
    return byDefault;
}

template<class T>
void CInifile::Write(std::u16string_view key, const T& value)
{
    T present{};
    if (const auto stored = GetDocument().GetValueToChange(m_section, key)) {
        if (ParseIniValue(*stored, present) && IsSame(present, value))
            return;
    }
    GetDocument().SetValue(m_section, key, FormatIniValue(value, GetDocument().GetEncoding()));
}

bool CInifile::ReadBool(std::u16string_view key, bool byDefault) const
{
    return Read(key, byDefault);
}

int CInifile::ReadInt(std::u16string_view key, int byDefault) const
{
    return Read(key, byDefault);
}

unsigned CInifile::ReadUnsigned(std::u16string_view key, unsigned byDefault) const
{
    return Read(key, byDefault);
}

double CInifile::ReadDouble(std::u16string_view key, double byDefault) const
{
    return Read(key, byDefault);
}

SColor CInifile::ReadColor(std::u16string_view key, const SColor& byDefault) const
{
    return Read(key, byDefault);
}

SRect CInifile::ReadRect(std::u16string_view key, const SRect& byDefault) const
{
    return Read(key, byDefault);
}

SSize CInifile::ReadSize(std::u16string_view key, const SSize& byDefault) const
{
    return Read(key, byDefault);
}

CStr CInifile::ReadText(std::u16string_view key, std::u16string_view byDefault) const
{
    return Read(key, CStr(byDefault));
}

std::vector<CStr> CInifile::ReadTexts(std::u16string_view key, const std::vector<CStr>& byDefault) const
{
    return Read(key, byDefault);
}

std::vector<double> CInifile::ReadDoubles(std::u16string_view key, const std::vector<double>& byDefault) const
{
    return Read(key, byDefault);
}

void CInifile::WriteBool(std::u16string_view key, bool value)
{
    Write(key, value);
}

void CInifile::WriteInt(std::u16string_view key, int value)
{
    Write(key, value);
}

void CInifile::WriteUnsigned(std::u16string_view key, unsigned value)
{
    Write(key, value);
}

void CInifile::WriteDouble(std::u16string_view key, double value)
{
    Write(key, value);
}

void CInifile::WriteColor(std::u16string_view key, const SColor& value)
{
    Write(key, value);
}

void CInifile::WriteRect(std::u16string_view key, const SRect& value)
{
    Write(key, value);
}

void CInifile::WriteSize(std::u16string_view key, const SSize& value)
{
    Write(key, value);
}

void CInifile::WriteText(std::u16string_view key, std::u16string_view value)
{
    if (m_unknown.empty() || !IsKeptUnknown(key, value))
        Write(key, CStr(value));
}

void CInifile::KeepUnknown(std::u16string_view key, std::u16string_view instead)
{
    m_unknown[{GetSection(), CStr(key)}] = {ReadText(key), CStr(instead)};
}

// What was written, by this program or another one, is unknown no more.
bool CInifile::IsKeptUnknown(std::u16string_view key, std::u16string_view value)
{
    const auto found = m_unknown.find({GetSection(), CStr(key)});
    if (found == m_unknown.end())
        return false;
    if (HasKey(key) && found->second.instead == value && found->second.stored == ReadText(key))
        return true;
    m_unknown.erase(found);
    return false;
}

void CInifile::WriteTexts(std::u16string_view key, const std::vector<CStr>& value)
{
    Write(key, value);
}

void CInifile::WriteRecentTexts(std::u16string_view key, const std::vector<CStr>& value, std::size_t most)
{
    m_recent[{GetSection(), CStr(key)}] = most;
    WriteTexts(key, value);
}

void CInifile::WriteDoubles(std::u16string_view key, const std::vector<double>& value)
{
    Write(key, value);
}

} // namespace CommonUI
