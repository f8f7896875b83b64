#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <fuzzer/FuzzedDataProvider.h>

#include <string>

/// What the fuzz targets share. The application is made once, before the first input; from then on every
/// warning of Qt's ends the program as a sanitizer's report does.
namespace Fuzz {

/// Ends the program with \a finding unless it is null.
void report(const QString &finding);

/// A name as no sensible server would send it: markup, "%1", broken UTF-8, control characters, very long.
std::string name(FuzzedDataProvider &data);
/// Such a name as text, surrogates without their half included.
QString text(FuzzedDataProvider &data);
/// A figure: small, at the ends of the range or anything.
int number(FuzzedDataProvider &data);
/// A moment near the tests' present, far from it, or none.
QDateTime moment(FuzzedDataProvider &data);
/// Times as they stand in the line edit and in answers, well formed or not.
QString timeText(FuzzedDataProvider &data);

/// Lets posted events, layouts and deferred deletes come to an end.
void settle();

} // namespace Fuzz
