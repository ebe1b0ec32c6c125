#pragma once

#include "common/ini/Inifile.h"
#include "programs/surface_report/Program.h"
#include "TestFolders.h"
#include "tests/ProgramTesting.h"
#include "tests/TestData.h"

#include <algorithm>

namespace fs = std::filesystem;

inline const std::string c_sample = COMMONUI_EXAMPLE_DATA "/ground_steel.sdf";

/// Runs the program with a folder of its own for input and reports.
class ReportProgram : public CProgramTest
{
protected:
    int Run(const std::vector<std::string>& arguments)
    {
        return RunWith(SurfaceReport::RunProgram, arguments);
    }
    /// Runs it with the words of a line, in which "$sample", "$out" and "$folder" stand for paths.
    int Run(const std::string& line)
    {
        std::vector<std::string> words = SplitText(line, ' ');
        std::erase(words, "");
        std::ranges::transform(words, words.begin(), [this](const std::string& word) { return Fill(word); });
        return Run(words);
    }
    std::string Fill(const std::string& text) const
    {
        return CommonUI::CStr::FromUtf8(text)
            .Replace(u"$sample", CommonUI::CStr::FromUtf8(c_sample))
            .Replace(u"$out", Out().u16string())
            .Replace(u"$folder", m_folder.u16string())
            .ToUtf8();
    }
    /// Runs it on the sample; the text report, or the message.
    std::string Report(const std::string& line)
    {
        return Run("$sample --out $out " + line) == 0 ? Read("report.txt") : m_err.str();
    }

    fs::path Out() const { return m_folder / "made" / "out"; }
    /// What stands in a report.
    std::string Read(const char* name) const { return m_temporary.Read(Out() / name); }
};
