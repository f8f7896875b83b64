#pragma once

#include "Sql.h"

namespace devdata {

/// The version of the schema that this program writes and reads.
int currentSchemaVersion();

/// Brings the database to \a version, step by step, in one transaction. Throws StoreError, with the database
/// left as it was, when it is of a newer version or belongs to another program.
void migrate(Connection &connection, int version = currentSchemaVersion());

} // namespace devdata
