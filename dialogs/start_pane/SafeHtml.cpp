#include "dialogs/start_pane/SafeHtml.h"

#include "dialogs/start_pane/detail/HtmlReference.h"
#include "platform/network/WebAddress.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace CommonUI
{

namespace
{

constexpr std::size_t c_deepest = 16; // of elements that are written

enum class EElement {
    Inline,    // within a line
    Link,      // as Inline, and leads somewhere
    Block,     // a paragraph of its own, with no other block in it
    Container, // holds blocks
    Item,      // a container in a list
    Break,     // ends a line
    Space,     // separates words
    Hidden     // is not meant to be read
};

struct SElement {
    std::u16string_view name;
    EElement kind;
    std::u16string_view written;
};

constexpr SElement c_elements[] = {
    {u"a", EElement::Link, u"a"},         {u"b", EElement::Inline, u"b"},
    {u"strong", EElement::Inline, u"b"},  {u"i", EElement::Inline, u"i"},
    {u"em", EElement::Inline, u"i"},      {u"u", EElement::Inline, u"u"},
    {u"sub", EElement::Inline, u"sub"},   {u"sup", EElement::Inline, u"sup"},
    {u"code", EElement::Inline, u"code"}, {u"kbd", EElement::Inline, u"code"},
    {u"tt", EElement::Inline, u"code"},   {u"p", EElement::Block, u"p"},
    {u"div", EElement::Block, u"p"},      {u"section", EElement::Block, u"p"},
    {u"article", EElement::Block, u"p"},  {u"tr", EElement::Block, u"p"},
    {u"dt", EElement::Block, u"p"},       {u"dd", EElement::Block, u"p"},
    {u"pre", EElement::Block, u"pre"},    {u"h1", EElement::Block, u"h4"},
    {u"h2", EElement::Block, u"h4"},      {u"h3", EElement::Block, u"h4"},
    {u"h4", EElement::Block, u"h4"},      {u"h5", EElement::Block, u"h4"},
    {u"h6", EElement::Block, u"h4"},      {u"ul", EElement::Container, u"ul"},
    {u"ol", EElement::Container, u"ol"},  {u"blockquote", EElement::Container, u"blockquote"},
    {u"li", EElement::Item, u"li"},       {u"br", EElement::Break, u"br"},
    {u"hr", EElement::Break, u"br"},      {u"td", EElement::Space, u""},
    {u"th", EElement::Space, u""},        {u"script", EElement::Hidden, u""},
    {u"style", EElement::Hidden, u""},    {u"head", EElement::Hidden, u""},
    {u"title", EElement::Hidden, u""},    {u"template", EElement::Hidden, u""},
    {u"noscript", EElement::Hidden, u""}, {u"iframe", EElement::Hidden, u""},
    {u"noframes", EElement::Hidden, u""}, {u"object", EElement::Hidden, u""},
    {u"applet", EElement::Hidden, u""},   {u"svg", EElement::Hidden, u""},
    {u"math", EElement::Hidden, u""},     {u"audio", EElement::Hidden, u""},
    {u"video", EElement::Hidden, u""},    {u"canvas", EElement::Hidden, u""},
    {u"select", EElement::Hidden, u""},   {u"textarea", EElement::Hidden, u""},
    {u"xmp", EElement::Hidden, u""},
};

bool IsBlank(char32_t character)
{
    return character == U' ' || (character >= U'\t' && character <= U'\r');
}

bool IsLetter(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

// What shows nothing, or shows what stands around it in another order.
bool IsUnwanted(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character <= 0x9F) ||
           (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

CStr ToLower(std::u16string_view name)
{
    CStr lower = name;
    char16_t* const units = lower.SetLength(name.size());
    std::transform(name.begin(), name.end(), units, [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
    });
    return lower;
}

const SElement* FindElement(std::u16string_view name)
{
    const auto* const found = std::find_if(std::begin(c_elements), std::end(c_elements),
                                           [name](const SElement& element) { return element.name == name; });
    return found == std::end(c_elements) ? nullptr : found;
}

void AppendEscaped(CStr& text, char32_t character)
{
    switch (character) {
    case U'&':
        text += u"&amp;";
        break;
    case U'<':
        text += u"&lt;";
        break;
    case U'>':
        text += u"&gt;";
        break;
    case U'"':
        text += u"&quot;";
        break;
    default:
        AppendCharacter(text, character);
    }
}

// A tag as it stands in the input.
struct STag {
    CStr name;
    CStr link;
    bool isEnd = false;
};

// Reads tags, always forward.
class CTagReader
{
public:
    // @param at behind "<"
    CTagReader(std::u16string_view html, std::size_t at)
        : m_html(html)
        , m_at(at)
    {
    }

    // @return where to go on
    std::size_t Read(STag& tag)
    {
        tag.isEnd = Is(u'/');
        m_at += tag.isEnd ? 1 : 0;
        tag.name = ToLower(TakeUntil(u" \t\r\n\f/>"));
        while (SkipBlanks())
            ReadAttribute(tag);
        m_at = std::min(m_at + 1, m_html.size());
        return m_at;
    }

private:
    bool Is(char16_t unit) const { return m_at < m_html.size() && m_html[m_at] == unit; }
    std::u16string_view TakeUntil(std::u16string_view ends)
    {
        const std::size_t start = m_at;
        m_at = std::min(m_html.find_first_of(ends, start), m_html.size());
        return m_html.substr(start, m_at - start);
    }
    // @return whether an attribute follows
    bool SkipBlanks()
    {
        m_at = std::min(m_html.find_first_not_of(u" \t\r\n\f/", m_at), m_html.size());
        return m_at < m_html.size() && m_html[m_at] != u'>';
    }
    void ReadAttribute(STag& tag)
    {
        const std::size_t start = m_at;
        m_at += 1; // a name may begin with "="
        TakeUntil(u" \t\r\n\f/>=");
        const CStr name = ToLower(m_html.substr(start, m_at - start));
        const std::u16string_view value = ReadValue();
        if (name == u"href" && tag.link.IsEmpty())
            tag.link = DecodeHtmlReferences(value);
    }
    std::u16string_view ReadValue()
    {
        const std::size_t equals = m_html.find_first_not_of(u" \t\r\n\f", m_at);
        if (equals == m_html.npos || m_html[equals] != u'=')
            return {};
        m_at = std::min(m_html.find_first_not_of(u" \t\r\n\f", equals + 1), m_html.size());
        if (!Is(u'"') && !Is(u'\''))
            return TakeUntil(u" \t\r\n\f>");
        const std::u16string_view quote = m_html.substr(m_at++, 1);
        const std::u16string_view value = TakeUntil(quote);
        m_at = std::min(m_at + 1, m_html.size());
        return value;
    }

    std::u16string_view m_html;
    std::size_t m_at;
};

class CHtmlWriter
{
public:
    CHtmlWriter(std::u16string_view html, std::u16string_view page, std::size_t mostCharacters, bool isPlain)
        : m_html(html)
        , m_page(page)
        , m_left(mostCharacters)
        , m_isPlain(isPlain)
    {
    }

    CStr Write()
    {
        while (m_at < m_html.size())
            Step();
        CloseDownTo(0);
        return m_out;
    }

private:
    struct SOpen {
        const SElement* element;
        CStr link;
        bool isWritten; // elements are written with their first text
    };

    void Step()
    {
        const char16_t unit = m_html[m_at];
        if (unit == u'<' && StepMarkup())
            return;
        const SHtmlReference reference = ReadHtmlReference(m_html.substr(m_at));
        m_at += std::max<std::size_t>(reference.length, 1);
        Put(reference.length != 0 ? reference.character : unit);
    }

    // False where "<" is a character like others.
    bool StepMarkup()
    {
        const std::u16string_view rest = m_html.substr(m_at);
        const char16_t next = rest.size() > 1 ? rest[1] : u' ';
        if (rest.starts_with(u"<!--"))
            SkipBehind(u"-->");
        else if (next == u'!' || next == u'?')
            SkipBehind(u">");
        else if (IsLetter(next) || (next == u'/' && rest.size() > 2 && IsLetter(rest[2])))
            StepTag();
        else
            return false;
        return true;
    }

    void SkipBehind(std::u16string_view end)
    {
        const std::size_t found = m_html.find(end, m_at);
        m_at = found == m_html.npos ? m_html.size() : found + end.size();
    }

    void StepTag()
    {
        STag tag;
        m_at = CTagReader(m_html, m_at + 1).Read(tag);
        const SElement* const element = FindElement(tag.name);
        if (!element)
            return;
        if (element->kind == EElement::Hidden && !tag.isEnd)
            SkipElement(tag.name);
        else if (m_isPlain || element->kind == EElement::Space)
            m_isSpaced = m_isSpaced || element->kind > EElement::Link;
        else if (tag.isEnd)
            Close(*element);
        else
            Open(*element, tag.link);
    }

    // To the end tag, also of one within of the same name: what is left over is read as any other input.
    void SkipElement(std::u16string_view name)
    {
        for (std::size_t at = m_html.find(u"</", m_at); at != m_html.npos; at = m_html.find(u"</", at + 2))
            if (ToLower(m_html.substr(at + 2, name.size())) == name) {
                m_at = at;
                SkipBehind(u">");
                return;
            }
        m_at = m_html.size();
    }

    void Open(const SElement& element, const CStr& link)
    {
        switch (element.kind) {
        case EElement::Break:
            if (std::exchange(m_isInLine, false))
                m_out += u"<br/>";
            break;
        case EElement::Link:
            Close(element);
            if (const CStr address = ResolveWebAddress(link, m_page); !address.IsEmpty())
                Push(element, address);
            break;
        case EElement::Inline:
            Push(element, {});
            break;
        default:
            CloseDownTo(CountWithin(element.kind == EElement::Item ? u"li" : u""));
            Push(element, {});
        }
    }

    void Push(const SElement& element, const CStr& link)
    {
        if (m_open.size() < c_deepest)
            m_open.push_back({&element, link, false});
    }

    // How many elements stay open around a new block: those of the innermost container and outside it. A new
    // item ends the one before.
    std::size_t CountWithin(std::u16string_view ended) const
    {
        for (std::size_t count = m_open.size(); count > 0; --count) {
            const SElement& element = *m_open[count - 1].element;
            if (element.kind == EElement::Container || element.kind == EElement::Item)
                return element.written == ended ? count - 1 : count;
        }
        return 0;
    }

    // Nothing outside the block or container that the end tag stands in: opening that has closed it.
    void Close(const SElement& element)
    {
        for (std::size_t count = m_open.size(); count > 0; --count)
            if (m_open[count - 1].element->written == element.written) {
                CloseDownTo(count - 1);
                return;
            }
    }

    void CloseDownTo(std::size_t count)
    {
        for (; m_open.size() > count; m_open.pop_back()) {
            const SOpen& last = m_open.back();
            if (last.isWritten)
                m_out += u"</" + CStr(last.element->written) + u">";
            if (last.element->kind > EElement::Link)
                m_isInLine = m_isSpaced = false;
        }
    }

    void Put(char32_t character)
    {
        if (IsBlank(character) && !IsPreformatted()) {
            m_isSpaced = true;
        } else if (!IsUnwanted(character) || (character == U'\n' && m_isInLine)) {
            PutVisible(character);
        }
    }

    bool IsPreformatted() const
    {
        return std::any_of(m_open.begin(), m_open.end(),
                           [](const SOpen& open) { return open.element->written == u"pre"; });
    }

    void PutVisible(char32_t character)
    {
        const bool isSecondHalf = character >= 0xDC00 && character <= 0xDFFF;
        if (m_left == 0 && !isSecondHalf) {
            m_out += u'\u2026';
            m_at = m_html.size();
            return;
        }
        if (std::exchange(m_isSpaced, false) && m_isInLine)
            m_out += u' ';
        WriteOpened();
        m_isInLine = true;
        m_left -= m_left == 0 ? 0 : 1;
        if (m_isPlain)
            AppendCharacter(m_out, character);
        else
            AppendEscaped(m_out, character);
    }

    void WriteOpened()
    {
        for (SOpen& open : m_open) {
            if (std::exchange(open.isWritten, true))
                continue;
            m_out += u"<" + CStr(open.element->written);
            if (!open.link.IsEmpty())
                m_out += u" href=\"" + EscapeHtml(open.link) + u"\"";
            m_out += u'>';
        }
    }

    std::u16string_view m_html;
    std::u16string_view m_page;
    std::size_t m_left; // characters that may still be written
    bool m_isPlain;
    std::size_t m_at = 0;
    CStr m_out;
    std::vector<SOpen> m_open;
    bool m_isInLine = false; // something stands in the current line
    bool m_isSpaced = false; // a blank comes before the next character
};

} // namespace

CStr MakeSafeHtml(std::u16string_view html, std::u16string_view page, std::size_t mostCharacters)
{
    return CHtmlWriter(html, page, mostCharacters, false).Write();
}

CStr GetTextOfHtml(std::u16string_view html, std::size_t mostCharacters)
{
    return CHtmlWriter(html, {}, mostCharacters, true).Write();
}

CStr EscapeHtml(std::u16string_view text)
{
    CStr escaped;
    for (const char16_t unit : text)
        AppendEscaped(escaped, unit);
    return escaped;
}

} // namespace CommonUI
