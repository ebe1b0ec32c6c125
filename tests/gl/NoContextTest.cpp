#include "gl/GLStack.h"
#include "gl/GLUtils.h"
#include "gl/OpenGLWrapper.h"
#include "tests/gl/GLTesting.h"

using namespace CommonUI;

namespace
{

using NoContext = CReportsTest;

} // namespace

TEST_F(NoContext, NothingLoopsOrCrashes)
{
    GetDiagnostics().SetEnabled(u"3DStack", true);
    {
        CGLStack stack;
        EXPECT_TRUE(stack.PushAttrib(~0U) && stack.PushMatrix() && stack.PushDepthMask(true));
        EXPECT_TRUE(stack.PushWindowCoord(false) && stack.PushWindowCoord(true) && stack.Pop());
        EXPECT_TRUE(PixelPos2d(1, 2) && PixelPos2f(1, 2));
        SetupProjectionMatrix(false, 45, 1, 2);
    }
    GetDiagnostics().SetEnabled(u"3DStack", false);
    EXPECT_TRUE(TakeLines().ends_with("3DStack    0   Exiting CGLStack::Pop\n"));
}

TEST_F(NoContext, ReportsHaveNoValues)
{
    COpenGLWrapper wrapper;
    EXPECT_FALSE(wrapper.CheckExtensions(nullptr) || wrapper.TestOpenGLError(u"", u"", u"", 0));
    COpenGLWrapper::DiagnoseOutputError();
    COpenGLWrapper::DiagnoseOutputOpenGLStrings(nullptr);
    EXPECT_EQ(TakeLines(), "");
    COpenGLWrapper::DiagnoseOutputStacks();
    EXPECT_EQ(TakeLines(),
              "           1 Attribute stack: 0 (0)\n           1 ModelView stack: 0 (0)\n"
              "           1 Projection stack: 0 (0)\n           1 Current MatrixMode: INVALID (0)\n");
}
