#include "measurement/detail/DescribeLength.h"

#include "common/Unit.h"
#include "model/Parameter.h"
#include "output/results/NumberFormat.h"

namespace CommonUI::Measurement
{

CStr DescribeLength(double metres)
{
    const CUnit unit(CUnit(CUnit::EUnitFactor::Unity).SuitableFactor(metres, 1));
    const double shown = metres / unit.GetFactorValue();
    return FormatParameterValue(shown, CParameter::SFormatSpecifier()) + u" " + unit.GetText();
}

} // namespace CommonUI::Measurement
