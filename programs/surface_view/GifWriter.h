#pragma once

#include "programs/surface_view/Picture.h"

#include <string>
#include <utility>

struct GifFileType;

namespace SurfaceView
{

/// Puts pictures of one size together to an animated GIF, each with 256 colours of its own.
class CGifWriter
{
public:
    /// @param loop whether the animation begins anew when it ends, for ever
    explicit CGifWriter(bool loop);
    ~CGifWriter();
    CGifWriter(const CGifWriter&) = delete;
    CGifWriter& operator=(const CGifWriter&) = delete;

    /// @param duration for which the picture is shown, in hundredths of a second
    /// @throws std::runtime_error when it cannot be written
    void Add(const SPicture& picture, int duration);
    /// Ends the file: nothing can be added.
    void Finish();
    /// The next bytes of the file, those that were not yet taken.
    std::string TakeBytes() { return std::exchange(m_bytes, {}); }

private:
    void Begin(CommonUI::SSize size);

    bool m_loop;
    std::string m_bytes{};
    GifFileType* m_file = nullptr;
};

} // namespace SurfaceView
