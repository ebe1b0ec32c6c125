#pragma once

#include "../export/Export.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace CommonUI
{

/// What a record of a CGLStack stands for.
enum class EStackOperation : std::int32_t {
    soAttrib = 0,      ///< a saved group of attributes
    soMatrix = 1,      ///< a saved matrix of the mode that was current
    soWindowCoord = 2, ///< stands above the four records of PushWindowCoord
    soDepthMask = 3,   ///< stands above the record of PushDepthMask
};

/// Changes of the OpenGL state that undo themselves: each push is recorded, and what was not popped is popped
/// by the destructor, the newest first.
///
/// Each step asks OpenGL for errors and reports them as OpenGLErrorMsg does; an error that was pending before
/// counts as that of the first step. A push that gives false has reported why and leaves this stack as it
/// was; one of several steps has undone those that succeeded. Steps are traced under the category "3DStack",
/// at level Trace. Everything runs on the thread that owns the current rendering context; without a current
/// context pushes and pops succeed and change nothing.
class COMMONUI_API CGLStack
{
public:
    /// One record. It has virtual functions for the sake of its type information only.
    struct SStackOperation {
        /// @param kind whose derived record this is
        constexpr explicit SStackOperation(EStackOperation kind) noexcept
            : operation(kind)
        {
        }
        virtual ~SStackOperation() = default;
        SStackOperation(const SStackOperation&) = delete;
        SStackOperation& operator=(const SStackOperation&) = delete;

        /// What was changed, and so what a pop puts back.
        const EStackOperation operation;
    };

    /// Deletes a record, unless it is the one that all stacks share for its kind.
    struct COMMONUI_API SDelete {
        /// Does nothing for a record that all stacks share.
        void operator()(const SStackOperation* record) const noexcept;
    };
    /// A record that its stack owns, or that all stacks share.
    using TRecord = std::unique_ptr<const SStackOperation, SDelete>;

    CGLStack() noexcept = default;
    /// Pops all records, also when the sink of the diagnostics or a message box throws; that exception ends
    /// here.
    ~CGLStack();
    /// Two stacks that undo the same records would undo them twice.
    CGLStack(const CGLStack&) = delete;
    CGLStack& operator=(const CGLStack&) = delete;

    /// Saves groups of attributes. When OpenGL complains, its own stack is left as the driver left it, and
    /// the state is unknown: stop drawing.
    /// @param mask the bits of the groups, as for glPushAttrib
    bool PushAttrib(unsigned int mask);
    /// Saves the current matrix of the current matrix mode. Errors are as grave as those of PushAttrib.
    bool PushMatrix();
    /// Saves the depth-buffer attributes and switches writing into the depth buffer on or off.
    bool PushDepthMask(bool write);
    /// Saves the matrix mode and the model-view and projection matrices, and sets an orthographic projection
    /// with an identity model-view. The matrix mode is model-view then. The edges are those of glOrtho.
    bool PushWindowCoord(double left, double right, double bottom, double top, double zNear, double zFar);
    /// The same, fitted to the viewport: one unit is one pixel, and x and y are window coordinates.
    /// @param unitDepth z from 0 to 1 spans the depth range from its near to its far end; otherwise the depth
    ///     range is taken for the near and far planes
    bool PushWindowCoord(bool unitDepth);
    /// Undoes the newest record; for one that stands above others, these as well.
    /// @return false when there is no record, or when OpenGL has an error pending, which is reported then;
    ///     the record is gone in that case
    bool Pop();
    /// Moves all records of another stack on top of this one, in their order, without undoing anything.
    /// @return true
    bool TransferStack(CGLStack& other);

protected:
    /// Puts a record on top, without touching OpenGL: for classes that check how a stack gets along with
    /// records it does not know. Such records and null are reported when they are popped.
    void Append(TRecord record);
    /// All records, the newest at the end.
    const std::vector<TRecord>& GetRecords() const noexcept { return m_records; }

private:
    class CGroup;

    void Append(EStackOperation operation);
    bool PopTop(bool tracing);
    void Unwind(std::size_t remaining) noexcept;
    void TraceContent(std::size_t first) const;

    std::vector<TRecord> m_records;
};

} // namespace CommonUI
