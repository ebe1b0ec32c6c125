#pragma once

#include "examples/surface_report/Program.h"

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
class SurfaceReportTest : public testing::Test
{
protected:
    SurfaceReportTest()
        : m_folder(fs::temp_directory_path() /
                   (std::string("surface_report-") +
                    testing::UnitTest::GetInstance()->current_test_info()->name()))
    {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
    }
    ~SurfaceReportTest() override { fs::remove_all(m_folder); }

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
        std::ofstream(m_folder / name, std::ios::binary) << bytes;
        return m_folder / name;
    }

    fs::path m_folder;
    std::ostringstream m_out;
    std::ostringstream m_err;
};
