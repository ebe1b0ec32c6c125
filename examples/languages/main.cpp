#include <CommonUI/common/Language.h>
#include <CommonUI/qt/selection/QtSelectionDlg.h>
#include <CommonUI/qt/services/QtServices.h>

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace CommonUI;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QTranslator qtTexts;
    for (const QString& tag : QLocale::system().uiLanguages()) // what the user likes best comes first
        if (UseLanguage(tag.toStdString())) {
            if (qtTexts.load(QLocale(tag), "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
                QCoreApplication::installTranslator(&qtTexts);
            break;
        }
    CQtServices services; // timers, message loop, message boxes, file dialogs, clipboard, folders

    CQtSelectionDlg dialog(GetAnalysisPreferencesManager(), EAnalysis::Roughness);
    return dialog.DoModal() == CBaseDialog::c_ok ? 0 : 1;
}
