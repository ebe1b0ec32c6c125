#include "qt/services/QtServices.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QStandardPaths>
#include <QSurfaceFormat>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QSurfaceFormat format;
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setDepthBufferSize(24);
    QSurfaceFormat::setDefaultFormat(format);
    const QApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    const CommonUI::CQtServices services;
    return RUN_ALL_TESTS();
}
