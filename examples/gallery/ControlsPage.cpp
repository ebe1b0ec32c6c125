#include "examples/gallery/Pages.h"
#include "examples/gallery/Palettes.h"
#include "qt/controls/ColorPickerWidget.h"
#include "qt/controls/FittedLabel.h"
#include "qt/controls/InterfaceStyle.h"
#include "qt/controls/MarkerPickerWidget.h"
#include "qt/controls/SectionWidget.h"
#include "qt/controls/ToolTips.h"
#include "qt/QtText.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QSlider>
#include <QVBoxLayout>

namespace Gallery
{

namespace
{

using namespace CommonUI;

class CControlsPage : public QWidget
{
public:
    explicit CControlsPage(FLog log)
        : m_log(std::move(log))
        , m_layout(new QVBoxLayout(this))
    {
        AddSection(u"Label", "La&bels", MakeLabels());
        AddSection(u"Interface", "&Interface", MakeInterface());
        AddSection(u"Color", "Colours and &markers", MakePickers());
        AddSection(u"More", "&Closed at first", new QLabel(QStringLiteral("It stays as it was left.")));
        m_sections.SetExpanded(u"More", false);
        m_layout->addStretch();
    }

    CColorPickerWidget* m_color = nullptr;

private:
    void AddSection(const CStr& name, const char* title, QWidget* content)
    {
        auto* const section = new CSectionWidget(m_sections, name, QString::fromUtf8(title));
        section->SetContent(*content);
        m_layout->addWidget(section);
    }
    QWidget* MakePickers()
    {
        auto* const pickers = new QWidget;
        auto* const form = new QFormLayout(pickers);
        for (const char16_t* const text : {u"#c2410c", u"#0f766e80", u"#1d4ed8"}) {
            SPaint paint;
            ParsePaint(text, paint);
            m_recent.Add(paint);
        }
        m_picker.AllowOpacity(true);
        m_picker.SetPaint({{0, 128, 128}, 160});
        m_picker.SetCallback(*this, &CControlsPage::OnColor);
        m_color = new CColorPickerWidget(m_picker);
        form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
        form->addRow(QStringLiteral("C&urve:"), m_color);
        m_marker.SetMarker({.shape = EMarkerShape::Diamond, .paint = {{255, 0, 0}}, .size = 10});
        m_marker.SetCallback(*this, &CControlsPage::OnMarker);
        form->addRow(QStringLiteral("Points:"), new CMarkerPickerWidget(m_marker));
        return pickers;
    }
    QWidget* MakeLabels()
    {
        auto* const labels = new QWidget;
        auto* const column = new QWidget;
        auto* const layout = new QVBoxLayout(column);
        layout->setContentsMargins(0, 0, 0, 0);
        auto* const path = new CElidedLabel(EElision::Path);
        path->setText(QStringLiteral("/data/measurements/2024/ground steel/line 7/scan 12.sdf"));
        auto* const value = new CValueLabel;
        value->SetValue({u"Root Mean Square Height of the Scale-Limited Surface", u"35.223", u"nm"});
        SetToolTip(*value, {u"Sq", u"Root Mean Square Height",
                            u"The deviation of the heights from their mean.", u"nm", u"ISO 25178-2"});
        auto* const large = new CScalingLabel;
        large->setText(QStringLiteral("35.223\u00A0nm"));
        large->SetFontRange({8, 40, 0.5});
        large->setMinimumHeight(4 * fontMetrics().height());
        large->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        for (QWidget* const label : std::initializer_list<QWidget*>{path, value, large})
            layout->addWidget(label);
        auto* const width = new QSlider(Qt::Horizontal);
        width->setRange(5, 60);
        connect(width, &QSlider::valueChanged, column, [this, column](int letters) {
            column->setFixedWidth(letters * fontMetrics().averageCharWidth());
        });
        width->setValue(34);
        auto* const form = new QFormLayout(labels);
        form->addRow(QStringLiteral("&Width:"), width);
        form->addRow(column);
        return labels;
    }
    QWidget* MakeInterface()
    {
        auto* const interface = new QWidget;
        auto* const form = new QFormLayout(interface);
        form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
        auto* const schemes = new QComboBox;
        for (const auto& scheme : GetInterfaceSchemeEnum())
            schemes->addItem(ToQString(scheme.GetFriendlyString()), scheme.GetValue());
        schemes->setCurrentIndex(schemes->findData(static_cast<int>(GetColors().GetChoice())));
        connect(schemes, &QComboBox::activated, this, [schemes](int index) {
            GetColors().SetChoice(static_cast<EInterfaceScheme>(schemes->itemData(index).toInt()));
        });
        form->addRow(QStringLiteral("C&olours:"), schemes);
        m_messages = new QLabel;
        form->addRow(m_messages);
        GetColors().GetChanged().Subscribe(*this, &CControlsPage::OnColors, m_connection);
        OnColors();
        return interface;
    }
    void OnColors()
    {
        using enum EInterfaceColor;
        QString text;
        const std::pair<EInterfaceColor, const char*> messages[] = {
            {Error, "The file cannot be read."}, {Warning, "Three points are missing."}, {Success, "Saved."}};
        for (const auto& [color, message] : messages)
            text += QStringLiteral("<span style='color:%1'>%2</span>&nbsp; ")
                        .arg(ToQColor(GetColors().Get(color)).name(), QString::fromUtf8(message));
        m_messages->setText(text);
    }
    void OnColor(const SPaint& paint)
    {
        m_log(QStringLiteral("Curve: %1").arg(ToQString(DescribePaint(paint))));
    }
    void OnMarker(const SMarker& marker)
    {
        m_log(QStringLiteral("Points: %1").arg(ToQString(DescribeMarker(marker))));
    }

    FLog m_log;
    QVBoxLayout* m_layout;
    CSections m_sections;
    CRecentColors m_recent;
    CColorPicker m_picker{&m_recent};
    CMarkerPicker m_marker{&m_recent};
    QLabel* m_messages = nullptr;
    CClosureConnection m_connection;
};

} // namespace

QWidget* MakeControlsPage(const FLog& log)
{
    return new CControlsPage(log);
}

void StageControlsPage(QWidget& page)
{
    auto& controls = static_cast<CControlsPage&>(page);
    controls.m_color->setFocus(Qt::TabFocusReason);
    controls.m_color->Open();
}

} // namespace Gallery
