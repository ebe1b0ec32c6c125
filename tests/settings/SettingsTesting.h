#pragma once

#include "common/ini/Inifile.h"
#include "settings/catalogue/BuiltInSettingText.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

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

} // namespace CommonUI
