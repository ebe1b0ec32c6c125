#pragma once

#include "gl/detail/OpenGL.h"

/// Stands between the library and the driver: glGetError of this program goes through it, so that a driver
/// can be given faults that cannot be had otherwise.
namespace FaultyDriver
{

/// Makes the driver find an invalid enumerant just before the `count`-th error test from now.
void FailBefore(int count);
/// Makes every error test find this error; GL_NO_ERROR restores the driver.
void StayBroken(GLenum code);

} // namespace FaultyDriver
