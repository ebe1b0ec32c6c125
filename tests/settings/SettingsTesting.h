#pragma once

#include "common/Diagnostics.h"
#include "common/Inifile.h"
#include "settings/BuiltInSettingText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace CommonUI
{

inline CInifile Document(std::u16string_view text)
{
    CInifile ini;
    ini.ParseLine(text);
    return ini;
}

inline std::string Bytes(const auto& set)
{
    CInifile ini;
    set.Save(ini);
    return ini.GetBytes();
}

/// The set of a built-in text; a default one, and a failed test, when its reader refuses the text.
template<class TSettings>
TSettings BuiltIn(int number)
{
    CInifile ini = Document(GetBuiltInSettingText(EBuiltInSetting{number}));
    TSettings set;
    EXPECT_TRUE(set.Load(ini)) << number;
    return set;
}

/// What the reader of a settings type says in the diagnostics when it refuses a text; "accepted" when it does
/// not, and "changed" when it refuses and changes its object all the same.
template<class TSettings>
std::string Refusal(std::u16string_view text)
{
    std::string lines;
    auto before = GetDiagnostics().SetSink([&](const SDiagnosticLine& line) {
        if (line.category == u"Settings")
            lines += CStr(line.text).ToUtf8() + '\n';
    });
    CInifile ini = Document(text);
    TSettings set;
    const bool accepted = set.Load(ini);
    GetDiagnostics().SetSink(std::move(before));
    if (accepted)
        return "accepted";
    return set == TSettings() ? lines : "changed";
}

} // namespace CommonUI
