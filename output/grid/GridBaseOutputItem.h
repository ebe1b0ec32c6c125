#pragma once

#include "../../export/Export.h"
#include "GridFormats.h"
#include "GridItem.h"

namespace CommonUI
{

/// A cell that shows a result, in a format of its own for each type of value. The user cannot change it.
class COMMONUI_API CGridBaseOutputItem : public CGridItem
{
public:
    CGridBaseOutputItem();
    ~CGridBaseOutputItem() override;

    /// Sets the format of values of a type: see CGridFormats::Set.
    void SetFormatString(int type, const CStr& format);
    CStr FormatItem() const override;

private:
    CGridFormats m_formats;
};

} // namespace CommonUI
