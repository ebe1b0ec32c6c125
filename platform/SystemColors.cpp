#include "platform/SystemColors.h"

#include "platform/memory/MemorySystemColors.h"

#include <utility>

namespace CommonUI
{

constinit CCurrentService<CSystemColors> CSystemColors::s_current([]() -> CSystemColors& {
    static CMemorySystemColors& light = *new CMemorySystemColors;
    return light;
});

CSystemColors::~CSystemColors() = default;

void CSystemColors::SetListener(FListener listener)
{
    m_listener = std::move(listener);
}

void CSystemColors::TellChanged() const
{
    // The listener may put another one in its place.
    if (const FListener listener = m_listener)
        listener();
}

CSystemColors& GetSystemColors()
{
    return CSystemColors::s_current.Get();
}

} // namespace CommonUI
