#pragma once

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

/// What a run of the development host left: its exit code, and its two kinds of output. The code is -1 when
/// it did not end by itself.
struct Run
{
    int code = -1;
    QString out;
    QString complaint;

    QStringList lines() const { return out.split(u'\n', Qt::SkipEmptyParts); }
    QStringList complaints() const { return complaint.split(u'\n', Qt::SkipEmptyParts); }
};

/// Where one test's files are, so that none sees another's or the user's.
class Sandbox
{
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QString write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write the sandbox");
        return file.fileName();
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    bool isEmpty() const
    {
        return QDir(m_folder.path()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }

    /// A command that runs the program as somebody for whom permissions hold, also where root tests.
    QStringList asOrdinaryUser() const
    {
        const QFile::Permissions all = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
            | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        if (!isRoot())
            return {};
        QFile::setPermissions(m_folder.path(), all);
        return {QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"), QStringLiteral("--regid=65534"),
            QStringLiteral("--clear-groups")};
    }

    /// Why asOrdinaryUser() can't run the program here; empty when it can.
    QString closedToOthers() const
    {
        const QString program = QStringLiteral(TALVIX_DEVHOST);
        const QStringList look =
            asOrdinaryUser() + QStringList{QStringLiteral("test"), QStringLiteral("-x"), program};
        if (!isRoot() || QProcess::execute(look.constFirst(), look.mid(1)) == 0)
            return {};
        return QStringLiteral(
            "Other users may not enter the folders of %1, and for root no permission holds.")
            .arg(program);
    }

    /// Starts the program here, without a display. \a before is a command that runs it.
    void start(QProcess &process, const QStringList &arguments, const QStringList &before = {}) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name :
            {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_DATA_HOME", "XDG_CONFIG_HOME"})
            environment.remove(QString::fromLatin1(name));
        environment.insert(QStringLiteral("HOME"), m_folder.path());
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder.path());
        const QStringList command = before + QStringList{QStringLiteral(TALVIX_DEVHOST)} + arguments;
        process.start(command.constFirst(), command.mid(1));
    }

    /// Runs the program here, without a display.
    Run run(const QStringList &arguments, const QStringList &before = {}) const
    {
        QProcess process;
        start(process, arguments, before);
        Run run;
        if (!process.waitForFinished(200'000) || process.exitStatus() != QProcess::NormalExit) {
            run.complaint = process.errorString() + QString::fromUtf8(process.readAllStandardError());
            return run;
        }
        run.code = process.exitCode();
        run.out = QString::fromUtf8(process.readAllStandardOutput());
        // A build that counts coverage complains where another user may not write its counts.
        static const QRegularExpression counts(
            QStringLiteral("^profiling:.*\n"), QRegularExpression::MultilineOption);
        run.complaint = QString::fromUtf8(process.readAllStandardError()).remove(counts);
        return run;
    }

private:
    static bool isRoot()
    {
#ifdef Q_OS_UNIX
        return geteuid() == 0;
#else
        return false;
#endif
    }

    QTemporaryDir m_folder;
};

/// The words of a command line without quotation marks.
inline QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(u' ', Qt::SkipEmptyParts);
}
