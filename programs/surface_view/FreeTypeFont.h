#pragma once

#include "view/Font.h"

#include <memory>

namespace SurfaceView
{

/// The font of the pictures' labels, as FreeType draws it.
class CFreeTypeFont : public CFont
{
public:
    /// Loads the font that the program was built for.
    /// @throws std::runtime_error when it is not there
    CFreeTypeFont();
    ~CFreeTypeFont() override;

    CommonUI::SSize Measure(std::u16string_view text, int height) const override;
    SPixels Draw(std::u16string_view text, int height, CommonUI::SColor color) const override;

private:
    struct SFace;

    std::unique_ptr<SFace> m_face;
};

} // namespace SurfaceView
