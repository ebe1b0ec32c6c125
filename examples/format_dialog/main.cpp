#include <CommonUI/model/RoughnessCatalogue.h>
#include <CommonUI/output/results/NumberFormat.h>
#include <CommonUI/qt/dialogs/QtFormatSpecifierDlg.h>
#include <CommonUI/qt/QtText.h>
#include <CommonUI/qt/services/QtServices.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace CommonUI;

class CValueWindow : public QWidget
{
public:
    CValueWindow()
    {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&m_value);
        auto* change = new QPushButton("&Format...");
        layout->addWidget(change);
        connect(change, &QPushButton::clicked, this, &CValueWindow::ChangeFormat);
        ShowValue();
    }

private:
    void ChangeFormat()
    {
        CQtFormatSpecifierDlg dialog(m_parameter, this);
        if (dialog.DoModal() != CBaseDialog::c_ok)
            return;
        m_parameter = dialog.GetParameter();
        ShowValue();
    }
    void ShowValue()
    {
        const CUnit metre(CUnit::EUnitFactor::Unity);
        const CStr number =
            FormatParameterValue(3.5222918e-8 * m_parameter.CalcFactor(), m_parameter.GetFloatFormat());
        m_value.setText(ToQString(m_parameter.GetShortFriendlyString() + u" = " + number + u" " +
                                  m_parameter.GetScaledUnitStr(metre)));
    }

    CParameter m_parameter = MakeRoughnessParameter(ERoughnessParameters::Sq);
    QLabel m_value;
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    CQtServices services; // timers, message loop, message boxes, file dialogs, clipboard, folders

    CValueWindow window;
    window.show();
    return QApplication::exec();
}
