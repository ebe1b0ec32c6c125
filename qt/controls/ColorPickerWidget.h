#pragma once

#include "../../controls/color/ColorPicker.h"
#include "../../export/Export.h"

#include <QFrame>
#include <QPushButton>

class QLabel;
class QLineEdit;
class QListWidget;
class QSlider;

namespace CommonUI
{

/// The colours from which a picker chooses: the named ones, the recent ones, a text, how much the colour
/// covers, and Qt's dialog for any colour. A window that closes when one of the colours is taken, with
/// Escape, or by a click beside it.
class COMMONUIQT_API CColorPopup : public QFrame
{
    Q_OBJECT

public:
    /// @param picker not owned; it outlives the popup
    CColorPopup(CColorPicker& picker, QWidget* parent);
    ~CColorPopup() override;

    /// The list of named colours; lives as long as the widget.
    QListWidget& GetNamedList() noexcept { return *m_named; }
    /// The field for a colour as text; lives as long as the widget.
    QLineEdit& GetTextField() noexcept { return *m_text; }

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QListWidget* AddList(int nameId);
    QWidget* MakeFields();
    void FillRecent();
    void Take(const SPaint& paint);
    void Enter();
    void ChooseMore();
    void Update();

    CColorPicker& m_picker;
    QListWidget* m_named;
    QLabel* m_recentTitle = nullptr;
    QListWidget* m_recent;
    QLineEdit* m_text;
    QLabel* m_opacityLabel;
    QSlider* m_opacity;
    CClosureConnection m_connection;
};

/// A button that shows a colour and opens a popup to choose another one.
class COMMONUIQT_API CColorPickerWidget : public QPushButton
{
    Q_OBJECT

public:
    /// @param picker not owned; it lives as long as the widget is used, and may go first when both go
    explicit CColorPickerWidget(CColorPicker& picker, QWidget* parent = nullptr);
    ~CColorPickerWidget() override;

    /// Opens the popup, as a click does.
    void Open();
    /// Null while it is not open.
    CColorPopup* GetPopup() const;

private:
    void Update();

    CColorPicker& m_picker;
    CClosureConnection m_connection;
};

} // namespace CommonUI
