// A push and pop of each kind by CGLStack, beside the bare calls of OpenGL with one error test for each push
// and pop.
#include "common/Diagnostics.h"
#include "gl/GLStack.h"
#include "programs/offscreen/OffscreenContext.h"

#include <benchmark/benchmark.h>
#include <GL/gl.h>

#include <cstdlib>
#include <string>

using namespace CommonUI;

namespace
{

// The context that all measurements share.
void MakeContext()
{
    static std::string reason;
    static const auto context = Offscreen::CContext::Make(300, 200, reason);
    if (!context)
        std::abort();
}

void TestError()
{
    benchmark::DoNotOptimize(glGetError());
}

struct SAttrib {
    static void PushBare()
    {
        glPushAttrib(GL_TRANSFORM_BIT);
        TestError();
    }
    static void PopBare()
    {
        glPopAttrib();
        TestError();
    }
    static bool Push(CGLStack& stack) { return stack.PushAttrib(GL_TRANSFORM_BIT); }
};

struct SMatrix {
    static void PushBare()
    {
        glPushMatrix();
        TestError();
    }
    static void PopBare()
    {
        glPopMatrix();
        TestError();
    }
    static bool Push(CGLStack& stack) { return stack.PushMatrix(); }
};

struct SDepthMask {
    static void PushBare()
    {
        glPushAttrib(GL_DEPTH_BUFFER_BIT);
        TestError();
        glDepthMask(GL_FALSE);
        TestError();
    }
    static void PopBare() { SAttrib::PopBare(); }
    static bool Push(CGLStack& stack) { return stack.PushDepthMask(false); }
};

struct SWindowCoord {
    static void PushBare()
    {
        SAttrib::PushBare();
        glMatrixMode(GL_PROJECTION);
        TestError();
        SMatrix::PushBare();
        glLoadIdentity();
        glOrtho(0, 300, 0, 200, 0, -1);
        TestError();
        SAttrib::PushBare();
        glMatrixMode(GL_MODELVIEW);
        TestError();
        SMatrix::PushBare();
        glLoadIdentity();
        TestError();
    }
    static void PopBare()
    {
        SMatrix::PopBare();
        SAttrib::PopBare();
        SMatrix::PopBare();
        SAttrib::PopBare();
    }
    static bool Push(CGLStack& stack) { return stack.PushWindowCoord(0, 300, 0, 200, 0, -1); }
};

template<class TKind>
void BareCalls(benchmark::State& state)
{
    MakeContext();
    for (auto _ : state) {
        TKind::PushBare();
        TKind::PopBare();
    }
}

template<class TKind>
void Stack(benchmark::State& state)
{
    MakeContext();
    CGLStack stack;
    for (auto _ : state) {
        TKind::Push(stack);
        stack.Pop();
    }
}

// The question that stands in front of each trace.
void DisabledTrace(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(CDiagnostics::IsAnyEnabled() && GetDiagnostics().IsEnabled(u"3DStack"));
}

} // namespace

BENCHMARK(BareCalls<SAttrib>);
BENCHMARK(Stack<SAttrib>);
BENCHMARK(BareCalls<SMatrix>);
BENCHMARK(Stack<SMatrix>);
BENCHMARK(BareCalls<SDepthMask>);
BENCHMARK(Stack<SDepthMask>);
BENCHMARK(BareCalls<SWindowCoord>);
BENCHMARK(Stack<SWindowCoord>);
BENCHMARK(DisabledTrace);
