// The style bar and the tool handlers are widgets: the whole program runs
// under one widget application.
#include "tests/common/WidgetApplication.h"

QPT_WIDGET_APPLICATION_FIRST();
