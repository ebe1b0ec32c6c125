#include "common/Diagnostics.h"

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <thread>

using namespace CommonUI;

namespace
{

class Diagnostics : public testing::Test
{
protected:
    Diagnostics()
    {
        m_diagnostics.SetSink([this](const SDiagnosticLine& line) {
            m_lines.push_back(
                CStr::Format(u"%d %s %d %s", line.level, line.category, line.indentation, line.text));
        });
    }

    std::vector<CStr> TakeLines() { return std::exchange(m_lines, {}); }

    CDiagnostics m_diagnostics;
    std::vector<CStr> m_lines;
};

} // namespace

TEST_F(Diagnostics, CategoryDecidesBelowWarning)
{
    const auto writeAll = [this](std::u16string_view category) {
        for (const auto level : {EDiagnosticLevel::Trace, EDiagnosticLevel::Info, EDiagnosticLevel::Warning,
                                 EDiagnosticLevel::Error})
            m_diagnostics.Write(category, level, u"text");
        return TakeLines();
    };
    const std::vector<CStr> all = {u"0 c 0 text", u"1 c 0 text", u"2 c 0 text", u"3 c 0 text"};
    const std::vector<CStr> grave(all.begin() + 2, all.end());
    EXPECT_EQ(writeAll(u"c"), grave);
    m_diagnostics.SetEnabled(u"3DStack", true);
    EXPECT_EQ(writeAll(u"c"), grave);
    m_diagnostics.SetEnabled(u"c", true);
    m_diagnostics.SetEnabled(u"c", true);
    EXPECT_FALSE(m_diagnostics.IsEnabled(u"C"));
    EXPECT_EQ(writeAll(u"c"), all);
    m_diagnostics.SetEnabled(u"c", false);
    m_diagnostics.SetEnabled(u"unknown", false);
    EXPECT_EQ(writeAll(u"c"), grave);
    EXPECT_TRUE(m_diagnostics.IsEnabled(u"3DStack"));
    for (const bool enabled : {true, false}) {
        m_diagnostics.SetEnabled(u"", enabled);
        EXPECT_TRUE(m_diagnostics.IsEnabled(u""));
        m_diagnostics.Write({}, EDiagnosticLevel::Trace, u"text");
        EXPECT_EQ(TakeLines(), std::vector<CStr>{u"0  0 text"});
    }
}

TEST_F(Diagnostics, ScopesIndentTheirThread)
{
    const auto write = [this] { m_diagnostics.Write(u"c", EDiagnosticLevel::Error, u"t"); };
    {
        const CDiagnostics::CScope outer;
        write();
        {
            const CDiagnostics::CScope inner;
            write();
            std::thread(write).join();
        }
        write();
    }
    write();
    const std::vector<CStr> expected = {u"3 c 1 t", u"3 c 2 t", u"3 c 0 t", u"3 c 1 t", u"3 c 0 t"};
    EXPECT_EQ(TakeLines(), expected);
}

TEST_F(Diagnostics, EmptySinkRestoresStandardError)
{
    std::ostringstream captured;
    std::streambuf* const before = std::cerr.rdbuf(captured.rdbuf());
    const CDiagnostics::FSink own = m_diagnostics.SetSink({});
    const CDiagnostics::CScope scope;
    m_diagnostics.Write(u"Inifile", EDiagnosticLevel::Warning, u"5 \u00b5m");
    m_diagnostics.Write(u"", EDiagnosticLevel::Info, u"a line feed of its own\n");
    m_diagnostics.Write(u"a\x1B[2J", EDiagnosticLevel::Error, u"\x1B[2J\n\x7F\u009B1m\t\u00a0");
    const CDiagnostics::FSink standard = m_diagnostics.SetSink(own);
    std::cerr.rdbuf(before);
    EXPECT_TRUE(standard);
    EXPECT_EQ(captured.str(), "Inifile:   5 \xC2\xB5m\n  a line feed of its own\n"
                              "a?[2J:   ?[2J???1m?\xC2\xA0\n");
    m_diagnostics.Write(u"Inifile", EDiagnosticLevel::Warning, u"back");
    EXPECT_EQ(TakeLines(), std::vector<CStr>{u"2 Inifile 1 back"});
}

TEST_F(Diagnostics, SinkMayAskForCategories)
{
    bool enabled = false;
    m_diagnostics.SetSink(
        [&](const SDiagnosticLine& line) { enabled = m_diagnostics.IsEnabled(line.category); });
    m_diagnostics.SetEnabled(u"c", true);
    m_diagnostics.Write(u"c", EDiagnosticLevel::Info, u"t");
    EXPECT_TRUE(enabled);
}
