#include "dialogs/ProgressDialog.h"

namespace CommonUI
{

CProgressDialog::~CProgressDialog() = default;

void CProgressDialog::Step(int increment)
{
    ShowProgress();
    Advance(increment);
}

} // namespace CommonUI
