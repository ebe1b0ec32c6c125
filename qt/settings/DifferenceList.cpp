#include "qt/settings/detail/DifferenceList.h"

#include "qt/controls/detail/Isolate.h"
#include "qt/settings/detail/SettingsTexts.h"

#include <QHeaderView>

#include <utility>

namespace CommonUI
{

namespace
{

using EKind = SSettingsDifference::EKind;

enum EColumn { Key, Left, Sign, Right, ColumnCount };

QString GetSign(EKind kind)
{
    constexpr char16_t c_signs[] = {u'=', u'\u2260', u'\u2212', u'+'};
    return QChar(c_signs[static_cast<int>(kind)]);
}

QTreeWidgetItem* MakeRow(const SSettingsDifference& key)
{
    auto* const row = new QTreeWidgetItem({ToQString(key.key), ShowNumber(ToQString(key.left)),
                                           GetSign(key.kind), ShowNumber(ToQString(key.right))});
    const QString words = GetText(c_same + static_cast<int>(key.kind));
    row->setToolTip(Sign, words);
    row->setData(Sign, Qt::AccessibleTextRole, words);
    row->setTextAlignment(Sign, Qt::AlignCenter);
    QFont font;
    font.setBold(key.kind != EKind::Same);
    for (const int column : {Left, Right, Sign})
        row->setData(column, Qt::FontRole, font.bold() ? font : QVariant());
    for (const int column : {Key, Left, Right})
        row->setToolTip(column, row->text(column));
    return row;
}

} // namespace

CDifferenceList::CDifferenceList()
{
    setColumnCount(ColumnCount);
    setAllColumnsShowFocus(true);
    setUniformRowHeights(true);
    setAccessibleName(GetText(c_keys));
    header()->setSectionResizeMode(QHeaderView::Stretch);
    header()->setSectionResizeMode(Sign, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
}

void CDifferenceList::SetHeaders(const QString& left, const QString& right)
{
    setHeaderLabels({GetText(c_key), left, QString(), right});
}

void CDifferenceList::SetKeys(std::vector<SSettingsDifference> keys)
{
    m_keys = std::move(keys);
    Fill();
}

void CDifferenceList::ShowOnlyDifferences(bool only)
{
    m_onlyDifferences = only;
    Fill();
}

void CDifferenceList::Fill()
{
    clear();
    const CStr* name = nullptr; // of the section in hand
    QTreeWidgetItem* section = nullptr;
    for (const SSettingsDifference& key : m_keys) {
        if (m_onlyDifferences && key.kind == EKind::Same)
            continue;
        if (!name || *name != key.section) {
            name = &key.section;
            section = new QTreeWidgetItem(this, {name->IsEmpty() ? GetText(c_noSection) : ToQString(*name)});
            section->setFirstColumnSpanned(true);
        }
        section->addChild(MakeRow(key));
    }
    expandAll();
    if (topLevelItem(0))
        setCurrentItem(topLevelItem(0)->child(0));
}

} // namespace CommonUI
