#include "gl/GLStack.h"
#include "gl/GLUtils.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/gl/FaultyDriver.h"
#include "tests/gl/GLTesting.h"
#include "tests/Script.h"

#include <functional>
#include <map>
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

class GLStack : public CContextTest
{
protected:
    GLStack() { GetDiagnostics().SetEnabled(u"3DStack", false); }
    ~GLStack() override { GetDiagnostics().SetEnabled(u"3DStack", false); }
};

bool PushBox(CGLStack& stack)
{
    return stack.PushWindowCoord(-1, 3, 2, 4, -5, 5);
}

// The limits are the driver's own.
std::string GetDepth(GLenum depth, GLenum limit)
{
    const int used = GetInteger(depth);
    const int free = GetInteger(limit) - used;
    return free < 4 ? " limit-" + std::to_string(free) : ' ' + std::to_string(used);
}

// A stack that plays lines of a script, and another one that fills those of the driver.
class CStage
{
public:
    void Act(const SCommand& command)
    {
        m_done = true;
        m_verbs.at(command.verb)(command);
        if (command.verb != "fail")
            FaultyDriver::FailBefore(0);
    }
    // The records, the depths of the driver's stacks and what was reported since the last time.
    std::string Tell()
    {
        const SGLState state;
        std::string told = '[' + m_stack.GetKinds() + ']';
        told += GetDepth(GL_ATTRIB_STACK_DEPTH, GL_MAX_ATTRIB_STACK_DEPTH);
        told += GetDepth(GL_MODELVIEW_STACK_DEPTH, GL_MAX_MODELVIEW_STACK_DEPTH);
        told += ' ' + std::to_string(state.depths[2]) + ' ' +
                ToUtf8(GetMatrixModeName(static_cast<GLenum>(state.matrixMode)));
        told += state.depthMask ? "" : " masked";
        told += state == m_start ? " as before" : "";
        told += m_done ? "" : " false";
        if (const auto before = std::exchange(m_projection, state.projection); before != m_projection)
            told += " to " + ToText(m_projection) + (state.modelView == c_identity ? "" : " moved");
        for (const CStr& line : m_lines.Take())
            told += TellLine(line.ToUtf8());
        return told;
    }

private:
    static std::string TakePart(const std::string& line, const std::string& label, char end)
    {
        const std::size_t start = line.find(label);
        if (start == std::string::npos)
            return "nothing";
        const std::size_t first = start + label.size();
        return line.substr(first, line.find(end, first) - first);
    }
    static std::string TellLine(const std::string& line)
    {
        if (line.starts_with(": Operation: ") && line.ends_with(") (File: GLStack)\n"))
            return " (" + TakePart(line, "(Function: ", ')') + ": " + TakePart(line, ": Operation: ", '\n') +
                   ": " + TakePart(line, "\nOpenGL error: ", '\n') + ')';
        if (line.starts_with("3DStack: "))
            return " (" + line.substr(9, line.size() - 10) + ')';
        return line.starts_with("MessageBox: ") ? " box" : "";
    }
    void Begin(unsigned int mode)
    {
        glMatrixMode(mode);
        glViewport(10, 20, 300, 200);
        glDepthRange(0.25, 0.75);
        glTranslated(1, 1, 1);
        m_start = SGLState();
    }
    void Fill(GLenum limit, GLenum depth, int free)
    {
        while (GetInteger(limit) - GetInteger(depth) > free)
            m_done &= limit == GL_MAX_ATTRIB_STACK_DEPTH ? m_filler.PushAttrib(GL_TRANSFORM_BIT)
                                                         : m_filler.PushMatrix();
        m_start = SGLState();
    }

    using CCommand = const SCommand&;
    const std::map<std::string, std::function<void(CCommand)>> m_verbs = {
        {"texture", [this](CCommand) { Begin(GL_TEXTURE); }},
        {"projection", [this](CCommand) { Begin(GL_PROJECTION); }},
        {"modelview", [this](CCommand) { Begin(GL_MODELVIEW); }},
        {"attrib", [this](CCommand) { m_done = m_stack.PushAttrib(0xAB00); }},
        {"matrix", [this](CCommand) { m_done = m_stack.PushMatrix(); }},
        {"mask", [this](CCommand) { m_done = m_stack.PushDepthMask(false); }},
        {"box", [this](CCommand) { m_done = PushBox(m_stack); }},
        {"pixels", [this](CCommand c) { m_done = m_stack.PushWindowCoord(c.text != "deep"); }},
        {"pop", [this](CCommand) { m_done = m_stack.Pop(); }},
        {"append", [this](CCommand c) { m_stack.Append(c.Get()); }},
        {"fail", [](CCommand c) { FaultyDriver::FailBefore(c.Get()); }},
        {"fillmatrices",
         [this](CCommand c) { Fill(GL_MAX_MODELVIEW_STACK_DEPTH, GL_MODELVIEW_STACK_DEPTH, c.Get()); }},
        {"fillattribs",
         [this](CCommand c) { Fill(GL_MAX_ATTRIB_STACK_DEPTH, GL_ATTRIB_STACK_DEPTH, c.Get()); }},
    };
    CDiagnosticsCapture m_lines;
    CGLStack m_filler;
    COpenStack m_stack;
    SGLState m_start;
    std::array<double, 16> m_projection = c_identity;
    bool m_done = true;
};

} // namespace

TEST_F(GLStack, PushesAndPopsAsTheScriptSays)
{
    ExpectScriptOf<CStage>("gl-stack.txt");
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
    glMatrixMode(GL_TEXTURE);
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
    for (const GLenum limit : std::initializer_list<GLenum>{
             GL_MAX_ATTRIB_STACK_DEPTH, GL_MAX_MODELVIEW_STACK_DEPTH, GL_MAX_PROJECTION_STACK_DEPTH}) {
        const std::string text = " (" + std::to_string(GetInteger(limit)) + ")";
        for (std::size_t at = 0; (at = trace.find(text, at)) != std::string::npos;)
            trace.replace(at, text.size(), " (limit)");
    }
    EXPECT_EQ(trace, ReadTestData("gl-stack-trace.txt"));
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
    EXPECT_THROW(PushBox(stack), std::runtime_error);
    EXPECT_EQ(std::tuple(stack.GetKinds(), SGLState()), std::tuple("", before));
    {
        COpenStack reporting;
        EXPECT_TRUE(PushBox(reporting));
        FaultyDriver::FailBefore(2);
    }
    EXPECT_EQ(SGLState(), before);
    CDiagnostics::FSink sink;
    {
        COpenStack tracing;
        EXPECT_TRUE(PushBox(tracing));
        GetDiagnostics().SetEnabled(u"3DStack", true);
        sink = GetDiagnostics().SetSink([](const SDiagnosticLine&) { throw std::runtime_error("full"); });
    }
    GetDiagnostics().SetSink(sink);
    EXPECT_EQ(SGLState(), before);
}
