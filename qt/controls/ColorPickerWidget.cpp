#include "qt/controls/ColorPickerWidget.h"

#include "controls/color/NamedColors.h"
#include "qt/controls/detail/ControlTexts.h"
#include "qt/controls/detail/Isolate.h"
#include "qt/controls/detail/Swatch.h"
#include "qt/controls/InterfaceStyle.h"
#include "qt/detail/EventGuard.h"

#include <QColorDialog>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QSlider>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr int c_textRole = Qt::UserRole;

// Frames the current swatch: Qt would draw a selection below it, where the text of an item is.
class CSwatchDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QRect place =
            QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, option.decorationSize, option.rect);
        index.data(Qt::DecorationRole).value<QIcon>().paint(painter, place);
        const bool hasFocus = option.state & QStyle::State_HasFocus;
        if (!hasFocus && !(option.state & QStyle::State_Selected))
            return;
        const auto role = hasFocus ? QPalette::Text : QPalette::Highlight;
        painter->setPen(QPen(option.palette.color(QPalette::Active, role), 2));
        painter->drawRect(place.adjusted(-2, -2, 2, 2));
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        return option.decorationSize + QSize(8, 8);
    }
};

QSize GetSwatchSize(const QWidget& widget)
{
    const int edge = widget.fontMetrics().height();
    return {edge + edge / 4, edge};
}

void AddSwatch(QListWidget& list, const SPaint& paint)
{
    const QString name = ToQString(DescribePaint(paint));
    auto* const item = new QListWidgetItem(MakeSwatch(paint, GetSwatchSize(list), list), QString(), &list);
    item->setData(c_textRole, ToQString(FormatPaint(paint)));
    item->setData(Qt::AccessibleTextRole, name);
    item->setToolTip(name);
}

void Select(QListWidget& list, const SPaint& paint)
{
    const QString text = ToQString(FormatPaint(paint));
    list.setCurrentItem(nullptr);
    for (int i = 0; i < list.count(); ++i)
        if (list.item(i)->data(c_textRole).toString() == text)
            list.setCurrentRow(i);
}

// A list is as high as its rows of swatches.
void FitHeight(QListWidget& list)
{
    const int rows = (list.count() + c_namedColorsInRow - 1) / c_namedColorsInRow;
    list.setFixedHeight(rows * list.gridSize().height() + 2 * list.frameWidth());
}

SColor ToColor(const QColor& color)
{
    return {static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
            static_cast<std::uint8_t>(color.blue())};
}

} // namespace

CColorPopup::CColorPopup(CColorPicker& picker, QWidget* parent)
    : QFrame(parent, Qt::Popup)
    , m_picker(picker)
    , m_text(new QLineEdit)
    , m_opacityLabel(new QLabel(GetQString(c_opacity)))
    , m_opacity(new QSlider(Qt::Horizontal))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAccessibleName(GetQString(c_chooseColor));
    new QVBoxLayout(this);
    m_named = AddList(c_colors);
    for (const SNamedColor& named : GetNamedColors())
        AddSwatch(*m_named, {named.color});
    FitHeight(*m_named);
    m_recentTitle = new QLabel(GetQString(c_recentColors) + QLatin1Char(':'));
    layout()->addWidget(m_recentTitle);
    m_recent = AddList(c_recentColors);
    layout()->addWidget(MakeFields());
    auto* const more = new QPushButton(GetQString(c_moreColors));
    more->setAutoDefault(false);
    connect(more, &QPushButton::clicked, this, &CColorPopup::ChooseMore);
    layout()->addWidget(more);
    m_picker.GetChanged().Subscribe(*this, &CColorPopup::Update, m_connection);
    FillRecent();
    Update();
}

CColorPopup::~CColorPopup() = default;

QListWidget* CColorPopup::AddList(int nameId)
{
    auto* const list = new QListWidget;
    list->setAccessibleName(GetQString(nameId));
    list->setViewMode(QListView::IconMode);
    list->setMovement(QListView::Static);
    list->setResizeMode(QListView::Fixed);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const QSize swatch = GetSwatchSize(*list);
    list->setIconSize(swatch);
    list->setItemDelegate(new CSwatchDelegate(list));
    list->setGridSize(swatch + QSize(8, 8));
    list->setFixedWidth(c_namedColorsInRow * list->gridSize().width() + 2 * list->frameWidth() + 1);
    connect(list, &QListWidget::itemActivated, this, [this, list](const QListWidgetItem* item) {
        SPaint paint;
        ParsePaint(FromQString(item->data(c_textRole).toString()), paint);
        // A named colour covers as much as the present one.
        Take(list == m_named ? SPaint{paint.color, m_picker.GetPaint().opacity} : paint);
    });
    connect(list, &QListWidget::itemClicked, list, &QListWidget::itemActivated);
    layout()->addWidget(list);
    return list;
}

QWidget* CColorPopup::MakeFields()
{
    auto* const fields = new QWidget;
    auto* const form = new QFormLayout(fields);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(GetQString(c_color), m_text);
    m_opacityLabel->setBuddy(m_opacity);
    form->addRow(m_opacityLabel, m_opacity);
    m_opacity->setRange(0, 100);
    m_opacityLabel->setVisible(m_picker.IsOpacityAllowed());
    m_opacity->setVisible(m_picker.IsOpacityAllowed());
    connect(m_text, &QLineEdit::returnPressed, this, &CColorPopup::Enter);
    connect(m_opacity, &QSlider::valueChanged, this, [this](int percent) {
        if (percent != GetOpacityPercent(m_picker.GetPaint()))
            Guarded([&] { m_picker.ChooseOpacity(percent); });
    });
    return fields;
}

void CColorPopup::FillRecent()
{
    for (const SPaint& paint : m_picker.GetRecent().GetAll())
        AddSwatch(*m_recent, paint);
    FitHeight(*m_recent);
    m_recent->setVisible(m_recent->count() > 0);
    m_recentTitle->setVisible(m_recent->count() > 0);
}

void CColorPopup::Update()
{
    const SPaint& paint = m_picker.GetPaint();
    m_text->setText(ToQString(FormatPaint(paint)));
    m_opacity->setValue(GetOpacityPercent(paint));
    m_opacity->setToolTip(QStringLiteral("%1 %").arg(m_opacity->value()));
    Select(*m_named, {paint.color});
    Select(*m_recent, paint);
}

void CColorPopup::Take(const SPaint& paint)
{
    close();
    Guarded([&] { m_picker.Choose(paint); });
}

void CColorPopup::Enter()
{
    const CStr text = FromQString(m_text->text());
    SPaint paint;
    if (ParsePaint(text, paint))
        return Take(paint);
    QToolTip::showText(m_text->mapToGlobal(m_text->rect().bottomLeft()),
                       ToQString(CStr::Format(GetString(c_noColor), text)), m_text);
    m_text->selectAll();
}

void CColorPopup::ChooseMore()
{
    QColor before = ToQColor(m_picker.GetPaint().color);
    before.setAlpha(m_picker.GetPaint().opacity);
    CColorPicker& picker = m_picker;
    QWidget* const window = parentWidget()->window();
    close();
    const auto alpha =
        picker.IsOpacityAllowed() ? QColorDialog::ShowAlphaChannel : QColorDialog::ColorDialogOptions();
    const QPointer<QWidget> guard(window);
    const QColor chosen = QColorDialog::getColor(before, window, GetQString(c_chooseColor), alpha);
    if (guard && chosen.isValid())
        Guarded([&] { picker.Choose({ToColor(chosen), static_cast<std::uint8_t>(chosen.alpha())}); });
}

void CColorPopup::showEvent(QShowEvent* event)
{
    QFrame::showEvent(event);
    m_named->setFocus(Qt::PopupFocusReason);
    if (!m_named->currentItem())
        m_named->setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

void CColorPopup::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QFrame::keyPressEvent(event);
}

CColorPickerWidget::CColorPickerWidget(CColorPicker& picker, QWidget* parent)
    : QPushButton(parent)
    , m_picker(picker)
{
    setAutoDefault(false);
    setIconSize(GetSwatchSize(*this));
    connect(this, &QPushButton::clicked, this, &CColorPickerWidget::Open);
    m_picker.GetChanged().Subscribe(*this, &CColorPickerWidget::Update, m_connection);
    Update();
}

CColorPickerWidget::~CColorPickerWidget() = default;

CColorPopup* CColorPickerWidget::GetPopup() const
{
    return findChild<CColorPopup*>(QString(), Qt::FindDirectChildrenOnly);
}

void CColorPickerWidget::Open()
{
    auto* const popup = new CColorPopup(m_picker, this);
    popup->adjustSize();
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    QPoint place =
        mapToGlobal(isMirrored ? rect().bottomRight() - QPoint(popup->width(), 0) : rect().bottomLeft());
    const QRect room = screen()->availableGeometry();
    if (place.y() + popup->height() > room.bottom())
        place.setY(mapToGlobal(rect().topLeft()).y() - popup->height());
    place.setX(std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - popup->width())));
    popup->move(place);
    popup->show();
}

void CColorPickerWidget::Update()
{
    const QString name = ToQString(DescribePaint(m_picker.GetPaint()));
    setIcon(MakeSwatch(m_picker.GetPaint(), iconSize(), *this));
    setText(IsolateIn(*this, name));
    setAccessibleDescription(name);
}

} // namespace CommonUI
