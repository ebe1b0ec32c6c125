#pragma once

#include "settings/SettingsDifference.h"

#include <QTreeWidget>

namespace CommonUI
{

/// The keys of two sets side by side, below their sections. What is not the same has a sign and a bold text.
class CDifferenceList final : public QTreeWidget
{
public:
    CDifferenceList();

    void SetHeaders(const QString& left, const QString& right);
    void SetKeys(std::vector<SSettingsDifference> keys);
    void ShowOnlyDifferences(bool only);
    const std::vector<SSettingsDifference>& GetKeys() const noexcept { return m_keys; }

private:
    void Fill();

    std::vector<SSettingsDifference> m_keys;
    bool m_onlyDifferences = true;
};

} // namespace CommonUI
