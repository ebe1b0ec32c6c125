#pragma once

#include "common/ini/Inifile.h"
#include "settings/catalogue/BuiltInSettingText.h"
#include "tests/DiagnosticsCapture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
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

/// A page of the docs.
inline std::string ReadPage(const char* name)
{
    std::ifstream file(std::filesystem::path(COMMONUI_TEST_DATA) / "../../docs" / name);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace CommonUI
