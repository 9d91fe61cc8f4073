#pragma once
// The timing of a spring animation: a damped oscillator that settles (to a thousandth of its
// travel) as its duration ends, after which it rests exactly at its target.
//
// A value animated from `from` to `to` with an initial velocity V (units per second) is
//   to + (from - to) * displacement(t) + V * impulse(t)
// where displacement is the free motion from 1 towards 0 and impulse the motion that a unit
// velocity gives from rest. A velocity relative to the distance (v distances per second) is the
// absolute velocity v * (to - from); both describe the same motion, which is what lets an
// animation given one kind of velocity match one given the other.

class VUSpring {
public:
    // `dampingRatio` is clamped to [0, 1]; 1 settles without overshoot.
    VUSpring(double duration, double dampingRatio);

    double duration() const { return m_duration; }
    double displacement(double t) const;
    double impulse(double t) const;
    double value(double from, double to, double velocity, double t) const
    {
        return to + (from - to) * displacement(t) + velocity * impulse(t);
    }

private:
    double m_duration;
    double m_zeta;
    double m_omega; // natural frequency, radians per second
};
