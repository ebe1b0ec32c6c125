#pragma once

#include "qt/grid/detail/GridEditor.h"

class QComboBox;

namespace CommonUI
{

/// A list that drops down over the cell. It is done when the list is.
class CGridListEditor final : public CGridEditor
{
public:
    CGridListEditor(const SGridEdit& edit, QWidget& parent, FDone done);

    QWidget& GetWidget() const override;
    CStr GetText() const override;
    void DropDown() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QComboBox* m_box;
    bool m_dropped = false;
    EGridEditEnd m_end = EGridEditEnd::Cancelled; // taken once something has been chosen
};

} // namespace CommonUI
