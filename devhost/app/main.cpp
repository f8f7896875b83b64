#include "Figures.h"
#include "HostWindow.h"
#include "Kinds.h"
#include "Options.h"
#include "Snapshots.h"

#include "devhost/widgets/HostSettings.h"

#include <QtCore/QHashFunctions>
#include <QtCore/QLoggingCategory>
#include <QtCore/QSettings>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

constexpr int usageProblem = 2;
constexpr int failure = 1;
constexpr int millisecondsBetweenTopUps = 5 * 60 * 1000;

int complain(const QString &sentence, int code)
{
    std::fprintf(stderr, "talvix-devhost: %s\n", qUtf8Printable(sentence));
    return code;
}

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

bool hasDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

/// What Qt says about the lack of a display and of a session is of no use to whoever needs neither.
void dropPlatformNoise(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    for (const char *noise :
        {"This plugin does not support propagateSizeHints", "QStandardPaths: XDG_RUNTIME_DIR"}) {
        if (message.startsWith(QLatin1String(noise)))
            return;
    }
    std::fprintf(stderr, "%s\n", qUtf8Printable(qFormatLogMessage(type, context, message)));
}

/// Pictures must come out the same on every machine and on every day of the year.
void fixSurroundings(Options &options)
{
    const QDateTime clock = QDateTime::currentDateTime();
    if (!options.now.isValid())
        options.now = options.leavesMomentOpen() ? momentOfSamples(clock) : clock;
    const QDateTime moment = options.now;
    qputenv("TZ", "UTC");
#ifndef Q_OS_WIN
    tzset();
#endif
    options.now = QDateTime(moment.date(), moment.time());
    QHashSeed::setDeterministicGlobalSeed();
}

int makePictures(const Options &options)
{
    std::vector<Kind> kinds = allKinds();
    if (options.service > 0)
        kinds = {kinds.at(static_cast<size_t>(options.service) - 1)};
    QString error;
    const auto tell = [](const Snapshot &snapshot) {
        std::printf("%d %s: %d bars, sum %lld, %s\n", snapshot.kind.service,
            qUtf8Printable(snapshot.kind.name), snapshot.bars, static_cast<long long>(snapshot.sum),
            qUtf8Printable(snapshot.file));
        std::fflush(stdout);
    };
    return writeSnapshots(kinds, options.snapshotFolder, options.now, tell, &error)
        ? 0
        : complain(error, failure);
}

int showWindow(const Options &options, Figures &figures, QSettings &settings)
{
    HostSettings::setDateOrder(settings.value(QStringLiteral("dayFirst")).toBool()
            ? HostSettings::DateOrder::DayFirst
            : HostSettings::DateOrder::YearFirst);
    HostWindow window(figures.service(), settings);
    window.setSource(figures.displayName(), figures.moment(),
        figures.isMomentOfSamples() ? HostWindow::MomentOf::Samples : HostWindow::MomentOf::Choice);
    window.openKind(options.service);
    window.show();

    QTimer topUps;
    QObject::connect(&topUps, &QTimer::timeout, &topUps, [&figures] { figures.keepUp(); });
    if (!figures.moment().isValid())
        topUps.start(millisecondsBetweenTopUps);
    return QApplication::exec();
}

int run(const Options &options)
{
    if (!options.log)
        QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));

    Figures figures(options);
    figures.open();
    if (figures.moment().isValid())
        qApp->setProperty("TalvixDataStatics::currentTime", figures.moment());
    if (options.noWindow)
        return 0;

    QSettings settings;
    QString language = options.language;
    if (language.isEmpty() && options.wantsWindow())
        language = settings.value(QStringLiteral("language")).toString();
    if (!HostSettings::setLanguage(language) || language.isEmpty())
        HostSettings::setLanguage(QStringLiteral("en"));
    HostSettings::applyTheme();
    return options.wantsPictures() ? makePictures(options) : showWindow(options, figures, settings);
}

} // namespace

int main(int argc, char **argv)
{
    CommandLine line = CommandLine::parse(argumentsOf(argc, argv));
    if (!line.problem.isEmpty())
        return complain(line.problem + QStringLiteral(" See --help."), usageProblem);

    const bool talksOnly = line.wish != CommandLine::Wish::Run;
    if (!talksOnly && line.options.wantsWindow() && !hasDisplay())
        return complain(
            QStringLiteral("There is no display for a window; --snapshot makes pictures without one."),
            failure);
    if ((talksOnly || !line.options.wantsWindow()) && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(dropPlatformNoise);
    }
    if (line.options.wantsPictures())
        fixSurroundings(line.options);

    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Talvix"));
    QApplication::setApplicationName(QStringLiteral("talvix-devhost"));
    QApplication::setApplicationVersion(QStringLiteral(TALVIX_VERSION));
    switch (line.wish) {
    case CommandLine::Wish::Help:
        std::fputs(qUtf8Printable(CommandLine::helpText()), stdout);
        return 0;
    case CommandLine::Wish::Version:
        std::printf("talvix-devhost %s\n", TALVIX_VERSION);
        return 0;
    case CommandLine::Wish::Run:
        break;
    }
    try {
        return run(line.options);
    } catch (const std::exception &exception) {
        return complain(QString::fromUtf8(exception.what()), failure);
    }
}
