#pragma once

#include "FormatSpecifierDlg.h"
#include "MemoryDialogView.h"

#include <functional>
#include <optional>
#include <vector>

namespace CommonUI
{

/// The window of the format dialog, without a display.
class COMMONUI_API CMemoryFormatSpecifierView : public CMemoryDialogView<CFormatSpecifierView>
{
public:
    /// What the user does while the dialog is open.
    using FUse = std::function<void(CFormatSpecifierDlg&, CMemoryFormatSpecifierView&)>;

    ~CMemoryFormatSpecifierView() override;

    /// Runs a dialog in such a window.
    /// @param use may be empty
    /// @return OK if that was pressed in it, otherwise Cancel
    static int Run(CFormatSpecifierDlg& dialog, const FUse& use);

    void SetItems(const std::vector<SFormatItem>& items) override;
    void SelectItem(std::optional<std::size_t> index) override { m_selected = index; }
    std::optional<std::size_t> GetSelectedItem() const override { return m_selected; }

    /// The items of the list; none before the dialog is opened.
    const std::vector<SFormatItem>& GetItems() const noexcept { return m_items; }
    /// Selects an item as the user does. @return false if there is no such item
    bool Choose(std::size_t index);
    /// Presses OK or Cancel. @return false, and nothing happens, if that cannot be pressed
    bool Press(int button);

private:
    std::vector<SFormatItem> m_items;
    std::optional<std::size_t> m_selected;
};

} // namespace CommonUI
