#pragma once

#include "../common/Rect.h"
#include "../export/Export.h"

#include <string_view>

namespace CommonUI
{

/// @file
/// All functions but Transform and GetMatrixModeName need a current rendering context, on the thread that
/// owns it, and do nothing without one.

/// Multiplies a projection that fits a viewport onto the current matrix. The caller selects the matrix and
/// loads the identity. Angle and planes are those of gluPerspective and glOrtho; what these do not take
/// (equal planes, an angle of 0, in perspective also a viewport without width) leaves the matrix as it is. No
/// error is tested for.
/// @param orthographic a box with the size that the perspective view has at the far plane, instead of
///     perspective
/// @param fieldOfView the angle across the shorter edge of the viewport, in degrees
/// @param viewport in pixels
COMMONUI_API void SetupProjectionMatrix(bool orthographic, double fieldOfView, double zNear, double zFar,
                                        const SRect& viewport);
/// The same for the viewport of the context.
COMMONUI_API void SetupProjectionMatrix(bool orthographic, double fieldOfView, double zNear, double zFar);

/// Sets the raster position to a point of the window, from which glBitmap and glDrawPixels draw. All other
/// state stays as it is.
/// @param x, y in pixels, as the viewport counts them
/// @param z the depth in the depth buffer, from 0 to 1
/// @param w divides x and y
/// @return false when OpenGL complained; the error is reported as OpenGLErrorMsg does
COMMONUI_API bool PixelPos4d(double x, double y, double z, double w);
/// As PixelPos4d, for numbers of single precision.
COMMONUI_API bool PixelPos4f(float x, float y, float z, float w);
/// The same in front of everything, with z = 0 and w = 1.
COMMONUI_API bool PixelPos2d(double x, double y);
/// As PixelPos2d, for numbers of single precision.
COMMONUI_API bool PixelPos2f(float x, float y);

/// Transforms a point by an affine matrix.
/// @param matrix sixteen numbers, column by column as OpenGL stores them; the fourth row is not used
COMMONUI_API void Transform(double x, double y, double z, const double* matrix, double& outX, double& outY,
                            double& outZ);

/// The name by which OpenGL publishes a matrix mode, such as "GL_MODELVIEW"; empty for what is none.
COMMONUI_API std::u16string_view GetMatrixModeName(unsigned int mode);

} // namespace CommonUI
