#pragma once

#include "../../export/Export.h"
#include "../../platform/SystemColors.h"

#include <memory>

namespace CommonUI
{

/// The colours that the user has set for programs: dark or light, the accent, and high contrast.
class COMMONUIWIN_API CWinSystemColors : public CSystemColors
{
public:
    /// Throws std::system_error where the system has no window left, by which changes are heard of.
    CWinSystemColors();
    ~CWinSystemColors() override;

    SSystemColors Get() const override { return m_colors; }

private:
    class CListener;

    void Read();

    SSystemColors m_colors;
    std::unique_ptr<CListener> m_system;
};

} // namespace CommonUI
