#pragma once

#include "../export/Export.h"
#include "Format.h"

#include <atomic>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace CommonUI
{

/// A text of UTF-16 code units with value semantics: every key, name, file path and display text of the
/// library.
///
/// Texts of up to 15 code units lie in the object itself; longer ones share one buffer between their copies,
/// so that copying never copies characters. Lengths and positions count code units, not characters. The text
/// need not be well-formed UTF-16. A text that was moved from is empty. Different objects may be used in
/// different threads, even when they share a buffer.
class COMMONDLL_API CStr
{
public:
    /// What the searching functions return when nothing was found.
    COMMONUI_CONSTANT std::size_t npos = std::u16string_view::npos;

    CStr() noexcept { m_short.tag = 0; }
    /// The units up to the first zero. @param text not null
    CStr(const char16_t* text)
        : CStr(std::u16string_view(text))
    {
    }
    /// A copy of the units, zeros included.
    CStr(std::u16string_view text);
    /// A copy of the units, zeros included.
    CStr(const std::u16string& text)
        : CStr(std::u16string_view(text))
    {
    }
    /// `unit` repeated `count` times.
    CStr(std::size_t count, char16_t unit);
    CStr(const CStr& other) noexcept
    {
        CopyBytes(other);
        if (IsShared())
            AddReference();
    }
    CStr(CStr&& other) noexcept
    {
        CopyBytes(other);
        other.m_short.tag = 0;
    }
    CStr& operator=(const CStr& other) noexcept;
    CStr& operator=(CStr&& other) noexcept;
    ~CStr() { Release(); }

    /// The text of UTF-8 bytes. Every maximal part of an ill-formed sequence becomes one U+FFFD, as the
    /// Unicode Standard recommends (chapter 3, U+FFFD substitution of maximal subparts); nothing is dropped.
    static CStr FromUtf8(std::string_view bytes);
    /// The text of 7-bit ASCII characters; a byte above 127 becomes the code unit of the same number
    /// (Latin-1).
    static CStr FromAscii(std::string_view text);
    /// The text as UTF-8. A surrogate without its partner becomes U+FFFD.
    std::string ToUtf8() const;

    /// In code units.
    std::size_t GetLength() const noexcept { return IsShared() ? m_long.length : m_short.tag; }
    /// Whether there is no code unit.
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    /// The code units; nothing stands behind the last one.
    const char16_t* data() const noexcept { return IsShared() ? m_long.units : m_short.units; }
    /// Valid until the text changes or goes.
    std::u16string_view View() const noexcept { return {data(), GetLength()}; }
    /// As View.
    operator std::u16string_view() const noexcept { return View(); }
    /// The first code unit; valid until the text changes or goes.
    const char16_t* begin() const noexcept { return data(); }
    /// Behind the last code unit.
    const char16_t* end() const noexcept { return data() + GetLength(); }
    /// The code unit at `index`, which must be below the length.
    char16_t operator[](std::size_t index) const noexcept { return data()[index]; }

    /// Appends in place when no other text shares the buffer: a text is built in time proportional to its
    /// length.
    CStr& operator+=(std::u16string_view text);
    /// Appends a code unit, in place as above.
    CStr& operator+=(char16_t unit)
    {
        if (m_short.tag < c_shortCapacity)
            m_short.units[m_short.tag++] = unit;
        else if (IsAlone() && m_long.length < Buffer()->capacity)
            m_long.units[m_long.length++] = unit;
        else
            AppendToLong(unit);
        return *this;
    }
    /// Appends 7-bit ASCII characters.
    CStr& AppendAscii(std::string_view text);
    /// Makes room for a text of `length` code units, so that appending up to it allocates nothing more.
    void Reserve(std::size_t length);
    /// Makes the text `length` code units long and its units this text's own, keeping what fits of the old
    /// text.
    /// @return the units for the caller to write; those beyond the old text are undefined until written
    char16_t* SetLength(std::size_t length);
    /// Makes the text empty and gives up its room.
    void Clear() noexcept { *this = CStr(); }

    /// The position of the first occurrence at or after `from`, or `npos`.
    std::size_t Find(std::u16string_view text, std::size_t from = 0) const noexcept
    {
        return View().find(text, from);
    }
    /// The position of the first occurrence of a code unit at or after `from`, or `npos`.
    std::size_t Find(char16_t unit, std::size_t from = 0) const noexcept { return View().find(unit, from); }
    /// The position of the last occurrence, or `npos`.
    std::size_t ReverseFind(std::u16string_view text) const noexcept { return View().rfind(text); }
    /// The position of the last occurrence of a code unit, or `npos`.
    std::size_t ReverseFind(char16_t unit) const noexcept { return View().rfind(unit); }
    /// The position of the first code unit at or after `from` that is one of `units`, or `npos`.
    std::size_t FindOneOf(std::u16string_view units, std::size_t from = 0) const noexcept
    {
        return View().find_first_of(units, from);
    }
    /// Whether the text occurs somewhere; an empty one does.
    bool Contains(std::u16string_view text) const noexcept { return Find(text) != npos; }
    /// Whether the text is at the beginning; an empty one is.
    bool StartsWith(std::u16string_view text) const noexcept { return View().starts_with(text); }
    /// Whether the text is at the end; an empty one is.
    bool EndsWith(std::u16string_view text) const noexcept { return View().ends_with(text); }

    /// The part from `first`, `count` code units long or shorter where the text ends; empty when it starts
    /// beyond.
    CStr Mid(std::size_t first, std::size_t count = npos) const;
    /// The first `count` code units, or all when there are no more.
    CStr Left(std::size_t count) const { return Mid(0, count); }
    /// The last `count` code units, or all when there are no more.
    CStr Right(std::size_t count) const;
    /// The text with every occurrence of `from` replaced; unchanged when `from` is empty.
    CStr Replace(std::u16string_view from, std::u16string_view to) const;
    /// The pieces between the occurrences of `delimiter`: always one more than there are occurrences, so an
    /// empty text has one empty piece. The whole text when the delimiter is empty.
    std::vector<CStr> Split(std::u16string_view delimiter) const;
    /// The text without white space (blank, tab, line feed, vertical tab, form feed, carriage return) at its
    /// ends.
    CStr Trim() const;
    /// The text without white space at its beginning.
    CStr TrimLeft() const;
    /// The text without white space at its end.
    CStr TrimRight() const;

    /// A text by printf's rules in the "C" locale: see FormatText for the conversions and for what becomes of
    /// a conversion that does not fit its argument.
    template<class... TArgs>
    static CStr Format(std::u16string_view format, const TArgs&... args)
    {
        const CFormatArg list[] = {CFormatArg(args)..., CFormatArg()};
        return FormatText(format, list, sizeof...(args));
    }

    /// Exchanges two texts without copying characters.
    void Swap(CStr& other) noexcept;

    template<class T>
    requires std::convertible_to<const T&, std::u16string_view>
    friend bool operator==(const CStr& a, const T& b) noexcept
    {
        const std::u16string_view other = b;
        return a.GetLength() == other.size() &&
               (other.empty() || std::memcmp(a.data(), other.data(), other.size() * sizeof(char16_t)) == 0);
    }
    /// Ordering by code units, exact and independent of any locale.
    template<class T>
    requires std::convertible_to<const T&, std::u16string_view>
    friend std::strong_ordering operator<=>(const CStr& a, const T& b) noexcept
    {
        return Compare(a.View(), std::u16string_view(b));
    }
    /// Both texts, one behind the other.
    template<class T>
    requires std::convertible_to<const T&, std::u16string_view>
    friend CStr operator+(CStr a, const T& b) { return std::move(a += std::u16string_view(b)); }
    /// The text with a code unit behind it.
    friend CStr operator+(CStr a, char16_t b) { return std::move(a += b); }
    /// Both texts, one behind the other.
    template<class T>
    requires(std::convertible_to<const T&, std::u16string_view> && !std::same_as<T, CStr>) friend CStr
    operator+(const T& a, const CStr& b)
    {
        return CStr(std::u16string_view(a)) += b;
    }

private:
    // In front of the units of a shared text.
    struct SBuffer {
        std::atomic<std::size_t> references;
        std::size_t capacity;
    };

    COMMONUI_CONSTANT std::size_t c_shortCapacity = 15;
    COMMONUI_CONSTANT char16_t c_sharedTag = 0xFFFF;

    bool IsShared() const noexcept { return m_short.tag == c_sharedTag; }
    SBuffer* Buffer() const noexcept { return reinterpret_cast<SBuffer*>(m_long.units) - 1; }
    bool IsAlone() const noexcept
    {
        return IsShared() && Buffer()->references.load(std::memory_order_acquire) == 1;
    }
    static char16_t* CreateBuffer(std::size_t capacity);
    void AppendToLong(char16_t unit);
    static std::strong_ordering Compare(std::u16string_view a, std::u16string_view b) noexcept;
    void CopyBytes(const CStr& other) noexcept
    {
        std::memcpy(static_cast<void*>(this), static_cast<const void*>(&other), sizeof *this);
    }
    void AddReference() noexcept;
    void Release() noexcept
    {
        if (IsShared())
            ReleaseBuffer();
    }
    void ReleaseBuffer() noexcept;

    // The tag is the length of a short text, or c_sharedTag. As the first member of both it may be read
    // whichever of them is in use.
    struct SShort {
        char16_t tag;
        char16_t units[c_shortCapacity];
    };
    struct SLong {
        char16_t tag;
        char16_t* units;
        std::size_t length;
    };
    union {
        SShort m_short;
        SLong m_long;
    };
};

/// `view` without white space (blank, tab, line feed, vertical tab, form feed, carriage return) at its ends.
COMMONDLL_API std::u16string_view TrimView(std::u16string_view view) noexcept;

/// The UTF-8 form of any UTF-16 view; a surrogate without its partner becomes U+FFFD.
COMMONDLL_API std::string ToUtf8(std::u16string_view text);

} // namespace CommonUI

template<>
struct std::hash<CommonUI::CStr> {
    std::size_t operator()(const CommonUI::CStr& text) const noexcept
    {
        return std::hash<std::u16string_view>()(text.View());
    }
};
