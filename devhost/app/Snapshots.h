#pragma once

#include "Kinds.h"

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <functional>
#include <vector>

/// What became of one kind of statistics.
struct Snapshot
{
    Kind kind;
    int bars = 0;
    qint64 sum = 0; ///< of all bars shown
    QString file;   ///< the picture; the PDF stands beside it
};

/// Shows a page of each of \a kinds and writes a PNG and a PDF of it into \a folder, which is made when
/// missing. \a moment is the date that the PDF files bear. \a done is told of each kind in turn. Files are
/// written wholly or not at all. On failure \a error is a sentence for the user.
bool writeSnapshots(const std::vector<Kind> &kinds, const QString &folder, const QDateTime &moment,
    const std::function<void(const Snapshot &)> &done, QString *error);
