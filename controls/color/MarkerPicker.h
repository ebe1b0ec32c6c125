#pragma once

#include "ColorPicker.h"
#include "Marker.h"

namespace CommonUI
{

/// The logic of a marker picker: shape, colour, size and whether it is filled. Its colour picker is shown
/// beside the shapes.
class COMMONUI_API CMarkerPicker : public CWnd
{
public:
    /// @param recent see CColorPicker
    explicit CMarkerPicker(CRecentColors* recent = nullptr);
    ~CMarkerPicker();

    /// The marker, be it chosen or set.
    const SMarker& GetMarker() const noexcept { return m_marker; }
    /// Sets the marker for the program: the callback is not called. The size is clamped.
    void SetMarker(const SMarker& marker);
    /// The part of the picker that chooses the colour; the picker has set its callback.
    CColorPicker& GetColorPicker() noexcept { return m_colors; }

    /// The user has chosen a shape.
    void ChooseShape(EMarkerShape shape);
    /// Clamped to the sizes of SMarker.
    void ChooseSize(int size);
    /// The user has chosen whether the shape is filled; kept for shapes that cannot be.
    void ChooseFilled(bool filled);

    /// Sets the member function that is called when the user has changed the marker. The object is not owned;
    /// the function may destroy the picker.
    template<class TObject>
    void SetCallback(std::type_identity_t<TObject>& object, void (TObject::*method)(const SMarker&))
    {
        m_slot.Set(MakeClosure(object, method));
    }
    /// For views: the marker is another one, whoever has changed it.
    CMultiClosure0<void>& GetChanged() noexcept { return m_changed; }

private:
    void OnColor(const SPaint& paint);
    void Change(SMarker marker);

    SMarker m_marker;
    CColorPicker m_colors;
    CCallbackSlot m_slot;
    CMultiClosure0<void> m_changed;
};

} // namespace CommonUI
