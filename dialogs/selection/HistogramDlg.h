#pragma once

#include "../../model/GrainAnalysisPreferencesData.h"
#include "OptionsDlg.h"

#include <array>

namespace CommonUI
{

/// The dialog for the histograms of a quantity of grains: the classes and bounds of each.
class COMMONUI_API CHistogramDlg : public COptionsDlg
{
public:
    COMMONUI_CONSTANT unsigned int c_identifier = 11106; ///< the number of the dialog and of its help topic
    COMMONUI_CONSTANT int c_histogram = 0;               ///< which of the three is shown
    COMMONUI_CONSTANT int c_lowerOn = 1;                 ///< whether there is a lower bound
    COMMONUI_CONSTANT int c_lower = 2;                   ///< the lower bound
    COMMONUI_CONSTANT int c_upperOn = 3;                 ///< whether there is an upper bound
    COMMONUI_CONSTANT int c_upper = 4;                   ///< the upper bound
    COMMONUI_CONSTANT int c_classes = 5;                 ///< how many classes there are

    /// @param quantity with its histograms; bounds are in its unit
    /// @param units those of the surface
    CHistogramDlg(const CParameter& quantity, const SBase3D<CUnit>& units);
    ~CHistogramDlg() override;

    /// The classes and bounds of a histogram as the user has left them; for use once OK has been pressed.
    CParameter::SHistogramSetup GetSetup(EGrainHistograms histogram) const
    {
        return m_quantity.GetHistogramSetup(static_cast<std::size_t>(histogram));
    }

protected:
    void OnOption(int id, double number) override;
    CStr GetFault() const override;
    CStr GetRemark() const override { return {}; }

private:
    SDialogOption MakeBound(int id, int label, double bound, bool on) const;
    void Fill();

    CParameter m_quantity;
    SBase3D<CUnit> m_units;
    int m_shown = 0;
};

} // namespace CommonUI
