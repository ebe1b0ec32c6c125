// In a program that does not call OpenGL itself.
#include "common/Diagnostics.h"
#include "gl/GLStack.h"
#include "gl/GLUtils.h"
#include "gl/OpenGLError.h"
#include "gl/OpenGLWrapper.h"

#include <gtest/gtest.h>
#include <link.h>
#include <sys/resource.h>

#include <cstdlib>
#include <cstring>
#include <iostream>

using namespace CommonUI;

namespace
{

bool IsLoaded(const char* library)
{
    const auto compare = [](dl_phdr_info* info, std::size_t, void* name) {
        return std::strstr(info->dlpi_name, static_cast<const char*>(name)) ? 1 : 0;
    };
    return dl_iterate_phdr(compare, const_cast<char*>(library)) != 0;
}

// Ends the process; what was written is on its error stream.
[[noreturn]] void UseOpenGLWithoutLibraries()
{
    GetDiagnostics().SetSink([](const SDiagnosticLine& line) { std::cerr << CStr(line.text).ToUtf8(); });
    // At the first call no file can be opened, libraries neither.
    rlimit most{};
    getrlimit(RLIMIT_NOFILE, &most);
    const rlimit none{.rlim_cur = 0, .rlim_max = most.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    bool good = !OpenGLErrorMsg(u"", u"", u"", 0);
    setrlimit(RLIMIT_NOFILE, &most);
    for (int i = 0; i < 2; ++i) {
        CGLStack stack;
        good = good && stack.PushAttrib(~0U) && stack.PushWindowCoord(false) && stack.Pop();
        SetupProjectionMatrix(false, 45, 1, 2);
        good = good && PixelPos2d(1, 2) && !COpenGLWrapper().TestOpenGLError(u"", u"", u"", 0);
        COpenGLWrapper::DiagnoseOutputOpenGLStrings(nullptr);
    }
    std::_Exit(good ? 0 : 1);
}

} // namespace

TEST(OpenGLOnDemand, LibrariesAreLoadedByTheFirstCall)
{
    EXPECT_FALSE(IsLoaded("libOpenGL.so") || IsLoaded("libGLU.so"));
    EXPECT_TRUE(PixelPos2d(1, 2));
    EXPECT_TRUE(IsLoaded("libOpenGL.so") && IsLoaded("libGLU.so"));
}

TEST(OpenGLOnDemand, WithoutLibrariesNothingIsDrawnAndEachIsNamedOnce)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // a process of its own, which has loaded nothing yet
    EXPECT_EXIT(
        UseOpenGLWithoutLibraries(), testing::ExitedWithCode(0),
        "^OpenGL is not there: libOpenGL\\.so\\.0: .*\nOpenGL is not there: libGLU\\.so\\.1: [^\n]*\n$");
}
