#include "gl/GLStack.h"

#include "common/Diagnostics.h"
#include "gl/detail/ErrorTest.h"
#include "gl/OpenGLWrapper.h"

#include <iterator>
#include <optional>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_category = u"3DStack";

constexpr Detail::SPlace PlaceOf(std::u16string_view function)
{
    return {function, u"GLStack"};
}

bool IsTracing()
{
    return GetDiagnostics().IsEnabled(c_category);
}

void Trace(std::u16string_view line)
{
    GetDiagnostics().Write(c_category, EDiagnosticLevel::Trace, line);
}

void ReportFault(std::u16string_view line)
{
    GetDiagnostics().Write(c_category, EDiagnosticLevel::Error, line);
}

void TraceStacks()
{
    const CDiagnostics::CScope scope;
    G_OpenGLWrapper.DiagnoseOutputStacks();
}

/// The line that traces an operation; empty for one that is unknown.
std::u16string_view GetLine(EStackOperation operation)
{
    switch (operation) {
    case EStackOperation::soAttrib:
        return u"soAttrib\n";
    case EStackOperation::soMatrix:
        return u"soMatrix\n";
    case EStackOperation::soWindowCoord:
        return u"soWindowCoord\n";
    case EStackOperation::soDepthMask:
        return u"soDepthMask\n";
    }
    return {};
}

/// How many records an operation stands above.
int CountFurtherPops(EStackOperation operation)
{
    switch (operation) {
    case EStackOperation::soWindowCoord:
        return 4;
    case EStackOperation::soDepthMask:
        return 1;
    default:
        return 0;
    }
}

void Undo(EStackOperation operation)
{
    const std::u16string_view line = GetLine(operation);
    if (line.empty())
        ReportFault(CStr::Format(u"Unknown stack operation: %d\n", operation));
    else
        Trace(line);
    if (operation == EStackOperation::soAttrib)
        glPopAttrib();
    else if (operation == EStackOperation::soMatrix)
        glPopMatrix();
}

} // namespace

CGLStack::SStackOperation::~SStackOperation() = default;

CGLStack::~CGLStack()
{
    if (IsTracing())
        TraceContent();
    while (!m_records.empty()) {
        const std::size_t count = m_records.size();
        Pop();
        if (m_records.size() == count) // an empty slot, which Pop leaves where it is
            m_records.pop_back();
    }
}

void CGLStack::TraceContent() const
{
    Trace(u"CGLStack destructor:\n");
    TraceStacks();
    Trace(u"Stack content:\n");
    for (const auto& record : m_records) {
        const std::u16string_view line = record ? GetLine(record->operation) : std::u16string_view();
        Trace(line.empty() ? u"INVALID\n" : line);
    }
}

// A record is appended before its change is made, so that nothing can fail once the change is there.

bool CGLStack::PushAttrib(unsigned int mask)
{
    Append(std::make_unique<SStackOperation>(EStackOperation::soAttrib));
    glPushAttrib(mask);
    const GLenum code = glGetError();
    if (code == GL_NO_ERROR) [[likely]]
        return true;
    m_records.pop_back();
    Detail::ReportError(code, CStr::Format(u"PushAttrib (0x%X)", mask), PlaceOf(u"CGLStack::PushAttrib"));
    return false;
}

bool CGLStack::PushMatrix()
{
    Append(std::make_unique<SStackOperation>(EStackOperation::soMatrix));
    glPushMatrix();
    const GLenum code = glGetError();
    if (code == GL_NO_ERROR) [[likely]]
        return true;
    m_records.pop_back();
    Detail::ReportError(code, u"PushMatrix", PlaceOf(u"CGLStack::PushMatrix"));
    return false;
}

bool CGLStack::PushDepthMask(bool write)
{
    CGLStack steps;
    if (!steps.PushAttrib(GL_DEPTH_BUFFER_BIT))
        return false;
    glDepthMask(write ? GL_TRUE : GL_FALSE);
    if (Detail::HasFailed(u"PushDepthMask", PlaceOf(u"CGLStack::PushDepthMask")))
        return false;
    steps.Append(std::make_unique<SStackOperation>(EStackOperation::soDepthMask));
    return TransferStack(steps);
}

bool CGLStack::PushWindowCoord(double left, double right, double bottom, double top, double zNear,
                               double zFar)
{
    constexpr Detail::SPlace place = PlaceOf(u"CGLStack::PushWindowCoord");
    CGLStack steps;
    if (!steps.PushAttrib(GL_TRANSFORM_BIT))
        return false;
    glMatrixMode(GL_PROJECTION);
    if (Detail::HasFailed(u"MatrixMode", place) || !steps.PushMatrix())
        return false;
    glLoadIdentity();
    glOrtho(left, right, bottom, top, zNear, zFar);
    if (Detail::HasFailed(u"SetupProjection", place) || !steps.PushAttrib(GL_TRANSFORM_BIT))
        return false;
    glMatrixMode(GL_MODELVIEW);
    if (Detail::HasFailed(u"MatrixMode", place) || !steps.PushMatrix())
        return false;
    glLoadIdentity();
    if (Detail::HasFailed(u"SetupModelView", place))
        return false;
    steps.Append(std::make_unique<SStackOperation>(EStackOperation::soWindowCoord));
    return TransferStack(steps);
}

bool CGLStack::PushWindowCoord(bool unitDepth)
{
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    // Inverted, since a larger eye-space z shall lie deeper.
    GLdouble depths[2] = {0.0, -1.0};
    if (!unitDepth)
        glGetDoublev(GL_DEPTH_RANGE, depths);
    if (Detail::HasFailed(u"Get info", PlaceOf(u"CGLStack::PushWindowCoord")))
        return false;
    const auto [x, y, width, height] = viewport;
    return PushWindowCoord(x, x + width, y, y + height, depths[0], depths[1]);
}

bool CGLStack::Pop()
{
    const bool tracing = IsTracing();
    std::optional<CDiagnostics::CScope> scope;
    if (tracing) {
        Trace(u"Entering CGLStack::Pop:\n");
        scope.emplace();
        TraceStacks();
    }
    if (m_records.empty()) {
        ReportFault(u"Error: Popping empty GLStack\n");
        return false;
    }
    if (!m_records.back()) {
        ReportFault(u"Error: Empty GLStack item\n");
        return false;
    }
    const EStackOperation operation = m_records.back()->operation;
    Undo(operation);
    m_records.pop_back();
    for (int i = CountFurtherPops(operation); i > 0; --i)
        Pop();
    if (Detail::HasFailed(u"CGLStack::Pop", PlaceOf(u"CGLStack::Pop")))
        return false;
    if (tracing)
        Trace(u"Exiting CGLStack::Pop\n");
    return true;
}

bool CGLStack::TransferStack(CGLStack& other)
{
    if (&other == this)
        return true;
    m_records.insert(m_records.end(), std::make_move_iterator(other.m_records.begin()),
                     std::make_move_iterator(other.m_records.end()));
    other.m_records.clear();
    return true;
}

void CGLStack::Append(std::unique_ptr<SStackOperation> record)
{
    m_records.push_back(std::move(record));
}

} // namespace CommonUI
