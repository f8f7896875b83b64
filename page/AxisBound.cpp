#include "AxisBound.h"

namespace {

constexpr double boundWithoutValues = 5;

double nextHundred(long long maximum)
{
    const long long bound = (maximum / 100 + 1) * 100;
    return static_cast<double>(bound);
}

double nextLeadingDigit(long long maximum)
{
    if (maximum <= 0)
        return boundWithoutValues;
    if (maximum < 10)
        return 10;
    long long step = 10;
    while (maximum / step >= 10)
        step *= 10;
    return static_cast<double>(maximum + step - maximum % step);
}

} // namespace

double axisBound(AxisRule rule, int maximum)
{
    return rule == AxisRule::Hundred ? nextHundred(maximum) : nextLeadingDigit(maximum);
}
