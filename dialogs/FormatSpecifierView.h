#pragma once

#include "../controls/View.h"
#include "../model/Parameter.h"
#include "DialogView.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace CommonUI
{

class CFormatSpecifierDlg;

/// One kind of format in the list of the dialog.
struct SFormatItem {
    CStr text{};                          ///< what the list shows, in the language of the string table
    CParameter::EFormatSpecifier value{}; ///< the kind that it stands for

    friend bool operator==(const SFormatItem&, const SFormatItem&) = default;
};

/// The window of the format dialog: a list, an edit field with a spin button, whose views are given to
/// CFormatSpecifierDlg::GetCountEdit, two lines of text, OK, Cancel and help. It tells its dialog what is
/// pressed, and when the user has selected in the list.
class COMMONUI_API CFormatSpecifierView : public CDialogView, public CControlView<CFormatSpecifierDlg>
{
public:
    ~CFormatSpecifierView() override;

    /// Replaces the items of the list; none is selected then.
    virtual void SetItems(const std::vector<SFormatItem>& items) = 0;
    /// @param index that of an item; empty selects none
    virtual void SelectItem(std::optional<std::size_t> index) = 0;
    /// The index of the selected item; empty when none is.
    virtual std::optional<std::size_t> GetSelectedItem() const = 0;
};

} // namespace CommonUI
