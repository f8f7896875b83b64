#include "support/EventStore.h"
#include "support/Sandbox.h"

#ifdef Q_OS_UNIX
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

using namespace devdata;

namespace {

constexpr const char *header = "kind,time,source,class,count\n";
constexpr const char *firstEvents = "alarm,2024-05-03T09:10,gate-1,1,3\n"
                                    "snapshot,2024-05-03T10:00,gate-2,2,11\n";

QByteArray manyAlarms(int lines)
{
    QByteArray content = header;
    for (int i = 0; i < lines; ++i)
        content += "alarm,2024-05-03T08:15,street-" + QByteArray::number(i % 500) + ",3,1\n";
    return content;
}

QByteArray inUtf16(const char *text)
{
    const QString units = QString::fromUtf8(text);
    return QByteArray(reinterpret_cast<const char *>(units.utf16()), units.size() * 2);
}

QStringList contentOf(SqlStore &store)
{
    return rowCounts(store) + countsIn(store);
}

QStringList contentOf(const QString &path)
{
    SqlStore store;
    store.open(path);
    return contentOf(store);
}

QString soundness(const QString &path)
{
    Connection connection(path);
    Statement check(connection, QStringLiteral("PRAGMA integrity_check"));
    return check.execute().next() ? check.text("integrity_check") : QString();
}

/// A folder with a database "a.db" that holds a few events, imported ones and samples.
class SandboxWithDatabase : public Sandbox
{
public:
    SandboxWithDatabase()
    {
        const QString events = write(QStringLiteral("first.csv"), QByteArray(header) + firstEvents);
        SqlStore store;
        store.open(database());
        store.importFile(events);
        SampleOptions options;
        options.from = minute("2024-05-03 16:00");
        options.to = minute("2024-05-03 17:00");
        store.generate(options);
    }

    QString database() const { return path(QStringLiteral("a.db")); }
    QByteArray bytes() const { return read(QStringLiteral("a.db")); }
    Run import(const QString &file, const char *database = "a.db") const
    {
        return run(words("--no-window --database") + QStringList{QString::fromLatin1(database)}
            + words("--import") + QStringList{file});
    }
};

} // namespace

class TestImportFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFileThatCannotBeTakenIsOneSentence_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("sentence");
        QTest::addColumn<bool>("isSeenAtOnce"); // before the database is made

        const QString noHeader = QStringLiteral("The file e.csv does not begin with the line "
                                                "\"kind,time,source,class,count\".");
        const QString noUtf8 = QStringLiteral("The file e.csv is not a text in UTF-8.");
        const QByteArray latin1 = QByteArray(header) + firstEvents
            + "alarm,2024-05-03T09:10,Stra\xdf"
              "e,1,3\n";
        QTest::newRow("an empty file") << QByteArray() << QStringLiteral("The file e.csv is empty.") << true;
        QTest::newRow("a header alone")
            << QByteArray(header) << QStringLiteral("The file e.csv holds no events.") << false;
        QTest::newRow("events without a header") << QByteArray(firstEvents) << noHeader << true;
        QTest::newRow("semicolons in place of commas")
            << QByteArray("kind;time;source;class;count\n") << noHeader << true;
        QTest::newRow("one endless line") << QByteArray(1'000'000, 'x') << noHeader << true;
        QTest::newRow("UTF-16 with a mark") << "\xff\xfe" + inUtf16(header) << noUtf8 << true;
        QTest::newRow("UTF-16 without a mark") << inUtf16(header) << noUtf8 << true;
        QTest::newRow("Latin-1") << latin1 << QStringLiteral("The file e.csv, line 4: the text is not UTF-8.")
                                 << false;
        QTest::newRow("a picture") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16) << noHeader << true;
        QTest::newRow("a program") << QByteArray("\x7f"
                                                 "ELF\2\1\1\0\0\0\0\0",
            12) << noUtf8 << true;
        QTest::newRow("a wrong line after a new source")
            << header + QByteArray(firstEvents) + "alarm,2024-05-03T09:10,street-9,1,3\nnonsense\n"
            << QStringLiteral("The file e.csv, line 5: expected 5 fields, found 1.") << false;
        QTest::newRow("a line that was cut off")
            << header + QByteArray(firstEvents) + "alarm,2024-05-03T09"
            << QStringLiteral("The file e.csv, line 4: expected 5 fields, found 2.") << false;
    }
    void aFileThatCannotBeTakenIsOneSentence()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, sentence);
        QFETCH(bool, isSeenAtOnce);
        const SandboxWithDatabase sandbox;
        const QByteArray before = sandbox.bytes();
        sandbox.write(QStringLiteral("e.csv"), content);
        const Run run = sandbox.import(QStringLiteral("e.csv"));
        QCOMPARE(run.complaint, QStringLiteral("talvix-devhost: %1\n").arg(sentence));
        QCOMPARE(run.code, 1);
        QCOMPARE(run.out, QString());
        QVERIFY(sandbox.bytes() == before);

        QCOMPARE(sandbox.import(QStringLiteral("e.csv"), "new.db").code, 1);
        QCOMPARE(!QFile::exists(sandbox.path(QStringLiteral("new.db"))), isSeenAtOnce);
    }

    void whatIsNoFileIsOneSentence()
    {
        const SandboxWithDatabase sandbox;
        const QByteArray before = sandbox.bytes();
        QVERIFY(QDir(sandbox.path({})).mkdir(QStringLiteral("folder")));
        const Run folder = sandbox.import(QStringLiteral("folder"));
        QCOMPARE(folder.complaint, QStringLiteral("talvix-devhost: folder is not a file.\n"));
        QCOMPARE(folder.code, 1);
        const Run nothing = sandbox.import(QStringLiteral("nothing.csv"));
        QCOMPARE(nothing.complaint, QStringLiteral("talvix-devhost: There is no file nothing.csv.\n"));
        QCOMPARE(nothing.code, 1);
        QVERIFY(sandbox.bytes() == before);
    }

    void theSameFileTwiceIsToldAndRefused()
    {
        const SandboxWithDatabase sandbox;
        const QByteArray before = sandbox.bytes();
        const Run again = sandbox.import(QStringLiteral("first.csv"));
        QVERIFY2(again.complaint.startsWith(
                     QStringLiteral("talvix-devhost: The file first.csv was already imported on ")),
            qPrintable(again.complaint));
        QCOMPARE(again.complaints().size(), 1);
        QCOMPARE(again.code, 1);
        QVERIFY(sandbox.bytes() == before);
    }

#ifdef Q_OS_UNIX
    void aFileThatMayNotBeReadIsOneSentence()
    {
        const SandboxWithDatabase sandbox;
        const QString closed = sandbox.closedToOthers();
        if (!closed.isEmpty())
            QSKIP(qPrintable(closed));
        const QString file = sandbox.write(QStringLiteral("e.csv"), QByteArray(header) + firstEvents);
        QVERIFY(QFile::setPermissions(file, {}));
        const Run run =
            sandbox.run(words("--no-window --database new.db --import e.csv"), sandbox.asOrdinaryUser());
        QCOMPARE(run.complaint,
            QStringLiteral("talvix-devhost: The file e.csv cannot be read: Permission denied.\n"));
        QCOMPARE(run.code, 1);
        QVERIFY(!QFile::exists(sandbox.path(QStringLiteral("new.db"))));
    }
#endif

    void aDatabaseThatIsInUseIsOneSentence_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QStringList>("hold");
        const QStringList import = words("--import e.csv");
        const QStringList topUp = words("--generate --now 2024-05-03T17:20");
        const QStringList reads = {QStringLiteral("BEGIN"), QStringLiteral("SELECT COUNT(*) FROM source")};
        const QStringList writes = {QStringLiteral("BEGIN IMMEDIATE")};
        const QStringList hasItAlone = {QStringLiteral("BEGIN EXCLUSIVE")};
        QTest::newRow("somebody reads during an import, which is seen at its end") << import << reads;
        QTest::newRow("somebody writes during an import") << import << writes;
        QTest::newRow("somebody has it alone before an import") << import << hasItAlone;
        QTest::newRow("somebody reads while sample events are continued") << topUp << reads;
        QTest::newRow("somebody writes while sample events are continued") << topUp << writes;
        QTest::newRow("somebody has it alone before sample events are continued") << topUp << hasItAlone;
    }
    void aDatabaseThatIsInUseIsOneSentence()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QStringList, hold);
        arguments += words("--no-window --database");
        const SandboxWithDatabase sandbox;
        sandbox.write(QStringLiteral("e.csv"), manyAlarms(5000));
        QVERIFY(QFile::copy(sandbox.database(), sandbox.path(QStringLiteral("b.db"))));
        QCOMPARE(sandbox.run(arguments + words("b.db")).code, 0);
        const QByteArray before = sandbox.bytes();
        {
            Connection other(sandbox.database());
            for (const QString &statement : std::as_const(hold))
                other.execute(statement);
            const Run run = sandbox.run(arguments + words("a.db"));
            QCOMPARE(run.complaints().constLast(),
                QStringLiteral("talvix-devhost: The database a.db is in use by another program."));
            QVERIFY2(!run.complaint.contains(QStringLiteral("done")), qPrintable(run.complaint));
            QCOMPARE(run.code, 1);
            other.execute(QStringLiteral("ROLLBACK"));
        }
        QVERIFY(sandbox.bytes() == before);
        QCOMPARE(sandbox.run(arguments + words("a.db")).code, 0);
        QCOMPARE(contentOf(sandbox.database()), contentOf(sandbox.path(QStringLiteral("b.db"))));
    }

    void aFullDiskIsOneSentenceAndTheDatabaseAsBefore()
    {
        const SandboxWithDatabase sandbox;
        const QString file = sandbox.write(QStringLiteral("e.csv"), manyAlarms(20'000));
        const QStringList before = contentOf(sandbox.database());
        SqlStore store;
        store.open(sandbox.database());
        Statement pages(store.connection(), QStringLiteral("PRAGMA page_count"));
        store.connection().execute(
            QStringLiteral("PRAGMA max_page_count = %1").arg(pages.execute().single() + 20));
        QCOMPARE(failureOf([&] { store.importFile(file); }),
            QStringLiteral("The database %1 reports: database or disk is full.").arg(sandbox.database()));
        QCOMPARE(contentOf(store), before);

        store.connection().execute(QStringLiteral("PRAGMA max_page_count = 1000000"));
        store.importFile(file);
        QCOMPARE(soundness(sandbox.database()), QStringLiteral("ok"));
    }

#ifdef Q_OS_UNIX
    // The cache is kept so small that half of the import has reached the file when it ends.
    void anImportThatIsKilledLeavesNothing()
    {
        const SandboxWithDatabase sandbox;
        const QString file = sandbox.write(QStringLiteral("e.csv"), manyAlarms(20'000));
        const QStringList before = contentOf(sandbox.database());
        const QByteArray bytesBefore = sandbox.bytes();
        const pid_t child = fork();
        if (child == 0) {
            failureOf([&] {
                SqlStore store;
                store.open(sandbox.database());
                store.connection().execute(QStringLiteral("PRAGMA cache_size = 10"));
                store.importFile(file, {}, [](int percent, int) {
                    if (percent >= 50)
                        kill(getpid(), SIGKILL);
                });
            });
            _exit(0);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), SIGKILL);
        QVERIFY(sandbox.bytes() != bytesBefore);

        QCOMPARE(contentOf(sandbox.database()), before);
        QCOMPARE(soundness(sandbox.database()), QStringLiteral("ok"));
        QCOMPARE(sandbox.import(QStringLiteral("e.csv")).code, 0);
    }
#endif

    void aProgramThatIsKilledWhileImportingLeavesNothing()
    {
        const SandboxWithDatabase sandbox;
        sandbox.write(QStringLiteral("e.csv"), manyAlarms(200'000));
        const QStringList before = contentOf(sandbox.database());
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        sandbox.start(process, words("--no-window --database a.db --import e.csv"));
        QByteArray told;
        while (!told.contains("Importing e.csv") && process.waitForReadyRead(60'000))
            told += process.readAll();
        QVERIFY2(told.contains("Importing e.csv"), told.constData());
        process.kill();
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
        QCOMPARE(contentOf(sandbox.database()), before);
        QCOMPARE(soundness(sandbox.database()), QStringLiteral("ok"));
    }
};

TALVIX_TEST_MAIN(TestImportFailures)
#include "tst_import_failures.moc"
