#include "platform/qt/Appearance.h"
#include "platform/qt/Looks.h"

#include <QtWidgets/QtWidgets>
#include <gtest/gtest.h>

// Real widgets and real events, without a display; with DARK as a dark desktop shows them, with BLACK as one
// of high contrast, with POINTS as one with that size of text.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    quillshift::DressUp(application);
    if (qEnvironmentVariableIsSet("DARK")) {
        quillshift::Looks().Follow({.dark = true});
        QPalette dark(QColor(45, 45, 48), QColor(45, 45, 48));
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            dark.setColor(QPalette::Disabled, role, QColor(128, 128, 128));
        QApplication::setPalette(quillshift::Readable(dark));
    }
    if (qEnvironmentVariableIsSet("BLACK"))
        quillshift::Looks().Follow({.highContrast = true, .dark = true});
    if (const int points = qEnvironmentVariableIntValue("POINTS"); points != 0)
        QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), points));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
