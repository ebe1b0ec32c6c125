#pragma once

#include "controls/FloatEdit.h"
#include "controls/IntEdit.h"
#include "measurement/process/ProcessStep.h"
#include "qt/edits/NumericEditWidget.h"

#include <QObject>

#include <functional>
#include <memory>

namespace Workbench
{

/// The number of as many digits as a float has, which is what the user has typed.
double ToDouble(float value);

/// An edit for odd numbers: a step leads to the next one, and what is typed between two to one of them.
class COddEdit : public CommonUI::CIntEdit
{
public:
    ~COddEdit() override;

    void OnSpinDeltaPos(int delta) override;

protected:
    bool DoValueChange(int value, bool validate) override;
};

/// The field of a number of a step. Lengths are shown in µm.
class CNumberRow : public QObject
{
public:
    using FEdited = std::function<void(CommonUI::Measurement::EStepNumber, double)>;

    /// @param parent owns the row and its field
    CNumberRow(QWidget& parent, const CommonUI::Measurement::SStepNumber& number, FEdited edited);
    ~CNumberRow() override;

    CommonUI::Measurement::EStepNumber GetNumber() const noexcept { return m_number.number; }
    CommonUI::CNumericEditWidget& GetField() noexcept { return *m_field; }
    /// Shows a value that the user has not entered.
    void SetValue(double value);

private:
    void OnInteger(int value);
    void OnReal(float value);
    double GetUnit() const;

    CommonUI::Measurement::SStepNumber m_number;
    FEdited m_edited;
    std::unique_ptr<CommonUI::CIntEdit> m_integer; // one of both
    std::unique_ptr<CommonUI::CFloatEdit> m_real;
    CommonUI::CNumericEditWidget* m_field; // the parent's
    bool m_isSetting = false;
};

} // namespace Workbench
