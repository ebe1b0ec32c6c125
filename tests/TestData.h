#pragma once

#include "TestFolders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

/// The bytes of a file in tests/data, which are not none.
inline std::string ReadTestData(const std::string& name)
{
    std::ifstream file(COMMONUI_TEST_DATA "/" + name, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(file), {});
    EXPECT_FALSE(bytes.empty()) << name;
    return bytes;
}

/// A page of the docs.
inline std::string ReadPage(const std::string& name)
{
    return ReadTestData("../../docs/" + name);
}

/// Texts with paths that are compared on every system: with one separator where there are two.
inline std::string WithSlashes(std::string_view text)
{
    std::string result(text);
#if defined(_WIN32)
    std::replace(result.begin(), result.end(), '\\', '/');
#endif
    return result;
}

/// Whether a text has another one in it, however the system separates the parts of paths.
inline bool Has(std::string_view text, std::string_view part)
{
    return WithSlashes(text).find(WithSlashes(part)) != text.npos;
}

/// The parts of a text that a character separates; what stands behind the last separator counts when there is
/// something.
inline std::vector<std::string> SplitText(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

inline std::vector<std::string> ReadTestLines(const std::string& name)
{
    return SplitText(ReadTestData(name), '\n');
}
