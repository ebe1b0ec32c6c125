#include "common/NumberText.h"
#include "examples/gallery/Pages.h"
#include "platform/MessageLoop.h"
#include "qt/edits/NumericEditWidget.h"
#include "qt/QtText.h"

#include <QFormLayout>
#include <QLabel>

#include <deque>

namespace Gallery
{

namespace
{

using namespace CommonUI;

// Writes down what an edit calls.
class CListener
{
public:
    CListener(QString name, const FLog& log)
        : m_name(std::move(name))
        , m_log(log)
    {
    }

    void OnFloat(float value) { Write(value); }
    void OnInt(int value) { Write(value); }
    bool IsOdd(int value)
    {
        const bool odd = value % 2 != 0;
        if (!odd)
            m_log(QStringLiteral("%1: refuses %2").arg(m_name).arg(value));
        return odd;
    }

private:
    void Write(double value)
    {
        m_log(QStringLiteral("%1: changed to %2").arg(m_name, ToQString(ShortestText(value))));
    }

    QString m_name;
    FLog m_log;
};

class CNumericEditsPage : public QWidget
{
public:
    explicit CNumericEditsPage(FLog log)
        : m_log(std::move(log))
        , m_form(new QFormLayout(this))
    {
        m_form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
        auto* const keys =
            new QLabel(QStringLiteral("Type and press Enter. Ctrl with the arrow keys or the wheel steps; "
                                      "Ctrl with Page Up or Page Down, or the pop-up beside the arrows, "
                                      "changes the size of the step. Units convert: 800 \u00B5m is 0.8 mm."));
        keys->setWordWrap(true);
        m_form->addRow(keys);
        AddFloat("&Cut-off", u"%.2f mm").Setup(0.8F, 0.08F, 8.0F, 0.1F);
        AddFloat("&Threshold", u"%.1f %%").Setup(12.5F, 0.0F, 100.0F, 0.5F);
        AddFloat("&Force constant", u"%.3e N/m").Setup(0.042F, 1e-6F, 1e3F, 0.001F);
        AddFloat("Re&versed range, 10 to 0", u"%.1f").Setup(7.5F, 10.0F, 0.0F, 0.5F);
        AddInt("&Points").Setup(512, 2, 4096, 1);
        CListener* const odd = &m_listeners.emplace_back(QStringLiteral("Odd numbers"), m_log);
        CIntEdit& oddEdit = AddInt("&Odd numbers only");
        oddEdit.Setup(7, 1, 99, 2);
        oddEdit.SetValidator(*odd, &CListener::IsOdd);
        AddInt("&Without spin button").ShowSpinButton(0, false);
        CFloatEdit& measured = AddFloat("&Measured, read-only", u"%.3f \u00B5m");
        measured.SetValue(1.742F);
        measured.SetReadOnly(true);
        AddInt("Disabled").SetValue(3);
        m_last->setEnabled(false);
    }

    CFloatEditWidget* m_first = nullptr;

private:
    template<class TWidget>
    TWidget* Add(const char* label)
    {
        auto* const widget = new TWidget;
        const QString text = QString::fromUtf8(label);
        m_form->addRow(text + QLatin1Char(':'), widget);
        m_listeners.emplace_back(QString(text).remove(QLatin1Char('&')), m_log);
        m_last = widget;
        return widget;
    }
    CFloatEdit& AddFloat(const char* label, const char16_t* format)
    {
        auto* const widget = Add<CFloatEditWidget>(label);
        if (!m_first)
            m_first = widget;
        widget->GetEdit().SetFormatString(format);
        widget->GetEdit().SetScanning(EScanning::Whole);
        widget->GetEdit().SetChangeNotification(m_listeners.back(), &CListener::OnFloat);
        return widget->GetEdit();
    }
    CIntEdit& AddInt(const char* label)
    {
        CIntEdit& edit = Add<CIntEditWidget>(label)->GetEdit();
        edit.SetScanning(EScanning::Whole);
        edit.SetChangeNotification(m_listeners.back(), &CListener::OnInt);
        return edit;
    }

    FLog m_log;
    QFormLayout* m_form;
    QWidget* m_last = nullptr;
    std::deque<CListener> m_listeners;
};

} // namespace

QWidget* MakeNumericEditsPage(const FLog& log)
{
    return new CNumericEditsPage(log);
}

void StageNumericEditsPage(QWidget& page)
{
    CFloatEditWidget& first = *static_cast<CNumericEditsPage&>(page).m_first;
    first.setFocus(Qt::TabFocusReason);
    first.GetEdit().OnSpinDeltaPos(2);
    first.GetEdit().GetSpinButton().OnPointerEntered();
    const CStepSizeCtrl& popup = first.GetEdit().GetStepSizeCtrl();
    GetMessageLoop().RunUntil([&popup] { return popup.GetSlideStep() == c_MaxSlideStep; });
}

} // namespace Gallery
