#pragma once

#include "SampleEvents.h"
#include "Sql.h"

namespace devdata {

struct ImportOptions
{
    bool skipBadLines = false; ///< skips wrong lines instead of refusing the file
};

struct ImportReport
{
    static constexpr size_t mostListed = 100;

    qint64 kept = 0;              ///< lines that were imported
    qint64 leftOut = 0;           ///< lines that were not
    std::vector<QString> reasons; ///< "line 7: …" of the first lines left out
    int added = 0;                ///< cameras and persons that were not known before
};

/// Throws StoreError when the file cannot be a file of events: it cannot be read, is empty or begins with
/// another line.
void checkCsvFile(const QString &fileName);

/// Reads a file of events, "kind,time,source,class,count", into the database within the caller's transaction.
/// Throws StoreError, naming file, line and reason, when the file cannot be imported. \a progress reports
/// percent of the file.
///
/// - alarm: `class` is the alarm code.
/// - online: `count` is the minutes online in that hour; `class` is not read.
/// - temperature: `class` is 0 to 3. A reading that is not normal is an alarm that nobody has accepted.
/// - snapshot: `class` is 4 or 2. All its minor types are 0, "other".
ImportReport importCsv(Connection &connection, const QString &fileName, const ImportOptions &options,
    Minute now, const Progress &progress = {});

} // namespace devdata
