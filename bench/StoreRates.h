#pragma once

#include <devhost/data/SqlStore.h>

#include <QtCore/QString>

/// How fast one and the same set of rows gets into an empty store.
struct StoreRates
{
    qint64 rows = 0;
    double importSeconds = 0; ///< as a CSV file, with all figures
    double floorSeconds = 0;  ///< as bare batches of INSERTs into the tables of events, without figures
};

/// Takes \a rows sample events in both ways, each time into a database of its own that `newDatabase()` names.
StoreRates measureStoreRates(qint64 rows, const std::function<QString()> &newDatabase);

/// A store at \a url whose present moment is `storeMoment()`.
std::unique_ptr<SqlStore> openStore(const QString &url);
