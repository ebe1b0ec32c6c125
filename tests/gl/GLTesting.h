#pragma once

#include "common/Diagnostics.h"
#include "gl/detail/OpenGL.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"
#include "programs/offscreen/OffscreenContext.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <utility>

namespace CommonUI
{

/// Keeps the lines of the diagnostics and the message boxes of a test.
class CReportsTest : public testing::Test
{
protected:
    CReportsTest()
        : m_sinkBefore(GetDiagnostics().SetSink([this](const SDiagnosticLine& line) {
            const auto indentation = static_cast<std::size_t>(line.indentation) * 2;
            m_lines += CStr::Format(u"%-10s %d %s", line.category, line.level, CStr(indentation, u' '));
            m_lines += line.text;
        }))
    {
    }
    ~CReportsTest() override { GetDiagnostics().SetSink(std::move(m_sinkBefore)); }

    /// The lines since the last call, each with category, level and indentation in front.
    std::string TakeLines() { return std::exchange(m_lines, {}).ToUtf8(); }

    CMemoryMessageBoxService m_boxes;

private:
    CStr m_lines;
    CServiceScope<CMessageBoxService> m_boxesScope{m_boxes};
    CDiagnostics::FSink m_sinkBefore;
};

/// Runs on a real context with a picture of 300 by 200 pixels. Without a driver the tests are skipped, unless
/// COMMONUI_REQUIRE_OPENGL is set in the environment.
class CContextTest : public CReportsTest
{
protected:
    void SetUp() override
    {
        std::string reason;
        m_context = Offscreen::CContext::Make(300, 200, reason);
        if (!m_context && std::getenv("COMMONUI_REQUIRE_OPENGL"))
            FAIL() << reason;
        if (!m_context)
            GTEST_SKIP() << reason;
    }

    std::unique_ptr<Offscreen::CContext> m_context;
};

inline int GetInteger(GLenum name)
{
    GLint value = -1;
    glGetIntegerv(name, &value);
    return value;
}

template<std::size_t Size>
std::array<double, Size> GetDoubles(GLenum name)
{
    std::array<double, Size> values{};
    glGetDoublev(name, values.data());
    return values;
}

/// The numbers of a matrix by columns.
inline std::string ToText(const std::array<double, 16>& matrix)
{
    std::string text;
    for (const double number : matrix)
        text += CStr::Format(u" %.5g", number + 0.0).ToUtf8(); // a zero has no sign
    return text.substr(1);
}

inline constexpr std::array<double, 16> c_identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// The state that the library changes and has to give back.
struct SGLState {
    std::array<int, 3> depths{GetInteger(GL_ATTRIB_STACK_DEPTH), GetInteger(GL_MODELVIEW_STACK_DEPTH),
                              GetInteger(GL_PROJECTION_STACK_DEPTH)};
    int matrixMode = GetInteger(GL_MATRIX_MODE);
    int depthMask = GetInteger(GL_DEPTH_WRITEMASK);
    std::array<double, 2> depthRange = GetDoubles<2>(GL_DEPTH_RANGE);
    std::array<double, 16> modelView = GetDoubles<16>(GL_MODELVIEW_MATRIX);
    std::array<double, 16> projection = GetDoubles<16>(GL_PROJECTION_MATRIX);

    friend bool operator==(const SGLState&, const SGLState&) = default;
};

} // namespace CommonUI
