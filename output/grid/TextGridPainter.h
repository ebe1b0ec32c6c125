#pragma once

#include "GridPainter.h"

#include <vector>

namespace CommonUI
{

/// A painter that writes down what is drawn, a line for each call, such as
/// "text 4,0,96,20 left disabled \"abc\"". For tests, and for programs that show a grid without a display.
class COMMONUI_API CTextGridPainter : public CGridPainter
{
public:
    void FillBackground(const SRect& rect, EGridBackground background) override;
    void WriteText(const SRect& rect, std::u16string_view text, EGridAlign align) override;
    void DrawCheckBox(const SRect& rect, EGridCheck state, bool enabled) override;
    void DrawButton(const SRect& rect, const SGridButton& button) override;
    void DrawBox(const SRect& rect, SColor outline, SColor fill) override;
    void DrawExpander(const SRect& rect, bool expanded) override;
    void DrawFocus(const SRect& rect) override;
    SColor GetTextColor() const override { return m_textColor; }
    void SetTextColor(SColor color) override { m_textColor = color; }
    /// Text is black, disabled text grey, selected text white.
    SColor GetStyleColor(EGridColor color) const override;

    /// What has been drawn since the beginning or since Clear, in the order of the calls.
    const std::vector<CStr>& GetLines() const noexcept { return m_lines; }
    /// All lines, each with a line feed.
    CStr GetLog() const;
    /// Forgets the lines; the text colour stays.
    void Clear() noexcept { m_lines.clear(); }

private:
    void Add(std::u16string_view what, const SRect& rect, std::u16string_view rest);

    std::vector<CStr> m_lines;
    SColor m_textColor{};
};

} // namespace CommonUI
