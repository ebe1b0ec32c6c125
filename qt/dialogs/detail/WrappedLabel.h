#pragma once

#include <QLabel>

namespace CommonUI
{

/// A plain text, broken at the width of the label: between words, and within a word that is wider, such as a
/// path.
class CWrappedLabel final : public QLabel
{
public:
    explicit CWrappedLabel(QWidget* parent);

    /// The size of a text in the font of the label, broken at a width, in pixels.
    QSizeF Measure(const QString& text, double width) const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace CommonUI
