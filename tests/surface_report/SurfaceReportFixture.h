#pragma once

#include "programs/surface_report/Program.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

inline const fs::path c_sample = fs::path(COMMONUI_EXAMPLE_DATA) / "ground_steel.sdf";

inline std::string BytesOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Runs the program with a folder of its own for input and reports.
class ReportProgram : public testing::Test
{
protected:
    int Run(std::vector<std::string> arguments)
    {
        std::vector<const char*> pointers;
        for (const std::string& argument : arguments)
            pointers.push_back(argument.c_str());
        m_out.str({});
        m_err.str({});
        return SurfaceReport::RunProgram(pointers, m_out, m_err);
    }
    fs::path Out() const { return m_folder / "made" / "out"; }
    fs::path Write(const std::string& name, const std::string& bytes) const
    {
        m_temporary.Write(name, bytes);
        return m_folder / name;
    }

    CTemporaryFolder m_temporary;
    const fs::path m_folder = m_temporary.GetPath();
    std::ostringstream m_out;
    std::ostringstream m_err;
};
