#pragma once

#include "Periods.h"
#include "Sql.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace devdata {

enum class EventKind { Alarm, Online, Temperature, SnapshotEvent };

/// A line of a file of events: "kind,time,source,class,count".
struct CsvLine
{
    EventKind kind = EventKind::Alarm;
    Minute at;
    QString source;
    int eventClass = 0; ///< alarm code, temperature class or snapshot class; unused for online
    int count = 0;      ///< for online the minutes online in that hour
};

/// Why a line cannot be imported.
class WrongLine : public StoreError
{
public:
    using StoreError::StoreError;
};

/// The first line of every file.
QByteArray csvHeader();

/// Parses a line without its line end. Throws WrongLine.
CsvLine parseCsvLine(const QByteArray &line);

} // namespace devdata
