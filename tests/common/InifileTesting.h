#pragma once

#include "common/Diagnostics.h"
#include "common/Inifile.h"

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

/// Collects the lines of the diagnostics while it lives.
class CDiagnosticsCapture
{
public:
    CDiagnosticsCapture()
        : m_before(GetDiagnostics().SetSink([this](const SDiagnosticLine& line) {
            if (line.category == u"Inifile" && line.level >= EDiagnosticLevel::Warning)
                m_lines.push_back(line.text);
        }))
    {
    }
    ~CDiagnosticsCapture() { GetDiagnostics().SetSink(std::move(m_before)); }
    CDiagnosticsCapture(const CDiagnosticsCapture&) = delete;
    CDiagnosticsCapture& operator=(const CDiagnosticsCapture&) = delete;

    const std::vector<CStr>& GetLines() const { return m_lines; }

private:
    std::vector<CStr> m_lines;
    CDiagnostics::CSink m_before;
};

} // namespace CommonUI
