#pragma once

#include "ScalarEdit.h"

namespace CommonUI
{

/// An edit field for an integer. At first it holds 0, has the range of `int` and a step of 1. At first a
/// typed number is read up to its last digit ("12abc" is 12), and clamped however long it is. See SetScanning
/// for another way.
class COMMONUI_API CIntEdit : public CScalarEdit<int>
{
public:
    CIntEdit();
    ~CIntEdit() override;

    bool WindowTextToValue(int& value) const override;
    CStr ValueToText(const int& value) const override;
};

} // namespace CommonUI
