#include "dialogs/start_pane/FeedCache.h"

#include "common/Diagnostics.h"
#include "common/file/FileBytes.h"
#include "common/PathText.h"
#include "platform/network/WebAddress.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view c_form = "CommonUI feed 1";
constexpr const char* c_extension = ".feed";
constexpr std::size_t c_longestValidator = 1000;

// FNV-1a: names files and finds accidents, no forgeries.
std::string Digest(std::string_view bytes)
{
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    return CStr::Format(u"%016llx", hash).ToUtf8();
}

void Warn(const CStr& text)
{
    GetDiagnostics().Write(u"StartPane", EDiagnosticLevel::Warning, text);
}

CStr TextOf(const fs::path& path)
{
    CStr text;
    ToText(path, text);
    return text;
}

std::string CleanValidator(const std::string& value)
{
    const bool isLine = std::all_of(value.begin(), value.end(), [](char character) {
        return static_cast<unsigned char>(character) >= ' ' && character != '\x7F';
    });
    return isLine && value.size() <= c_longestValidator ? value : std::string();
}

std::string TakeLine(std::string_view& bytes)
{
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string line(bytes.substr(0, end));
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    return line;
}

std::string Write(const SCachedFeed& feed)
{
    const std::string fields[] = {feed.address.ToUtf8(), feed.source.ToUtf8(),
                                  std::to_string(feed.fetched.time_since_epoch().count()),
                                  CleanValidator(feed.entityTag), CleanValidator(feed.lastModified)};
    std::string content;
    for (const std::string& field : fields)
        content += field + '\n';
    content += feed.body;
    return std::string(c_form) + '\n' + Digest(content) + '\n' + content;
}

bool ReadSeconds(const std::string& text, std::chrono::sys_seconds& time)
{
    std::int64_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    time = std::chrono::sys_seconds(std::chrono::seconds(count));
    return error == std::errc() && end == text.data() + text.size();
}

bool Read(std::string_view bytes, SCachedFeed& feed)
{
    const std::string form = TakeLine(bytes);
    const std::string digest = TakeLine(bytes);
    if (form != c_form || digest != Digest(bytes))
        return false;
    feed.address = CStr::FromUtf8(TakeLine(bytes));
    feed.source = CStr::FromUtf8(TakeLine(bytes));
    const bool isTimed = ReadSeconds(TakeLine(bytes), feed.fetched);
    feed.entityTag = TakeLine(bytes);
    feed.lastModified = TakeLine(bytes);
    feed.body = bytes;
    return isTimed;
}

// The name is one that this class gives.
bool IsFeedFile(const fs::path& path)
{
    if (path.extension() != c_extension)
        return false;
    const std::string stem = path.stem().string();
    return stem.size() == 16 && stem.find_first_not_of("0123456789abcdef") == stem.npos;
}

struct SKept {
    fs::file_time_type written;
    fs::path path;
    std::uintmax_t size;
};

std::vector<SKept> ListFeeds(const fs::path& folder)
{
    std::vector<SKept> kept;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        std::error_code gone; // another program may clean up, too
        const SKept file{at->last_write_time(gone), at->path(), at->file_size(gone)};
        if (!gone && IsFeedFile(file.path))
            kept.push_back(file);
    }
    return kept;
}

} // namespace

CFeedCache::CFeedCache(const CStr& folder, std::size_t largestSize)
    : m_folder(ToPath(folder))
    , m_largestSize(largestSize)
{
}

fs::path CFeedCache::GetFile(const CStr& address) const
{
    return m_folder / (Digest(address.ToUtf8()) + c_extension);
}

bool CFeedCache::Load(const CStr& address, SCachedFeed& feed) const
{
    const fs::path file = GetFile(address);
    std::error_code error;
    if (!fs::exists(file, error))
        return false;
    std::string bytes;
    CStr reason = u"it is damaged";
    SCachedFeed read;
    if (!ReadFileBytes(TextOf(file), bytes, m_largestSize, reason) || !Read(bytes, read)) {
        fs::remove(file, error);
        Warn(CStr::Format(u"The kept feed \"%s\" is dropped: %s.", TextOf(file), reason));
        return false;
    }
    if (read.address != address || !IsWebAddress(read.source))
        return false;
    feed = std::move(read);
    return true;
}

bool CFeedCache::Store(const SCachedFeed& feed) const
{
    const fs::path file = GetFile(feed.address);
    const std::string bytes = Write(feed);
    std::error_code error;
    fs::create_directories(m_folder, error); // the write says what is wrong
    CStr reason = u"it is larger than all feeds may be";
    if (bytes.size() > m_largestSize || !ReplaceFileBytes(TextOf(file), bytes, reason)) {
        Warn(CStr::Format(u"The feed of \"%s\" is not kept: %s.", feed.address, reason));
        return false;
    }
    MakeRoom(file);
    return true;
}

void CFeedCache::MakeRoom(const fs::path& newest) const
{
    std::vector<SKept> kept = ListFeeds(m_folder);
    std::sort(kept.begin(), kept.end(), [](const SKept& a, const SKept& b) { return a.written < b.written; });
    std::uintmax_t sum = 0;
    for (const SKept& file : kept)
        sum += file.size;
    for (const SKept& file : kept) {
        std::error_code error;
        if (sum > m_largestSize && file.path != newest && fs::remove(file.path, error))
            sum -= file.size;
    }
}

} // namespace CommonUI
