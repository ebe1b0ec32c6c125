#pragma once

#include "common/ini/Inifile.h"
#include "settings/catalogue/BuiltInSettingText.h"
#include "tests/DiagnosticsCapture.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

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

} // namespace CommonUI
