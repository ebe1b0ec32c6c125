#pragma once

#include "platform/Clipboard.h"

#include <gtest/gtest.h>

namespace CommonUI
{

/// @file
/// What every clipboard promises. A host has a member `clipboard`, and GetHtml and GetText, which say what
/// another program would paste.

template<class THost>
class ClipboardContract : public testing::Test
{
protected:
    THost host;
};

TYPED_TEST_SUITE_P(ClipboardContract);

TYPED_TEST_P(ClipboardContract, BothFormsTakeThePlaceOfWhatWasThere)
{
    const struct {
        CStr html;
        CStr text;
    } rows[] = {
        {u"<b>Ra</b>", u"Ra\t0.1"},
        {u"<table><tr><td>\u00B5m\u00B2 \u03BB</td></tr></table>", u"\u00B5m\u00B2 \u03BB \u20AC"},
        {u"<i>\U0001D11E</i>", u"\U0001D11E"},
        {u"<p>" + CStr(200'000, u'x') + u"</p>", CStr(200'000, u'y')},
        {u"<p>a</p>", u"a"},
    };
    for (const auto& row : rows) {
        ASSERT_TRUE(this->host.clipboard.Put(row.html, row.text));
        EXPECT_EQ(this->host.GetHtml(), row.html);
        EXPECT_EQ(this->host.GetText(), row.text);
    }
}

REGISTER_TYPED_TEST_SUITE_P(ClipboardContract, BothFormsTakeThePlaceOfWhatWasThere);

} // namespace CommonUI
