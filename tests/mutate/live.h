#pragma once

namespace talvix {

/// A number that the compiler does not know, so that what depends on it is no constant but made at run time.
inline int live(int number)
{
    return number;
}

} // namespace talvix
