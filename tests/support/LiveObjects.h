#pragma once

#include <QtCore/QMap>
#include <QtCore/QString>

/// Counts what is alive: leak detectors see only what nothing points to any more.
///
/// Qt tells of every object that comes and goes; those that came before the first use of this are not
/// counted.
namespace LiveObjects {

/// Starts counting; false when this Qt does not tell.
bool watch();
/// How many objects of each class are alive, by class name.
QMap<QString, int> byClass();
/// "QTimer +2, QChart -1" for what differs; empty when nothing does.
QString difference(const QMap<QString, int> &before, const QMap<QString, int> &after);

/// Bytes that the program has allocated and not given back, or -1 where nobody counts them.
qint64 allocatedBytes();

} // namespace LiveObjects
