#include "FuzzSupport.h"

#include "support/TestMain.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <limits>

namespace {

constexpr int mostPieces = 3;
constexpr std::size_t mostBytes = 40;
constexpr int veryLong = 3000;

// Written on purpose by the page, or by the display platform that the targets run on.
bool isExpected(const QString &message)
{
    return message == QLatin1String("get current orga failed!")
        || message.startsWith(QLatin1String("This plugin does not support"))
        || message.contains(QLatin1String("OpenType support missing"));
}

void endAtComplaint(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtDebugMsg || type == QtInfoMsg || isExpected(message))
        return;
    std::fprintf(stderr, "Qt complains [%s]: %s\n", context.category, qUtf8Printable(message));
    std::abort();
}

const char *const hostilePieces[] = {"%1", "%2%3", "%99", "%L1", "%%", "%n", "%s%n%d", "<b>", "</p></body>",
    "<img src=\"x\" width=9999999>", "&nbsp;", "&#x1F600;", "<table><tr><td>", "\xff\xfe", "\xc3",
    "\xed\xa0\x80", "\xf0\x9f\x98\x80", "\xe2\x80\x8b", "\xe2\x80\xae", "\r\n", "\t", "\x01\x7f", "~",
    "2024-05-03 17", "Plant North", "Company", "\xd8\xb9\xd8\xb1", "\xe4\xb8\xad\xe6\x96\x87", "TK_Other",
    "gate", "e\xcc\x81\xcc\x81\xcc\x81", "{0}"};

const char *const timePieces[] = {"2024-05-03", "2024-05-03 17", "2024-05", "03/05/2024", "05/2024",
    "2024-02-30", "0000-00", "9999-12-31 23", "-4713-01-01", "2024-03-31 02", "2024-10-27 02", "~", "~~", " ",
    "24:00", "hh", "\xd9\xa1\xd9\xa2"};

template <std::size_t size>
const char *pick(FuzzedDataProvider &data, const char *const (&pieces)[size])
{
    return pieces[data.ConsumeIntegralInRange<std::size_t>(0, size - 1)];
}

} // namespace

// The font library keeps what it was told of fonts.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    // Charts end as the application does; a run that a finding stops ends none of them.
    static auto *application = new TestApplication(*argc, *argv);
    Q_UNUSED(application)
    qInstallMessageHandler(endAtComplaint);
    return 0;
}

void Fuzz::report(const QString &finding)
{
    if (finding.isNull())
        return;
    std::fprintf(stderr, "Broken: %s\n", qUtf8Printable(finding));
    std::abort();
}

std::string Fuzz::name(FuzzedDataProvider &data)
{
    std::string result;
    const int pieces = data.ConsumeIntegralInRange(0, mostPieces);
    for (int i = 0; i < pieces; ++i) {
        const int kind = data.ConsumeIntegralInRange(0, 31);
        if (kind == 0)
            result.append(veryLong, static_cast<char>(data.ConsumeIntegralInRange(0, 255)));
        else if (kind < 10)
            result += data.ConsumeRandomLengthString(mostBytes);
        else
            result += pick(data, hostilePieces);
    }
    return result;
}

QString Fuzz::text(FuzzedDataProvider &data)
{
    QString result = QString::fromStdString(name(data));
    if (data.ConsumeIntegralInRange(0, 7) == 0)
        result.append(QChar(data.ConsumeIntegral<char16_t>()));
    if (result.isEmpty() && data.ConsumeBool())
        return QString();
    return result;
}

int Fuzz::number(FuzzedDataProvider &data)
{
    constexpr int marked[] = {0, -1, 1, 99, 100, 101, 999999, 1000000, -99999,
        std::numeric_limits<int>::max(), std::numeric_limits<int>::min(),
        std::numeric_limits<int>::max() - 1};
    const int kind = data.ConsumeIntegralInRange(0, 3);
    if (kind == 0)
        return data.ConsumeIntegral<int>();
    if (kind == 1)
        return marked[data.ConsumeIntegralInRange<std::size_t>(0, std::size(marked) - 1)];
    return data.ConsumeIntegralInRange(-2, 60);
}

QDateTime Fuzz::moment(FuzzedDataProvider &data)
{
    switch (data.ConsumeIntegralInRange(0, 7)) {
    case 0:
        return {};
    case 1:
        return QDateTime::fromMSecsSinceEpoch(data.ConsumeIntegral<qint64>());
    case 2:
        return QDateTime(QDate(data.ConsumeIntegral<int>(), data.ConsumeIntegralInRange(0, 13),
                             data.ConsumeIntegralInRange(0, 32)),
            QTime(data.ConsumeIntegralInRange(-1, 24), 0));
    default:
        return testMoment().addSecs(3600LL * data.ConsumeIntegral<qint16>());
    }
}

QString Fuzz::timeText(FuzzedDataProvider &data)
{
    std::string result;
    const int pieces = data.ConsumeIntegralInRange(0, 4);
    for (int i = 0; i < pieces; ++i)
        result += data.ConsumeIntegralInRange(0, 7) == 0 ? name(data) : pick(data, timePieces);
    return QString::fromStdString(result);
}

void Fuzz::settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}
