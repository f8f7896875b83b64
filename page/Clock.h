#pragma once

#include <QtCore/QDateTime>

/// The one door to the current time.
namespace Clock {

/// Name of the application's dynamic property that puts the current time in place of the system's clock, for
/// demonstrations and tests (`docs/integration.md`). It is read by every copy of this code in the process.
inline constexpr char currentTimeProperty[] = "TalvixDataStatics::currentTime";

/// The current time: the property as it is where it holds a valid `QDateTime`, else the system's local time.
QDateTime now();

} // namespace Clock
