#pragma once

#include "../SystemColors.h"

namespace CommonUI
{

/// A desktop that the program sets: for programs without one, and for tests.
class COMMONUI_API CMemorySystemColors : public CSystemColors
{
public:
    CMemorySystemColors();
    ~CMemorySystemColors() override;

    SSystemColors Get() const override { return m_colors; }
    /// Tells the listener, as a desktop does.
    void Set(const SSystemColors& colors);

private:
    SSystemColors m_colors;
};

} // namespace CommonUI
