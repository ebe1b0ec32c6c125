#pragma once

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <locale>
#include <string>
#include <string_view>
#include <vector>

/// Runs the tests under a locale whose decimal point is a comma, and formats reference texts in the "C"
/// locale.
class CCommaLocaleTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_NE(std::setlocale(LC_ALL, c_name), nullptr) << "LOCPATH must name the test locale's folder";
        std::locale::global(std::locale(std::locale::classic(), new CCommaPunctuation));
        ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    }

    void TearDown() override
    {
        std::locale::global(std::locale::classic());
        std::setlocale(LC_ALL, "C");
    }

    /// What the C library prints in the "C" locale; valid until the next call.
    template<class... TArgs>
    std::string_view Reference(const std::string& format, TArgs... args)
    {
        std::setlocale(LC_ALL, "C");
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
        const int length = std::snprintf(m_characters.data(), m_characters.size(), format.c_str(), args...);
#pragma GCC diagnostic pop
        std::setlocale(LC_ALL, c_name);
        EXPECT_LT(length, static_cast<int>(m_characters.size()));
        return {m_characters.data(), static_cast<std::size_t>(length)};
    }

private:
    // A named std::locale would do, too, but some C libraries leak memory when they make one.
    struct CCommaPunctuation : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

#if defined(_WIN32)
    static constexpr const char* c_name = "German_Germany";
#else
    static constexpr const char* c_name = "de_DE.UTF-8";
#endif
    std::vector<char> m_characters = std::vector<char>(4096);
};
