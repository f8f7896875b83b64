#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>

/// Makes \a moment the date of creation of a PDF file, which Qt always takes from the clock, and of every
/// other date that it tells of itself. The file keeps its length, as its table of contents counts bytes.
/// False, with the file as it was, when it has no date of creation.
bool setDateOfPdf(QByteArray &pdf, const QDateTime &moment);

/// Takes the id away that Qt makes for each PDF file since 6.8, so that the same picture is the same file.
void clearIdOfPdf(QByteArray &pdf);
