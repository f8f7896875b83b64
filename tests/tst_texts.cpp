#include "support/TestMain.h"

#include <devhost/widgets/HostSettings.h>
#include <devhost/widgets/SnapClasses.h>
#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/AppTranslationHelper.h>
#include <TalvixWidgets/BaseWidget.h>
#include <TalvixWidgets/ZrCalendarWidget.h>

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

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

class TestTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aProcessStartsWithoutALanguage();
    void everyKeyHasATextInEveryLanguage_data();
    void everyKeyHasATextInEveryLanguage();
    void aTitleReadsOnBehindItsUnit_data();
    void aTitleReadsOnBehindItsUnit();
    void classesHaveDistinctTexts_data();
    void classesHaveDistinctTexts();
    void whatIsNoKeyPassesThrough_data();
    void whatIsNoKeyPassesThrough();
    void theLongLanguageLengthensEveryText();
    void theLongLanguageKeepsPlaceholdersAndOuterBlanks();
    void theMirroredLanguageRunsFromRightToLeft();
    void anUnknownLanguageChangesNothing();
    void aSwitchReachesEveryWidgetBeforeItReturns();
    void aSwitchTellsEachWidgetOnce();
    void theSameLanguageAgainTellsNobody();
    void qtsOwnTextsFollow();
    void theCalendarSpeaksTheLanguage();
    void namesFromTheServerAreTranslatedWhenKnown();
    void namesFromTheServerMayBeBroken();
    void snapshotClassesHaveNames_data();
    void snapshotClassesHaveNames();
    void snapshotClassesAreNumberedWithoutGaps();
    void unknownSnapshotClasses();
    void germanUnitsFitTheirButtons();
};

void TestTexts::cleanup()
{
    QVERIFY(HostSettings::setLanguage({}));
}

static void addLanguages()
{
    QTest::addColumn<QString>("language");
    const QStringList languages = HostSettings::languages();
    for (const QString &language : languages)
        QTest::newRow(qPrintable(language)) << language;
}

void TestTexts::aProcessStartsWithoutALanguage()
{
    QCOMPARE(HostSettings::language(), QString());
    for (const char *key : pageKeys)
        QCOMPARE(translated(key), QString::fromUtf8(key));
    QCOMPARE(HostSettings::languages(),
        QStringList({QStringLiteral("en"), QStringLiteral("zh_CN"), QStringLiteral("de"),
            QStringLiteral("x-long"), QStringLiteral("x-rtl")}));
}

void TestTexts::everyKeyHasATextInEveryLanguage_data()
{
    addLanguages();
}

void TestTexts::everyKeyHasATextInEveryLanguage()
{
    QFETCH(QString, language);
    QVERIFY(HostSettings::setLanguage(language));
    QCOMPARE(HostSettings::language(), language);
    for (const char *key : pageKeys) {
        QVERIFY2(!translated(key).trimmed().isEmpty(), key);
        QVERIFY2(!translated(key).contains(QStringLiteral("TK_")), key);
    }
}

void TestTexts::aTitleReadsOnBehindItsUnit_data()
{
    addLanguages();
}

void TestTexts::aTitleReadsOnBehindItsUnit()
{
    QFETCH(QString, language);
    QVERIFY(HostSettings::setLanguage(language));
    for (const char *key : titleKeys)
        QVERIFY2(language == QStringLiteral("zh_CN") || translated(key).startsWith(u' '), key);
    // A failure is followed by its reason, a total by its unit, both without a blank in between.
    QVERIFY(language == QStringLiteral("zh_CN") || translated("TK_GetFailed").endsWith(u' '));
    QVERIFY(language == QStringLiteral("zh_CN") || translated("TK_Million").startsWith(u' '));
}

void TestTexts::classesHaveDistinctTexts_data()
{
    addLanguages();
}

void TestTexts::classesHaveDistinctTexts()
{
    QFETCH(QString, language);
    QVERIFY(HostSettings::setLanguage(language));
    QSet<QString> texts;
    for (const char *key : classKeys)
        texts.insert(translated(key));
    QCOMPARE(static_cast<std::size_t>(texts.size()), std::size(classKeys));
}

void TestTexts::whatIsNoKeyPassesThrough_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a pattern") << QStringLiteral(" | %1% %2");
    QTest::newRow("an unknown key") << QStringLiteral("TK_NobodyKnowsThis");
    QTest::newRow("a key in other letters") << QStringLiteral("tk_export");
    QTest::newRow("a key with something behind it") << QStringLiteral("TK_Export ");
    QTest::newRow("a key with a zero character behind it")
        << QString(QStringLiteral("TK_Export") + QChar(QChar::Null));
    QTest::newRow("a format of a file") << QStringLiteral("PDF");
    QTest::newRow("half a character") << QString(QChar(0xD800));
    QTest::newRow("empty") << QString();
}

void TestTexts::whatIsNoKeyPassesThrough()
{
    QFETCH(QString, text);
    const QStringList languages = HostSettings::languages() + QStringList{QString()};
    for (const QString &language : languages) {
        QVERIFY(HostSettings::setLanguage(language));
        for (const auto type : {AppLanguageTr::Sentence, AppLanguageTr::Button, AppLanguageTr::Title})
            QCOMPARE(translated(text, type), text);
    }
}

void TestTexts::theLongLanguageLengthensEveryText()
{
    QVERIFY(HostSettings::setLanguage(QStringLiteral("en")));
    QMap<QString, qsizetype> lengths;
    for (const char *key : pageKeys)
        lengths.insert(QString::fromUtf8(key), translated(key).size());
    QVERIFY(HostSettings::setLanguage(QStringLiteral("x-long")));
    for (auto length = lengths.cbegin(); length != lengths.cend(); ++length)
        QVERIFY2(translated(length.key()).size() * 10 >= length.value() * 14, qPrintable(length.key()));
}

void TestTexts::theLongLanguageKeepsPlaceholdersAndOuterBlanks()
{
    QVERIFY(HostSettings::setLanguage(QStringLiteral("x-long")));
    QVERIFY(translated("TK_GetFailed").endsWith(QStringLiteral("] ")));
    QVERIFY(translated("TK_AlarmStatisticsOfNum").startsWith(QStringLiteral(" [")));
    QVERIFY(translated("TK_Export").startsWith(u'[') && translated("TK_Export").endsWith(u']'));
}

void TestTexts::theMirroredLanguageRunsFromRightToLeft()
{
    QVERIFY(HostSettings::setLanguage(QStringLiteral("en")));
    const QString english = translated("TK_AlarmStatisticsOfNum");
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    QVERIFY(HostSettings::setLanguage(QStringLiteral("x-rtl")));
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    QVERIFY(translated("TK_Export").isRightToLeft());
    QVERIFY(translated("TK_GetFailed").endsWith(u' '));
    QVERIFY(translated("TK_AlarmStatisticsOfNum").startsWith(u' '));
    QVERIFY(translated("TK_AlarmStatisticsOfNum").contains(english.trimmed()));
    for (const QString &code : {QStringLiteral("de"), QStringLiteral("x-long"), QString()}) {
        QVERIFY(HostSettings::setLanguage(QStringLiteral("x-rtl")));
        QVERIFY(HostSettings::setLanguage(code));
        QCOMPARE(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    }
}

void TestTexts::anUnknownLanguageChangesNothing()
{
    QVERIFY(HostSettings::setLanguage(QStringLiteral("de")));
    for (const QString &code :
        {QStringLiteral("fr"), QStringLiteral("DE"), QStringLiteral("../de"), QStringLiteral("*")}) {
        QVERIFY(!HostSettings::setLanguage(code));
        QCOMPARE(HostSettings::language(), QStringLiteral("de"));
        QCOMPARE(translated("TK_Cancel"), QStringLiteral("Abbrechen"));
    }
}

void TestTexts::aSwitchReachesEveryWidgetBeforeItReturns()
{
    RetranslatingWidget shown;
    RetranslatingWidget hidden;
    QWidget window;
    auto *inner = new RetranslatingWidget(&window);
    shown.show();
    window.show();

    QVERIFY(HostSettings::setLanguage(QStringLiteral("de")));
    for (const RetranslatingWidget *widget : QList<const RetranslatingWidget *>{&shown, &hidden, inner})
        QCOMPARE(widget->texts, QStringList({QStringLiteral("Exportieren")}));
    QVERIFY(HostSettings::setLanguage(QStringLiteral("zh_CN")));
    QCOMPARE(inner->texts.last(), QStringLiteral("导出"));
    QVERIFY(HostSettings::setLanguage({}));
    QCOMPARE(inner->texts.last(), QStringLiteral("TK_Export"));
}

void TestTexts::aSwitchTellsEachWidgetOnce()
{
    RetranslatingWidget widget;
    QVERIFY(HostSettings::setLanguage(QStringLiteral("de")));
    QVERIFY(HostSettings::setLanguage(QStringLiteral("en")));
    QCoreApplication::processEvents();
    QCOMPARE(widget.texts, QStringList({QStringLiteral("Exportieren"), QStringLiteral("Export")}));
}

void TestTexts::theSameLanguageAgainTellsNobody()
{
    QVERIFY(HostSettings::setLanguage(QStringLiteral("de")));
    RetranslatingWidget widget;
    QVERIFY(HostSettings::setLanguage(QStringLiteral("de")));
    QCoreApplication::processEvents();
    QVERIFY(widget.texts.isEmpty());
}

void TestTexts::qtsOwnTextsFollow()
{
    if (!QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + QStringLiteral("/qtbase_de.qm")))
        QSKIP("Qt's own translations are not installed.");
    const auto cancel = [] { return QCoreApplication::translate("QPlatformTheme", "Cancel"); };
    QCOMPARE(cancel(), QStringLiteral("Cancel"));
    QVERIFY(HostSettings::setLanguage(QStringLiteral("de")));
    QCOMPARE(cancel(), QStringLiteral("Abbrechen"));
    QVERIFY(HostSettings::setLanguage({}));
    QCOMPARE(cancel(), QStringLiteral("Cancel"));
}

void TestTexts::theCalendarSpeaksTheLanguage()
{
    ZrCalendarWidget calendar(nullptr);
    calendar.setType(ZrCalendarWidget::Day);
    const auto *page = calendar.findChild<QLabel *>(QStringLiteral("labelPage"));
    const auto *limit = calendar.findChild<QLabel *>(QStringLiteral("labelLimit"));
    QCOMPARE(page->text(), QStringLiteral("May 2024"));
    QVERIFY(HostSettings::setLanguage(QStringLiteral("de")));
    QCOMPARE(page->text(), QStringLiteral("Mai 2024"));
    QCOMPARE(limit->text(), translated("TK_CalendarLimitDays"));
    QVERIFY(limit->text().contains(QStringLiteral("7 Tage")));
    QVERIFY(HostSettings::setLanguage(QStringLiteral("zh_CN")));
    QCOMPARE(page->text(), QStringLiteral("2024年5月"));
}

void TestTexts::namesFromTheServerAreTranslatedWhenKnown()
{
    AppTranslationHelper *helper = AppTranslationHelper::instance();
    QCOMPARE(helper->getStringAfterTranslation("Video loss"), QStringLiteral("Video loss"));
    QVERIFY(HostSettings::setLanguage(QStringLiteral("de")));
    QCOMPARE(helper->getStringAfterTranslation("Video loss"), QStringLiteral("Videoausfall"));
    QCOMPARE(helper->getStringAfterTranslation("Zufahrt Süd"), QStringLiteral("Zufahrt Süd"));
}

void TestTexts::namesFromTheServerMayBeBroken()
{
    AppTranslationHelper *helper = AppTranslationHelper::instance();
    QVERIFY(HostSettings::setLanguage(QStringLiteral("en")));
    QCOMPARE(helper->getStringAfterTranslation(nullptr), QString());
    QCOMPARE(helper->getStringAfterTranslation(""), QString());
    QCOMPARE(helper->getStringAfterTranslation("a\xFFz"),
        QString(QStringLiteral("a") + QChar(QChar::ReplacementCharacter) + u'z'));
}

void TestTexts::snapshotClassesHaveNames_data()
{
    addLanguages();
}

void TestTexts::snapshotClassesHaveNames()
{
    QFETCH(QString, language);
    QVERIFY(HostSettings::setLanguage(language));
    AppTranslationHelper *helper = AppTranslationHelper::instance();
    for (const SnapClasses::Major &major : SnapClasses::majors()) {
        const QString name = helper->getSnapDetailMajorTypeName(major.type);
        QVERIFY2(!name.startsWith(QStringLiteral("TK_")) && name != QString::number(major.type), major.key);
        QSet<QString> minors;
        for (int minor = 1; minor <= major.minorKeys.size(); ++minor) {
            const QString text = helper->getSnapDetailMinorTypeName(major.type, minor);
            QVERIFY2(
                !text.isEmpty() && !text.startsWith(QStringLiteral("TK_")), major.minorKeys.at(minor - 1));
            minors.insert(text);
        }
        QCOMPARE(minors.size(), major.minorKeys.size());
    }
}

void TestTexts::snapshotClassesAreNumberedWithoutGaps()
{
    QMap<int, QList<int>> numbers;
    for (const SnapClasses::Major &major : SnapClasses::majors())
        numbers[major.snapType].append(major.type);
    QCOMPARE(numbers.value(SnapClasses::Vehicle), QList<int>({401, 402, 403}));
    QCOMPARE(numbers.value(SnapClasses::Pedestrian), QList<int>({201, 202, 203, 204}));
}

void TestTexts::unknownSnapshotClasses()
{
    AppTranslationHelper *helper = AppTranslationHelper::instance();
    QVERIFY(HostSettings::setLanguage(QStringLiteral("en")));
    QCOMPARE(helper->getSnapDetailMajorTypeName(400), QStringLiteral("400"));
    QCOMPARE(helper->getSnapDetailMajorTypeName(-1), QStringLiteral("-1"));
    QCOMPARE(helper->getSnapDetailMinorTypeName(401, 0), QString());
    QCOMPARE(helper->getSnapDetailMinorTypeName(401, -7), QString());
    QCOMPARE(helper->getSnapDetailMinorTypeName(401, 1000), QString());
    QCOMPARE(helper->getSnapDetailMinorTypeName(400, 1), QString());
}

void TestTexts::germanUnitsFitTheirButtons()
{
    constexpr int buttonWidth = 65;
    QFont font;
    font.setPixelSize(13);
    for (const QString &language : {QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("zh_CN")}) {
        QVERIFY(HostSettings::setLanguage(language));
        for (const char *key : {"TK_Month", "TK_Day", "TK_Hour"})
            QVERIFY2(QFontMetrics(font).horizontalAdvance(translated(key)) <= buttonWidth - 6, key);
    }
}

TALVIX_TEST_MAIN(TestTexts)
#include "tst_texts.moc"
