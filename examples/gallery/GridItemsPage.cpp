#include "examples/gallery/Pages.h"
#include "output/grid/GridBaseOutputItem.h"
#include "output/grid/GridButtonItem.h"
#include "output/grid/GridCheckItem.h"
#include "output/grid/GridColorIndicatorItem.h"
#include "output/grid/GridDblSpinItem.h"
#include "output/grid/GridListItem.h"
#include "output/grid/GridSetupItem.h"
#include "output/grid/GridUnitListItem.h"
#include "qt/grid/GridWidget.h"
#include "qt/QtText.h"

#include <QCheckBox>
#include <QLabel>
#include <QResizeEvent>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace Gallery
{

namespace
{

using namespace CommonUI;

constexpr unsigned int c_resetImage = 1;

// A row for every kind of item. What the items call is written down.
class CGridItemsPage : public QWidget
{
public:
    explicit CGridItemsPage(FLog log)
        : m_log(std::move(log))
        , m_widget(new CGridCtrlWidget)
    {
        auto* const label = new QLabel(QStringLiteral("&Items:"));
        label->setBuddy(m_widget);
        auto* const readOnly = new QCheckBox(QStringLiteral("&Read-only"));
        connect(readOnly, &QCheckBox::toggled, this, [this](bool on) { Grid().SetReadOnly(on); });
        auto* const keys =
            new QLabel(QStringLiteral("Space toggles, Enter or F2 edits or opens a set-up, typing "
                                      "edits, the arrow keys open and close rows."));
        keys->setWordWrap(true);
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(label);
        layout->addWidget(m_widget, 1);
        layout->addWidget(keys);
        layout->addWidget(readOnly);

        m_widget->SetImages([this](unsigned int image) {
            return image == c_resetImage ? style()->standardIcon(QStyle::SP_BrowserReload) : QIcon();
        });
        for (const char16_t* const header : {u"Item", u"Value", u"Unit", u"Shown"})
            Grid().AddColumn({header, 120});
        Grid().SetChangeCallback(*this, &CGridItemsPage::OnChange);
        AddSetups();
        AddTree();
        AddValues();
        AddButtons();
        m_widget->GetGrid().FitColumns();
        m_widget->viewport()->installEventFilter(this);
        Grid().SelectCell({0, 1});
    }

    // The values have what room the other columns leave.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Resize) {
            const int rest = static_cast<QResizeEvent*>(event)->size().width() - Grid().GetExtent().width;
            Grid().SetColumnWidth(1, std::max(Grid().GetColumnWidth(1) + rest, 120));
        }
        return QWidget::eventFilter(watched, event);
    }

    CGridCtrl& Grid() { return m_widget->GetGrid(); }
    CGridCtrlWidget& GetWidget() { return *m_widget; }

private:
    CGridRow& AddRow(const char16_t* name)
    {
        CGridRow& row = Grid().AddRow();
        AddName(row, name);
        return row;
    }
    static void AddName(CGridRow& row, const char16_t* name)
    {
        row.Emplace<CGridItem>(name).SetFlag(CGridItem::ReadOnly);
    }

    void AddSetups()
    {
        CGridSetupItem& setup = AddRow(u"Set-up with a check box").Emplace<CGridSetupItem>(true);
        setup.SetValue(u"Gaussian filter");
        setup.SetChecked(true, false);
        setup.SetCallback(*this, &CGridItemsPage::OnSetUp);
        CGridSetupItem& plain = AddRow(u"Set-up without").Emplace<CGridSetupItem>(false);
        plain.SetValue(u"Form removal");
        plain.SetCallback(*this, &CGridItemsPage::OnSetUp);
    }

    void AddTree()
    {
        using EDimension = CParameter::EDimension;
        const SBase3D<CUnit> units{CUnit(CUnit::EUnitFactor::Unity, u"m"),
                                   CUnit(CUnit::EUnitFactor::Unity, u"m"),
                                   CUnit(CUnit::EUnitFactor::Unity, u"m")};
        CGridRow& height = AddRow(u"Height parameters");
        height.Emplace<CGridItem>();
        height.Emplace<CGridUnitListItem>(EDimension::LengthZ, CUnit::EUnitFactor::Nano, units);
        height.Emplace<CGridCheckItem>(2, 0);
        const struct {
            const char16_t* name;
            double value;
            int shown;
        } parameters[] = {{u"Sa", 12.482, 1}, {u"Sq", 15.907, 0}, {u"Sz", 143.2, 1}};
        for (const auto& parameter : parameters) {
            CGridRow& row = height.AddSubRow();
            AddName(row, parameter.name);
            CGridBaseOutputItem& value = row.Emplace<CGridBaseOutputItem>();
            value.SetFormatString(static_cast<int>(EGridValueType::R8), u"%.1f");
            value.SetValue(parameter.value);
            row.Emplace<CGridItem>();
            row.Emplace<CGridCheckItem>(parameter.shown, 0);
        }
    }

    void AddValues()
    {
        CGridDblSpinItem& spin = AddRow(u"Number with arrows").Emplace<CGridDblSpinItem>(2.5);
        spin.EnableSpinControl(true, 0, 25);
        AddRow(u"Number").Emplace<CGridDblSpinItem>(0.8);
        CGridListItem& list = AddRow(u"List").Emplace<CGridListItem>();
        list.SetOptions({u"Areal", u"Profile", u"Series of profiles"});
        list.SetValue(u"Areal");
        AddRow(u"Text by a mask, a-dd")
            .Emplace<CGridItem>(CGridValue(u"B-12"), 0,
                                SGridEditRules{.mask = u"a-dd", .initialText = u"A-00"});
        AddRow(u"Text").Emplace<CGridItem>(u"ground steel, 0.8 mm cut-off");
        CGridColorIndicatorItem& color = AddRow(u"Colour").Emplace<CGridColorIndicatorItem>(u"Pores");
        color.SetOutlineColor({96, 96, 96});
        color.SetFillColor({230, 126, 34});
    }

    void AddButtons()
    {
        AddRow(u"Button")
            .Emplace<CGridButtonItem>(u"Apply to all", 400, SGridButton::c_noImage)
            .SetCallback(*this, &CGridItemsPage::OnButton);
        AddRow(u"Button with an image")
            .Emplace<CGridButtonItem>(u"Reset", 401, c_resetImage)
            .SetCallback(*this, &CGridItemsPage::OnButton);
        CGridRow& disabled = AddRow(u"Disabled");
        disabled.Emplace<CGridButtonItem>(u"Not now", 402, SGridButton::c_noImage)
            .SetFlag(CGridItem::Disabled);
        disabled.Emplace<CGridItem>(u"greyed").SetFlag(CGridItem::Disabled);
        disabled.Emplace<CGridCheckItem>(1, 0).SetFlag(CGridItem::Disabled);
    }

    void OnChange(CGridItem& item, int /*id*/)
    {
        m_log(QStringLiteral("Changed: %1 is %2").arg(NameOf(item), ToQString(item.GetSpokenText())));
    }
    void OnSetUp(CGridSetupItem& item) { m_log(QStringLiteral("Set-up: %1").arg(NameOf(item))); }
    void OnButton(CGridButtonItem& item) { m_log(QStringLiteral("Command %1").arg(item.GetCommandId())); }
    static QString NameOf(const CGridItem& item)
    {
        return ToQString(item.GetRow()->GetItem(0)->FormatItem());
    }

    FLog m_log;
    CGridCtrlWidget* m_widget;
};

} // namespace

QWidget* MakeGridItemsPage(const FLog& log)
{
    return new CGridItemsPage(log);
}

void StageGridItemsPage(QWidget& page)
{
    auto& items = static_cast<CGridItemsPage&>(page);
    items.GetWidget().setFocus(Qt::TabFocusReason);
    items.Grid().SelectCell({6, 1});
    items.Grid().BeginEdit();
}

} // namespace Gallery
