#include "app/ModuleStartUp.h"

#include "app/CrashReport.h"
#include "app/PlatformSetup.h"
#include "support/Language.h"
#include "support/LogManage.h"
#include "support/Paths.h"
#include "support/ScreenRecordSettingsData.h"

namespace qpt {

void RunModuleStartUp() {
    InstallCrashHandler();
    CreateLogManage(SettingsFolder() + "log/QptHost.log");
    CreateLanguage("QPT");
    PreparePlatformEnvironment();
    CreateSettingsData();
}

}  // namespace qpt
