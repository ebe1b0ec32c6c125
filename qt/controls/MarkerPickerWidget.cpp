#include "qt/controls/MarkerPickerWidget.h"

#include "qt/controls/ColorPickerWidget.h"
#include "qt/controls/detail/ControlTexts.h"
#include "qt/controls/InterfaceStyle.h"
#include "qt/detail/EventGuard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QSpinBox>

namespace CommonUI
{

namespace
{

QPainterPath ToPath(const SMarkerPath& outline, const QPointF& middle, double half)
{
    QPolygonF polygon;
    for (const auto& [x, y] : outline.points)
        polygon.append(middle + half * QPointF(x, y));
    QPainterPath path;
    path.addPolygon(polygon);
    if (outline.closed)
        path.closeSubpath();
    return path;
}

QIcon MakeIcon(const SMarker& marker, const QSize& size, const QWidget& widget)
{
    QPixmap picture(size * widget.devicePixelRatioF());
    picture.setDevicePixelRatio(widget.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    DrawMarker(painter, QPointF(size.width(), size.height()) / 2, 0.75 * size.height(), marker);
    painter.end();
    return picture;
}

} // namespace

void DrawMarker(QPainter& painter, const QPointF& middle, double edge, const SMarker& marker)
{
    QColor color = ToQColor(marker.paint.color);
    color.setAlpha(marker.paint.opacity);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, std::max(1.0, edge / 8), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const SMarkerPath& outline : GetMarkerPaths(marker.shape)) {
        painter.setBrush(marker.filled && outline.closed ? QBrush(color) : QBrush());
        painter.drawPath(ToPath(outline, middle, edge / 2));
    }
    painter.restore();
}

CMarkerPickerWidget::CMarkerPickerWidget(CMarkerPicker& picker, QWidget* parent)
    : QWidget(parent)
    , m_picker(picker)
    , m_shape(new QComboBox)
    , m_size(new QSpinBox)
    , m_filled(new QCheckBox(GetQString(c_filled)))
{
    for (const auto& shape : GetMarkerShapeEnum())
        m_shape->addItem(ToQString(shape.GetFriendlyString()), shape.GetValue());
    m_size->setRange(SMarker::c_leastSize, SMarker::c_greatestSize);
    m_size->setSuffix(QStringLiteral(" pt"));
    LayOut();
    connect(m_shape, &QComboBox::activated, this, [this](int index) {
        const auto shape = static_cast<EMarkerShape>(m_shape->itemData(index).toInt());
        Guarded([&] { m_picker.ChooseShape(shape); });
    });
    connect(m_size, &QSpinBox::valueChanged, this,
            [this](int size) { Guarded([&] { m_picker.ChooseSize(size); }); });
    connect(m_filled, &QCheckBox::clicked, this,
            [this](bool filled) { Guarded([&] { m_picker.ChooseFilled(filled); }); });
    m_picker.GetChanged().Subscribe(*this, &CMarkerPickerWidget::Update, m_connection);
    Update();
}

CMarkerPickerWidget::~CMarkerPickerWidget() = default;

void CMarkerPickerWidget::LayOut()
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](int textId, QWidget* control) {
        auto* const label = new QLabel(GetQString(textId));
        label->setBuddy(control);
        layout->addWidget(label);
        layout->addWidget(control);
        layout->addSpacing(fontMetrics().averageCharWidth());
    };
    add(c_shape, m_shape);
    add(c_color, new CColorPickerWidget(m_picker.GetColorPicker()));
    add(c_size, m_size);
    layout->addWidget(m_filled);
    layout->addStretch();
}

void CMarkerPickerWidget::Update()
{
    const SMarker& marker = m_picker.GetMarker();
    m_shape->setCurrentIndex(m_shape->findData(static_cast<int>(marker.shape)));
    m_size->setValue(marker.size);
    m_filled->setChecked(marker.filled);
    m_filled->setEnabled(CanFillMarker(marker.shape));
    setAccessibleDescription(ToQString(DescribeMarker(marker)));
    DrawIcons();
}

// In the colour of the list: that of the marker may not be seen on it.
void CMarkerPickerWidget::DrawIcons()
{
    const QColor text = m_shape->palette().color(QPalette::Text);
    const auto part = [](int value) { return static_cast<std::uint8_t>(value); };
    SMarker marker = m_picker.GetMarker();
    marker.paint = {{part(text.red()), part(text.green()), part(text.blue())}};
    for (int i = 0; i < m_shape->count(); ++i) {
        marker.shape = static_cast<EMarkerShape>(m_shape->itemData(i).toInt());
        m_shape->setItemIcon(i, MakeIcon(marker, m_shape->iconSize(), *m_shape));
    }
}

void CMarkerPickerWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        DrawIcons();
}

} // namespace CommonUI
