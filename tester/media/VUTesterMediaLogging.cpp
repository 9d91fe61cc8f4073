#include "VUTesterMediaLogging.h"

Q_LOGGING_CATEGORY(lcVUTesterGenerators, "vistra.tester.media.generators")
