#include "programs/offscreen/OffscreenContext.h"

#include "programs/offscreen/PixelBits.h"

#include <utility>

namespace Offscreen
{

CContext::CContext(std::shared_ptr<SHandles> handles)
    : m_handles(std::move(handles))
    , m_bits(ReadPixelBits())
{
}

CContext::~CContext() = default;

} // namespace Offscreen
