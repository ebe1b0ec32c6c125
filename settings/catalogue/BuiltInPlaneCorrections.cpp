#include "settings/catalogue/detail/BuiltInContents.h"
#include "settings/readers/PlaneCorrectionSettings.h"

namespace CommonUI
{

namespace
{

using enum Analysis::ECorrectionScope;
using enum Analysis::ECorrectionMethod;

struct SRow {
    int number;
    SPlaneCorrectionSettings set;
};

constexpr SRow c_rows[] = {
    {1, {Linewise, StepWizard, 1}}, {2, {Global, StepWizard, 2}},   {3, {Global, Polynomial, 2}},
    {4, {Global, Polynomial, 1}},   {5, {Linewise, Polynomial, 2}}, {6, {Linewise, Offset}},
    {7, {Linewise, Polynomial, 1}}, {8, {Global, ZeroBackground}},  {9, {Global, StepWizard, 1}},
    {10, {Profile, Polynomial, 1}}, {11, {Profile, Polynomial, 2}}, {12, {Profile, Polynomial, 3}},
    {13, {Profile, Polynomial, 4}}, {14, {Profile, Polynomial, 5}}, {15, {Profile, Polynomial, 6}},
    {16, {Profile, Polynomial, 7}}, {17, {Profile, Polynomial, 8}}, {18, {Profile, Polynomial, 9}},
    {19, {Profile, StepWizard, 1}}, {20, {Profile, StepWizard, 2}}, {21, {Profile, ZeroBackground}},
};

static_assert(AreNumbered(c_rows, 1, 21));

} // namespace

void WriteBuiltInPlaneCorrection(EBuiltInSetting setting, CInifile& ini)
{
    c_rows[static_cast<int>(setting) - c_rows[0].number].set.Save(ini);
}

} // namespace CommonUI
