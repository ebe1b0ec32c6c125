#pragma once

#include "common/Color.h"

#include <span>

namespace SurfaceView
{

/// A colour scale as a texture of the current context, which the object must not outlive.
class CColorTexture
{
public:
    /// @param colors a power of two of them, the one for texture coordinate 0 first
    explicit CColorTexture(std::span<const CommonUI::SColor> colors);
    ~CColorTexture();
    CColorTexture(const CColorTexture&) = delete;
    CColorTexture& operator=(const CColorTexture&) = delete;

    /// From now on what is drawn has the colours, times its own. The caller saves the texture and enable
    /// attributes.
    void Bind() const;

private:
    unsigned int m_name = 0;
};

} // namespace SurfaceView
