#include "examples/gallery/Pages.h"
#include "qt/controls/ExtendedListWidget.h"
#include "qt/controls/ItemListWidget.h"
#include "qt/QtText.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>

#include <cmath>

namespace Gallery
{

namespace
{

using namespace CommonUI;

constexpr const char16_t* c_items[][2] = {
    {u"Sa", u"Sa, Arithmetic Mean Height"},
    {u"Sq", u"Sq, Root Mean Square Height"},
    {u"Ssk", u"Ssk, Skewness"},
    {u"Sku", u"Sku, Kurtosis"},
    {u"Sz", u"Sz, Maximum Height"},
    {u"Sal", u"Sal, Autocorrelation Length"},
};

constexpr const char16_t* c_samples[] = {u"Ground steel", u"Lapped ceramic", u"Etched silicon"};

// Made-up measurements.
std::vector<SExtendedRow> MakeRows(int count)
{
    std::vector<SExtendedRow> rows;
    for (int i = 0; i < count; ++i) {
        const CStr group = c_samples[i % 3];
        const double height = (i % 3 + 1) * 40 * (1 + 0.3 * std::sin(1.7 * i));
        const bool failed = i % 11 == 7;
        const std::optional<double> value = failed ? std::nullopt : std::optional(height);
        rows.push_back({{{CStr::Format(u"Scan %d", i + 1)},
                         {failed ? CStr() : CStr::Format(u"%.1f nm", height), value},
                         {failed ? CStr(u"no reference plane") : CStr()}},
                        group,
                        i % 4 == 0});
    }
    return rows;
}

class CListsPage : public QWidget
{
public:
    explicit CListsPage(FLog log)
        : m_log(std::move(log))
    {
        FillLists();
        auto* const layout = new QVBoxLayout(this);
        const auto add = [&](const char* title, QWidget* control, int stretch) {
            auto* const label = new QLabel(QString::fromUtf8(title));
            label->setBuddy(control);
            layout->addWidget(label);
            layout->addWidget(control, stretch);
        };
        add("&Parameters of the report, in their order:", new CItemListWidget(m_items, true), 2);
        m_extended = new CExtendedListWidget(m_measurements, true);
        m_extended->GetView().header()->resizeSection(0, 22 * fontMetrics().averageCharWidth());
        add("&Measurements:", m_extended, 3);
        auto* const grouped = new QCheckBox(QStringLiteral("By &sample"));
        grouped->setChecked(true);
        connect(grouped, &QCheckBox::toggled, this, [this](bool by) { m_measurements.SetGrouped(by); });
        layout->addWidget(grouped);
    }

    CItemList m_items;
    CExtendedList m_measurements;
    CExtendedListWidget* m_extended;

private:
    void FillLists()
    {
        std::vector<SListItem> items;
        for (const auto& [key, text] : c_items)
            items.push_back({key, text, items.size() % 2 == 0});
        m_items.SetItems(items);
        m_items.GetItemsChanged().Subscribe(*this, &CListsPage::OnItems, m_itemsConnection);
        m_measurements.SetColumns({{u"Measurement"}, {u"Sq", true}, {u"Remark"}});
        m_measurements.SetRows(MakeRows(60));
        m_measurements.SetGrouped(true);
        m_measurements.GetChecksChanged().Subscribe(*this, &CListsPage::OnChecks, m_checksConnection);
    }
    void OnItems()
    {
        QStringList keys;
        for (const SListItem& item : m_items.GetItems())
            keys.append(ToQString(item.key));
        m_log(QStringLiteral("Parameters: %1").arg(keys.join(QLatin1Char(' '))));
    }
    void OnChecks()
    {
        m_log(QStringLiteral("Measurements: %1 checked").arg(m_measurements.GetCheckedCount()));
    }

    FLog m_log;
    CClosureConnection m_itemsConnection;
    CClosureConnection m_checksConnection;
};

} // namespace

QWidget* MakeListsPage(const FLog& log)
{
    return new CListsPage(log);
}

void StageListsPage(QWidget& page)
{
    auto& lists = static_cast<CListsPage&>(page);
    const std::size_t selected[] = {1, 2};
    lists.m_items.Select(selected, 1);
    lists.m_measurements.FoldGroup(c_samples[0], true);
    lists.m_measurements.CycleOrder(1);
    lists.m_extended->setFocus(Qt::TabFocusReason);
}

} // namespace Gallery
