#include "support/EventStore.h"

#include <QtCore/QThread>

#include <functional>
#include <memory>
#include <tuple>

using namespace devdata;

namespace {

using Work = std::function<void(SqlStore &)>;

QDateTime atTime(int hour, int minute)
{
    return QDateTime(testMoment().date(), QTime(hour, minute));
}

/// A database on disk that holds the sample events of half an hour; another half hour is due.
class DiskStore : public SqlStore
{
public:
    DiskStore()
    {
        open(path());
        // Tests need not wait as long for a lock to pass as a user would.
        connection().execute(QStringLiteral("PRAGMA busy_timeout = 0"));
        SampleOptions options;
        options.from = Minute(atTime(8, 0));
        options.to = Minute(atTime(8, 30));
        generate(options);
        setPresentMoment([] { return atTime(9, 0); });
    }

    QString path() const { return m_folder.filePath(QStringLiteral("a.db")); }
    QString inUse() const
    {
        return QStringLiteral("The database %1 is in use by another program.").arg(path());
    }
    QString writeEvents() const
    {
        QFile file(m_folder.filePath(QStringLiteral("events.csv")));
        if (!file.open(QIODevice::WriteOnly)
            || file.write("kind,time,source,class,count\nalarm,2024-05-03T08:15,ipc-111-1,3,2\n") < 0)
            qFatal("The file cannot be written.");
        return file.fileName();
    }

private:
    QTemporaryDir m_folder;
};

/// Another program that has the database to itself.
class OtherProgram : public Connection
{
public:
    explicit OtherProgram(const DiskStore &store)
        : Connection(store.path())
    {
        execute(QStringLiteral("BEGIN EXCLUSIVE"));
    }

    void leave() { execute(QStringLiteral("ROLLBACK")); }
};

} // namespace

Q_DECLARE_METATYPE(Work)

/// A database that another program uses at the same time.
class TestStoreLocks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyOperationSaysThatTheDatabaseIsInUse_data()
    {
        QTest::addColumn<Work>("work");
        const auto row = [](const char *name, const Work &work) { QTest::newRow(name) << work; };
        row("looking for events", [](SqlStore &store) { std::ignore = store.isEmpty(); });
        row("looking for sample events", [](SqlStore &store) { std::ignore = store.hasSamples(); });
        row("making sample events", [](SqlStore &store) { store.fill(); });
        row("continuing them", [](SqlStore &store) { store.topUp(); });
        row("making events for measuring", [](SqlStore &store) { store.fillForMeasuring(10, 1); });
        row("reading the world of the client", [](SqlStore &store) { SqlKrxClient client(store); });
    }
    void everyOperationSaysThatTheDatabaseIsInUse()
    {
        QFETCH(Work, work);
        DiskStore undisturbed;
        undisturbed.topUp();
        DiskStore store;
        const QStringList before = countsIn(store);
        OtherProgram other(store);
        QCOMPARE(failureOf([&] { work(store); }), store.inUse());
        other.leave();
        QCOMPARE(countsIn(store), before);
        store.topUp();
        QCOMPARE(countsIn(store), countsIn(undisturbed));
        QVERIFY(countsIn(store) != before);
    }

    void anImportLeavesNothingWhenTheDatabaseIsInUse()
    {
        DiskStore store;
        const QString events = store.writeEvents();
        const QStringList before = countsIn(store);
        OtherProgram other(store);
        QCOMPARE(failureOf([&] { store.importFile(events); }), store.inUse());
        other.leave();
        QCOMPARE(countsIn(store), before);
        QCOMPARE(store.importFile(events).kept, 1);
    }

    void aClientThatCannotReloadKeepsWhatItKnew()
    {
        DiskStore store;
        SqlKrxClient client(store);
        OtherProgram other(store);
        QCOMPARE(failureOf([&] { client.reload(); }), store.inUse());
        QCOMPARE(client.getOrgaList().size(), size_t(25));
        QVERIFY(client.getChannelByUid("ipc-111-1"));
    }

    void aLockThatPassesAfterTheLookForEventsMakesNoneAgain()
    {
        DiskStore store;
        const QStringList before = countsIn(store);
        OtherProgram other(store);
        store.setPresentMoment([&] {
            other.leave();
            return atTime(9, 0);
        });
        QCOMPARE(failureOf([&] {
            if (store.isEmpty())
                store.fill();
        }),
            store.inUse());
        other.leave();
        QCOMPARE(countsIn(store), before);
    }

    void whileAnotherProgramWritesEventsAreReadButNotMade()
    {
        DiskStore store;
        Connection other(store.path());
        other.execute(QStringLiteral("BEGIN IMMEDIATE"));
        SqlStore reading;
        reading.open(store.path());
        QVERIFY(reading.hasSamples());
        bool isBegun = false;
        QCOMPARE(failureOf([&] { store.topUp([&](int, int) { isBegun = true; }); }), store.inUse());
        QVERIFY(!isBegun);
    }

    void twoProgramsMayOpenANewDatabaseAtOnce()
    {
        for (int round = 0; round < 5; ++round) {
            const QTemporaryDir folder;
            const QString path = folder.filePath(QStringLiteral("a.db"));
            const QString inUse = QStringLiteral("The database %1 is in use by another program.").arg(path);
            QString failures[2];
            std::unique_ptr<QThread> programs[2];
            for (int i = 0; i < 2; ++i) {
                programs[i].reset(QThread::create([&path, &failure = failures[i]] {
                    failure = failureOf([&] { SqlStore().open(path); });
                }));
                programs[i]->start();
            }
            for (int i = 0; i < 2; ++i) {
                QVERIFY(programs[i]->wait());
                QVERIFY2(failures[i].isEmpty() || failures[i] == inUse, qPrintable(failures[i]));
            }
            SqlStore store;
            store.open(path);
            QCOMPARE(SqlKrxClient(store).getOrgaList().size(), size_t(25));
        }
    }

    void whatAnotherProgramMadeMeanwhileIsNotMadeAgain()
    {
        DiskStore store;
        SqlStore other;
        other.open(store.path());
        other.setPresentMoment([&] {
            store.topUp();
            return atTime(9, 0);
        });
        other.topUp();
        const QStringList once = countsIn(store);
        DiskStore undisturbed;
        undisturbed.topUp();
        QCOMPARE(once, countsIn(undisturbed));
        other.fill();
        QCOMPARE(countsIn(store), once);
    }
};

TALVIX_TEST_MAIN(TestStoreLocks)
#include "tst_store_locks.moc"
