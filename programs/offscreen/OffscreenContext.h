#pragma once

#include <memory>
#include <string>

namespace Offscreen
{

/// What the pixels of a context are made of, in bits.
struct SPixelBits {
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0;
    int depth = 0;
    int stencil = 0;
    int accumRed = 0;
    int accumGreen = 0;
    int accumBlue = 0;
    int accumAlpha = 0;
    int auxBuffers = 0; ///< a number of buffers, not of bits
    bool doubleBuffered = false;
    bool stereo = false;
};

/// An OpenGL context with a picture of its own in memory, for machines without display and graphics card. It
/// has the fixed function pipeline (compatibility profile), eight bits for each of red, green, blue and
/// alpha, a depth buffer of 24 bits or more, and is current in the thread that made it for as long as it
/// lives. One of them lives at a time.
class CContext
{
public:
    /// @param width, height of the picture in pixels, from 1
    /// @param reason receives one line when there is no context
    /// @return null when there is no driver, or none that can do this
    static std::unique_ptr<CContext> Make(int width, int height, std::string& reason);

    ~CContext();
    CContext(const CContext&) = delete;
    CContext& operator=(const CContext&) = delete;

    /// A function of the driver, while the context lives.
    /// @return null where there is none of this name
    static void* FindFunction(const char* name);

    /// What the driver gave, which may be more than what was asked for.
    const SPixelBits& GetPixelBits() const { return m_bits; }

private:
    struct SHandles;

    explicit CContext(std::shared_ptr<SHandles> handles);

    std::shared_ptr<SHandles> m_handles; // of this object alone, which needs not know what they are
    SPixelBits m_bits;
};

} // namespace Offscreen
