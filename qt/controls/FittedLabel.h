#pragma once

#include "../../controls/labels/Elision.h"
#include "../../controls/labels/FontFit.h"
#include "../../export/Export.h"

#include <QLabel>

namespace CommonUI
{

/// A label of one line that shows what of its text has room. While that is less, the tooltip has all of it,
/// unless the label has one of its own. Screen readers always get all.
class COMMONUIQT_API CFittedLabel : public QLabel
{
    Q_OBJECT

public:
    ~CFittedLabel() override;

    /// What is shown at present.
    QString GetShownText() const { return Fit(contentsRect().width()); }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// @param parent owns the label
    explicit CFittedLabel(QWidget* parent);

    /// What of the text has room. @param room in pixels
    virtual QString Fit(int room) const = 0;
    /// The width of a text in the font of the label, in pixels.
    double Measure(std::u16string_view text) const;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

/// A text that is elided.
class COMMONUIQT_API CElidedLabel : public CFittedLabel
{
    Q_OBJECT

public:
    /// @param elision where the text is cut
    explicit CElidedLabel(EElision elision = EElision::Right, QWidget* parent = nullptr);
    ~CElidedLabel() override;

protected:
    QString Fit(int room) const override;

private:
    EElision m_elision;
};

/// A value with its caption and its unit. The number is never cut, and stands from left to right in every
/// language.
class COMMONUIQT_API CValueLabel : public CFittedLabel
{
    Q_OBJECT

public:
    /// @param parent owns the label
    explicit CValueLabel(QWidget* parent = nullptr);
    ~CValueLabel() override;

    /// Shows another value.
    void SetValue(const SValueText& value);
    /// What is shown, whole.
    const SValueText& GetValue() const noexcept { return m_value; }

protected:
    QString Fit(int room) const override;

private:
    SValueText m_value;
};

/// A text in the largest font that has room.
class COMMONUIQT_API CScalingLabel : public QLabel
{
    Q_OBJECT

public:
    /// @param parent owns the label
    explicit CScalingLabel(QWidget* parent = nullptr);
    ~CScalingLabel() override;

    /// In points.
    void SetFontRange(const SFontRange& range);
    /// The font in which the text is shown at present.
    QFont GetShownFont() const;
    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont MakeFont(double points) const;
    QSize Measure(double points) const;

    SFontRange m_range;
};

} // namespace CommonUI
