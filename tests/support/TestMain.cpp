#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>

int main(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    // Tests that are about a comma locale ask for it.
    QLocale::setDefault(QLocale::c());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
