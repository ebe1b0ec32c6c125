#pragma once

#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

/// Runs a program of the repository with a folder of the test's own, and keeps what it says.
class CProgramTest : public testing::Test
{
protected:
    /// @param run what takes the arguments, without the program's name, two streams and more
    /// @return the exit status
    template<class FRun, class... TMore>
    int RunWith(const FRun& run, const std::vector<std::string>& arguments, const TMore&... more)
    {
        std::vector<const char*> pointers;
        for (const std::string& argument : arguments)
            pointers.push_back(argument.c_str());
        m_out.str({});
        m_err.str({});
        return run(pointers, m_out, m_err, more...);
    }

    CTemporaryFolder m_temporary;
    const std::filesystem::path m_folder = m_temporary.GetPath();
    std::ostringstream m_out;
    std::ostringstream m_err;
};
