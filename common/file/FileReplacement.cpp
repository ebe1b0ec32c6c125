#include "common/file/FileReplacement.h"

#include "common/file/detail/CompanionName.h"
#include "common/file/detail/FileErrors.h"
#include "common/file/detail/FilePath.h"
#include "common/file/detail/SystemFiles.h"
#include "common/file/FileSystem.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <mutex>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view c_temporaryEnd = ".tmp";
constexpr std::size_t c_temporaryDigits = 16;

std::u8string GetTemporaryStart(const fs::path& target)
{
    return GetCompanionStart(target, c_temporaryDigits + c_temporaryEnd.size());
}

fs::path MakeTemporaryPath(const fs::path& target)
{
    std::random_device random;
    std::u8string name = GetTemporaryStart(target);
    for (std::size_t i = 0; i < c_temporaryDigits; ++i)
        name += u8"0123456789abcdef"[random() % 16];
    return target.parent_path() / name.append(c_temporaryEnd.begin(), c_temporaryEnd.end());
}

bool IsTemporary(std::u8string_view name)
{
    constexpr std::size_t c_length = c_temporaryDigits + c_temporaryEnd.size();
    const std::u8string_view end = name.substr(name.size() - std::min(c_length, name.size()));
    return name.starts_with(u8'~') && end.ends_with(u8".tmp") &&
           end.find_first_not_of(u8"0123456789abcdef") == c_temporaryDigits;
}

// The temporaries in folders, looked for once in a while, as a folder may be large and each of its files be
// written.
class CTemporaries
{
public:
    // Those whose names have nothing but digits and the end behind `start`.
    std::vector<fs::path> Find(const fs::path& folder, const std::u8string& start)
    {
        const std::lock_guard lock(m_mutex);
        const auto now = std::chrono::steady_clock::now();
        if (now - m_since > std::chrono::minutes(1))
            m_names.clear();
        if (m_names.empty())
            m_since = now;
        auto listed = m_names.find(folder);
        if (listed == m_names.end())
            listed = m_names.emplace(folder, List(folder)).first;
        std::vector<fs::path> found;
        for (const std::u8string& name : listed->second)
            if (name.starts_with(start) &&
                name.size() == start.size() + c_temporaryDigits + c_temporaryEnd.size())
                found.push_back(folder / name);
        return found;
    }

private:
    static std::vector<std::u8string> List(const fs::path& folder)
    {
        std::vector<std::u8string> names;
        GetFileSystem().List(folder, [&](const fs::path& name) {
            if (std::u8string text = name.filename().u8string(); IsTemporary(text))
                names.push_back(std::move(text));
        });
        return names;
    }

    std::mutex m_mutex{};
    std::chrono::steady_clock::time_point m_since{};
    std::map<fs::path, std::vector<std::u8string>> m_names{};
};

CTemporaries& GetTemporaries()
{
    // Never destroyed, as destructors of static objects may still write files.
    static auto& temporaries = *new CTemporaries;
    return temporaries;
}

// Whether nobody writes the file any more. Those of the future, beyond what clocks of computers differ by,
// have been left before a clock was set back.
bool IsLeft(const fs::path& temporary)
{
    constexpr std::chrono::minutes c_leastAge(1);
    constexpr std::chrono::days c_mostAhead(1);
    const auto age = fs::file_time_type::clock::now() - fs::last_write_time(temporary);
    return age > c_leastAge || age < -c_mostAhead;
}

// Removes what killed processes have left. Not being able to is no fault of the new content.
void RemoveOldTemporaries(const fs::path& target)
{
    try {
        const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
        for (const fs::path& entry : GetTemporaries().Find(folder, GetTemporaryStart(target)))
            if (fs::is_regular_file(fs::symlink_status(entry)) && IsLeft(entry))
                fs::remove(entry);
    } catch (const std::exception&) {
        return;
    }
}

// The status of a file that may be replaced.
fs::file_status CheckTarget(const fs::path& target)
{
    const fs::file_status status = fs::status(target);
    if (fs::is_directory(status))
        Refuse("cannot replace", std::errc::is_a_directory);
    if (fs::exists(status) && !fs::is_regular_file(status))
        Refuse("not a regular file", std::errc::invalid_argument);
    constexpr fs::perms c_write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if (fs::exists(status) && (status.permissions() & c_write) == fs::perms::none)
        Refuse("write-protected", std::errc::permission_denied);
    // Permission bits do not say who may write: somebody else's file in a shared folder could be replaced,
    // but must not be.
    if (fs::exists(status))
        CheckWritable(target);
    return status;
}

// Another name of a file's content, or a copy where the file system gives it only one.
void KeepCopy(const fs::path& file, const fs::path& copy)
{
    std::error_code error;
    fs::create_hard_link(file, copy, error);
    if (error)
        fs::copy_file(file, copy);
}

} // namespace

struct CFileReplacement::SState {
    fs::path target;
    fs::path temporary; // a file of its own beside the target
    fs::path before;    // the old content, while the new one may have to go again
    bool hasTemporary = false;
    bool isForNow = false;
    std::optional<CFileSystem::CFile> file{};
    std::string buffer{}; // what has not been written yet

    explicit SState(const fs::path& path)
        : target(FollowLinks(path))
        , temporary(MakeTemporaryPath(target))
    {
    }
    SState(const SState&) = delete;
    SState& operator=(const SState&) = delete;
    ~SState()
    {
        CStr ignored;
        TryFile(ignored, [this] { Close(); });
        if (hasTemporary)
            RemoveFile(temporary);
        if (isForNow && before.empty())
            RemoveFile(target);
        else if (isForNow)
            PutBack();
        else if (!before.empty())
            RemoveFile(before);
    }

    void Open(const fs::path& readers)
    {
        fs::file_status status = CheckTarget(target);
        if (!readers.empty()) {
            status = fs::status(readers);
            status.permissions(status.permissions() | fs::perms::owner_write);
        }
        file = GetFileSystem().Create(temporary);
        hasTemporary = true;
        // Before the content arrives: nobody may read of it what the file itself would not show.
        if (fs::exists(status))
            fs::permissions(temporary, status.permissions());
    }
    void Write(std::string_view bytes)
    {
        constexpr std::size_t c_atOnce = 1 << 16;
        if (buffer.size() + bytes.size() <= c_atOnce) {
            buffer += bytes;
            return;
        }
        WriteBuffer();
        if (bytes.size() > c_atOnce)
            GetFileSystem().Write(*file, bytes);
        else
            buffer = bytes;
    }
    void WriteBuffer()
    {
        GetFileSystem().Write(*file, buffer);
        buffer.clear();
    }
    void Close()
    {
        if (file)
            GetFileSystem().Close(*std::exchange(file, std::nullopt));
    }
    void Replace()
    {
        WriteBuffer();
        GetFileSystem().Flush(*file);
        Close();
        GetFileSystem().Replace(temporary, target);
        hasTemporary = false;
    }
    // By a plain renaming where there is no memory for more.
    void PutBack() noexcept
    {
        CStr ignored;
        std::error_code error;
        if (!TryFile(ignored, [this] { GetFileSystem().Replace(before, target); }))
            fs::rename(before, target, error);
    }
    void ReplaceForNow()
    {
        if (fs::exists(target)) {
            fs::path copy = MakeTemporaryPath(target);
            KeepCopy(target, copy);
            before = std::move(copy);
        }
        Replace();
        isForNow = true;
    }
};

CFileReplacement::CFileReplacement() noexcept = default;
CFileReplacement::~CFileReplacement() = default;

bool CFileReplacement::Open(const CStr& fileName, CStr& reason, const CStr& readers)
{
    return TryFile(reason, [&] {
        m_state = std::make_unique<SState>(ToFilePath(fileName));
        m_state->Open(readers.IsEmpty() ? fs::path() : ToFilePath(readers));
    });
}

bool CFileReplacement::OpenPath(const fs::path& path, CStr& reason)
{
    return TryFile(reason, [&] {
        m_state = std::make_unique<SState>(path);
        m_state->Open({});
    });
}

bool CFileReplacement::Write(std::string_view bytes, CStr& reason)
{
    return TryFile(reason, [&] { m_state->Write(bytes); });
}

bool CFileReplacement::Replace(CStr& reason)
{
    return TryFile(reason, [&] {
        m_state->Replace();
        Keep();
    });
}

bool CFileReplacement::ReplaceForNow(CStr& reason)
{
    return TryFile(reason, [&] { m_state->ReplaceForNow(); });
}

void CFileReplacement::RemoveRests(const fs::path& path)
{
    RemoveOldTemporaries(path);
}

void CFileReplacement::Keep() noexcept
{
    m_state->isForNow = false;
    const std::unique_ptr<SState> done = std::move(m_state);
    RemoveOldTemporaries(done->target);
}

} // namespace CommonUI
