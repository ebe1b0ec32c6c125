#pragma once

#include "../common/Str.h"
#include "../export/Export.h"
#include "../platform/PixelFormat.h"
#include "OpenGLError.h"
#include "PixelFormatText.h"
#include "WglExtensions.h"

#include <memory>

namespace CommonUI
{

/// What the process knows of its OpenGL: the window system's extensions, whether the context is broken, and
/// reports of the state for the diagnostics.
///
/// Everything runs on the thread that owns the current rendering context. Without a current context nothing
/// is supported, there are no errors, and the values of reports are 0. Reports are written at level Info and
/// without a category, so that they always reach the sink; each line ends with a line feed.
class COMMONUI_API COpenGLWrapper
{
public:
    constexpr COpenGLWrapper() noexcept = default;
    ~COpenGLWrapper();
    /// Takes the extensions over from the other one, which has none then, and copies what it knows of fatal
    /// errors.
    COpenGLWrapper(COpenGLWrapper& other) noexcept;
    COpenGLWrapper& operator=(COpenGLWrapper& other) noexcept; // NOLINT(misc-unconventional-assign-operator)

    /// Looks up the entry points of both extensions anew. An extension that is missing or incomplete is not
    /// held any more.
    /// @return whether both extensions can be used
    bool CheckExtensions(HDC hdc);
    /// Null unless CheckExtensions has found the extension. Owned by the wrapper; the next CheckExtensions
    /// may delete it.
    CWGL_ARB_pixel_format* GetWGL_ARB_pixel_format() const noexcept { return m_pixelFormat.get(); }
    /// As GetWGL_ARB_pixel_format, for off-screen buffers.
    CWGL_ARB_pbuffer* GetWGL_ARB_pbuffer() const noexcept { return m_pbuffer.get(); }

    /// OpenGLErrorMsg for contexts that may break. When another error is pending right after one was
    /// reported, as when a context is lost, the context counts as broken for good: every later call returns
    /// true at once and reports nothing, so that the user is not asked at every step.
    bool TestOpenGLError(const CStr& operation, const CStr& function, const CStr& file, int line);

    /// Writes one pending error, which is taken by that; nothing when there is none.
    static void DiagnoseOutputError();
    /// Writes who made the driver, its version and extensions, and those of the window system for the device
    /// context; texts that the driver does not give are left out.
    static void DiagnoseOutputOpenGLStrings(HDC hdc);
    /// Writes how pixels are packed and unpacked.
    static void DiagnoseOutputPixelStore();
    /// Writes the depths of the attribute, model-view and projection stacks with their limits, and the matrix
    /// mode.
    static void DiagnoseOutputStacks();

private:
    bool m_fatalError = false;
    std::unique_ptr<CWGL_ARB_pixel_format> m_pixelFormat;
    std::unique_ptr<CWGL_ARB_pbuffer> m_pbuffer;
};

/// The wrapper of the process. It is there before the first static object and is never destroyed, so that
/// constructors and destructors of static objects may use it.
extern COMMONUI_API COpenGLWrapper& G_OpenGLWrapper;

} // namespace CommonUI
