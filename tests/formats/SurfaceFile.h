#pragma once

#include "formats/SurfaceReader.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <initializer_list>
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
            const std::string folder = (GetPath() / "").string();
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

    // Progress is told at least so often, and what is thrown there ends the reading.
    void ExpectProgress(const std::string& content, std::size_t least) const
    {
        std::vector<double> fractions;
        Read(content, {.progress = [&](double fraction) { fractions.push_back(fraction); }});
        EXPECT_GE(fractions.size(), least);
        EXPECT_TRUE(std::is_sorted(fractions.begin(), fractions.end()));
        EXPECT_EQ(fractions.back(), 1);
        EXPECT_THROW(Read(content, {.progress = [](double) { throw 1; }}), int);
    }

    std::filesystem::path GetPath() const { return m_folder.GetPath(); }

    CTemporaryFolder m_folder;
};

/// Also that the missing ones are counted.
inline void ExpectHeights(const CommonUI::Analysis::SSurface& surface, const std::vector<double>& expected)
{
    ASSERT_EQ(surface.heights.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (std::isnan(expected[i]))
            EXPECT_TRUE(std::isnan(surface.heights[i])) << i;
        else
            EXPECT_DOUBLE_EQ(surface.heights[i], expected[i]) << i;
    }
    const auto isMissing = [](double z) { return std::isnan(z); };
    EXPECT_EQ(std::ranges::count_if(expected, isMissing), static_cast<std::ptrdiff_t>(surface.missing));
}

/// Expects 2 lines of 3 points, which are 1 µm apart along x and 2 µm along y.
inline void ExpectThreeByTwo(const CommonUI::Analysis::SSurface& surface, const std::vector<double>& heights)
{
    EXPECT_EQ(surface.points, 3u);
    EXPECT_EQ(surface.lines, 2u);
    EXPECT_EQ(surface.dx, 1e-6);
    EXPECT_EQ(surface.dy, 2e-6);
    ExpectHeights(surface, heights);
}

/// The bytes of numbers as files hold them, the lowest first.
template<class T>
std::string Numbers(std::initializer_list<T> values)
{
    std::string bytes;
    for (const T value : values) {
        std::string number(reinterpret_cast<const char*>(&value), sizeof value);
        if constexpr (std::endian::native == std::endian::big)
            number.assign(number.rbegin(), number.rend());
        bytes += number;
    }
    return bytes;
}
