#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>

/// Makes \a moment the date of creation of a PDF file, which Qt always takes from the clock. The file keeps
/// its length, as its table of contents counts bytes. False, with the file as it was, when it has no such
/// date.
bool setDateOfPdf(QByteArray &pdf, const QDateTime &moment);
