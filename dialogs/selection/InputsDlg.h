#pragma once

#include "../../model/Parameter.h"
#include "OptionsDlg.h"

#include <span>
#include <vector>

namespace CommonUI
{

/// The dialog for the inputs of a parameter that is made from a template: which template, the values of its
/// variables, and what the parameter will be called.
class COMMONUI_API CInputsDlg : public COptionsDlg
{
public:
    COMMONUI_CONSTANT unsigned int c_identifier = 11101; ///< the number of the dialog and of its help topic
    COMMONUI_CONSTANT int c_template = 0;   ///< the list of templates; there is none where one is changed
    COMMONUI_CONSTANT int c_firstInput = 1; ///< the field of the first variable

    /// For a new parameter.
    /// @param list of the analysis; its templates are offered, and values that another parameter of it has
    ///     are refused
    /// @param parent the number of the template that is chosen at first
    CInputsDlg(std::vector<CParameter> list, int parent);
    /// For other inputs of a parameter of the list, which has to have its template there.
    static CInputsDlg ForInstance(std::vector<CParameter> list, const CParameter& instance);
    ~CInputsDlg() override;

    /// The number of the chosen template.
    int GetTemplate() const;
    /// The values of its variables, as CheckInputs wants them once OK has been pressed.
    const std::vector<double>& GetValues() const noexcept { return m_values; }

protected:
    void OnOption(int id, double number) override;
    CStr GetFault() const override;
    CStr GetRemark() const override;

private:
    CInputsDlg(std::vector<CParameter> list, int parent, const CParameter* instance);

    const CParameter& GetParent() const { return m_templates[m_chosen]; }
    void AddTemplates();
    void AddInputs();

    std::vector<CParameter> m_list;
    std::vector<CParameter> m_templates;
    std::size_t m_chosen = 0;
    std::vector<double> m_values;
    int m_instance = CParameter::c_noParent; // which is changed
};

/// The dialog for the number of a percentile.
class COMMONUI_API CPercentileDlg : public COptionsDlg
{
public:
    COMMONUI_CONSTANT unsigned int c_identifier = 11105; ///< the number of the dialog and of its help topic

    /// Lets the user change a number. @param percent what the field shows at first, from 0 to 100
    explicit CPercentileDlg(double percent);
    ~CPercentileDlg() override;

    /// The last number in the field that was one from 0 to 100; for use once OK has been pressed.
    double GetPercent() const noexcept { return m_percent; }

protected:
    void OnOption(int id, double number) override;
    CStr GetFault() const override { return {}; }
    CStr GetRemark() const override { return {}; }

private:
    double m_percent;
};

} // namespace CommonUI
