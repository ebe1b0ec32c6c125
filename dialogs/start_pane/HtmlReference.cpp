#include "dialogs/start_pane/detail/HtmlReference.h"

#include <algorithm>
#include <iterator>

namespace CommonUI
{

namespace
{

constexpr char32_t c_replacement = 0xFFFD;
constexpr std::size_t c_longest = 10; // of a reference

// Those that people write in texts about surfaces; the others stay as they are written.
constexpr struct {
    std::u16string_view name;
    char16_t character;
} c_named[] = {
    {u"amp", u'&'},         {u"lt", u'<'},          {u"gt", u'>'},         {u"quot", u'"'},
    {u"apos", u'\''},       {u"nbsp", u'\u00A0'},   {u"copy", u'\u00A9'},  {u"reg", u'\u00AE'},
    {u"deg", u'\u00B0'},    {u"plusmn", u'\u00B1'}, {u"sup2", u'\u00B2'},  {u"sup3", u'\u00B3'},
    {u"micro", u'\u00B5'},  {u"middot", u'\u00B7'}, {u"laquo", u'\u00AB'}, {u"raquo", u'\u00BB'},
    {u"Auml", u'\u00C4'},   {u"Ouml", u'\u00D6'},   {u"Uuml", u'\u00DC'},  {u"auml", u'\u00E4'},
    {u"ouml", u'\u00F6'},   {u"uuml", u'\u00FC'},   {u"szlig", u'\u00DF'}, {u"eacute", u'\u00E9'},
    {u"egrave", u'\u00E8'}, {u"times", u'\u00D7'},  {u"ndash", u'\u2013'}, {u"mdash", u'\u2014'},
    {u"lsquo", u'\u2018'},  {u"rsquo", u'\u2019'},  {u"ldquo", u'\u201C'}, {u"rdquo", u'\u201D'},
    {u"bull", u'\u2022'},   {u"hellip", u'\u2026'}, {u"euro", u'\u20AC'},  {u"trade", u'\u2122'},
    {u"rarr", u'\u2192'},   {u"le", u'\u2264'},     {u"ge", u'\u2265'},    {u"mu", u'\u03BC'},
};

char32_t FindNamed(std::u16string_view name)
{
    const auto* const found = std::find_if(std::begin(c_named), std::end(c_named),
                                           [name](const auto& row) { return row.name == name; });
    return found == std::end(c_named) ? 0 : found->character;
}

// The value of a digit; 16 for what is none.
unsigned int DigitOf(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    const char16_t lower = unit | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10U : 16U;
}

// What stands behind "#"; 0 where it is no number.
char32_t ReadNumbered(std::u16string_view number)
{
    const bool isHex = number.starts_with(u'x') || number.starts_with(u'X');
    const unsigned int base = isHex ? 16 : 10;
    number.remove_prefix(isHex ? 1 : 0);
    char32_t character = 0;
    for (const char16_t unit : number) {
        const unsigned int digit = DigitOf(unit);
        if (digit >= base)
            return 0;
        character = std::min<char32_t>(character * base + digit, 0x110000);
    }
    const bool isCharacter =
        character != 0 && character < 0x110000 && !(character >= 0xD800 && character <= 0xDFFF);
    return number.empty() || isCharacter ? character : c_replacement;
}

} // namespace

SHtmlReference ReadHtmlReference(std::u16string_view text)
{
    const std::u16string_view start = text.substr(0, c_longest);
    const std::size_t end = start.find(u';');
    if (!start.starts_with(u'&') || end == start.npos)
        return {};
    const std::u16string_view name = start.substr(1, end - 1);
    const char32_t character = name.starts_with(u'#') ? ReadNumbered(name.substr(1)) : FindNamed(name);
    return character == 0 ? SHtmlReference{} : SHtmlReference{character, end + 1};
}

CStr DecodeHtmlReferences(std::u16string_view text)
{
    CStr decoded;
    for (std::size_t at = 0; at < text.size();) {
        const SHtmlReference reference = ReadHtmlReference(text.substr(at));
        if (reference.length != 0)
            AppendCharacter(decoded, reference.character);
        else
            decoded += text[at];
        at += std::max<std::size_t>(reference.length, 1);
    }
    return decoded;
}

void AppendCharacter(CStr& text, char32_t character)
{
    if (character < 0x10000) {
        text += static_cast<char16_t>(character);
        return;
    }
    text += static_cast<char16_t>(0xD7C0 + (character >> 10));
    text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
}

} // namespace CommonUI
