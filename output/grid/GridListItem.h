#pragma once

#include "../../export/Export.h"
#include "GridItem.h"

namespace CommonUI
{

/// A cell that edits one choice of a list. The choices are its options; the value is the text of the chosen
/// one, or another text while none has been chosen.
class COMMONUI_API CGridListItem : public CGridItem
{
public:
    CGridListItem();
    ~CGridListItem() override;

    /// A list of the options, in their order. @return false when there are none
    bool CreateInPlaceEdit(SGridEdit& edit) const override;
    /// Takes a text that is one of the options.
    bool OnEndEdit(const CStr& text) override;
};

} // namespace CommonUI
