#include <CommonUI/qt/edits/NumericEditWidget.h>
#include <CommonUI/qt/services/QtServices.h>

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>

using namespace CommonUI;

class CCutoffDialog : public QDialog
{
public:
    CCutoffDialog()
    {
        auto* form = new QFormLayout(this);
        form->addRow("&Cut-off:", &m_cutoff);
        form->addRow(&m_remark);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        form->addRow(buttons);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

        CFloatEdit& edit = m_cutoff.GetEdit();
        edit.SetFormatString(u"%.2f mm");
        edit.SetScanning(EScanning::Whole);  // "0,8" is understood, and "800 µm"
        edit.Setup(0.8F, 0.08F, 8.0F, 0.1F); // value, minimum, maximum, step
        edit.SetValidator(*this, &CCutoffDialog::IsPossible);
        edit.SetChangeNotification(*this, &CCutoffDialog::OnCutoff);
    }

    float GetCutoff() { return m_cutoff.GetEdit().GetValue(); }

private:
    // False refuses what the user entered.
    bool IsPossible(float cutoff)
    {
        const bool possible = 3 * cutoff <= 12.5F;
        m_remark.setText(possible ? "" : "The profile of 12.5 mm is too short.");
        return possible;
    }
    void OnCutoff(float cutoff) { setWindowTitle(QString::number(cutoff)); }

    CFloatEditWidget m_cutoff;
    QLabel m_remark;
};

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    CQtServices services; // timers, message loop, message boxes, file dialogs, clipboard, folders

    CCutoffDialog dialog;
    return dialog.exec() == QDialog::Accepted && dialog.GetCutoff() > 0 ? 0 : 1;
}
