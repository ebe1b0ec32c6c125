#include "controls/labels/ToolTip.h"

#include "common/StringTable.h"

namespace CommonUI
{

namespace
{

struct SFact {
    int label; // of the string table
    CStr value;
};

std::vector<SFact> GetFacts(const SToolTip& toolTip)
{
    std::vector<SFact> facts{{11456, toolTip.unit}, {11457, toolTip.standard}, {11458, toolTip.keys}};
    std::erase_if(facts, [](const SFact& fact) { return fact.value.IsEmpty(); });
    return facts;
}

CStr GetTitle(const SToolTip& toolTip)
{
    const bool both = !toolTip.symbol.IsEmpty() && !toolTip.name.IsEmpty();
    return toolTip.symbol + (both ? u" \u2013 " : u"") + toolTip.name;
}

CStr Escape(const CStr& text)
{
    return text.Replace(u"&", u"&amp;")
        .Replace(u"<", u"&lt;")
        .Replace(u">", u"&gt;")
        .Replace(u"\"", u"&quot;");
}

std::vector<CStr> GetParagraphs(const CStr& text)
{
    return text.IsEmpty() ? std::vector<CStr>() : text.Split(u"\n");
}

} // namespace

CStr MakeToolTipHtml(const SToolTip& toolTip)
{
    CStr html;
    if (const CStr title = GetTitle(toolTip); !title.IsEmpty())
        html += u"<p><b>" + Escape(title) + u"</b></p>";
    for (const CStr& paragraph : GetParagraphs(toolTip.text))
        html += u"<p>" + Escape(paragraph) + u"</p>";
    const std::vector<SFact> facts = GetFacts(toolTip);
    if (facts.empty())
        return html;
    html += u"<table>";
    for (const auto& [label, value] : facts)
        html += u"<tr><td>" + Escape(GetString(label)) + u"</td><td>" + Escape(value) + u"</td></tr>";
    return html + u"</table>";
}

CStr MakeToolTipText(const SToolTip& toolTip)
{
    CStr text;
    const auto append = [&](const CStr& line) {
        if (!line.IsEmpty())
            text += (text.IsEmpty() ? u"" : u"\n") + line;
    };
    append(GetTitle(toolTip));
    append(toolTip.text);
    for (const auto& [label, value] : GetFacts(toolTip))
        append(GetString(label) + u' ' + value);
    return text;
}

} // namespace CommonUI
