#pragma once

#include "Sql.h"

namespace devdata {

/// Numbers that a store remembers about itself.
enum class Setting {
    WorldCreated,
    SampleSeed,           ///< seed of the sample events
    SamplesUntil,         ///< first minute that has no sample events any more
    ImportedOrganisation, ///< where sources come that only an import knows
};

/// 0 when nothing was remembered.
qint64 numberOf(Connection &connection, Setting setting);
void setNumber(Connection &connection, Setting setting, qint64 number);

} // namespace devdata
