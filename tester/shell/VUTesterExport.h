#pragma once

#if defined(VUTESTER_BUILDING_LIBRARY)
#define VUTESTER_EXPORT __attribute__((visibility("default")))
#else
#define VUTESTER_EXPORT
#endif
