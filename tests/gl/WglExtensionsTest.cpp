#include "gl/OpenGLWrapper.h"
#include "platform/GLEntryPoints.h"
#include "platform/memory/TableGLEntryPoints.h"
#include "tests/Script.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>

using namespace CommonUI;

namespace
{

std::optional<std::string> s_extensions;

const char* GetExtensions(HDC)
{
    return s_extensions ? s_extensions->c_str() : nullptr;
}

int AnyFunction(HDC)
{
    return 0;
}

constexpr const char* c_names[] = {
    "wglGetPixelFormatAttribivARB", "wglGetPixelFormatAttribfvARB", "wglChoosePixelFormatARB",
    "wglCreatePbufferARB",          "wglGetPbufferDCARB",           "wglReleasePbufferDCARB",
    "wglDestroyPbufferARB",         "wglQueryPbufferARB",
};

// A window system that has everything, until a test takes something away.
class WglExtensions : public testing::Test
{
protected:
    WglExtensions()
    {
        s_extensions = "WGL_ARB_pbuffer WGL_ARB_pixel_format";
        m_entryPoints.Set("wglGetExtensionsStringARB", GetExtensions);
        for (const char* name : c_names)
            m_entryPoints.Set(name, AnyFunction);
    }

    // Which of the two extensions are held after a check.
    std::string Check()
    {
        std::string held = m_wrapper.CheckExtensions(nullptr) ? "both:" : "not both:";
        held += m_wrapper.GetWGL_ARB_pixel_format() ? " pixel_format" : "";
        return held + (m_wrapper.GetWGL_ARB_pbuffer() ? " pbuffer" : "");
    }

    CTableGLEntryPoints m_entryPoints;
    CServiceScope<CGLEntryPoints> m_entryPointsScope{m_entryPoints};
    COpenGLWrapper m_wrapper;
};

} // namespace

TEST_F(WglExtensions, NeedTheirNameAndAllTheirEntryPoints)
{
    const std::map<std::string, std::function<void(const std::string&)>> verbs = {
        {"list", [](const std::string& text) { s_extensions = text; }},
        {"nolist", [](const std::string&) { s_extensions.reset(); }},
        {"remove", [this](const std::string& text) { m_entryPoints.Remove(text.c_str()); }},
        {"restore", [this](const std::string& text) { m_entryPoints.Set(text.c_str(), AnyFunction); }},
        {"fresh", [this](const std::string&) { m_wrapper = *std::make_unique<COpenGLWrapper>(); }},
    };
    ExpectScript("wgl-extensions.txt", [&](const SCommand& command) {
        verbs.at(command.verb)(command.text);
        return Check();
    });
}

TEST_F(WglExtensions, CopiesTakeTheExtensionsOver)
{
    EXPECT_EQ(Check(), "both: pixel_format pbuffer");
    CWGL_ARB_pbuffer* const pbuffer = m_wrapper.GetWGL_ARB_pbuffer();
    COpenGLWrapper copy(m_wrapper);
    EXPECT_EQ(copy.GetWGL_ARB_pbuffer(), pbuffer);
    m_wrapper = copy;
    EXPECT_EQ(m_wrapper.GetWGL_ARB_pbuffer(), pbuffer);
    EXPECT_TRUE(m_wrapper.GetWGL_ARB_pixel_format() && !copy.GetWGL_ARB_pixel_format());
    COpenGLWrapper& same = m_wrapper;
    m_wrapper = same;
    EXPECT_EQ(m_wrapper.GetWGL_ARB_pbuffer(), pbuffer);
}

namespace
{

// Uses the wrapper of the process before main and after it.
struct SStaticUser {
    SStaticUser() { TryAll(); }
    ~SStaticUser() { TryAll(); }

    static void TryAll()
    {
        if (G_OpenGLWrapper.CheckExtensions(nullptr) || G_OpenGLWrapper.TestOpenGLError(u"", u"", u"", 0) ||
            G_OpenGLWrapper.GetWGL_ARB_pbuffer())
            std::abort();
    }
};

const SStaticUser s_user;

} // namespace

TEST_F(WglExtensions, WrapperOfTheProcessOutlivesStaticObjects)
{
    // What it holds now is still there in the destructor of s_user, which takes the missing driver's word.
    EXPECT_TRUE(G_OpenGLWrapper.CheckExtensions(nullptr));
}
