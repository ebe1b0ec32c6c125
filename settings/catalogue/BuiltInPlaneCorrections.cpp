#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/PlaneCorrectionSettings.h"

namespace CommonUI
{

namespace
{

using enum EBuiltInSetting;
using enum Analysis::ECorrectionScope;
using enum Analysis::ECorrectionMethod;

struct SRow {
    EBuiltInSetting setting;
    SPlaneCorrectionSettings set;
};

constexpr SRow c_rows[] = {
    {PlaneCorrQuickLaunchAutoLinewise, {Linewise, StepWizard, 1}},
    {PlaneCorrQuickLaunchAutoPlaneCorrection2, {Global, StepWizard, 2}},
    {PlaneCorrQuickLaunchImageBowCorrection, {Global, Polynomial, 2}},
    {PlaneCorrQuickLaunchImageLeveling, {Global, Polynomial, 1}},
    {PlaneCorrQuickLaunchLinewiseBowCorrection, {Linewise, Polynomial, 2}},
    {PlaneCorrQuickLaunchLinewiseFlattening, {Linewise, Offset}},
    {PlaneCorrQuickLaunchLinewiseLeveling, {Linewise, Polynomial, 1}},
    {PlaneCorrQuickLaunchZeroBackgroundOffset, {Global, ZeroBackground}},
    {PlaneCorrQuickLaunchAutoPlaneCorrection1, {Global, StepWizard, 1}},
    {PlaneCorrQuickLaunchProfileOrder1, {Profile, Polynomial, 1}},
    {PlaneCorrQuickLaunchProfileOrder2, {Profile, Polynomial, 2}},
    {PlaneCorrQuickLaunchProfileOrder3, {Profile, Polynomial, 3}},
    {PlaneCorrQuickLaunchProfileOrder4, {Profile, Polynomial, 4}},
    {PlaneCorrQuickLaunchProfileOrder5, {Profile, Polynomial, 5}},
    {PlaneCorrQuickLaunchProfileOrder6, {Profile, Polynomial, 6}},
    {PlaneCorrQuickLaunchProfileOrder7, {Profile, Polynomial, 7}},
    {PlaneCorrQuickLaunchProfileOrder8, {Profile, Polynomial, 8}},
    {PlaneCorrQuickLaunchProfileOrder9, {Profile, Polynomial, 9}},
    {PlaneCorrQuickLaunchProfileWiz1, {Profile, StepWizard, 1}},
    {PlaneCorrQuickLaunchProfileWiz2, {Profile, StepWizard, 2}},
    {PlaneCorrQuickLaunchProfileZeroBackground, {Profile, ZeroBackground}},
};

static_assert(HoldsEverySet(ESettingType::PlaneCorr, c_rows));

} // namespace

void WriteBuiltInPlaneCorrection(EBuiltInSetting setting, CInifile& ini)
{
    FindRow(c_rows, setting)->set.Save(ini);
}

} // namespace CommonUI
