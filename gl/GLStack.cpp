#include "gl/GLStack.h"

#include "common/Diagnostics.h"
#include "gl/detail/ErrorTest.h"
#include "gl/OpenGLWrapper.h"

#include <iterator>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_category = u"3DStack";
constexpr std::size_t c_usualDepth = 8; // one group and a few single records

constexpr SGLStep Step(std::u16string_view function, std::u16string_view operation)
{
    return {operation, function, u"GLStack"};
}

constexpr auto c_pushMatrix = Step(u"CGLStack::PushMatrix", u"PushMatrix");
constexpr auto c_pushDepthMask = Step(u"CGLStack::PushDepthMask", u"PushDepthMask");
constexpr auto c_getInfo = Step(u"CGLStack::PushWindowCoord", u"Get info");
constexpr auto c_matrixMode = Step(u"CGLStack::PushWindowCoord", u"MatrixMode");
constexpr auto c_setupProjection = Step(u"CGLStack::PushWindowCoord", u"SetupProjection");
constexpr auto c_setupModelView = Step(u"CGLStack::PushWindowCoord", u"SetupModelView");
constexpr auto c_pop = Step(u"CGLStack::Pop", u"CGLStack::Pop");

// What there is to know of a kind of records.
struct SKind {
    CGLStack::SStackOperation record; // says nothing but its kind, so that all stacks can share it
    std::u16string_view line;         // for the trace
    int furtherPops;                  // how many records it stands above
};

constinit const SKind c_kinds[] = {
    {CGLStack::SStackOperation(EStackOperation::soAttrib), u"soAttrib\n", 0},
    {CGLStack::SStackOperation(EStackOperation::soMatrix), u"soMatrix\n", 0},
    {CGLStack::SStackOperation(EStackOperation::soWindowCoord), u"soWindowCoord\n", 4},
    {CGLStack::SStackOperation(EStackOperation::soDepthMask), u"soDepthMask\n", 1},
};

// Null for a kind that is unknown.
const SKind* FindKind(EStackOperation operation)
{
    const auto index = static_cast<std::size_t>(operation);
    return index < std::size(c_kinds) ? &c_kinds[index] : nullptr;
}

bool IsTracing()
{
    return CDiagnostics::IsAnyEnabled() && GetDiagnostics().IsEnabled(c_category);
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
    COpenGLWrapper::DiagnoseOutputStacks();
}

// Sinks and message boxes are the application's and may throw, which must not leave a destructor.
template<class FCall>
void Contain(const FCall& function) noexcept
{
    try {
        function();
    } catch (...) { // there is nobody left to tell
    }
}

void Undo(EStackOperation operation)
{
    if (operation == EStackOperation::soAttrib)
        OpenGL().popAttrib();
    else if (operation == EStackOperation::soMatrix)
        OpenGL().popMatrix();
}

} // namespace

void CGLStack::SDelete::operator()(const SStackOperation* record) const noexcept
{
    const SKind* kind = FindKind(record->operation);
    if (!kind || record != &kind->record)
        delete record;
}

// The records that a push of several steps appends: unless it is closed they are undone, as if they had been
// put together on a stack of their own.
class CGLStack::CGroup
{
public:
    explicit CGroup(CGLStack& stack)
        : m_stack(stack)
        , m_first(stack.m_records.size())
    {
    }
    ~CGroup() { m_stack.Unwind(m_first); }
    CGroup(const CGroup&) = delete;
    CGroup& operator=(const CGroup&) = delete;

    // Appends the record that stands above the others, and keeps them all.
    bool Close(EStackOperation operation)
    {
        m_stack.Append(operation);
        m_first = m_stack.m_records.size();
        return true;
    }

private:
    CGLStack& m_stack;
    std::size_t m_first;
};

CGLStack::~CGLStack()
{
    Unwind(0);
}

void CGLStack::Unwind(std::size_t remaining) noexcept
{
    if (IsTracing())
        Contain([=, this] { TraceContent(remaining); });
    while (m_records.size() > remaining) {
        const std::size_t count = m_records.size();
        Contain([this] { Pop(); });
        if (m_records.size() < count)
            continue;
        // An empty slot, which Pop leaves where it is, or a change that could not be traced.
        if (const auto& record = m_records.back())
            Undo(record->operation);
        m_records.pop_back();
    }
}

void CGLStack::TraceContent(std::size_t first) const
{
    Trace(u"CGLStack destructor:\n");
    TraceStacks();
    Trace(u"Stack content:\n");
    for (std::size_t i = first; i < m_records.size(); ++i) {
        const SKind* kind = m_records[i] ? FindKind(m_records[i]->operation) : nullptr;
        Trace(kind ? kind->line : u"INVALID\n");
    }
}

// A record is appended before its change is made, so that nothing can fail once the change is there.

bool CGLStack::PushAttrib(unsigned int mask)
{
    Append(EStackOperation::soAttrib);
    OpenGL().pushAttrib(mask);
    const GLenum code = TakeError();
    if (code == GL_NO_ERROR) [[likely]]
        return true;
    m_records.pop_back();
    ReportError(code, Step(u"CGLStack::PushAttrib", CStr::Format(u"PushAttrib (0x%X)", mask)));
    return false;
}

bool CGLStack::PushMatrix()
{
    Append(EStackOperation::soMatrix);
    OpenGL().pushMatrix();
    const GLenum code = TakeError();
    if (code == GL_NO_ERROR) [[likely]]
        return true;
    m_records.pop_back();
    ReportError(code, c_pushMatrix);
    return false;
}

bool CGLStack::PushDepthMask(bool write)
{
    CGroup group(*this);
    if (!PushAttrib(GL_DEPTH_BUFFER_BIT))
        return false;
    OpenGL().depthMask(write ? GL_TRUE : GL_FALSE);
    if (HasFailed(c_pushDepthMask))
        return false;
    return group.Close(EStackOperation::soDepthMask);
}

bool CGLStack::PushWindowCoord(double left, double right, double bottom, double top, double zNear,
                               double zFar)
{
    CGroup group(*this);
    if (!PushAttrib(GL_TRANSFORM_BIT))
        return false;
    OpenGL().matrixMode(GL_PROJECTION);
    if (HasFailed(c_matrixMode) || !PushMatrix())
        return false;
    OpenGL().loadIdentity();
    OpenGL().ortho(left, right, bottom, top, zNear, zFar);
    if (HasFailed(c_setupProjection) || !PushAttrib(GL_TRANSFORM_BIT))
        return false;
    OpenGL().matrixMode(GL_MODELVIEW);
    if (HasFailed(c_matrixMode) || !PushMatrix())
        return false;
    OpenGL().loadIdentity();
    if (HasFailed(c_setupModelView))
        return false;
    return group.Close(EStackOperation::soWindowCoord);
}

bool CGLStack::PushWindowCoord(bool unitDepth)
{
    GLint viewport[4] = {};
    OpenGL().getIntegerv(GL_VIEWPORT, viewport);
    // Inverted, since a larger eye-space z shall lie deeper.
    GLdouble depths[2] = {0.0, -1.0};
    if (!unitDepth)
        OpenGL().getDoublev(GL_DEPTH_RANGE, depths);
    if (HasFailed(c_getInfo))
        return false;
    const auto [x, y, width, height] = viewport;
    return PushWindowCoord(x, x + width, y, y + height, depths[0], depths[1]);
}

bool CGLStack::Pop()
{
    if (!IsTracing())
        return PopTop(false);
    Trace(u"Entering CGLStack::Pop:\n");
    const CDiagnostics::CScope scope;
    TraceStacks();
    const bool done = PopTop(true);
    if (done)
        Trace(u"Exiting CGLStack::Pop\n");
    return done;
}

bool CGLStack::PopTop(bool tracing)
{
    if (m_records.empty()) {
        ReportFault(u"Error: Popping empty GLStack\n");
        return false;
    }
    if (!m_records.back()) {
        ReportFault(u"Error: Empty GLStack item\n");
        return false;
    }
    const EStackOperation operation = m_records.back()->operation;
    const SKind* kind = FindKind(operation);
    if (!kind)
        ReportFault(CStr::Format(u"Unknown stack operation: %d\n", operation));
    else if (tracing)
        Trace(kind->line);
    Undo(operation);
    m_records.pop_back();
    for (int i = kind ? kind->furtherPops : 0; i > 0; --i)
        Pop();
    return !HasFailed(c_pop);
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

void CGLStack::Append(EStackOperation operation)
{
    Append(TRecord(&FindKind(operation)->record));
}

void CGLStack::Append(TRecord record)
{
    if (m_records.capacity() == 0)
        m_records.reserve(c_usualDepth);
    m_records.push_back(std::move(record));
}

} // namespace CommonUI
