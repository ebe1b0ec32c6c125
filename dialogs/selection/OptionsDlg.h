#pragma once

#include "../BaseDialog.h"
#include "OptionsView.h"

namespace CommonUI
{

/// A dialog of a few options. A derived class says which there are, and what comes of a change of one of
/// them. OK waits until nothing is wrong with any.
class COMMONUI_API COptionsDlg : public CBaseDialog, public CViewedControl<COptionsView>
{
public:
    COMMONUI_CONSTANT int c_remark = 11104; ///< the line of text below the form

    ~COptionsDlg() override;

    /// Gives the dialog its window before it is opened; null takes it away. The view is not owned.
    void SetView(COptionsView* view);
    /// The options in the order of the form, with what is typed and what is wrong with it.
    const std::vector<SDialogOption>& GetOptions() const noexcept { return m_options; }

    /// The user has chosen an item of a list, or 1 or 0 of a check box.
    void OnChoice(int id, int value);
    /// The user has typed in the field of a number.
    void OnText(int id, const CStr& text);
    void OnOK() override;

protected:
    /// A dialog without options, which the constructor of the derived class adds.
    COptionsDlg(unsigned int identifier, const CStr& caption);

    bool OnInitDialog() override;
    CDialogView* GetDialogView() const override { return GetView(); }
    /// An option has another value; of a number only if it is one that fits.
    /// @param number that of the field, the index of a choice, 1 or 0
    virtual void OnOption(int id, double number) = 0;
    /// What is wrong with the options together; empty if nothing is.
    virtual CStr GetFault() const = 0;
    /// What the line of text says while nothing is wrong.
    virtual CStr GetRemark() const = 0;

    /// The options, for the derived class to change; after OnOption they are shown anew by themselves.
    std::vector<SDialogOption>& EditOptions() noexcept { return m_options; }
    /// Shows the options, and below them what is wrong, or else the remark. Without a view nothing happens.
    void Show();

private:
    std::vector<SDialogOption> m_options;
    CStr m_caption;
};

} // namespace CommonUI
