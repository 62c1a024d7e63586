// One main for every test executable: an offscreen application with a pinned locale, so results
// do not depend on the machine that runs them.
#include "common/testsupport.h"

#ifdef TARNWELL_TEST_WITHOUT_WIDGETS
#include <QGuiApplication>
using TestApplication = QGuiApplication;
#else
#include <QApplication>
using TestApplication = QApplication;
#endif

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(TestSupport::enUS);
    TestApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
