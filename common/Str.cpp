#include "common/Str.h"

#include "common/detail/Wtf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <stdexcept>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_whiteSpace = u" \t\n\v\f\r";

void CopyUnits(char16_t* to, const char16_t* from, std::size_t count)
{
    if (count != 0)
        std::memcpy(to, from, count * sizeof(char16_t));
}

} // namespace

char16_t* CStr::CreateBuffer(std::size_t capacity)
{
    constexpr std::size_t c_limit = (static_cast<std::size_t>(-1) / 2 - sizeof(SBuffer)) / sizeof(char16_t);
    if (capacity > c_limit)
        throw std::length_error("CStr");
    void* const memory = ::operator new(sizeof(SBuffer) + capacity * sizeof(char16_t));
    return reinterpret_cast<char16_t*>(new (memory) SBuffer{1, capacity} + 1);
}

CStr::CStr(std::u16string_view text)
    : CStr()
{
    CopyUnits(SetLength(text.size()), text.data(), text.size());
}

CStr::CStr(std::size_t count, char16_t unit)
    : CStr()
{
    std::fill_n(SetLength(count), count, unit);
}

CStr& CStr::operator=(const CStr& other) noexcept
{
    CStr copy(other);
    Swap(copy);
    return *this;
}

CStr& CStr::operator=(CStr&& other) noexcept
{
    CStr moved(std::move(other));
    Swap(moved);
    return *this;
}

void CStr::Swap(CStr& other) noexcept
{
    alignas(CStr) unsigned char saved[sizeof(CStr)];
    std::memcpy(saved, static_cast<void*>(this), sizeof saved);
    CopyBytes(other);
    std::memcpy(static_cast<void*>(&other), saved, sizeof saved);
}

void CStr::AddReference() noexcept
{
    Buffer()->references.fetch_add(1, std::memory_order_relaxed);
}

void CStr::ReleaseBuffer() noexcept
{
    SBuffer* buffer = Buffer();
    if (buffer->references.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    buffer->~SBuffer();
    ::operator delete(buffer);
}

char16_t* CStr::SetLength(std::size_t length)
{
    if (!IsShared() && length <= c_shortCapacity) {
        m_short.tag = static_cast<char16_t>(length);
        return m_short.units;
    }
    if (!IsAlone() || Buffer()->capacity < length) {
        const std::size_t kept = std::min(GetLength(), length);
        const bool growing = GetLength() != 0;
        char16_t* const fresh =
            CreateBuffer(growing ? std::max(length, GetLength() + GetLength() / 2 + 16) : length);
        CopyUnits(fresh, data(), kept);
        Release();
        m_long.tag = c_sharedTag;
        m_long.units = fresh;
    }
    m_long.length = length;
    return m_long.units;
}

void CStr::Reserve(std::size_t length)
{
    const std::size_t kept = GetLength();
    if (length <= kept)
        return;
    SetLength(length);
    if (IsShared())
        m_long.length = kept;
    else
        m_short.tag = static_cast<char16_t>(kept);
}

CStr& CStr::operator+=(std::u16string_view text)
{
    if (text.empty())
        return *this;
    const std::size_t length = GetLength();
    const std::less<const char16_t*> before;
    const bool own = !before(text.data(), begin()) && before(text.data(), end());
    if (own) {
        const CStr copy(text);
        CopyUnits(SetLength(length + copy.GetLength()) + length, copy.data(), copy.GetLength());
    } else {
        CopyUnits(SetLength(length + text.size()) + length, text.data(), text.size());
    }
    return *this;
}

void CStr::AppendToLong(char16_t unit)
{
    const std::size_t length = GetLength();
    SetLength(length + 1)[length] = unit;
}

// Four units at a time as far as they are the same.
std::strong_ordering CStr::Compare(std::u16string_view a, std::u16string_view b) noexcept
{
    const auto loadFour = [](const char16_t* at) {
        std::uint64_t units;
        std::memcpy(&units, at, sizeof units);
        return units;
    };
    const std::size_t both = std::min(a.size(), b.size());
    std::size_t i = 0;
    while (i + 4 <= both && loadFour(a.data() + i) == loadFour(b.data() + i))
        i += 4;
    for (; i < both; ++i) {
        if (a[i] != b[i])
            return a[i] <=> b[i];
    }
    return a.size() <=> b.size();
}

CStr& CStr::AppendAscii(std::string_view text)
{
    const std::size_t length = GetLength();
    std::transform(text.begin(), text.end(), SetLength(length + text.size()) + length,
                   [](char c) { return static_cast<char16_t>(static_cast<unsigned char>(c)); });
    return *this;
}

CStr CStr::FromAscii(std::string_view text)
{
    CStr result;
    result.AppendAscii(text);
    return result;
}

CStr CStr::FromUtf8(std::string_view bytes)
{
    CStr text;
    char16_t* const units = text.SetLength(bytes.size());
    text.SetLength(static_cast<std::size_t>(WriteUtf16(units, bytes) - units));
    const bool isRoomy = text.IsShared() && text.Buffer()->capacity >= 2 * text.GetLength();
    return isRoomy ? CStr(text.View()) : text;
}

std::string CStr::ToUtf8() const
{
    return CommonUI::ToUtf8(View());
}

CStr CStr::Mid(std::size_t first, std::size_t count) const
{
    const std::size_t length = GetLength();
    if (first >= length)
        return {};
    if (first == 0 && count >= length)
        return *this;
    return View().substr(first, count);
}

CStr CStr::Right(std::size_t count) const
{
    const std::size_t length = GetLength();
    return Mid(length - std::min(count, length));
}

CStr CStr::Replace(std::u16string_view from, std::u16string_view to) const
{
    std::size_t found = from.empty() ? npos : Find(from);
    if (found == npos)
        return *this;
    CStr result;
    std::size_t rest = 0;
    for (; found != npos; found = Find(from, rest)) {
        result += View().substr(rest, found - rest);
        result += to;
        rest = found + from.size();
    }
    return result += View().substr(rest);
}

std::vector<CStr> CStr::Split(std::u16string_view delimiter) const
{
    if (delimiter.empty())
        return {*this};
    std::vector<CStr> pieces;
    std::size_t rest = 0;
    for (std::size_t found = Find(delimiter); found != npos; found = Find(delimiter, rest)) {
        pieces.push_back(Mid(rest, found - rest));
        rest = found + delimiter.size();
    }
    pieces.push_back(Mid(rest));
    return pieces;
}

std::u16string_view TrimView(std::u16string_view view) noexcept
{
    const std::size_t first = view.find_first_not_of(c_whiteSpace);
    if (first == std::u16string_view::npos)
        return {};
    return view.substr(first, view.find_last_not_of(c_whiteSpace) - first + 1);
}

CStr CStr::Trim() const
{
    return TrimView(View());
}

CStr CStr::TrimLeft() const
{
    const std::size_t first = View().find_first_not_of(c_whiteSpace);
    return first == npos ? CStr() : Mid(first);
}

CStr CStr::TrimRight() const
{
    return Left(View().find_last_not_of(c_whiteSpace) + 1);
}

} // namespace CommonUI
