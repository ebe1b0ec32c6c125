#pragma once

#include "view/Font.h"

#include <QFont>
#include <QHash>

namespace Workbench
{

/// The font of a widget for the labels of a picture. Pictures of texts are kept, as a view that moves draws
/// the same ones again and again.
class CLabelFont : public SurfaceView::CFont
{
public:
    void SetFont(const QFont& font);

    CommonUI::SSize Measure(std::u16string_view text, int height) const override;
    SurfaceView::SPixels Draw(std::u16string_view text, int height, CommonUI::SColor color) const override;

private:
    QFont OfHeight(int height) const;

    QFont m_font;
    mutable QHash<QString, SurfaceView::SPixels> m_pictures;
};

} // namespace Workbench
