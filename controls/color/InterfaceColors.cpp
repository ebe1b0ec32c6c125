#include "controls/color/InterfaceColors.h"

#include "controls/color/Contrast.h"

#include <utility>

namespace CommonUI
{

namespace
{

using enum EInterfaceColor;

constexpr SEnumRow c_schemes[] = {
    {.value = 0, .iniName = u"System", .textId = 11445},
    {.value = 1, .iniName = u"Light", .textId = 11446},
    {.value = 2, .iniName = u"Dark", .textId = 11447},
    {.value = 3, .iniName = u"HighContrast", .textId = 11448},
};

constexpr SInterfaceContrast c_contrasts[] = {
    {WindowText, Window, c_textContrast},
    {Text, Field, c_textContrast},
    {Text, AlternateField, c_textContrast},
    {DimText, Field, c_textContrast},
    {DimText, AlternateField, c_textContrast},
    {ButtonText, Button, c_textContrast},
    {SelectedText, Selection, c_textContrast},
    {Link, Field, c_textContrast},
    {Link, Window, c_textContrast},
    {ToolTipText, ToolTip, c_textContrast},
    {Error, Window, c_textContrast},
    {Warning, Window, c_textContrast},
    {Success, Window, c_textContrast},
    {Outline, Window, c_markContrast},
    {Outline, Field, c_markContrast},
    {Focus, Window, c_markContrast},
    {Focus, Field, c_markContrast},
};

// What stands for a colour before its contrast is computed.
struct SBase {
    EInterfaceColor role;
    SColor light;
    SColor dark;
};

constexpr SBase c_bases[] = {
    {Window, {0xF2, 0xF2, 0xF2}, {0x2B, 0x2D, 0x30}},
    {WindowText, {0x1A, 0x1A, 0x1A}, {0xE4, 0xE6, 0xE8}},
    {Field, {0xFF, 0xFF, 0xFF}, {0x1E, 0x1F, 0x22}},
    {AlternateField, {0xF5, 0xF7, 0xFA}, {0x26, 0x28, 0x2B}},
    {Text, {0x1A, 0x1A, 0x1A}, {0xE4, 0xE6, 0xE8}},
    {DimText, {0x80, 0x80, 0x80}, {0x84, 0x88, 0x8C}},
    {Disabled, {0x9A, 0x9A, 0x9A}, {0x78, 0x7C, 0x80}},
    {Button, {0xE6, 0xE6, 0xE6}, {0x3C, 0x3F, 0x43}},
    {ButtonText, {0x1A, 0x1A, 0x1A}, {0xE4, 0xE6, 0xE8}},
    {ToolTip, {0xFF, 0xFF, 0xE6}, {0x3C, 0x3F, 0x43}},
    {ToolTipText, {0x1A, 0x1A, 0x1A}, {0xE4, 0xE6, 0xE8}},
    {Outline, {0xA0, 0xA0, 0xA0}, {0x70, 0x74, 0x78}},
    {Error, {0xD0, 0x20, 0x20}, {0xE0, 0x50, 0x50}},
    {Warning, {0xD0, 0x80, 0x00}, {0xE0, 0xA0, 0x30}},
    {Success, {0x20, 0x90, 0x30}, {0x50, 0xB0, 0x60}},
};

constexpr SColor c_accent{0x2F, 0x6F, 0xB5};

SColor& At(CInterfaceColorTable& table, EInterfaceColor role)
{
    return table[static_cast<std::size_t>(role)];
}

// Links and frames take the accent; what is selected has it as its ground. White texts look right on most
// accents, if need be on a darker one.
void UseAccent(CInterfaceColorTable& table, const SColor& accent)
{
    constexpr SColor c_white{255, 255, 255};
    const bool onWhite = GetContrast(accent, c_white) >= c_markContrast;
    At(table, Selection) = onWhite ? MakeReadable(accent, c_white) : accent;
    At(table, SelectedText) = onWhite ? c_white : GetTextColorOn(accent);
    At(table, Link) = accent;
    At(table, Focus) = accent;
}

// A mark on two grounds of nearly one lightness: what stands out from the second does so from the first as
// well.
void MakeReadable(CInterfaceColorTable& table)
{
    for (const SInterfaceContrast& row : c_contrasts)
        At(table, row.mark) = MakeReadable(At(table, row.mark), At(table, row.ground), row.contrast);
}

CInterfaceColorTable MakeHighContrast(const SHighContrastColors& colors)
{
    CInterfaceColorTable table;
    table.fill(colors.text);
    for (const EInterfaceColor role : {Window, Field, AlternateField, Button, ToolTip})
        At(table, role) = colors.ground;
    At(table, Selection) = colors.selection;
    At(table, SelectedText) = colors.selectedText;
    At(table, Link) = colors.link;
    At(table, Focus) = colors.selection;
    return table;
}

EColorScheme ToScheme(EInterfaceScheme choice, EColorScheme system)
{
    switch (choice) {
    case EInterfaceScheme::Light:
        return EColorScheme::Light;
    case EInterfaceScheme::Dark:
        return EColorScheme::Dark;
    case EInterfaceScheme::HighContrast:
        return EColorScheme::HighContrast;
    case EInterfaceScheme::System:
        break;
    }
    return system;
}

} // namespace

const CEnum<EInterfaceScheme>& GetInterfaceSchemeEnum()
{
    return GetEnumOfRows<EInterfaceScheme, c_schemes>();
}

std::span<const SInterfaceContrast> GetInterfaceContrasts()
{
    return c_contrasts;
}

CInterfaceColorTable MakeInterfaceColors(EColorScheme scheme, const std::optional<SColor>& accent,
                                         const SHighContrastColors& highContrast)
{
    if (scheme == EColorScheme::HighContrast)
        return MakeHighContrast(highContrast);
    CInterfaceColorTable table{};
    for (const SBase& base : c_bases)
        At(table, base.role) = scheme == EColorScheme::Dark ? base.dark : base.light;
    UseAccent(table, accent.value_or(c_accent));
    MakeReadable(table);
    return table;
}

CInterfaceColors::CInterfaceColors()
    : m_system(GetSystemColors())
{
    m_system.SetListener([this] { Update(); });
    Update();
}

CInterfaceColors::~CInterfaceColors()
{
    m_system.SetListener({});
}

void CInterfaceColors::SetChoice(EInterfaceScheme choice)
{
    m_choice = choice;
    Update();
}

void CInterfaceColors::SetAccent(const std::optional<SColor>& accent)
{
    m_accent = accent;
    Update();
}

void CInterfaceColors::Update()
{
    const SSystemColors system = m_system.Get();
    // Colours of high contrast that the user has not set up are the library's.
    const bool isTheirs = system.scheme == EColorScheme::HighContrast;
    m_scheme = ToScheme(m_choice, system.scheme);
    const CInterfaceColorTable table =
        MakeInterfaceColors(m_scheme, m_accent ? m_accent : system.accent,
                            isTheirs ? system.highContrast : SHighContrastColors());
    if (std::exchange(m_table, table) != table)
        m_changed.Invoke();
}

} // namespace CommonUI
