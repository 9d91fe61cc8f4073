#pragma once
// A geographic location: latitude and longitude in decimal degrees, north and east positive.

struct VUTesterLocation {
    double latitude = 0.0;
    double longitude = 0.0;
};
