#include "dialogs/start_pane/SafeHtml.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

using namespace CommonUI;

namespace
{

constexpr const char16_t* c_page = u"https://a.example/p/";

std::string Safe(const CStr& html)
{
    return MakeSafeHtml(html, c_page, 1000).ToUtf8();
}

CStr Repeated(std::u16string_view piece, std::size_t size)
{
    std::u16string text;
    while (text.size() < size)
        text += piece;
    return text;
}

} // namespace

TEST(SafeHtml, WhatIsLeftOfHtml)
{
    const struct {
        const char16_t* html;
        const char* safe;
    } rows[] = {
        {u"", ""},
        {u"a  b\n c ", "a b c"},
        {u"a < b & c > d \"e\"", "a &lt; b &amp; c &gt; d &quot;e&quot;"},
        {u"&lt;b&gt; &amp;lt; &#60;&#x3C;i> &auml;&nbsp;&unknown; &#0;&#xD800;&#x1F600;&#;",
         "&lt;b&gt; &amp;lt; &lt;&lt;i&gt; \u00E4\u00A0&amp;unknown; \uFFFD\uFFFD\U0001F600&amp;#;"},
        {u"<p>a</p> <P CLASS=x onclick='f()'>b <strong>c</strong>d</P>", "<p>a</p><p>b <b>c</b>d</p>"},
        {u"<p>a<p>b<div>c<b>d<p>e</b>", "<p>a</p><p>b</p><p>c<b>d</b></p><p>e</p>"},
        {u"<p></p><b> </b><div><i></i></div>", ""},
        {u"<b>a </b>b", "<b>a</b> b"},
        {u"<h1>a</h1>b<h6>c", "<h4>a</h4>b<h4>c</h4>"},
        {u"<ul><li>a<li>b<ol><li>c</ol>d</ul>e", "<ul><li>a</li><li>b<ol><li>c</li></ol>d</li></ul>e"},
        {u"<blockquote><p>a</blockquote></p></b>b", "<blockquote><p>a</p></blockquote>b"},
        {u"<br>a<br><br/>b<hr>", "a<br/>b<br/>"},
        {u"<pre>a\n  b</pre>", "<pre>a\n  b</pre>"},
        {u"<table><tr><td>a<td>b<tr><td>c</table>", "<p>a b</p><p>c</p>"},
        {u"a<span>b</span>c<custom-x>d", "abcd"},
        {u"<i>a<!-- <b> -->b<?php <b> ?>c<!doctype x>", "<i>ab ?&gt;c</i>"},
        {u"<script>alert('</b>')</SCRIPT >a<style>p{}</style>b<script>c", "ab"},
        {u"<svg><svg></svg><script>x</script>a</svg>b", "ab"},
        {u"<scr<script>x</script>ipt>y", "xipt&gt;y"},
        {u"<img src=x onerror=f()><iframe src=x>a</iframe><object><b>x</object>b", "b"},
        {u"<a href=\"x?a=1&amp;b=2\" target=_top>a</a>",
         "<a href=\"https://a.example/p/x?a=1&amp;b=2\">a</a>"},
        {u"<a href='https://b.example'>a<a href=//c.example>b",
         "<a href=\"https://b.example\">a</a><a href=\"https://c.example\">b</a>"},
        {u"<a href=javascript:f()>a</a><a href='&#106;ava&#10;script:f()'>b</a><a href=' data:,x'>c</a>",
         "abc"},
        {u"<a href=file:///etc/passwd>a</a><a name=x>b</a><a href='x\">'>c</a>", "abc"},
        {u"<a x=\"href='y'\" href=z href=w =>a", "<a href=\"https://a.example/p/z\">a</a>"},
        {u"<a href=x", ""},
        {u"a<b", "a"},
        {u"a<1</ b", "a&lt;1&lt;/ b"},
        {u"a\u202Eb\u0007c\u0085", "abc"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Safe(row.html), row.safe) << CStr(row.html).ToUtf8();
}

TEST(SafeHtml, CutsLongTexts)
{
    EXPECT_EQ(MakeSafeHtml(u"<p>ab <b>cd</b>", c_page, 3), u"<p>ab <b>c\u2026</b></p>");
    EXPECT_EQ(MakeSafeHtml(u"<p>ab</p> <p> </p>", c_page, 2), u"<p>ab</p>");
    EXPECT_EQ(MakeSafeHtml(u"a\U0001F600b", c_page, 2), u"a\U0001F600\u2026");
}

TEST(SafeHtml, TextOfHtml)
{
    EXPECT_EQ(GetTextOfHtml(u"a&lt;b <b>c</b>d<br>e<p>f</p><script>x</script>", 100), u"a<b cd e f");
    EXPECT_EQ(EscapeHtml(u"<a href=\"x\">&"), u"&lt;a href=&quot;x&quot;&gt;&amp;");
}

// Of each kind of input what would take a careless reader a time that grows with the square.
TEST(SafeHtml, IsQuickWhateverComes)
{
    using namespace std::chrono;
    const auto start = steady_clock::now();
    for (const char16_t* const piece :
         {u"<", u"<a ", u"<a href='", u"<b>", u"<ul><li>", u"</b>", u"<!--", u"<script>", u"</script", u"&#",
          u"&amp", u"<p x=", u"<a =", u"<svg></", u" ", u"<p>", u"<br>", u"<xmp></xm"}) {
        const CStr html = Repeated(piece, 1'000'000);
        EXPECT_LE(MakeSafeHtml(html, c_page, 1000).GetLength(), 20'000U) << CStr(piece).ToUtf8();
        EXPECT_LE(MakeSafeHtml(u"<script>" + html, c_page, 1000).GetLength(), 20'000U);
    }
    EXPECT_LT(steady_clock::now() - start, minutes(1)) << "seconds at most, where squares take hours";
}
