#pragma once

#include "../../common/Color.h"
#include "../../common/Rect.h"
#include "../../common/Str.h"
#include "../../export/Export.h"

#include <string_view>

namespace CommonUI
{

/// Where a text stands in the width of its rectangle.
enum class EGridAlign { Left, Center, Right };

/// What a cell lies on; the toolkit gives each kind the colours of its style.
enum class EGridBackground {
    Plain,
    Selected,
    Header,
    SubHeader,
    MarkedHeader ///< of a row or a column of which something is selected
};

/// Colours of text that the toolkit's style decides.
enum class EGridColor { Text, Disabled, Selected };

/// The state of a check box, by the numbers that items keep.
enum class EGridCheck { Unchecked = 0, Checked = 1, Indeterminate = 2 };

/// A button within a cell.
struct SGridButton {
    /// The kinds of buttons.
    enum class EKind {
        Push,  ///< with a text or an image, as large as its rectangle
        SetUp, ///< the small one that opens a set-up, with an ellipsis
        Spin,  ///< two arrows, the one that counts down at the left of the other
        Drop   ///< the arrow that opens a list
    };
    /// The number that stands for no picture.
    static constexpr unsigned int c_noImage = ~0U;

    EKind kind = EKind::Push;         ///< how it looks
    CStr text{};                      ///< of a Push; the others have none
    unsigned int imageId = c_noImage; ///< a picture of the application's by its number, in front of the text
    bool pressed = false;             ///< drawn as held down
    bool enabled = true;              ///< drawn greyed where not
};

/// What a toolkit lends a grid to draw with. Rectangles are in pixels of the view; nothing may be drawn
/// outside of the rectangle that is given. Used on the user-interface thread.
class COMMONUI_API CGridPainter
{
public:
    CGridPainter() = default;
    virtual ~CGridPainter();
    CGridPainter(const CGridPainter&) = delete;
    CGridPainter& operator=(const CGridPainter&) = delete;

    /// Fills a rectangle in the colours of a kind of background.
    virtual void FillBackground(const SRect& rect, EGridBackground background) = 0;
    /// One line of text, vertically centred, in the text colour; what does not fit is cut with an ellipsis.
    virtual void WriteText(const SRect& rect, std::u16string_view text, EGridAlign align) = 0;
    /// A check box as large as its rectangle. @param enabled drawn greyed where not
    virtual void DrawCheckBox(const SRect& rect, EGridCheck state, bool enabled) = 0;
    /// A button as large as its rectangle.
    virtual void DrawButton(const SRect& rect, const SGridButton& button) = 0;
    /// A rectangle with an outline one pixel wide, which lies within it.
    virtual void DrawBox(const SRect& rect, SColor outline, SColor fill) = 0;
    /// The mark by which rows below a row are shown or hidden.
    virtual void DrawExpander(const SRect& rect, bool expanded) = 0;
    /// The mark of the cell that keys go to.
    virtual void DrawFocus(const SRect& rect) = 0;

    /// The colour that WriteText uses.
    virtual SColor GetTextColor() const = 0;
    /// Holds for each WriteText from now on; CTextColorScope puts the one before back.
    virtual void SetTextColor(SColor color) = 0;
    /// A colour of the toolkit's style, for SetTextColor.
    virtual SColor GetStyleColor(EGridColor color) const = 0;
};

/// Gives a painter another text colour until the end of a block.
class COMMONUI_API CTextColorScope
{
public:
    /// @param painter not owned; it must outlive the scope
    CTextColorScope(CGridPainter& painter, EGridColor color)
        : m_painter(painter)
        , m_before(painter.GetTextColor())
    {
        painter.SetTextColor(painter.GetStyleColor(color));
    }
    ~CTextColorScope() { m_painter.SetTextColor(m_before); }
    CTextColorScope(const CTextColorScope&) = delete;
    CTextColorScope& operator=(const CTextColorScope&) = delete;

private:
    CGridPainter& m_painter;
    SColor m_before;
};

} // namespace CommonUI
