#include "controls/color/MarkerPicker.h"

#include <algorithm>

namespace CommonUI
{

CMarkerPicker::CMarkerPicker(CRecentColors* recent)
    : m_colors(recent)
{
    m_colors.SetCallback(*this, &CMarkerPicker::OnColor);
}

CMarkerPicker::~CMarkerPicker() = default;

void CMarkerPicker::SetMarker(const SMarker& marker)
{
    m_colors.SetPaint(marker.paint);
    SMarker clamped = marker;
    clamped.paint = m_colors.GetPaint();
    clamped.size = std::clamp(marker.size, SMarker::c_leastSize, SMarker::c_greatestSize);
    if (clamped == m_marker)
        return;
    m_marker = clamped;
    m_changed.Invoke();
}

void CMarkerPicker::Change(SMarker marker)
{
    const SMarker before = m_marker;
    const CWatch watch(*this);
    SetMarker(marker);
    if (watch.IsGone() || m_marker == before)
        return;
    marker = m_marker;
    if (const auto closure = m_slot.Share<void, const SMarker&>())
        closure->Invoke(marker);
}

void CMarkerPicker::OnColor(const SPaint& paint)
{
    SMarker marker = m_marker;
    marker.paint = paint;
    Change(marker);
}

void CMarkerPicker::ChooseShape(EMarkerShape shape)
{
    SMarker marker = m_marker;
    marker.shape = shape;
    Change(marker);
}

void CMarkerPicker::ChooseSize(int size)
{
    SMarker marker = m_marker;
    marker.size = size;
    Change(marker);
}

void CMarkerPicker::ChooseFilled(bool filled)
{
    SMarker marker = m_marker;
    marker.filled = filled;
    Change(marker);
}

} // namespace CommonUI
