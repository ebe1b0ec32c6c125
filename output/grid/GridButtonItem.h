#pragma once

#include "../../export/Export.h"
#include "GridItem.h"

namespace CommonUI
{

/// A cell that is a button. It changes nothing by itself, so it works in read-only grids, too.
class COMMONUI_API CGridButtonItem : public CGridItem
{
public:
    /// @param text what the button says
    /// @param id of the command, by which callbacks tell buttons apart: that of the item
    /// @param imageId a picture of the application's in front of the text; SGridButton::c_noImage for none
    CGridButtonItem(const char16_t* text, unsigned int id, unsigned int imageId);
    ~CGridButtonItem() override;

    /// The number by which callbacks tell buttons apart: the item's id.
    unsigned int GetCommandId() const noexcept { return static_cast<unsigned int>(GetId()); }
    /// The application's number of the picture; SGridButton::c_noImage for none.
    unsigned int GetImageId() const noexcept { return m_imageId; }

    /// Sets the member function that a click calls. The object is not owned; the function may remove the item
    /// and destroy the grid.
    template<class TObject>
    void SetCallback(std::type_identity_t<TObject>& object, void (TObject::*method)(CGridButtonItem&))
    {
        m_slot.Set(MakeClosure(object, method));
    }

    /// The button in a cell: the cell without its margins.
    static SRect GetPushRect(const SRect& rect);
    /// Beside the picture.
    SRect GetTextRect(const SRect& rect) const override;
    void OnDrawValue(CGridPainter& painter, const SRect& rect) const override;
    /// A left press on the button calls the callback. A button without one takes the click and does nothing.
    bool OnClickValue(unsigned int message, SPoint point, const SRect& rect) override;
    bool OnSpace() override;
    bool OnEnter() override;
    /// A hand over the button.
    EGridCursor OnSetCursor(SPoint point, const SRect& rect) const override;
    /// There is no editor.
    bool CreateInPlaceEdit(SGridEdit& edit) const override;

private:
    unsigned int m_imageId;
    CCallbackSlot m_slot;
};

} // namespace CommonUI
