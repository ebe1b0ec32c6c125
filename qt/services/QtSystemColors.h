#pragma once

#include "../../export/Export.h"
#include "../../platform/SystemColors.h"

#include <QObject>
#include <QPalette>

namespace CommonUI
{

/// What a palette of a desktop is like: dark where texts are lighter than their ground; of high contrast
/// where windows, buttons and fields have one ground, black or white, and texts are far from it.
COMMONUIQT_API SSystemColors DescribePalette(const QPalette& palette);

/// The colours of the desktop as Qt's platform tells them. It is made before the application sets a palette
/// of its own.
class COMMONUIQT_API CQtSystemColors : public QObject, public CSystemColors
{
    Q_OBJECT

public:
    CQtSystemColors();
    ~CQtSystemColors() override;

    SSystemColors Get() const override { return m_colors; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Read();

    SSystemColors m_colors;
    bool m_waiting = false; // for the end of a change, which every window is told of
};

} // namespace CommonUI
