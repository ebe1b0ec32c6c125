#pragma once

#include "../controls/IntEdit.h"
#include "../controls/View.h"
#include "../model/Parameter.h"
#include "BaseDialog.h"

#include <optional>
#include <vector>

namespace CommonUI
{

class CFormatSpecifierDlg;

/// One kind of format in the list of the dialog.
struct SFormatItem {
    CStr text{};
    CParameter::EFormatSpecifier value{};

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
    virtual std::optional<std::size_t> GetSelectedItem() const = 0;
};

/// The dialog in which the user chooses how the values of a parameter are written: with how many decimals or
/// significant digits. Two examples show what comes out.
class COMMONUI_API CFormatSpecifierDlg : public CBaseDialog, public CViewedControl<CFormatSpecifierView>
{
public:
    static constexpr unsigned int c_identifier = 7804;
    static constexpr int c_format = 8158;         ///< the list
    static constexpr int c_count = 8159;          ///< the edit field
    static constexpr int c_exampleCaption = 8160; ///< the text above the examples
    static constexpr int c_largeExample = 8161;   ///< the text with pi in the format
    static constexpr int c_smallExample = 8162;   ///< the text with a millionth of pi
    static constexpr int c_leastCount = 1;
    static constexpr int c_greatestCount = 12;

    /// @param parameter is copied
    explicit CFormatSpecifierDlg(const CParameter& parameter);
    ~CFormatSpecifierDlg() override;

    /// Gives the dialog its window before it is opened; null takes it away. The view is not owned.
    void SetView(CFormatSpecifierView* view);
    /// The copy with what the user chose, once OK has been pressed; if the dialog closes in another way,
    /// the parameter as it was when it was opened.
    const CParameter& GetParameter() const noexcept { return m_parameter; }
    CIntEdit& GetCountEdit() noexcept { return m_count; }

    /// The user has selected an item of the list.
    void OnCbnSelchangeFormatCombo();
    void OnSizeEditChanged(int count);
    /// Takes what is typed in the edit field, too.
    void OnOK() override;

protected:
    bool OnInitDialog() override;
    void OnDestroy() override;
    CDialogView* GetDialogView() const override { return GetView(); }

private:
    void FillList();
    void SetFormat(const CParameter::SFormatSpecifier& format);
    void UpdateExample();

    CParameter m_parameter;
    CParameter::SFormatSpecifier m_original{}; ///< when the dialog was opened
    std::vector<SFormatItem> m_items;
    CIntEdit m_count;
};

} // namespace CommonUI
