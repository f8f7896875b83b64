#pragma once

/// How far a value axis runs above the largest value.
enum class AxisRule {
    Hundred, ///< to the next hundred, a whole hundred further from an exact one
    Digit    ///< to the next step of the leading digit
};

/// Upper end of an axis from 0 for values of at most \a maximum. Wide enough for every `int`.
double axisBound(AxisRule rule, int maximum);
