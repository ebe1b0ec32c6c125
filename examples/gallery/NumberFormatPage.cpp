#include "examples/gallery/Pages.h"
#include "output/results/NumberFormat.h"
#include "qt/dialogs/QtFormatSpecifierDlg.h"
#include "qt/QtText.h"

#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

#include <memory>

namespace Gallery
{

namespace
{

using namespace CommonUI;

struct SSample {
    const char* text;
    double value;
};

constexpr SSample c_samples[] = {
    {"0.0421875", 0.0421875}, {"3.14159265", 3.14159265}, {"250000", 250000}, {"-6.25e-08", -6.25e-08}};

CParameter MakeParameter(CParameter::EFormatSpecifier type)
{
    CParameter parameter(1, u"Sa", u"Sa", u"Average roughness", 0, true);
    parameter.SetFloatFormat({type, 4});
    return parameter;
}

class CNumberFormatPage : public QWidget
{
public:
    explicit CNumberFormatPage(FLog log)
        : m_log(std::move(log))
        , m_parameter(MakeParameter(CParameter::EFormatSpecifier::FormatDecimals))
        , m_form(new QFormLayout(this))
        , m_words(new QLabel)
    {
        m_form->setHorizontalSpacing(4 * fontMetrics().averageCharWidth());
        m_form->addRow(QStringLiteral("Value"), m_words);
        for (const SSample& sample : c_samples) {
            auto* const label = new QLabel;
            m_form->addRow(QString::fromUtf8(sample.text), label);
            m_samples.push_back(label);
        }
        Add("&Change the format...", [this] { Change(m_parameter); });
        Add("&Start from an integer format...",
            [this] { Change(MakeParameter(CParameter::EFormatSpecifier::FormatInteger)); });
        ShowFormat();
    }

    // Opens the dialog for the picture.
    void Open()
    {
        m_dialog = std::make_unique<CQtFormatSpecifierDlg>(m_parameter, this);
        m_dialog->Create();
        m_dialog->GetWindow()->move(mapToGlobal(QPoint(width() / 2, height() / 2)));
        m_dialog->GetWindow()->activateWindow();
    }

private:
    void Change(const CParameter& parameter)
    {
        CQtFormatSpecifierDlg dialog(parameter, this);
        const bool accepted = dialog.DoModal() == CBaseDialog::c_ok;
        if (accepted)
            m_parameter = dialog.GetParameter();
        ShowFormat();
        m_log((accepted ? QStringLiteral("Number format: %1") : QStringLiteral("Cancelled, still: %1"))
                  .arg(GetFormatText()));
    }
    QString GetFormatText() const
    {
        return ToQString(GenerateNumberFormatText(m_parameter.GetFloatFormat()));
    }
    void ShowFormat()
    {
        m_words->setText(QStringLiteral("Shown with %1").arg(GetFormatText()));
        std::size_t i = 0;
        for (QLabel* const label : m_samples)
            label->setText(
                ToQString(FormatParameterValue(c_samples[i++].value, m_parameter.GetFloatFormat())));
    }
    template<class FAction>
    void Add(const char* text, FAction action)
    {
        auto* const button = new QPushButton(QString::fromUtf8(text));
        QObject::connect(button, &QPushButton::clicked, this, action);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        m_form->addRow(button);
    }

    FLog m_log;
    CParameter m_parameter;
    QFormLayout* m_form;
    QLabel* m_words;
    std::vector<QLabel*> m_samples;
    std::unique_ptr<CQtFormatSpecifierDlg> m_dialog;
};

} // namespace

QWidget* MakeNumberFormatPage(const FLog& log)
{
    return new CNumberFormatPage(log);
}

void StageNumberFormatPage(QWidget& page)
{
    static_cast<CNumberFormatPage&>(page).Open();
}

} // namespace Gallery
