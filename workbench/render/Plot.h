#pragma once

// The plotting library's header uses Qt's keywords, which are switched off here.
#define signals Q_SIGNALS
#define slots Q_SLOTS
#define foreach Q_FOREACH
#include <qcustomplot.h>
#undef foreach
#undef slots
#undef signals
