#pragma once

#include "../../dialogs/sizer/Sizer.h"
#include "../../export/Export.h"

#include <QLayout>

#include <optional>
#include <vector>

namespace CommonUI
{

/// Lays controls out by the rules of a CSizer. The template is in dialog units of the window's font: quarters
/// of the average width of a letter and eighths of the height of a line. Where a control needs more than its
/// place, for a long text or in another style, the whole template grows along, so that nothing is cut.
/// In languages written from right to left the template is mirrored.
class COMMONUIQT_API CSizerLayout : public QLayout
{
    Q_OBJECT

public:
    /// @param window its layout this becomes, and it owns it
    /// @param size the size of the window in the template
    CSizerLayout(QWidget& window, const SSize& size);
    ~CSizerLayout() override;

    /// Gives a control, which the window then owns, its place and rule: see CSizer::Add. The order is that of
    /// the keys as well.
    /// @param minimum what the control may shrink to; never less than it needs
    void Add(QWidget& control, const SRect& place, const SSizerRule& rule, const SSize& minimum = {});

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    void setGeometry(const QRect& rect) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void invalidate() override;

private:
    struct SEntry {
        QLayoutItem* item;
        SRect place;
        SSizerRule rule;
        SSize minimum;
    };

    const CSizer& GetSizer() const;
    CSizer MakeSizer() const;

    SSize m_size;
    std::vector<SEntry> m_entries;
    mutable std::optional<CSizer> m_sizer; // in pixels; none after a change
};

} // namespace CommonUI
