#include "gl/GLStack.h"
#include "tests/gl/FaultyDriver.h"
#include "tests/gl/GLTesting.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

using namespace CommonUI;

namespace
{

// A stack that shows its records and takes any.
class COpenStack : public CGLStack
{
public:
    void Append(int kind)
    {
        CGLStack::Append(TRecord(new SStackOperation(static_cast<EStackOperation>(kind))));
    }
    void AppendEmpty() { CGLStack::Append(nullptr); }

    // The kinds of the records from the bottom up, one digit each.
    std::string GetKinds() const
    {
        std::string kinds;
        for (const auto& record : GetRecords())
            kinds += record ? std::to_string(static_cast<int>(record->operation)) : "-";
        return kinds;
    }
};

using FStep = std::function<bool(COpenStack&)>;

class GLStack : public CContextTest
{
protected:
    GLStack() { GetDiagnostics().SetEnabled(u"3DStack", false); }
    ~GLStack() override { GetDiagnostics().SetEnabled(u"3DStack", false); }

    // A push that must fail, report it once, and leave everything as it was.
    void ExpectFailure(const FStep& push, const CStr& operation, std::u16string_view error)
    {
        COpenStack stack;
        stack.Append(7);
        const SGLState before;
        const std::size_t shown = m_boxes.GetShown().size();
        EXPECT_FALSE(push(stack)) << operation.ToUtf8();
        FaultyDriver::FailBefore(0);
        EXPECT_EQ(SGLState(), before) << operation.ToUtf8();
        EXPECT_EQ(stack.GetKinds(), "7");
        ASSERT_EQ(m_boxes.GetShown().size(), shown + 1) << operation.ToUtf8();
        const CStr start = CStr::Format(u"Operation: %s\nOpenGL error: %s\n", operation, error);
        EXPECT_TRUE(m_boxes.GetShown().back().text.StartsWith(start)) << operation.ToUtf8();
    }
};

const FStep c_attrib = [](COpenStack& stack) { return stack.PushAttrib(0xAB00); };
const FStep c_matrix = [](COpenStack& stack) { return stack.PushMatrix(); };
const FStep c_windowCoord = [](COpenStack& stack) { return stack.PushWindowCoord(-1, 3, 2, 4, -5, 5); };
const FStep c_pixelCoord = [](COpenStack& stack) { return stack.PushWindowCoord(true); };
const FStep c_depthMask = [](COpenStack& stack) { return stack.PushDepthMask(false); };

// The projection as the driver keeps it.
std::array<double, 16> Ortho(double left, double right, double bottom, double top, double zNear, double zFar)
{
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(left, right, bottom, top, zNear, zFar);
    const auto matrix = GetDoubles<16>(GL_MODELVIEW_MATRIX);
    glPopMatrix();
    return matrix;
}

int FreeSlots(GLenum limit, GLenum depth)
{
    return GetInteger(limit) - GetInteger(depth);
}

} // namespace

TEST_F(GLStack, EachPushIsUndoneByOnePop)
{
    glMatrixMode(GL_TEXTURE);
    glDepthRange(0.25, 0.75);
    const SGLState before;
    // attributes, model-view, projection
    const std::tuple<FStep, const char*, std::array<int, 3>, int, int> rows[] = {
        {c_attrib, "0", {1, 0, 0}, 1, GL_TEXTURE},
        {c_matrix, "1", {0, 0, 0}, 1, GL_TEXTURE},
        {c_depthMask, "03", {1, 0, 0}, 0, GL_TEXTURE},
        {c_windowCoord, "01012", {2, 1, 1}, 1, GL_MODELVIEW},
    };
    for (const auto& [push, kinds, deeper, depthMask, matrixMode] : rows) {
        COpenStack stack;
        EXPECT_TRUE(push(stack));
        EXPECT_EQ(stack.GetKinds(), kinds);
        SGLState expected = before;
        for (std::size_t i = 0; i < deeper.size(); ++i)
            expected.depths[i] += deeper[i];
        expected.depthMask = depthMask;
        expected.matrixMode = matrixMode;
        const SGLState pushed;
        expected.projection = pushed.projection; // has a test of its own
        EXPECT_EQ(pushed, expected) << kinds;
        EXPECT_TRUE(stack.Pop());
        EXPECT_EQ(stack.GetKinds(), "");
        EXPECT_EQ(SGLState(), before) << kinds;
    }
    EXPECT_TRUE(m_boxes.GetShown().empty());
    EXPECT_EQ(TakeLines(), "");
}

TEST_F(GLStack, WindowCoordinatesFitWhatTheyAreGiven)
{
    COpenStack stack;
    glViewport(10, 20, 300, 200);
    glDepthRange(0.25, 0.75);
    glTranslated(1, 1, 1);
    EXPECT_TRUE(c_windowCoord(stack));
    EXPECT_EQ(GetDoubles<16>(GL_PROJECTION_MATRIX), Ortho(-1, 3, 2, 4, -5, 5));
    EXPECT_EQ(GetDoubles<16>(GL_MODELVIEW_MATRIX), c_identity);
    EXPECT_TRUE(stack.PushWindowCoord(true));
    EXPECT_EQ(GetDoubles<16>(GL_PROJECTION_MATRIX), Ortho(10, 310, 20, 220, 0, -1));
    EXPECT_TRUE(stack.PushWindowCoord(false));
    EXPECT_EQ(GetDoubles<16>(GL_PROJECTION_MATRIX), Ortho(10, 310, 20, 220, 0.25, 0.75));
}

TEST_F(GLStack, DestructionUnwindsNestedGroups)
{
    glMatrixMode(GL_PROJECTION);
    glDepthMask(GL_FALSE);
    const SGLState before;
    {
        COpenStack outer;
        EXPECT_TRUE(outer.PushDepthMask(true) && GetInteger(GL_DEPTH_WRITEMASK) == 1);
        COpenStack inner;
        EXPECT_TRUE(inner.PushMatrix());
        glTranslated(1, 2, 3);
        EXPECT_TRUE(inner.PushWindowCoord(true) && inner.PushAttrib(GL_VIEWPORT_BIT));
        EXPECT_TRUE(outer.TransferStack(inner) && outer.TransferStack(inner) && outer.TransferStack(outer));
        EXPECT_EQ(std::tuple(outer.GetKinds(), inner.GetKinds()), std::tuple("031010120", ""));
    }
    EXPECT_EQ(SGLState(), before);
    EXPECT_EQ(TakeLines(), "");
}

TEST_F(GLStack, TraceOfANestedUnwind)
{
    {
        COpenStack stack;
        GetDiagnostics().SetEnabled(u"3DStack", true);
        EXPECT_TRUE(stack.PushDepthMask(false) && stack.PushWindowCoord(true) && stack.PushMatrix());
        stack.Append(9);
        EXPECT_TRUE(stack.Pop());
        stack.AppendEmpty();
        EXPECT_FALSE(stack.Pop());
        stack.Append(-4);
    }
    std::string trace = TakeLines();
    // The limits are the driver's own.
    for (const GLenum limit :
         {GL_MAX_ATTRIB_STACK_DEPTH, GL_MAX_MODELVIEW_STACK_DEPTH, GL_MAX_PROJECTION_STACK_DEPTH}) {
        const std::string text = " (" + std::to_string(GetInteger(limit)) + ")";
        for (std::size_t at = 0; (at = trace.find(text, at)) != std::string::npos;)
            trace.replace(at, text.size(), " (limit)");
    }
    EXPECT_EQ(trace, ReadTestData("gl-stack-trace.txt"));
}

TEST_F(GLStack, PopsWithNothingToPop)
{
    const std::string empty = "3DStack    3 Error: Popping empty GLStack\n";
    COpenStack stack;
    EXPECT_FALSE(stack.Pop());
    EXPECT_EQ(TakeLines(), empty);
    stack.Append(3); // without the record below it
    EXPECT_TRUE(stack.Pop());
    EXPECT_EQ(TakeLines(), empty);
}

TEST_F(GLStack, FailuresOfFurtherPopsAreIgnored)
{
    COpenStack stack;
    const SGLState before;
    for (const bool expected : {true, false}) { // the second error is that of the record above
        EXPECT_TRUE(stack.PushDepthMask(false));
        FaultyDriver::FailBefore(expected ? 1 : 2);
        EXPECT_EQ(stack.Pop(), expected);
        EXPECT_EQ(std::tuple(stack.GetKinds(), SGLState()), std::tuple("", before));
    }
    EXPECT_EQ(m_boxes.GetShown().size(), 2U);
    EXPECT_TRUE(m_boxes.GetShown()[0].text.StartsWith(u"Operation: CGLStack::Pop\n"));
}

TEST_F(GLStack, FullStacksOfTheDriver)
{
    const CStr overflow = u"GL_STACK_OVERFLOW";
    CGLStack filler;
    while (FreeSlots(GL_MAX_MODELVIEW_STACK_DEPTH, GL_MODELVIEW_STACK_DEPTH) > 0)
        EXPECT_TRUE(filler.PushMatrix());
    ExpectFailure(c_matrix, u"PushMatrix", overflow);
    ExpectFailure(c_windowCoord, u"PushMatrix", overflow);
    while (FreeSlots(GL_MAX_ATTRIB_STACK_DEPTH, GL_ATTRIB_STACK_DEPTH) > 1)
        EXPECT_TRUE(filler.PushAttrib(GL_TRANSFORM_BIT));
    ExpectFailure(c_windowCoord, u"PushAttrib (0x1000)", overflow);
    EXPECT_TRUE(filler.PushAttrib(GL_TRANSFORM_BIT));
    ExpectFailure(c_depthMask, u"PushAttrib (0x100)", overflow);
    ExpectFailure(c_attrib, u"PushAttrib (0xAB00)", overflow);
}

TEST_F(GLStack, FailureOfEachStepInBetween)
{
    const std::tuple<const FStep&, int, std::u16string_view, std::u16string_view> rows[] = {
        {c_depthMask, 2, u"PushDepthMask", u"PushDepthMask"},
        {c_pixelCoord, 1, u"Get info", u"PushWindowCoord"},
        {c_pixelCoord, 3, u"MatrixMode", u"PushWindowCoord"},
        {c_pixelCoord, 5, u"SetupProjection", u"PushWindowCoord"},
        {c_pixelCoord, 7, u"MatrixMode", u"PushWindowCoord"},
        {c_pixelCoord, 9, u"SetupModelView", u"PushWindowCoord"},
    };
    glMatrixMode(GL_PROJECTION);
    for (const auto& [push, test, operation, function] : rows) {
        FaultyDriver::FailBefore(test);
        ExpectFailure(push, operation, u"GL_INVALID_ENUM");
        const CStr place = CStr::Format(u" (Function: CGLStack::%s) (File: GLStack)\n", function);
        EXPECT_TRUE(Has(TakeLines(), place.ToUtf8()));
    }
}

TEST_F(GLStack, WhatThrowsDoesNotStopUndoing)
{
    class CThrowingBoxes : public CMessageBoxService
    {
        EMessageBoxAnswer Show(const SMessageBox&) override { throw std::runtime_error("closed"); }
    } boxes;
    const CServiceScope<CMessageBoxService> scope(boxes);
    glMatrixMode(GL_PROJECTION);
    const SGLState before;
    FaultyDriver::FailBefore(4);
    COpenStack stack;
    EXPECT_THROW(c_windowCoord(stack), std::runtime_error);
    EXPECT_EQ(std::tuple(stack.GetKinds(), SGLState()), std::tuple("", before));
    {
        COpenStack reporting;
        EXPECT_TRUE(c_windowCoord(reporting));
        FaultyDriver::FailBefore(2);
    }
    EXPECT_EQ(SGLState(), before);
    CDiagnostics::FSink sink;
    {
        COpenStack tracing;
        EXPECT_TRUE(c_windowCoord(tracing));
        GetDiagnostics().SetEnabled(u"3DStack", true);
        sink = GetDiagnostics().SetSink([](const SDiagnosticLine&) { throw std::runtime_error("full"); });
    }
    GetDiagnostics().SetSink(sink);
    EXPECT_EQ(SGLState(), before);
}
