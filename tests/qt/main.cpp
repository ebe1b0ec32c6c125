#include "qt/services/QtServices.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QStandardPaths>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    QApplication::setApplicationDisplayName(QStringLiteral("Qt tests"));
    const CommonUI::CQtServices services;
    return RUN_ALL_TESTS();
}
