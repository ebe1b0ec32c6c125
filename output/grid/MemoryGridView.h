#pragma once

#include "GridView.h"

#include <optional>
#include <vector>

namespace CommonUI
{

/// A view without a display, which keeps what it was asked for. Every character is 8 pixels wide.
class COMMONUI_API CMemoryGridView : public CGridView
{
public:
    ~CMemoryGridView() override;

    void Invalidate(const SRect& rect) override { invalidated.push_back(rect); }
    void UpdateScrollBars() override { ++scrollUpdates; }
    void TakeFocus() override { ++focusCount; }
    void OpenEditor(const SGridEdit& edit) override { editor = edit; }
    void MoveEditor(const SRect& rect) override { editor->rect = rect; }
    void CloseEditor() override { editor.reset(); }
    void OnSelectionChanged() override { ++selectionCount; }
    int GetTextWidth(std::u16string_view text) const override { return 8 * static_cast<int>(text.size()); }

    std::vector<SRect> invalidated{};  ///< what was to be drawn, the oldest first, until the test clears it
    int scrollUpdates = 0;             ///< how often the scroll bars had to follow
    int focusCount = 0;                ///< how often the focus was taken
    int selectionCount = 0;            ///< how often the selection has changed
    std::optional<SGridEdit> editor{}; ///< while one is open
};

} // namespace CommonUI
