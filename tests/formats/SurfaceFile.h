#pragma once

#include "formats/SurfaceReader.h"
#include "tests/TemporaryFolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// A file with a content of the test's own.
class SurfaceFile : public testing::Test
{
protected:
    CommonUI::Analysis::SSurface Read(const std::string& content,
                                      const CommonUI::Formats::SReadOptions& options = {}) const
    {
        m_folder.Write("a.sdf", content);
        return CommonUI::Formats::ReadSurface(GetPath() / "a.sdf", options);
    }

    // What the message says after the folder.
    std::string ReadBad(const std::filesystem::path& path,
                        const CommonUI::Formats::SReadOptions& options = {}) const
    {
        try {
            CommonUI::Formats::ReadSurface(path, options);
        } catch (const CommonUI::Formats::EReadError& error) {
            const std::string message = error.what();
            const std::string folder = GetPath().string() + '/';
            return message.starts_with(folder) ? message.substr(folder.size()) : message;
        }
        return "no error";
    }

    void ExpectRefused(const std::string& content, const std::string& expected,
                       const CommonUI::Formats::SReadOptions& options = {}) const
    {
        m_folder.Write("a.sdf", content);
        const std::string message = ReadBad(GetPath() / "a.sdf", options);
        EXPECT_TRUE(message.starts_with(expected)) << message << "\nfor " << content.substr(0, 2000);
        EXPECT_EQ(message.find('\n'), message.npos);
    }

    std::filesystem::path GetPath() const { return m_folder.GetPath(); }

    CTemporaryFolder m_folder;
};

inline void ExpectHeights(const CommonUI::Analysis::SSurface& surface, const std::vector<double>& expected)
{
    ASSERT_EQ(surface.heights.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (std::isnan(expected[i]))
            EXPECT_TRUE(std::isnan(surface.heights[i])) << i;
        else
            EXPECT_DOUBLE_EQ(surface.heights[i], expected[i]) << i;
    }
}
