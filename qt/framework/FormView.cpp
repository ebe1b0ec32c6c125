#include "qt/framework/FormView.h"

#include "qt/framework/WindowPlacer.h"

namespace CommonUI
{

CFormView::CFormView(const CStr& name, QWidget* form, QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setWidget(form);
    if (isWindow())
        new CWindowPlacer(*this, name);
}

CFormView::~CFormView() = default;

QSize CFormView::sizeHint() const
{
    return widget() ? widget()->sizeHint() : QScrollArea::sizeHint();
}

} // namespace CommonUI
