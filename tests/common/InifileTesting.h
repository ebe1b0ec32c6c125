#pragma once

#include "common/ini/Inifile.h"
#include "tests/DiagnosticsCapture.h"

#include <string>
#include <string_view>
#include <vector>

namespace CommonUI
{

inline CInifile IniOf(std::string_view bytes, std::u16string_view section = u"")
{
    CInifile ini;
    ini.LoadBytes(std::string(bytes));
    ini.SelectSection(section);
    return ini;
}

/// What a program finds that reads the saved bytes.
inline CInifile Reloaded(const CInifile& ini)
{
    return IniOf(ini.GetBytes(), ini.GetSection());
}

/// The beginnings of files of every encoding: UTF-8, UTF-8 with a mark, UTF-16, Western.
inline const std::vector<std::string> c_emptyFiles = {"", "\xEF\xBB\xBF", "\xFF\xFE", "; caf\xE9\r\n"};

} // namespace CommonUI
