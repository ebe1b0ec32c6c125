#include "controls/color/Paint.h"

#include "common/StringTable.h"
#include "controls/color/NamedColors.h"
#include "controls/lists/TextOrder.h"

#include <algorithm>
#include <array>
#include <optional>

namespace CommonUI
{

namespace
{

std::optional<int> ReadHexDigit(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F')
        return unit - u'A' + 10;
    return std::nullopt;
}

SPaint FromParts(const std::array<int, 4>& parts)
{
    const auto part = [&](std::size_t index) { return static_cast<std::uint8_t>(parts[index]); };
    return {{part(0), part(1), part(2)}, part(3)};
}

std::optional<SPaint> ReadHex(std::u16string_view digits)
{
    if (digits.size() != 3 && digits.size() != 6 && digits.size() != 8)
        return std::nullopt;
    const std::size_t width = digits.size() == 3 ? 1 : 2;
    std::array<int, 4> parts{0, 0, 0, 255};
    for (std::size_t i = 0; i < digits.size(); i += width) {
        const auto high = ReadHexDigit(digits[i]);
        const auto low = ReadHexDigit(digits[i + width - 1]);
        if (!high || !low)
            return std::nullopt;
        parts[i / width] = *high * 16 + *low;
    }
    return FromParts(parts);
}

std::optional<int> ReadPart(std::u16string_view text)
{
    text = TrimView(text);
    int value = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9' || value > 255)
            return std::nullopt;
        value = value * 10 + (unit - u'0');
    }
    return text.empty() || value > 255 ? std::nullopt : std::optional(value);
}

std::optional<SPaint> ReadDecimals(const CStr& text)
{
    const std::vector<CStr> pieces = text.Split(u",");
    if (pieces.size() != 3)
        return std::nullopt;
    std::array<int, 4> parts{0, 0, 0, 255};
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const auto part = ReadPart(pieces[i]);
        if (!part)
            return std::nullopt;
        parts[i] = *part;
    }
    return FromParts(parts);
}

std::optional<SPaint> ReadName(std::u16string_view text)
{
    for (const SNamedColor& named : GetNamedColors())
        if (IsSameFolded(named.key, text) || IsSameFolded(GetString(named.textId), text))
            return SPaint{named.color};
    return std::nullopt;
}

} // namespace

CStr FormatPaint(const SPaint& paint)
{
    const auto& [red, green, blue] = paint.color;
    CStr text = CStr::Format(u"#%02x%02x%02x", red, green, blue);
    if (paint.opacity < 255)
        text += CStr::Format(u"%02x", paint.opacity);
    return text;
}

bool ParsePaint(std::u16string_view text, SPaint& paint)
{
    text = TrimView(text);
    const bool isMarked = text.starts_with(u'#');
    std::optional<SPaint> read = ReadHex(text.substr(isMarked ? 1 : 0));
    if (!read && !isMarked)
        read = ReadDecimals(text);
    if (!read && !isMarked)
        read = ReadName(text);
    if (read)
        paint = *read;
    return read.has_value();
}

CStr DescribePaint(const SPaint& paint)
{
    CStr text = GetColorName(paint.color);
    if (text.IsEmpty())
        text = FormatPaint({paint.color});
    if (paint.opacity < 255)
        text += CStr::Format(u", %d %%", GetOpacityPercent(paint));
    return text;
}

int GetOpacityPercent(const SPaint& paint) noexcept
{
    return (paint.opacity * 100 + 127) / 255;
}

SPaint WithOpacityPercent(const SPaint& paint, int percent) noexcept
{
    return {paint.color, static_cast<std::uint8_t>((std::clamp(percent, 0, 100) * 255 + 50) / 100)};
}

} // namespace CommonUI
