#pragma once

#include "Sql.h"

namespace devdata {

/// Numbers that are stored about a store itself.
enum class Setting {
    WorldCreated,
    SampleSeed,           ///< seed of the sample events
    SamplesUntil,         ///< first minute that has no sample events any more
    ImportedOrganisation, ///< gets the sources that only an import knows
    ImportedEvents,       ///< how many lines of events were imported
};

/// 0 when nothing is stored.
qint64 numberOf(Connection &connection, Setting setting);
void setNumber(Connection &connection, Setting setting, qint64 number);

} // namespace devdata
