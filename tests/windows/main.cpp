#include "platform/qt/Appearance.h"

#include <gtest/gtest.h>

#include <QApplication>

// Real widgets and real events, without a display.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    quillshift::DressUp(application);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
