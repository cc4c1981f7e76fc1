// Skinned controls are widgets: the whole skin test program runs under one
// widget application.
#include "tests/common/WidgetApplication.h"

QPT_WIDGET_APPLICATION_FIRST();
