// An error at every error test of every push, pop, position and report, and changes behind the stack's back.
// What a push of OpenGL that is in error has left on the driver's stack, the watch takes off it.
#include "gl/GLStack.h"
#include "gl/GLStackWatch.h"
#include "gl/GLUtils.h"
#include "gl/OpenGLWrapper.h"
#include "tests/gl/FaultyDriver.h"
#include "tests/gl/GLTesting.h"

#include <functional>
#include <stdexcept>

using namespace CommonUI;

namespace
{

class GLFaults : public CContextTest
{
protected:
    void TearDown() override
    {
        FaultyDriver::FailBefore(0);
        FaultyDriver::StayBroken(GL_NO_ERROR);
    }
};

struct SStep {
    const char* what;
    std::function<void(CGLStack&)> prepare;
    std::function<bool(CGLStack&)> act;
    // A push that is in error within a group leaves a group of the driver that the group's own pops meet.
    std::size_t mostMessages = 1;
};

const SStep c_steps[] = {
    {"attributes", {}, [](CGLStack& stack) { return stack.PushAttrib(GL_VIEWPORT_BIT); }},
    {"matrix", {}, [](CGLStack& stack) { return stack.PushMatrix(); }},
    {"mask", {}, [](CGLStack& stack) { return stack.PushDepthMask(false); }},
    {"box", {}, [](CGLStack& stack) { return stack.PushWindowCoord(-1, 3, 2, 4, -5, 5); }},
    {"pixels", {}, [](CGLStack& stack) { return stack.PushWindowCoord(true); }},
    {"pixels by depth range", {}, [](CGLStack& stack) { return stack.PushWindowCoord(false); }},
    {"pop attributes", [](CGLStack& stack) { stack.PushAttrib(~0U); },
     [](CGLStack& stack) { return stack.Pop(); }},
    {"pop matrix", [](CGLStack& stack) { stack.PushMatrix(); }, [](CGLStack& stack) { return stack.Pop(); }},
    {"pop mask", [](CGLStack& stack) { stack.PushDepthMask(false); },
     [](CGLStack& stack) { return stack.Pop(); }},
    {"pop pixels", [](CGLStack& stack) { stack.PushWindowCoord(true); },
     [](CGLStack& stack) { return stack.Pop(); }},
    {"position", {}, [](CGLStack&) { return PixelPos2d(3, 4); }, 2},
    {"report",
     {},
     [](CGLStack&) {
         COpenGLWrapper::DiagnoseOutputStacks();
         COpenGLWrapper::DiagnoseOutputPixelStore();
         COpenGLWrapper wrapper;
         return !wrapper.TestOpenGLError(u"Draw", u"", u"", 0);
     }},
};

} // namespace

TEST_F(GLFaults, AnErrorAtAnyStepIsToldOnceAndNothingStays)
{
    glMatrixMode(GL_PROJECTION);
    glDepthMask(GL_FALSE);
    const SGLState before;
    for (const SStep& step : c_steps) {
        int faults = 0;
        for (bool hasFailed = true; hasFailed;) {
            SCOPED_TRACE(step.what + std::to_string(++faults));
            const std::size_t told = m_boxes.GetShown().size();
            {
                const CGLStackWatch watch;
                CGLStack stack;
                if (step.prepare)
                    step.prepare(stack);
                FaultyDriver::FailBefore(faults);
                const bool isDone = step.act(stack);
                FaultyDriver::FailBefore(0);
                hasFailed = m_boxes.GetShown().size() > told;
                EXPECT_TRUE(isDone || hasFailed);
            }
            EXPECT_LE(m_boxes.GetShown().size(), told + step.mostMessages);
            EXPECT_EQ(SGLState(), before);
            EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        }
        EXPECT_GT(faults, 1) << step.what;
    }
}

// A driver that says so at every test, as one does whose context was lost.
TEST_F(GLFaults, WhatStaysBrokenEndsAndLeavesNothing)
{
    const SGLState before;
    for (const SStep& step : c_steps) {
        SCOPED_TRACE(step.what);
        {
            const CGLStackWatch watch;
            CGLStack stack;
            if (step.prepare)
                step.prepare(stack);
            FaultyDriver::StayBroken(0x0507);
            EXPECT_FALSE(step.act(stack));
        }
        FaultyDriver::StayBroken(GL_NO_ERROR);
        EXPECT_EQ(SGLState(), before);
    }
}

TEST_F(GLFaults, WhatIsPushedBehindTheStacksBackIsToldAndPopped)
{
    glMatrixMode(GL_PROJECTION);
    const SGLState before;
    {
        const CGLStackWatch watch;
        CGLStack stack;
        EXPECT_TRUE(stack.PushWindowCoord(true) && stack.PushDepthMask(false));
    }
    EXPECT_EQ(TakeLines(), "");
    for (const bool throws : {false, true}) {
        const auto sink = GetDiagnostics().SetSink({});
        if (throws)
            GetDiagnostics().SetSink([](const SDiagnosticLine&) { throw std::runtime_error("full"); });
        else
            GetDiagnostics().SetSink(sink);
        {
            const CGLStackWatch watch;
            glPushAttrib(GL_ALL_ATTRIB_BITS);
            glMatrixMode(GL_MODELVIEW);
            glPushMatrix();
            glPushMatrix();
            glTranslated(1, 2, 3);
            glMatrixMode(GL_TEXTURE);
        }
        GetDiagnostics().SetSink(sink);
        EXPECT_EQ(SGLState(), before);
    }
    EXPECT_EQ(TakeLines(),
              "3DStack    3 Error: Stacks changed behind GLStack: attributes 0 to 1, model-view matrices "
              "1 to 3, projection matrices 1 to 1\n");
    EXPECT_EQ(m_boxes.GetShown().size(), 0u);
}

TEST_F(GLFaults, WhatIsPoppedTooOftenIsTold)
{
    glPushAttrib(GL_VIEWPORT_BIT);
    {
        const CGLStackWatch watch;
        glPopAttrib();
    }
    EXPECT_NE(TakeLines().find("attributes 1 to 0"), std::string::npos);
}
