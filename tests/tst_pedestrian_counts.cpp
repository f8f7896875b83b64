#include "support/StorePageTest.h"

#include <page/TimeFormats.h>

#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *ownFile = "TALVIX_PEDESTRIAN_COUNTS";
enum OrgType { below = 1, all = 2 };

/// What a file counts, added up straight from its lines: pedestrians of a source by day.
using Days = std::map<QString, int>;
using Counts = std::map<QString, Days>;

Counts countsIn(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read.", qUtf8Printable(fileName));
    file.readLine();
    Counts counts;
    while (!file.atEnd()) {
        const QList<QByteArray> fields = file.readLine().trimmed().split(',');
        if (fields.size() == 5)
            counts[QString::fromUtf8(fields[2])][QString::fromUtf8(fields[1].left(10))] += fields[4].toInt();
    }
    return counts;
}

int sumOf(const Days &days)
{
    int sum = 0;
    for (const auto &[day, count] : days)
        sum += count;
    return sum;
}

Days dailySums(const Counts &counts)
{
    Days sums;
    for (const auto &[source, days] : counts)
        for (const auto &[day, count] : days)
            sums[day] += count;
    return sums;
}

/// A line as the page must hold it: every day of the span, also those without counts.
QStringList lineOf(const Days &days, const QDate &first, const QDate &last)
{
    QStringList line;
    for (QDate date = first; date <= last; date = date.addDays(1)) {
        const QString day = date.toString(Qt::ISODate);
        const auto counted = days.find(day);
        line += u"%1=%2"_s.arg(day).arg(counted == days.end() ? 0 : counted->second);
    }
    return line;
}

template <typename List>
QStringList textsOf(const List &list)
{
    QStringList texts;
    for (const auto &entry : list)
        texts += u"%1=%2"_s.arg(entry.first).arg(entry.second);
    return texts;
}

template <typename List>
int totalOf(const List &list)
{
    int total = 0;
    for (const auto &entry : list)
        total += entry.second;
    return total;
}

/// A month of hourly counts with the rhythm of days and weeks, gaps and hours without anybody, the shape of
/// files of street sensors.
QByteArray monthOfCounts()
{
    constexpr int sensors = 9;
    const QDate first(2014, 3, 1);
    QByteArray content = "kind,time,source,class,count\n";
    quint32 noise = 1;
    for (int day = 0; day < 31; ++day)
        for (int hour = 0; hour < 24; ++hour)
            for (int sensor = 1; sensor <= sensors; ++sensor) {
                noise = noise * 1664525u + 1013904223u;
                const bool broken = sensor == 7 || (sensor == 3 && day == 12);
                if (broken)
                    continue;
                const int crowd = hour < 5 ? 0 : (12 - qAbs(hour - 14)) * sensor * (day % 7 < 2 ? 9 : 23);
                content += "snapshot," + first.addDays(day).toString(Qt::ISODate).toLatin1() + 'T'
                    + QByteArray::number(hour).rightJustified(2, '0') + ":00,sensor-"
                    + QByteArray::number(sensor).rightJustified(2, '0') + ",2,"
                    + QByteArray::number(crowd + static_cast<int>(noise >> 28)) + '\n';
            }
    return content;
}

} // namespace

/// Real files of counts: what they say is what pages show.
class TestPedestrianCounts : public StorePageTest
{
    Q_OBJECT

private:
    Counts counts;
    QDate first;
    QDate last;

    /// Shows the page of a kind, for the days of the file and its pedestrians.
    void open(int service)
    {
        showPageOf(service);
        QTest::mouseClick(page->part<QWidget>("personRadio"), Qt::LeftButton);
        QTest::mouseClick(page->part<QWidget>("pushButtonDay"), Qt::LeftButton);
        page->part<QLineEdit>("lineEditTime")
            ->setText(TimeFormats::spanText(
                first.startOfDay(), last.startOfDay(), TimeFormats::display(page->m_nTimeType)));
        QCOMPARE(page->tips, QList<ProbePage::Tip>());
    }

    void chooseSumMode(int orgType)
    {
        auto *modes = page->part<QComboBox>("comboBoxOrgType");
        modes->setCurrentIndex(modes->findData(orgType, Qt::UserRole));
        QCOMPARE(modes->currentData(Qt::UserRole).toInt(), orgType);
    }

    /// The bar with this label shows \a days, and so do the line and the pie below it.
    void checkBar(const QString &label, const Days &days)
    {
        const int sum = sumOf(days);
        QVERIFY2(textsOf(page->barDataList2).contains(u"%1=%2"_s.arg(label).arg(sum)),
            qPrintable(
                u"%1 must be %2 in %3"_s.arg(label).arg(sum).arg(textsOf(page->barDataList2).join(u' '))));
        if (sum == 0)
            return;
        QString key;
        for (const auto &bar : std::as_const(page->devDataList))
            if (bar.first == label)
                key = bar.second;
        page->getChartDataByBarId(key);
        page->reloadLineAndPieChart();
        QCOMPARE(textsOf(page->lineDataList2), lineOf(days, first, last));
        QCOMPARE(totalOf(page->lineDataList), 0);
        QCOMPARE(totalOf(page->pieDataList), sum);
        const QString total =
            sum < 1'000'000 ? QString::number(sum) : QString::number(sum / 1e6, 'f', 2) + u"TK_Million"_s;
        QVERIFY2(page->labelPiecount->text().contains(u"<font> %1</font>"_s.arg(total)),
            qPrintable(page->labelPiecount->text()));
    }

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("a file of that shape") << QString();
        if (qEnvironmentVariableIsSet(ownFile))
            QTest::newRow("the file that the environment names") << qEnvironmentVariable(ownFile);
    }
    void initTestCase()
    {
        SKIP_WITHOUT_DATABASE();
        // Each search would write its lines.
        QLoggingCategory::setFilterRules(u"*.debug=false"_s);
    }

    void init()
    {
        QFETCH_GLOBAL(QString, file);
        QTemporaryDir folder;
        QFile written(folder.filePath(u"counts.csv"_s));
        if (file.isEmpty()) {
            QVERIFY(written.open(QIODevice::WriteOnly));
            QVERIFY(written.write(monthOfCounts()) > 0);
            written.close();
            file = written.fileName();
        }
        counts = countsIn(file);
        const Days days = dailySums(counts);
        QVERIFY(!days.empty());
        first = QDate::fromString(days.begin()->first, Qt::ISODate);
        last = QDate::fromString(days.rbegin()->first, Qt::ISODate);
        setPresentMoment(QDateTime(last, QTime(23, 59)));

        store = std::make_unique<EventStore>();
        QCOMPARE(store->store.importFile(file).added, static_cast<int>(counts.size()));
        installStore();
    }
    void cleanup()
    {
        page.reset();
        removeStore();
        setPresentMoment({});
    }

    void everySensorHasItsBarLineAndTotal()
    {
        open(8);
        int sensors = 0;
        for (const auto &[sensor, days] : counts) {
            if (sumOf(days) == 0)
                continue;
            checkBar(sensor, days);
            ++sensors;
        }
        QCOMPARE(page->barDataList2.size(), sensors);
        QCOMPARE(totalOf(page->barDataList2), sumOf(dailySums(counts)));
        QCOMPARE(totalOf(page->barDataList), 0);
    }

    void theOrganisationsAddThemUp()
    {
        const Days sums = dailySums(counts);
        open(7);
        chooseSumMode(all);
        checkBar(u"All sites"_s, sums);
        checkBar(u"Imported"_s, sums);
        checkBar(u"Airport"_s, {});
        QCOMPARE(totalOf(page->barDataList2), 2 * sumOf(sums));
        chooseSumMode(below);
        checkBar(u"All sites"_s, sums);
        checkBar(u"Imported"_s, {});
        QCOMPARE(totalOf(page->barDataList2), sumOf(sums));
    }
};

TALVIX_TEST_MAIN(TestPedestrianCounts)
#include "tst_pedestrian_counts.moc"
