#pragma once

#include "../../export/Export.h"
#include "../../platform/ScreenService.h"

namespace CommonUI
{

/// The monitors as Qt knows them.
class COMMONUIQT_API CQtScreenService : public CScreenService
{
public:
    ~CQtScreenService() override;

    std::vector<SScreen> GetScreens() const override;
};

} // namespace CommonUI
