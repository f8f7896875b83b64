#include "support/TestMain.h"
#include "support/TestTable.h"

#include <devhost/widgets/HostSettings.h>
#include <devhost/widgets/SnapClasses.h>
#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/BaseWidget.h>
#include <TalvixWidgets/ZrCalendarWidget.h>

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
QString translated(const QString &key, AppLanguageTr::CaptitalType type = AppLanguageTr::Sentence)
{
    return AppLanguageTr::instance()->translate(key, type, -1);
}

QString translated(const char *key)
{
    return translated(QString::fromUtf8(key));
}

/// Every key that the page, its dialog and the tab host ask for.
const char *const pageKeys[] = {"TK_Abnormal", "TK_AbnormalTemperature", "TK_AlarmAccepted",
    "TK_AlarmStatisticsOfDevices", "TK_AlarmStatisticsOfNum", "TK_AlarmStatisticsOfOrgas",
    "TK_AlarmStatisticsOfType", "TK_AlarmUnAccepted", "TK_AllSum", "TK_AscMode", "TK_ByEtiology", "TK_ByMask",
    "TK_ByNumber", "TK_ByTemperature", "TK_Cancel", "TK_Close", "TK_Day", "TK_DescMode", "TK_Device",
    "TK_DeviceAlmStatistics", "TK_DeviceOnline", "TK_Export", "TK_ExportMode", "TK_ExportSuccess",
    "TK_GetFailed", "TK_Hour", "TK_IPC", "TK_LowSum", "TK_LowTemp", "TK_MaskUncovered", "TK_MaskUndetected",
    "TK_MaskWeared", "TK_Million", "TK_Month", "TK_NVRAndDVR", "TK_NextPage", "TK_NoRecords", "TK_Normal",
    "TK_NormalTemperature", "TK_OK", "TK_OnlineStatisticsOfDevices", "TK_OnlineStatisticsOfNum",
    "TK_OnlineStatisticsOfOrgas", "TK_OnlineStatisticsOfType", "TK_OnlyCurrent", "TK_Organization",
    "TK_OrganizationAlm", "TK_OrganizationOnline", "TK_Other", "TK_OvertemperatureOfHighTemperature",
    "TK_PageTotalSize", "TK_Pedestrian", "TK_PreviousPage", "TK_SaveImportResult",
    "TK_StatisticalDistributionOfBodytemperatureSnapshot", "TK_StatisticalDistributionOfMaskSnapshot",
    "TK_TemperatureStatisticsOfDevGroups", "TK_TemperatureStatisticsOfNum",
    "TK_TemperatureStatisticsOfPersons", "TK_TemperatureStatisticsOfType", "TK_TimeInterval(0-6 months)",
    "TK_TimeInterval(0-7 days)", "TK_TimeInterval(1 day)", "TK_TrafficsStatisticsOfDevices",
    "TK_TrafficsStatisticsOfNum", "TK_TrafficsStatisticsOfType", "TK_Vehicle", "TK_orgNotExist", "TK_sort"};

/// Titles that stand directly behind the word for the unit of time.
const char *const titleKeys[] = {"TK_AlarmStatisticsOfNum", "TK_AlarmStatisticsOfType",
    "TK_OnlineStatisticsOfNum", "TK_OnlineStatisticsOfType", "TK_TemperatureStatisticsOfNum",
    "TK_TemperatureStatisticsOfType", "TK_TrafficsStatisticsOfNum", "TK_TrafficsStatisticsOfType",
    "TK_StatisticalDistributionOfBodytemperatureSnapshot", "TK_StatisticalDistributionOfMaskSnapshot"};

/// Labels that are told apart by their text alone.
const char *const classKeys[] = {"TK_NormalTemperature", "TK_OvertemperatureOfHighTemperature", "TK_LowTemp",
    "TK_AbnormalTemperature", "TK_MaskWeared", "TK_MaskUncovered", "TK_MaskUndetected", "TK_Other"};

class RetranslatingWidget : public BaseWidget
{
public:
    explicit RetranslatingWidget(QWidget *parent = nullptr)
        : BaseWidget(parent, {})
    { }

    void retranslateUi() override { texts.append(translated("TK_Export")); }

    QStringList texts;
};

} // namespace

static void addLanguages()
{
    QTest::addColumn<QString>("language");
    const QStringList languages = HostSettings::languages();
    for (const QString &language : languages)
        QTest::newRow(qPrintable(language)) << language;
}

class TestTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QVERIFY(HostSettings::setLanguage({})); }

    void aProcessStartsWithoutALanguage()
    {
        QCOMPARE(HostSettings::language(), QString());
        for (const char *key : pageKeys)
            QCOMPARE(translated(key), QString::fromUtf8(key));
        QCOMPARE(HostSettings::languages(), QStringList({"en", "zh_CN", "de", "x-long", "x-rtl"}));
    }

    void everyKeyHasATextInEveryLanguage_data() { addLanguages(); }
    void everyKeyHasATextInEveryLanguage()
    {
        QFETCH(QString, language);
        QVERIFY(HostSettings::setLanguage(language));
        QCOMPARE(HostSettings::language(), language);
        for (const char *key : pageKeys) {
            QVERIFY2(!translated(key).trimmed().isEmpty(), key);
            QVERIFY2(!translated(key).contains(u"TK_"_s), key);
        }
    }

    void aTitleReadsOnBehindItsUnit_data() { addLanguages(); }
    void aTitleReadsOnBehindItsUnit()
    {
        QFETCH(QString, language);
        QVERIFY(HostSettings::setLanguage(language));
        for (const char *key : titleKeys)
            QVERIFY2(language == u"zh_CN"_s || translated(key).startsWith(u' '), key);
        // A failure is followed by its reason, a total by its unit, both without a blank in between.
        QVERIFY(language == u"zh_CN"_s || translated("TK_GetFailed").endsWith(u' '));
        QVERIFY(language == u"zh_CN"_s || translated("TK_Million").startsWith(u' '));
    }

    void classesHaveDistinctTexts_data() { addLanguages(); }
    void classesHaveDistinctTexts()
    {
        QFETCH(QString, language);
        QVERIFY(HostSettings::setLanguage(language));
        QSet<QString> texts;
        for (const char *key : classKeys)
            texts.insert(translated(key));
        QCOMPARE(static_cast<std::size_t>(texts.size()), std::size(classKeys));
    }

    void whatIsNoKeyPassesThrough_data()
    {
        table<QString>({"text"},
            {{"a pattern", " | %1% %2"}, {"an unknown key", "TK_NobodyKnowsThis"},
                {"a key in other letters", "tk_export"}, {"a key with something behind it", "TK_Export "},
                {"a key with a zero character behind it", QString(u"TK_Export"_s + QChar(QChar::Null))},
                {"a format of a file", "PDF"}, {"half a character", QString(QChar(0xD800))},
                {"empty", QString()}});
    }

    void whatIsNoKeyPassesThrough()
    {
        QFETCH(QString, text);
        const QStringList languages = HostSettings::languages() + QStringList{QString()};
        for (const QString &language : languages) {
            QVERIFY(HostSettings::setLanguage(language));
            for (const auto type : {AppLanguageTr::Sentence, AppLanguageTr::Button, AppLanguageTr::Title})
                QCOMPARE(translated(text, type), text);
        }
    }

    void theLongLanguageLengthensEveryText()
    {
        QVERIFY(HostSettings::setLanguage(u"en"_s));
        QMap<QString, qsizetype> lengths;
        for (const char *key : pageKeys)
            lengths.insert(QString::fromUtf8(key), translated(key).size());
        QVERIFY(HostSettings::setLanguage(u"x-long"_s));
        for (auto length = lengths.cbegin(); length != lengths.cend(); ++length)
            QVERIFY2(translated(length.key()).size() * 10 >= length.value() * 14, qPrintable(length.key()));
    }

    void theLongLanguageKeepsPlaceholdersAndOuterBlanks()
    {
        QVERIFY(HostSettings::setLanguage(u"x-long"_s));
        QVERIFY(translated("TK_GetFailed").endsWith(u"] "_s));
        QVERIFY(translated("TK_AlarmStatisticsOfNum").startsWith(u" ["_s));
        QVERIFY(translated("TK_Export").startsWith(u'[') && translated("TK_Export").endsWith(u']'));
    }

    void theMirroredLanguageRunsFromRightToLeft()
    {
        QVERIFY(HostSettings::setLanguage(u"en"_s));
        const QString english = translated("TK_AlarmStatisticsOfNum");
        QCOMPARE(QGuiApplication::layoutDirection(), Qt::LeftToRight);
        QVERIFY(HostSettings::setLanguage(u"x-rtl"_s));
        QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
        QVERIFY(translated("TK_Export").isRightToLeft());
        QVERIFY(translated("TK_GetFailed").endsWith(u' '));
        QVERIFY(translated("TK_AlarmStatisticsOfNum").startsWith(u' '));
        QVERIFY(translated("TK_AlarmStatisticsOfNum").contains(english.trimmed()));
        for (const QString &code : {u"de"_s, u"x-long"_s, QString()}) {
            QVERIFY(HostSettings::setLanguage(u"x-rtl"_s));
            QVERIFY(HostSettings::setLanguage(code));
            QCOMPARE(QGuiApplication::layoutDirection(), Qt::LeftToRight);
        }
    }

    void anUnknownLanguageChangesNothing()
    {
        QVERIFY(HostSettings::setLanguage(u"de"_s));
        for (const QString &code : {u"fr"_s, u"DE"_s, u"../de"_s, u"*"_s}) {
            QVERIFY(!HostSettings::setLanguage(code));
            QCOMPARE(HostSettings::language(), u"de"_s);
            QCOMPARE(translated("TK_Cancel"), u"Abbrechen"_s);
        }
    }

    void aSwitchReachesEveryWidgetBeforeItReturns()
    {
        RetranslatingWidget shown;
        RetranslatingWidget hidden;
        QWidget window;
        auto *inner = new RetranslatingWidget(&window);
        shown.show();
        window.show();

        QVERIFY(HostSettings::setLanguage(u"de"_s));
        for (const RetranslatingWidget *widget : QList<const RetranslatingWidget *>{&shown, &hidden, inner})
            QCOMPARE(widget->texts, QStringList({"Exportieren"}));
        QVERIFY(HostSettings::setLanguage(u"zh_CN"_s));
        QCOMPARE(inner->texts.last(), u"导出"_s);
        QVERIFY(HostSettings::setLanguage({}));
        QCOMPARE(inner->texts.last(), u"TK_Export"_s);
    }

    void aSwitchTellsEachWidgetOnce()
    {
        RetranslatingWidget widget;
        QVERIFY(HostSettings::setLanguage(u"de"_s));
        QVERIFY(HostSettings::setLanguage(u"en"_s));
        QCoreApplication::processEvents();
        QCOMPARE(widget.texts, QStringList({"Exportieren", "Export"}));
    }

    void theSameLanguageAgainTellsNobody()
    {
        QVERIFY(HostSettings::setLanguage(u"de"_s));
        RetranslatingWidget widget;
        QVERIFY(HostSettings::setLanguage(u"de"_s));
        QCoreApplication::processEvents();
        QVERIFY(widget.texts.isEmpty());
    }

    void qtsOwnTextsFollow()
    {
        if (!QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + u"/qtbase_de.qm"_s))
            QSKIP("Qt's own translations are not installed.");
        const auto cancel = [] { return QCoreApplication::translate("QPlatformTheme", "Cancel"); };
        QCOMPARE(cancel(), u"Cancel"_s);
        QVERIFY(HostSettings::setLanguage(u"de"_s));
        QCOMPARE(cancel(), u"Abbrechen"_s);
        QVERIFY(HostSettings::setLanguage({}));
        QCOMPARE(cancel(), u"Cancel"_s);
    }

    void theCalendarSpeaksTheLanguage()
    {
        ZrCalendarWidget calendar(nullptr);
        calendar.setType(ZrCalendarWidget::Day);
        const auto *page = calendar.findChild<QLabel *>(u"labelPage"_s);
        const auto *limit = calendar.findChild<QLabel *>(u"labelLimit"_s);
        QCOMPARE(page->text(), u"May 2024"_s);
        QVERIFY(HostSettings::setLanguage(u"de"_s));
        QCOMPARE(page->text(), u"Mai 2024"_s);
        QCOMPARE(limit->text(), translated("TK_CalendarLimitDays"));
        QVERIFY(limit->text().contains(u"7 Tage"_s));
        QVERIFY(HostSettings::setLanguage(u"zh_CN"_s));
        QCOMPARE(page->text(), u"2024年5月"_s);
    }

    void namesFromTheServerAreTranslatedWhenKnown()
    {
        AppTranslationHelper *helper = AppTranslationHelper::instance();
        QCOMPARE(helper->getStringAfterTranslation("Video loss"), u"Video loss"_s);
        QVERIFY(HostSettings::setLanguage(u"de"_s));
        QCOMPARE(helper->getStringAfterTranslation("Video loss"), u"Videoausfall"_s);
        QCOMPARE(helper->getStringAfterTranslation("Zufahrt Süd"), u"Zufahrt Süd"_s);
    }

    void namesFromTheServerMayBeBroken()
    {
        AppTranslationHelper *helper = AppTranslationHelper::instance();
        QVERIFY(HostSettings::setLanguage(u"en"_s));
        QCOMPARE(helper->getStringAfterTranslation(nullptr), QString());
        QCOMPARE(helper->getStringAfterTranslation(""), QString());
        QCOMPARE(helper->getStringAfterTranslation("a\xFFz"),
            QString(u"a"_s + QChar(QChar::ReplacementCharacter) + u'z'));
    }

    void snapshotClassesHaveNames_data() { addLanguages(); }
    void snapshotClassesHaveNames()
    {
        QFETCH(QString, language);
        QVERIFY(HostSettings::setLanguage(language));
        AppTranslationHelper *helper = AppTranslationHelper::instance();
        for (const SnapClasses::Major &major : SnapClasses::majors()) {
            const QString name = helper->getSnapDetailMajorTypeName(major.type);
            QVERIFY2(!name.startsWith(u"TK_"_s) && name != QString::number(major.type), major.key);
            QSet<QString> minors;
            for (int minor = 1; minor <= major.minorKeys.size(); ++minor) {
                const QString text = helper->getSnapDetailMinorTypeName(major.type, minor);
                QVERIFY2(!text.isEmpty() && !text.startsWith(u"TK_"_s), major.minorKeys.at(minor - 1));
                minors.insert(text);
            }
            QCOMPARE(minors.size(), major.minorKeys.size());
        }
    }

    void snapshotClassesAreNumberedWithoutGaps()
    {
        QMap<int, QList<int>> numbers;
        for (const SnapClasses::Major &major : SnapClasses::majors())
            numbers[major.snapType].append(major.type);
        QCOMPARE(numbers.value(SnapClasses::Vehicle), QList<int>({401, 402, 403}));
        QCOMPARE(numbers.value(SnapClasses::Pedestrian), QList<int>({201, 202, 203, 204}));
    }

    void unknownSnapshotClasses()
    {
        AppTranslationHelper *helper = AppTranslationHelper::instance();
        QVERIFY(HostSettings::setLanguage(u"en"_s));
        QCOMPARE(helper->getSnapDetailMajorTypeName(400), u"400"_s);
        QCOMPARE(helper->getSnapDetailMajorTypeName(-1), u"-1"_s);
        QCOMPARE(helper->getSnapDetailMinorTypeName(401, 0), QString());
        QCOMPARE(helper->getSnapDetailMinorTypeName(401, -7), QString());
        QCOMPARE(helper->getSnapDetailMinorTypeName(401, 1000), QString());
        QCOMPARE(helper->getSnapDetailMinorTypeName(400, 1), QString());
    }

    void germanUnitsFitTheirButtons()
    {
        constexpr int buttonWidth = 65;
        QFont font;
        font.setPixelSize(13);
        for (const QString &language : {u"en"_s, u"de"_s, u"zh_CN"_s}) {
            QVERIFY(HostSettings::setLanguage(language));
            for (const char *key : {"TK_Month", "TK_Day", "TK_Hour"})
                QVERIFY2(QFontMetrics(font).horizontalAdvance(translated(key)) <= buttonWidth - 6, key);
        }
    }
};

TALVIX_TEST_MAIN(TestTexts)
#include "tst_texts.moc"
