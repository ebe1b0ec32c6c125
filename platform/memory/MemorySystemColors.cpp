#include "platform/memory/MemorySystemColors.h"

namespace CommonUI
{

CMemorySystemColors::CMemorySystemColors() = default;

CMemorySystemColors::~CMemorySystemColors() = default;

void CMemorySystemColors::Set(const SSystemColors& colors)
{
    m_colors = colors;
    TellChanged();
}

} // namespace CommonUI
