#include "controls/labels/Elision.h"

#include "common/PathText.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace CommonUI
{

namespace
{

constexpr char16_t c_ellipsis[] = u"\u2026";

constexpr bool IsIn(char16_t unit, char16_t first, char16_t last) noexcept
{
    return unit >= first && unit <= last;
}

// Whether a code unit belongs to the letter before it: the second half of a pair, accents, selectors of a
// variant.
bool IsContinued(std::u16string_view text, std::size_t index)
{
    const char16_t unit = text[index];
    const bool afterJoiner = index > 0 && text[index - 1] == 0x200D;
    return afterJoiner || IsIn(unit, 0xDC00, 0xDFFF) || IsIn(unit, 0x300, 0x36F) ||
           IsIn(unit, 0x1AB0, 0x1AFF) || IsIn(unit, 0x20D0, 0x20FF) || IsIn(unit, 0xFE00, 0xFE0F) ||
           IsIn(unit, 0xFE20, 0xFE2F) || unit == 0x200D;
}

// The nearest place at or before a position where a text may be cut.
std::size_t FindCut(std::u16string_view text, std::size_t position)
{
    while (position > 0 && position < text.size() && IsContinued(text, position))
        --position;
    return position;
}

// The greatest count up to `limit` that has room, or 0.
template<class FMake>
CStr FindLongest(std::size_t limit, double room, const FMeasureText& measure, FMake make)
{
    std::size_t least = 0;
    while (least < limit) {
        const std::size_t middle = (least + limit + 1) / 2;
        if (measure(make(middle)) <= room)
            least = middle;
        else
            limit = middle - 1;
    }
    return make(least);
}

CStr ElideRight(std::u16string_view text, double room, const FMeasureText& measure)
{
    return FindLongest(text.size(), room, measure, [&](std::size_t count) {
        return CStr(text.substr(0, FindCut(text, count))) + c_ellipsis;
    });
}

CStr ElideMiddle(std::u16string_view text, double room, const FMeasureText& measure)
{
    return FindLongest(text.size(), room, measure, [&](std::size_t count) {
        const std::size_t end = FindCut(text, text.size() - count / 2);
        return CStr(text.substr(0, FindCut(text, count - count / 2))) + c_ellipsis + text.substr(end);
    });
}

// Where the parts of a path begin, behind their separators.
std::vector<std::size_t> FindParts(std::u16string_view path)
{
    std::vector<std::size_t> parts{0};
    for (std::size_t i = 0; i + 1 < path.size(); ++i)
        if ((path[i] == u'/' || path[i] == u'\\') && i > 0)
            parts.push_back(i + 1);
    return parts;
}

// Folders go from the second on: the drive and the last ones tell most.
CStr ElidePath(std::u16string_view path, double room, const FMeasureText& measure)
{
    const std::vector<std::size_t> parts = FindParts(path);
    for (std::size_t last = 2; last < parts.size(); ++last) {
        CStr left = CStr(path.substr(0, parts[1])) + c_ellipsis + path.substr(parts[last] - 1);
        if (measure(left) <= room)
            return left;
    }
    const CStr name = parts.size() > 1 ? c_ellipsis + CStr(path.substr(parts.back() - 1)) : CStr(path);
    return measure(name) <= room ? name : ElideMiddle(GetFileName(path), room, measure);
}

} // namespace

CStr ElideText(std::u16string_view text, double room, EElision elision, const FMeasureText& measure)
{
    if (measure(text) <= room)
        return text;
    switch (elision) {
    case EElision::Middle:
        return ElideMiddle(text, room, measure);
    case EElision::Path:
        return ElidePath(text, room, measure);
    case EElision::Right:
        break;
    }
    return ElideRight(text, room, measure);
}

CStr SValueText::GetValueText() const
{
    return unit.IsEmpty() ? number : number + u'\u00A0' + unit;
}

CStr SValueText::GetText() const
{
    return caption.IsEmpty() ? GetValueText() : caption + u": " + GetValueText();
}

CStr ElideValue(const SValueText& value, double room, const FMeasureText& measure)
{
    CStr whole = value.GetText();
    if (measure(whole) <= room)
        return whole;
    const CStr number = value.GetValueText();
    const double left = room - measure(u": " + number);
    const CStr caption =
        value.caption.IsEmpty() ? CStr() : ElideText(value.caption, left, EElision::Right, measure);
    const CStr elided = SValueText{caption, value.number, value.unit}.GetText();
    for (const CStr& text : {elided, number})
        if (caption != c_ellipsis || text == number)
            if (measure(text) <= room)
                return text;
    return c_ellipsis;
}

} // namespace CommonUI
