#pragma once

#include "../../export/Export.h"
#include "../../platform/ScreenService.h"

namespace CommonUI
{

/// The monitors in the pixels of the process: those of the device, unless the program leaves scaling to the
/// system.
class COMMONUIWIN_API CWinScreenService : public CScreenService
{
public:
    ~CWinScreenService() override;

    std::vector<SScreen> GetScreens() const override;
};

} // namespace CommonUI
