#include "PostgresServer.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>
#include <QtNetwork/QTcpServer>

#include <algorithm>
#include <memory>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

constexpr int patience = 120'000;
constexpr int startTries = 3;

bool isRoot()
{
#ifdef Q_OS_UNIX
    return geteuid() == 0;
#else
    return false;
#endif
}

/// The folder of the newest server there is; Debian keeps each version's programs out of the search path.
QString programFolder()
{
    const QDir versions(QStringLiteral("/usr/lib/postgresql"));
    QStringList names = versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    std::sort(names.begin(), names.end(),
        [](const QString &a, const QString &b) { return a.toDouble() > b.toDouble(); });
    for (const QString &name : std::as_const(names)) {
        const QString folder = versions.filePath(name + QStringLiteral("/bin"));
        if (QFile::exists(folder + QStringLiteral("/postgres")))
            return folder;
    }
    return {};
}

struct Command
{
    QString program;
    QStringList arguments;
};

// PostgreSQL refuses to run as root. The server gets the signal when the tests end without having stopped it.
Command asServerUser(const QString &tool, const QStringList &arguments, bool endsWithUs = false)
{
    QStringList words;
    if (isRoot())
        words += {QStringLiteral("--reuid=postgres"), QStringLiteral("--regid=postgres"),
            QStringLiteral("--clear-groups")};
    if (endsWithUs)
        words += {QStringLiteral("--pdeathsig"), QStringLiteral("QUIT")};
    words += programFolder() + QLatin1Char('/') + tool;
    return {QStringLiteral("setpriv"), words + arguments};
}

int freePort()
{
    QTcpServer probe;
    return probe.listen(QHostAddress::LocalHost) ? probe.serverPort() : 0;
}

bool giveToServerUser(const QString &folder)
{
    return !isRoot()
        || QProcess::execute(QStringLiteral("chown"), {QStringLiteral("postgres:"), folder}) == 0;
}

std::unique_ptr<PostgresServer> &sharedServer()
{
    static std::unique_ptr<PostgresServer> server;
    return server;
}

} // namespace

QString PostgresServer::missing()
{
    if (programFolder().isEmpty())
        return QStringLiteral("There is no PostgreSQL server here; Debian's package is postgresql.");
    if (QStandardPaths::findExecutable(QStringLiteral("setpriv")).isEmpty())
        return QStringLiteral("There is no setpriv here, without which a server could outlive the tests.");
    return {};
}

PostgresServer &PostgresServer::shared()
{
    std::unique_ptr<PostgresServer> &server = sharedServer();
    if (!server) {
        server = std::make_unique<PostgresServer>();
        qAddPostRoutine([] { sharedServer().reset(); });
        if (!server->start())
            qFatal("The PostgreSQL server does not start:\n%s", server->log().constData());
    }
    return *server;
}

PostgresServer::PostgresServer() = default;

PostgresServer::~PostgresServer()
{
    stop();
}

bool PostgresServer::createCluster()
{
    if (!giveToServerUser(m_folder.path()))
        return false;
    const QString passwordFile = m_folder.filePath(QStringLiteral("password"));
    QFile file(passwordFile);
    if (!file.open(QIODevice::WriteOnly) || file.write(password().toUtf8()) < 0)
        return false;
    file.close();
    return giveToServerUser(passwordFile)
        && runTool(QStringLiteral("initdb"),
            {QStringLiteral("--pgdata"), dataFolder(), QStringLiteral("--username"), user(),
                QStringLiteral("--pwfile"), passwordFile, QStringLiteral("--auth=scram-sha-256"),
                QStringLiteral("--encoding=UTF8"), QStringLiteral("--locale=C.UTF-8"),
                QStringLiteral("--locale-provider=icu"), QStringLiteral("--icu-locale=de-AT"),
                QStringLiteral("--no-sync")});
}

bool PostgresServer::start()
{
    if (m_process.state() == QProcess::Running)
        return true;
    if (!QFile::exists(dataFolder()) && !createCluster())
        return false;
    for (int tries = m_port == 0 ? startTries : 1; tries > 0; --tries) {
        const int port = m_port == 0 ? freePort() : m_port;
        QStringList arguments = {
            QStringLiteral("-D"), dataFolder(), QStringLiteral("-p"), QString::number(port)};
        for (const char *setting : {"listen_addresses=127.0.0.1", "unix_socket_directories=", "lc_messages=C",
                 "fsync=off", "synchronous_commit=off", "full_page_writes=off", "shared_buffers=16MB",
                 "max_connections=20", "autovacuum=off", "wal_level=minimal", "max_wal_senders=0",
                 "password_encryption=scram-sha-256"})
            arguments += {QStringLiteral("-c"), QString::fromLatin1(setting)};
        const Command server = asServerUser(QStringLiteral("postgres"), arguments, true);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.setStandardOutputFile(logFile());
        m_process.setWorkingDirectory(m_folder.path());
        m_process.start(server.program, server.arguments);
        if (waitUntilReady()) {
            m_port = port;
            return true;
        }
        stop();
    }
    return false;
}

bool PostgresServer::waitUntilReady()
{
    const QDeadlineTimer deadline(patience);
    while (!deadline.hasExpired()) {
        if (m_process.waitForFinished(20) || m_process.state() == QProcess::NotRunning)
            return false;
        if (log().contains("ready to accept connections"))
            return true;
    }
    return false;
}

void PostgresServer::stop()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    if (!runTool(QStringLiteral("pg_ctl"),
            {QStringLiteral("stop"), QStringLiteral("-D"), dataFolder(), QStringLiteral("-m"),
                QStringLiteral("fast")}))
        m_process.kill();
    m_process.waitForFinished(patience);
}

QString PostgresServer::takeDatabase()
{
    if (!m_emptyDatabases.isEmpty())
        return m_emptyDatabases.takeLast();
    const QString name = QStringLiteral("figures_%1").arg(++m_databases);
    if (!runTool(QStringLiteral("createdb"), {name}))
        qFatal("The database %s cannot be made.", qUtf8Printable(name));
    return url(name);
}

void PostgresServer::giveBack(const QString &url)
{
    const QString empty =
        QStringLiteral("SET lock_timeout = '10s'; DROP SCHEMA public CASCADE; CREATE SCHEMA public");
    if (start()
        && runTool(QStringLiteral("psql"),
            {QStringLiteral("--no-psqlrc"), QStringLiteral("--command"), empty, QUrl(url).path().mid(1)}))
        m_emptyDatabases.append(url);
}

QString PostgresServer::url(const QString &database, const QString &withPassword) const
{
    QUrl parts;
    parts.setScheme(QStringLiteral("postgres"));
    parts.setUserName(user());
    parts.setPassword(withPassword);
    parts.setHost(QStringLiteral("127.0.0.1"));
    parts.setPort(m_port);
    parts.setPath(QLatin1Char('/') + database);
    return parts.toString(QUrl::FullyEncoded);
}

QByteArray PostgresServer::log() const
{
    QFile file(logFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool PostgresServer::runTool(const QString &tool, const QStringList &arguments) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (m_port > 0) {
        environment.insert(QStringLiteral("PGHOST"), QStringLiteral("127.0.0.1"));
        environment.insert(QStringLiteral("PGPORT"), QString::number(m_port));
        environment.insert(QStringLiteral("PGUSER"), user());
        environment.insert(QStringLiteral("PGPASSWORD"), password());
    }
    const Command command = asServerUser(tool, arguments);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_folder.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(command.program, command.arguments);
    if (process.waitForFinished(patience) && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0)
        return true;
    qWarning("%s: %s", qUtf8Printable(tool), process.readAll().constData());
    return false;
}
