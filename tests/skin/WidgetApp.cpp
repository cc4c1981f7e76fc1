// Skinned controls are widgets: the whole skin test program runs under one
// widget application, made before any test so that no test makes a lesser
// application first.
#include <gtest/gtest.h>

#include <QApplication>

namespace {

class WidgetApp : public ::testing::Environment {
public:
    void SetUp() override {
        if (QCoreApplication::instance()) return;
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        // One picture pixel is one screen pixel, as in the program.
        qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
        static int argc = 1;
        static char name[] = "skin_tests";
        static char* argv[] = {name, nullptr};
        // Never destroyed: at exit Qt's input devices would go after the
        // tables they unregister from, and the process would crash there.
        static QApplication* app = new QApplication(argc, argv);
        (void)app;
    }
};

[[maybe_unused]] ::testing::Environment* const g_app =
    ::testing::AddGlobalTestEnvironment(new WidgetApp);

}  // namespace
