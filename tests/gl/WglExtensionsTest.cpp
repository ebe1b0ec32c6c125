#include "gl/OpenGLWrapper.h"
#include "platform/GLEntryPoints.h"
#include "platform/TableGLEntryPoints.h"

#include <gtest/gtest.h>

using namespace CommonUI;

namespace
{

const char* s_extensions = nullptr;

const char* GetExtensions(HDC)
{
    return s_extensions;
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
constexpr std::size_t c_pixelFormatCount = 3;

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
    std::pair<bool, bool> Check()
    {
        const bool complete = m_wrapper.CheckExtensions(nullptr);
        const std::pair held(m_wrapper.GetWGL_ARB_pixel_format() != nullptr,
                             m_wrapper.GetWGL_ARB_pbuffer() != nullptr);
        EXPECT_EQ(complete, held.first && held.second);
        return held;
    }

    CTableGLEntryPoints m_entryPoints;
    CServiceScope<CGLEntryPoints> m_entryPointsScope{m_entryPoints};
    COpenGLWrapper m_wrapper;
};

constexpr std::pair c_both(true, true);
constexpr std::pair c_none(false, false);

} // namespace

TEST_F(WglExtensions, ExtensionsByTheirList)
{
    const std::pair<const char*, std::pair<bool, bool>> rows[] = {
        {nullptr, c_none},
        {"", c_none},
        {"WGL_ARB_pixel_forma WGL_ARB_pbuffe", c_none},
        {"WGL_ARB_pixel_format", {true, false}},
        {"WGL_ARB_pbuffer", {false, true}},
        {"WGL_ARB_pixel_format WGL_ARB_pbuffer", c_both},
        {"WGL_ARB_pixel_format_float XWGL_ARB_pbuffer", c_both},
    };
    for (const auto& [extensions, held] : rows) {
        s_extensions = extensions;
        EXPECT_EQ(Check(), held) << (extensions ? extensions : "null");
    }
    m_entryPoints.Remove("wglGetExtensionsStringARB");
    EXPECT_EQ(Check(), c_both) << "an object keeps the entry point that it was made with";
    COpenGLWrapper fresh;
    EXPECT_FALSE(fresh.CheckExtensions(nullptr));
}

TEST_F(WglExtensions, OneMissingEntryPointMakesAnExtensionUseless)
{
    EXPECT_EQ(Check(), c_both);
    EXPECT_TRUE(m_wrapper.GetWGL_ARB_pbuffer()->wglQueryPbufferARB);
    for (std::size_t i = 0; i < std::size(c_names); ++i) {
        m_entryPoints.Remove(c_names[i]);
        EXPECT_EQ(Check(), std::pair(i >= c_pixelFormatCount, i < c_pixelFormatCount)) << c_names[i];
        m_entryPoints.Set(c_names[i], AnyFunction);
    }
    EXPECT_EQ(Check(), c_both);
}

TEST_F(WglExtensions, CopiesTakeTheExtensionsOver)
{
    EXPECT_EQ(Check(), c_both);
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
