#include "CsvLine.h"

#include "Events.h"

#include <QtCore/QStringDecoder>
#include <QtCore/QStringList>

#include <limits>

namespace devdata {

namespace {

constexpr int minutesOfHour = 60;
constexpr qsizetype longestSource = 200;

QString decoded(const QByteArray &line)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(line);
    if (decoder.hasError() || line.contains('\0'))
        throw WrongLine(QStringLiteral("the text is not UTF-8"));
    return text;
}

// Fields may stand in double quotes, in which a doubled quote is a quote.
QStringList fieldsOf(const QString &line)
{
    QStringList fields = {QString()};
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar character = line[i];
        if (character == QLatin1Char('"') && quoted && line.mid(i + 1, 1) == QLatin1String("\""))
            fields.last() += line[++i];
        else if (character == QLatin1Char('"'))
            quoted = !quoted;
        else if (character == QLatin1Char(',') && !quoted)
            fields.append(QString());
        else
            fields.last() += character;
    }
    for (QString &field : fields)
        field = field.trimmed();
    return fields;
}

EventKind kindOf(const QString &text)
{
    if (text == QLatin1String("alarm"))
        return EventKind::Alarm;
    if (text == QLatin1String("online"))
        return EventKind::Online;
    if (text == QLatin1String("temperature"))
        return EventKind::Temperature;
    if (text == QLatin1String("snapshot"))
        return EventKind::SnapshotEvent;
    throw WrongLine(QStringLiteral("'%1' is not one of alarm, online, temperature and snapshot").arg(text));
}

// The number that the digits make; -1 when there is anything else.
int digitsOf(QStringView text)
{
    int number = 0;
    for (const QChar character : text) {
        if (character < QLatin1Char('0') || character > QLatin1Char('9'))
            return -1;
        number = number * 10 + character.unicode() - '0';
    }
    return number;
}

// Parsed by hand: Qt's parser of dates takes several times as long as the rest of the line.
Minute timeOf(const QString &text)
{
    const QString complete = text.size() == 13 ? text + QLatin1String(":00") : text;
    const QStringView parts = complete;
    if (parts.size() == 16 && parts[4] == QLatin1Char('-') && parts[7] == QLatin1Char('-')
        && parts[10] == QLatin1Char('T') && parts[13] == QLatin1Char(':')) {
        const QDate date(digitsOf(parts.mid(0, 4)), digitsOf(parts.mid(5, 2)), digitsOf(parts.mid(8, 2)));
        const QTime time(digitsOf(parts.mid(11, 2)), digitsOf(parts.mid(14, 2)));
        if (date.isValid() && date.year() >= 1 && time.isValid())
            return Minute(date, time);
    }
    throw WrongLine(QStringLiteral("the time '%1' is not of the form yyyy-MM-ddThh:mm").arg(text));
}

int wholeNumber(const QString &text, const char *what)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber || number < 0 || text.startsWith(QLatin1Char('+')))
        throw WrongLine(QStringLiteral("the %1 '%2' is not a whole number from 0 to %3")
                            .arg(QLatin1String(what), text)
                            .arg(std::numeric_limits<int>::max()));
    return number;
}

int classOf(EventKind kind, const QString &text)
{
    if (kind == EventKind::Online)
        return 0;
    const int number = wholeNumber(text, "class");
    if (kind == EventKind::Temperature && number > 3)
        throw WrongLine(QStringLiteral("the temperature class %1 is not in the range 0 to 3").arg(number));
    if (kind == EventKind::SnapshotEvent && number != vehicleClass && number != pedestrianClass)
        throw WrongLine(QStringLiteral("the snapshot class %1 is neither 4 nor 2").arg(number));
    return number;
}

QString sourceOf(const QString &text)
{
    if (text.isEmpty())
        throw WrongLine(QStringLiteral("the source is empty"));
    if (text.size() > longestSource)
        throw WrongLine(QStringLiteral("the source is longer than %1 characters").arg(longestSource));
    return text;
}

} // namespace

QByteArray csvHeader()
{
    return QByteArrayLiteral("kind,time,source,class,count");
}

CsvLine parseCsvLine(const QByteArray &line)
{
    const QStringList fields = fieldsOf(decoded(line));
    if (fields.size() != 5)
        throw WrongLine(QStringLiteral("expected 5 fields, found %1").arg(fields.size()));
    CsvLine result;
    result.kind = kindOf(fields[0]);
    result.at = timeOf(fields[1]);
    result.source = sourceOf(fields[2]);
    result.eventClass = classOf(result.kind, fields[3]);
    result.count = wholeNumber(fields[4], "count");
    if (result.kind == EventKind::Online && result.count > minutesOfHour)
        throw WrongLine(QStringLiteral("%1 minutes are more than an hour has").arg(result.count));
    return result;
}

} // namespace devdata
