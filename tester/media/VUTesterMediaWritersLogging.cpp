#include "VUTesterMediaWritersLogging.h"

Q_LOGGING_CATEGORY(lcVUTesterWriters, "vistra.tester.media.writers")
