#include "PhotosLogging.h"

Q_LOGGING_CATEGORY(lcPhotos, "vistra.photos")
