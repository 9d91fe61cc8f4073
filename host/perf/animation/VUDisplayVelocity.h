#pragma once
// How fast a view moves on screen: horizontally and vertically in points per second, in scale
// (relative to the scale it starts from) per second, and in rotation in radians per second.

struct VUDisplayVelocity {
    double x = 0;
    double y = 0;
    double scale = 0;
    double rotation = 0;

    friend bool operator==(const VUDisplayVelocity &, const VUDisplayVelocity &) = default;
};

inline constexpr VUDisplayVelocity VUDisplayVelocityZero{};
