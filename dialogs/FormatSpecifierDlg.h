#pragma once

#include "../controls/IntEdit.h"
#include "../model/Parameter.h"
#include "BaseDialog.h"
#include "FormatSpecifierView.h"

#include <vector>

namespace CommonUI
{

/// The dialog in which the user chooses how the values of a parameter are written: with how many decimals or
/// significant digits. Two examples show what comes out.
class COMMONUI_API CFormatSpecifierDlg : public CBaseDialog, public CViewedControl<CFormatSpecifierView>
{
public:
    COMMONUI_CONSTANT unsigned int c_identifier = 7804; ///< the number of the dialog and of its help topic
    COMMONUI_CONSTANT int c_format = 8158;              ///< the list
    COMMONUI_CONSTANT int c_count = 8159;               ///< the edit field
    COMMONUI_CONSTANT int c_exampleCaption = 8160;      ///< the text above the examples
    COMMONUI_CONSTANT int c_largeExample = 8161;        ///< the text with pi in the format
    COMMONUI_CONSTANT int c_smallExample = 8162;        ///< the text with a millionth of pi
    COMMONUI_CONSTANT int c_leastCount = 1;             ///< the fewest decimals or digits that can be chosen
    COMMONUI_CONSTANT int c_greatestCount = 12;         ///< the most decimals or digits that can be chosen

    /// @param parameter is copied
    explicit CFormatSpecifierDlg(const CParameter& parameter);
    ~CFormatSpecifierDlg() override;

    /// Gives the dialog its window before it is opened; null takes it away. The view is not owned.
    void SetView(CFormatSpecifierView* view);
    /// The copy with what the user chose, once OK has been pressed; if the dialog closes in another way,
    /// the parameter as it was when it was opened.
    const CParameter& GetParameter() const noexcept { return m_parameter; }
    /// The edit field for the count, which belongs to the dialog. Its window gives it the views that show it.
    CIntEdit& GetCountEdit() noexcept { return m_count; }

    /// The user has selected an item of the list.
    void OnCbnSelchangeFormatCombo();
    /// The edit field has got another count, within the range.
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
    CParameter::SFormatSpecifier m_original{}; // when the dialog was opened
    std::vector<SFormatItem> m_items;
    CIntEdit m_count;
};

} // namespace CommonUI
