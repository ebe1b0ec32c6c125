#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <QScrollArea>

namespace CommonUI
{

/// A form that fills its place: the window of a document, a page, a pane. It grows with the view, and where
/// the view is smaller than the form can be, the view scrolls and follows the focus. A view that is a window
/// of its own remembers its placement.
class COMMONUIQT_API CFormView : public QScrollArea
{
    Q_OBJECT

public:
    /// @param name tells the view from all other windows of the application; never translated
    /// @param form is owned by the view
    CFormView(const CStr& name, QWidget* form, QWidget* parent = nullptr);
    ~CFormView() override;

    QSize sizeHint() const override;
};

} // namespace CommonUI
