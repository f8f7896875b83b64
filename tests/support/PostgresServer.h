#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

/// A PostgreSQL server of the tests' own, with its files in a temporary folder and on a port of the loopback
/// device. It runs until it is stopped, destroyed, or the program ends in whatever way.
///
/// It sorts as people do, not by bytes, as servers in use often do.
class PostgresServer
{
public:
    /// Why there can be none on this machine, as a sentence; empty when there can.
    static QString missing();
    /// One server for all tests of a program, running; it ends with the application. Fails the program when
    /// it cannot be started.
    static PostgresServer &shared();

    PostgresServer();
    ~PostgresServer();

    /// Lets it run, after a stop on the same port and with the same files as before.
    bool start();
    /// Stops it at once; whoever is connected loses the connection.
    void stop();

    /// The URL of an empty database.
    QString takeDatabase();
    /// Gives back a database that `takeDatabase` gave, for others to take: to empty one is quicker than to
    /// make one. The server is started for it if need be.
    void giveBack(const QString &url);

    /// The URL of a database, which need not exist.
    QString url(const QString &database, const QString &withPassword = password()) const;
    int port() const { return m_port; }

    static QString user() { return QStringLiteral("talvix"); }
    static QString password() { return QStringLiteral("it's @ s3cret:/\\"); }

private:
    Q_DISABLE_COPY_MOVE(PostgresServer)

    QString dataFolder() const { return m_folder.filePath(QStringLiteral("data")); }
    QString logFile() const { return m_folder.filePath(QStringLiteral("server.log")); }
    QByteArray log() const;
    bool createCluster();
    bool runTool(const QString &tool, const QStringList &arguments) const;
    bool waitUntilReady();

    QTemporaryDir m_folder;
    QProcess m_process;
    QStringList m_emptyDatabases;
    int m_port = 0;
    int m_databases = 0;
};
