#include "support/EventStore.h"
#include "support/TestTable.h"

#include <devhost/data/CsvLine.h>
#include <devhost/data/TemperatureStatistics.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::string_literals;

using namespace devdata;

class TestCsvImport : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<EventStore> store;
    std::unique_ptr<QTemporaryDir> folder;
    ImportReport report;

    QString write(const QByteArray &content, const char *name = "events.csv")
    {
        QFile file(folder->filePath(QLatin1String(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("The file cannot be written.");
        return file.fileName();
    }

    void import(const QByteArray &lines, bool skipBadLines = false)
    {
        importFile(write("kind,time,source,class,count\n" + lines), skipBadLines);
    }

    void importFile(const QString &name, bool skipBadLines = false)
    {
        ImportOptions options;
        options.skipBadLines = skipBadLines;
        report = store->store.importFile(name, options);
    }

    qint64 count(Fact fact, Scope scope, int subject, TimeUnit unit, const char *period)
    {
        qint64 sum = 0;
        for (const ClassCount &row : countsByClass(store->store.connection(),
                 {fact, {scope}, {subject}, parseTimeRange(static_cast<int>(unit), period, period)}))
            sum += row.count;
        return sum;
    }

    int importedOrganisation()
    {
        SqlKrxClient client(store->store);
        for (const TalvixGroup &group : client.getOrgaList())
            if (group.get_group_name() == "Imported")
                return group.get_group_id();
        return 0;
    }

private Q_SLOTS:
    void initTestCase() { SKIP_WITHOUT_DATABASE(); }
    void init()
    {
        store = std::make_unique<EventStore>();
        folder = std::make_unique<QTemporaryDir>();
    }
    void cleanup()
    {
        store.reset();
        folder.reset();
    }

    void aLineOfEachKindIsCounted()
    {
        import("alarm,2024-05-03T08:15,ipc-111-1,3,2\n"
               "online,2024-05-03T08,ipc-111,,45\n"
               "temperature,2024-05-03T08:20,1003,1,4\n"
               "snapshot,2024-05-03T08,ipc-111-1,4,7\n");
        QCOMPARE(report.kept, 4);
        QCOMPARE(report.leftOut, 0);
        QCOMPARE(report.added, 0);
        const int channel = store->source("ipc-111-1");
        const char *hour = "2024-05-03 08";
        QCOMPARE(count(Fact::AlarmTypes, Scope::Source, channel, TimeUnit::Hour, hour), 2);
        QCOMPARE(
            count(Fact::OnlineMinutes, Scope::Source, store->source("ipc-111"), TimeUnit::Hour, hour), 45);
        QCOMPARE(count(Fact::Readings, Scope::Person, 1003, TimeUnit::Hour, hour), 4);
        QCOMPARE(count(Fact::HandlingStates, Scope::Organisation, 10, TimeUnit::Hour, hour), 4);
        QCOMPARE(count(Fact::Snapshots, Scope::Source, channel, TimeUnit::Day, "2024-05-03"), 7);
        QCOMPARE(count(Fact::VehicleDetails, Scope::BelowOrganisation, 1, TimeUnit::Month, "2024-05"), 3 * 7);
        QCOMPARE(importedOrganisation(), 0);
    }

    void anUnknownSourceComesUnderImported()
    {
        import("snapshot,2024-05-03T08:00,street-1,2,7\n"
               "online,2024-05-03T08:00,street-1,,30\n"
               "alarm,2024-05-03T08:00,street-2,1,5\n"
               "temperature,2024-05-03T08:00,770077,0,3\n"
               "temperature,2024-05-03T08:00,gate,2,1\n");
        QCOMPARE(report.added, 4);
        const int imported = importedOrganisation();
        QVERIFY(imported > 0);
        SqlKrxClient client(store->store);
        QCOMPARE(client.getOrgaInfoById(imported)->get_parent_id(), 1);
        QCOMPARE(client.getDevNameByChannelID("street-1"), u"street-1"_s);
        QCOMPARE(client.getDevicesByUid("street-1")->get_device_type_id(), 1);
        const char *hour = "2024-05-03 08";
        QCOMPARE(count(Fact::Snapshots, Scope::Organisation, imported, TimeUnit::Hour, hour), 7);
        QCOMPARE(count(Fact::Snapshots, Scope::BelowOrganisation, 1, TimeUnit::Hour, hour), 7);
        QCOMPARE(count(Fact::Alarms, Scope::BelowOrganisation, 1, TimeUnit::Hour, hour), 5);
        QCOMPARE(count(Fact::Readings, Scope::Person, 770077, TimeUnit::Hour, hour), 3);
        QCOMPARE(count(Fact::MaskClasses, Scope::Organisation, imported, TimeUnit::Hour, hour), 4);
        const auto groups = readingsOfGroups(store->store.connection(), {imported}, SumMode::OnlyCurrent,
            SortOrder::Descending, parseTimeRange(static_cast<int>(TimeUnit::Hour), hour, hour));
        QCOMPARE(groups.size(), size_t(1));
        QCOMPARE(groups[0].name, "Imported"s);
        QCOMPARE(groups[0].count, 3);

        import("snapshot,2024-05-03T09:00,street-1,2,1\nsnapshot,2024-05-03T09:00,street-3,2,1\n");
        QCOMPARE(report.added, 1);
        QCOMPARE(importedOrganisation(), imported);
    }

    void snapshotsOfARecorderAreThoseOfItsFirstChannel()
    {
        import("snapshot,2024-05-03T08:00,nvr-110,2,7\n");
        QCOMPARE(report.added, 0);
        QCOMPARE(
            count(Fact::Snapshots, Scope::Source, store->source("nvr-110-1"), TimeUnit::Day, "2024-05-03"),
            7);
    }

    void importedSnapshotsAreOthers()
    {
        import("snapshot,2024-05-03T08:00,ipc-111-1,2,7\n");
        const auto details = countsByClass(store->store.connection(),
            {Fact::PedestrianDetails, {Scope::Source}, {store->source("ipc-111-1")},
                parseTimeRange(static_cast<int>(TimeUnit::Day), "2024-05-03", "2024-05-03")});
        QStringList rows;
        for (const ClassCount &row : details)
            rows += u"%1=%2"_s.arg(row.eventClass).arg(row.count);
        QCOMPARE(rows, (QStringList{"201000=7", "202000=7", "203000=7", "204000=7"}));
    }

    void sampleEventsDoNotUseImportedSources()
    {
        import("snapshot,2024-05-03T08:00,street-1,2,7\ntemperature,2024-05-03T08:00,770077,0,3\n");
        const SampleWorld world = readSampleWorld(store->store.connection());
        for (const SampleWorld::Channel &channel : world.channels)
            QVERIFY(channel.id != store->source("street-1"));
        QVERIFY(std::find(world.persons.begin(), world.persons.end(), 770077) == world.persons.end());
        QVERIFY(std::find(world.persons.begin(), world.persons.end(), 1003) != world.persons.end());
    }

    void aWrongLineStopsTheImportAndNothingIsKept_data()
    {
        table<QByteArray, QString>({"line", "reason"},
            {
                {"too few fields", "alarm,2024-05-03T08:15,x,1", "expected 5 fields, found 4"},
                {"too many fields", "alarm,2024-05-03T08:15,x,1,1,1", "expected 5 fields, found 6"},
                {"an unknown kind", "Alarm,2024-05-03T08:15,x,1,1",
                    "'Alarm' is not one of alarm, online, temperature and snapshot"},
                {"a blank for the T", "alarm,2024-05-03 08:15,x,1,1",
                    "the time '2024-05-03 08:15' is not of the form yyyy-MM-ddThh:mm"},
                {"a zone", "alarm,2024-05-03T08:15Z,x,1,1",
                    "the time '2024-05-03T08:15Z' is not of the form yyyy-MM-ddThh:mm"},
                {"a day that does not exist", "alarm,2024-02-30T08:15,x,1,1",
                    "the time '2024-02-30T08:15' is not of the form yyyy-MM-ddThh:mm"},
                {"an hour that does not exist", "alarm,2024-02-28T24,x,1,1",
                    "the time '2024-02-28T24' is not of the form yyyy-MM-ddThh:mm"},
                {"no source", "alarm,2024-05-03T08:15, ,1,1", "the source is empty"},
                {"a source without end", "alarm,2024-05-03T08:15," + QByteArray(201, 'x') + ",1,1",
                    "the source is longer than 200 characters"},
                {"a class that is no number", "alarm,2024-05-03T08:15,x,one,1",
                    "the class 'one' is not a whole number from 0 to 2147483647"},
                {"a negative alarm code", "alarm,2024-05-03T08:15,x,-1,1",
                    "the class '-1' is not a whole number from 0 to 2147483647"},
                {"an unknown temperature class", "temperature,2024-05-03T08:15,x,4,1",
                    "the temperature class 4 is not in the range 0 to 3"},
                {"an unknown snapshot class", "snapshot,2024-05-03T08:15,x,3,1",
                    "the snapshot class 3 is neither 4 nor 2"},
                {"a negative count", "alarm,2024-05-03T08:15,x,1,-2",
                    "the count '-2' is not a whole number from 0 to 2147483647"},
                {"a broken count", "alarm,2024-05-03T08:15,x,1,1.5",
                    "the count '1.5' is not a whole number from 0 to 2147483647"},
                {"a count too great", "alarm,2024-05-03T08:15,x,1,2147483648",
                    "the count '2147483648' is not a whole number from 0 to 2147483647"},
                {"more minutes than an hour has", "online,2024-05-03T08,x,,61",
                    "61 minutes are more than an hour has"},
                {"minutes that are taken", "online,2024-05-03T08,ipc-111,,30",
                    "ipc-111 was already online for 40 minutes of this hour"},
                {"wrong encoding",
                    "alarm,2024-05-03T08:15,stra\xdf"
                    "e,1,1",
                    "the text is not UTF-8"},
                {"a null byte", QByteArray("alarm,2024-05-03T08:15,a\0b,1,1", 30), "the text is not UTF-8"},
                {"a line without end", QByteArray(10000, 'x'), "the line is too long"},
            });
    }
    void aWrongLineStopsTheImportAndNothingIsKept()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, reason);
        const QByteArray good = "online,2024-05-03T08,ipc-111,,40\nsnapshot,2024-05-03T08:00,street-1,2,7\n";
        const QByteArray more = "alarm,2024-05-03T08:15,ipc-111-1,3,2\n";
        const QString file = folder->filePath(u"events.csv"_s);
        QCOMPARE(failureOf([&] { import(good + line + "\n" + more); }),
            u"The file %1, line 4: %2."_s.arg(file, reason));
        QVERIFY(store->store.isEmpty());
        QCOMPARE(importedOrganisation(), 0);

        import(good + line + "\n" + more, true);
        QCOMPARE(report.kept, 3);
        QCOMPARE(report.leftOut, 1);
        QCOMPARE(report.reasons.size(), size_t(1));
        QCOMPARE(report.reasons[0], u"line 4: "_s + reason);
        QCOMPARE(
            count(Fact::Alarms, Scope::Source, store->source("ipc-111-1"), TimeUnit::Day, "2024-05-03"), 2);
    }

    void manyWrongLinesAreCountedButNotAllListed()
    {
        import("nonsense\n"_ba.repeated(250) + "alarm,2024-05-03T08:15,ipc-111-1,3,2\n", true);
        QCOMPARE(report.leftOut, 250);
        QCOMPARE(report.reasons.size(), ImportReport::mostListed);
    }

    void theSameFileTwiceIsRefused()
    {
        const QByteArray lines = "alarm,2024-05-03T08:15,ipc-111-1,3,2\n";
        import(lines);
        const QString copy = write("kind,time,source,class,count\n" + lines, "copy.csv");
        QCOMPARE(failureOf([&] { importFile(copy); }),
            u"The file %1 was already imported on 2024-05-03."_s.arg(copy));
        QCOMPARE(
            count(Fact::Alarms, Scope::Source, store->source("ipc-111-1"), TimeUnit::Day, "2024-05-03"), 2);
        import(lines + lines);
    }

    void aFileThatWasRefusedCanBeImportedLater()
    {
        const QByteArray lines = "nonsense\nalarm,2024-05-03T08:15,ipc-111-1,3,2\n";
        QVERIFY(!failureOf([&] { import(lines); }).isEmpty());
        import(lines, true);
        QCOMPARE(report.kept, 1);
    }

    void fieldsMayBeQuotedAndLinesMayEndAsTheyLike()
    {
        importFile(write("\xef\xbb\xbf"
                         "kind,time,source,class,count\r\n"
                         "alarm,2024-05-03T08:15,\"gate, \"\"north\"\"\",3,2\r\n"
                         "\r\n"
                         " alarm , 2024-05-03T08:15 , Stra\xc3\x9f"
                         "e , 3 , 4 "));
        QCOMPARE(report.kept, 2);
        SqlKrxClient client(store->store);
        QVERIFY(client.getChannelByUid("gate, \"north\""));
        QVERIFY(client.getChannelByUid("Stra\xc3\x9f"
                                       "e"));
    }

    void aCountOfNothingMakesItsSourceKnown()
    {
        import("alarm,2024-05-03T08:15,street-1,3,0\n");
        QCOMPARE(report.kept, 1);
        QCOMPARE(report.added, 1);
        QVERIFY(store->store.isEmpty());
    }

    void whatIsNoFileOfEventsIsRefused_data()
    {
        table<QByteArray, QString>({"content", "reason"},
            {
                {"an empty file", QByteArray(), "The file %1 is empty."},
                {"no header", "alarm,2024-05-03T08:15,ipc-111-1,3,2\n"_ba,
                    u"The file %1 does not begin with the line "
                    "\"kind,time,source,class,count\"."_s},
                {"another header", "kind;time;source;class;count\n"_ba,
                    u"The file %1 does not begin with the line \"kind,time,source,class,count\"."_s},
                {"a binary file",
                    QByteArray("\x7f"
                               "ELF\0\0\1",
                        7),
                    "The file %1 is not a text in UTF-8."},
                {"UTF-16", QByteArray("\xff\xfek\0i\0n\0d\0", 10), "The file %1 is not a text in UTF-8."},
                {"a header alone", "kind,time,source,class,count\n\n"_ba, "The file %1 holds no events."},
            });
    }
    void whatIsNoFileOfEventsIsRefused()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        const QString name = write(content);
        for (const bool skipBadLines : {false, true})
            QCOMPARE(failureOf([&] { importFile(name, skipBadLines); }), reason.arg(name));
        QVERIFY(store->store.isEmpty());
    }

    void aFolderOrNothingIsRefused()
    {
        QCOMPARE(failureOf([&] { importFile(folder->path()); }), u"%1 is not a file."_s.arg(folder->path()));
        const QString nothing = folder->filePath(u"nothing.csv"_s);
        QCOMPARE(failureOf([&] { importFile(nothing); }), u"There is no file %1."_s.arg(nothing));
    }

    void progressIsToldInPercent()
    {
        QByteArray content = "kind,time,source,class,count\n";
        for (int i = 0; i < 5000; ++i)
            content += "alarm,2024-05-03T08:15,ipc-111-1,3,1\n";
        QList<int> told;
        store->store.importFile(write(content), {}, [&](int done, int total) {
            QCOMPARE(total, 100);
            told.append(done);
        });
        QCOMPARE(told.last(), 100);
        QVERIFY(told.size() > 2);
        QVERIFY(std::is_sorted(told.begin(), told.end()));
        QCOMPARE(count(Fact::Alarms, Scope::BelowOrganisation, 1, TimeUnit::Month, "2024-05"), 5000);
    }
};

TALVIX_TEST_MAIN(TestCsvImport)
#include "tst_csv_import.moc"
