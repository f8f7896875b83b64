#include "support/PageScene.h"
#include "support/TestMain.h"
#include "support/TestTable.h"
#include "support/TextRecorder.h"

#include <devhost/widgets/HostSettings.h>
#include <export/TempResultExportWidget.h>
#include <TalvixWidgets/AppLanguageTr.h>
#include <TalvixWidgets/AppStyleHelper.h>
#include <TalvixWidgets/ZrChartView.h>
#include <TalvixWidgets/ZrMessageBoxFlowDownWidget.h>
#include <TalvixWidgets/ZrPushButton.h>

#include <QtCharts/QChart>
#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtCore/QVariantAnimation>
#include <QtTest/qtestspontaneevent.h>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QRadioButton>

#include <cmath>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString successText = u"TK_ExportSuccess"_s;

/// The first window of a class that is on show, or null.
template <typename Window>
Window *shownWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *found = qobject_cast<Window *>(window); found && found->isVisible())
            return found;
    }
    return nullptr;
}

/// Whether a note with this text lies over the page.
bool messageIsShown(const QWidget &page, const QString &words)
{
    const QList<QWidget *> children = page.findChildren<QWidget *>();
    return std::any_of(children.cbegin(), children.cend(),
        [&words](const QWidget *child) { return child->isVisible() && child->accessibleName() == words; });
}

/// The colour of the note over a page, once it has faded in; none when there is no note.
std::optional<QRgb> colourOfMessage(const QWidget &page)
{
    auto *note = page.findChild<QWidget *>(u"toast"_s);
    if (!note)
        return std::nullopt;
    const auto *fade = note->findChild<QVariantAnimation *>();
    if (!QTest::qWaitFor([fade] { return !fade || fade->state() == QAbstractAnimation::Stopped; }))
        return std::nullopt;
    const QImage picture = note->grab().toImage();
    return picture.pixel(picture.width() - 6, picture.height() / 2);
}

/// How long the note over a page will stay, in milliseconds; nothing when it has no end.
QList<int> timesOfMessage(const QWidget &page)
{
    QList<int> times;
    const auto timers =
        QAbstractEventDispatcher::instance()->registeredTimers(page.findChild<QWidget *>(u"toast"_s));
    for (const auto &timer : timers)
        times.append(timer.interval);
    return times;
}

bool hasWaitCursor()
{
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}

/// Plays the user while an export blocks in its dialogs: one step after another, each as soon as its window
/// shows.
class User : public QObject
{
public:
    void inFileDialog(const std::function<void(QFileDialog &)> &act)
    {
        add(
            u"file dialog"_s, [] { return shownWindow<QFileDialog>() != nullptr; },
            [act] { act(*shownWindow<QFileDialog>()); });
    }

    void savesAs(const QString &file)
    {
        inFileDialog([file](QFileDialog &dialog) { save(dialog, file); });
    }

    void cancelsFileDialog()
    {
        inFileDialog([](QFileDialog &dialog) { dialog.reject(); });
    }

    void agreesToReplace()
    {
        add(
            u"question"_s, [] { return shownWindow<QMessageBox>() != nullptr; },
            [] { shownWindow<QMessageBox>()->button(QMessageBox::Yes)->click(); });
    }

    void inModeDialog(const std::function<void(TempResultExportWidget &)> &act)
    {
        add(
            u"mode dialog"_s, [] { return shownWindow<TempResultExportWidget>() != nullptr; },
            [act] { act(*shownWindow<TempResultExportWidget>()); });
    }

    void choosesMode(const char *radioButton, const char *button)
    {
        inModeDialog([radioButton, button](TempResultExportWidget &dialog) {
            press(dialog, radioButton);
            press(dialog, button);
        });
    }

    /// Presses the export button of the page; true when every step found its window.
    bool exports(StatisticsScene &scene)
    {
        return plays([&scene] { scene.press("pushButtonExport"); });
    }

    /// Does what blocks; true when every step found its window.
    bool plays(const std::function<void()> &block)
    {
        poll();
        block();
        return m_steps.isEmpty() && m_missed.isEmpty();
    }

    static void save(QFileDialog &dialog, const QString &file)
    {
        dialog.findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(file);
        dialog.findChild<QDialogButtonBox *>(u"buttonBox"_s)->button(QDialogButtonBox::Save)->click();
    }

    static void press(QWidget &dialog, const char *button)
    {
        QTest::mouseClick(dialog.findChild<QWidget *>(QString::fromLatin1(button)), Qt::LeftButton);
    }

private:
    struct Step
    {
        QString window;
        std::function<bool()> ready;
        std::function<void()> act;
    };

    void add(const QString &window, const std::function<bool()> &ready, const std::function<void()> &act)
    {
        m_steps.append({window, ready, act});
    }

    void poll()
    {
        if (m_steps.isEmpty())
            return;
        // A step may block in a window of its own, so the next one waits on a timer of its own.
        QTimer::singleShot(10, this, [this] { poll(); });
        if (m_steps.first().ready()) {
            const Step step = m_steps.takeFirst();
            m_waited = 0;
            step.act();
        } else if (++m_waited > 500) {
            m_missed = m_steps.first().window;
            qWarning() << "The user waited in vain for the" << m_missed;
            leaveEverything();
        }
    }

    static void leaveEverything()
    {
        if (auto *question = shownWindow<QMessageBox>())
            question->reject();
        if (auto *dialog = shownWindow<QFileDialog>())
            dialog->reject();
        if (auto *dialog = shownWindow<TempResultExportWidget>())
            dialog->on_pushButtonCancel_clicked();
    }

    QList<Step> m_steps;
    QString m_missed;
    int m_waited = 0;
};

QStringList filesIn(const QTemporaryDir &directory)
{
    return QDir(directory.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

bool isPdf(const QString &path)
{
    const QByteArray content = contentOf(path);
    return content.startsWith("%PDF-") && content.trimmed().endsWith("%%EOF");
}

/// What a program of the system prints; nothing when it fails.
std::optional<QString> outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0)
        return std::nullopt;
    return QString::fromUtf8(process.readAllStandardOutput());
}

bool popplerIsThere()
{
    for (const char *program : {"pdfinfo", "pdfimages", "pdftoppm"}) {
        if (QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty())
            return false;
    }
    return true;
}

/// The rectangle around everything on the sheet that is not white.
QRect inkOf(const QImage &sheet)
{
    const QImage grey = sheet.convertToFormat(QImage::Format_Grayscale8);
    QRect ink;
    for (int y = 0; y < grey.height(); ++y) {
        const uchar *line = grey.constScanLine(y);
        const auto isInk = [](uchar value) { return value < 250; };
        const uchar *first = std::find_if(line, line + grey.width(), isInk);
        if (first == line + grey.width())
            continue;
        const uchar *last = line + grey.width() - 1;
        while (!isInk(*last))
            --last;
        ink |= QRect(QPoint(static_cast<int>(first - line), y), QPoint(static_cast<int>(last - line), y));
    }
    return ink;
}

/// Mean difference of the colour parts of two pictures of one size, 0 to 255.
double difference(const QImage &a, const QImage &b)
{
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb one = a.pixel(x, y);
            const QRgb two = b.pixel(x, y);
            sum += std::abs(qRed(one) - qRed(two)) + std::abs(qGreen(one) - qGreen(two))
                + std::abs(qBlue(one) - qBlue(two));
        }
    }
    return sum / (3.0 * a.width() * a.height());
}

/// The items of a layout: names of widgets and layouts, sizes of spacers.
QStringList itemsOf(QLayout *layout)
{
    QStringList items;
    for (int index = 0; index < layout->count(); ++index) {
        QLayoutItem *item = layout->itemAt(index);
        if (item->widget())
            items.append(item->widget()->objectName());
        else if (item->layout())
            items.append(item->layout()->objectName());
        else if (item->spacerItem()->expandingDirections())
            items.append(u"stretch"_s);
        else
            items.append(u"space %1x%2"_s.arg(item->sizeHint().width()).arg(item->sizeHint().height()));
    }
    return items;
}

QMap<QByteArray, QVariant> dynamicPropertiesOf(const QObject *object)
{
    QMap<QByteArray, QVariant> properties;
    const QList<QByteArray> names = object->dynamicPropertyNames();
    for (const QByteArray &name : names)
        properties.insert(name, object->property(name.constData()));
    return properties;
}

class CountingDialog : public TempResultExportWidget
{
public:
    using TempResultExportWidget::TempResultExportWidget;
    void retranslateUi() override
    {
        ++renewals;
        TempResultExportWidget::retranslateUi();
    }
    int renewals = 0;
};

} // namespace

class TestExport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void cleanup()
    {
        HostSettings::setLanguage({});
        setPresentMoment({});
        while (QGuiApplication::overrideCursor())
            QGuiApplication::restoreOverrideCursor();
    }

    // The dialog
    void theDialogIsAWindowOverItsPage()
    {
        QWidget page;
        TempResultExportWidget dialog(&page);
        QCOMPARE(dialog.objectName(), u"TempResultExportWidget"_s);
        QCOMPARE(dialog.parentWidget(), &page);
        QCOMPARE(dialog.windowType(), Qt::Dialog);
        QCOMPARE(dialog.size(), QSize(349, 178));
        QVERIFY(!dialog.isVisible());
    }

    void signalAndSlotsStandInTheirOrder()
    {
        const QMetaObject &meta = TempResultExportWidget::staticMetaObject;
        QStringList methods;
        for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
            const QMetaMethod method = meta.method(index);
            if (method.attributes() & QMetaMethod::Cloned)
                continue;
            methods.append(QString::fromLatin1(method.methodSignature()));
        }
        QCOMPARE(methods,
            QStringList({"signalConfirm(int)", "on_pushButtonOK_clicked()", "on_pushButtonClose_clicked()",
                "on_pushButtonCancel_clicked()"}));
        QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    }

    void layoutsOfTheDialog_data()
    {
        table<QString, QStringList>({"layout", "items"},
            {
                {"the dialog", "verticalLayout", {"verticalLayout_2"}},
                {"from top to bottom", "verticalLayout_2",
                    {"horizontalLayout_5", "stretch", "verticalLayout_3", "stretch", "horizontalLayout_8"}},
                {"the title", "horizontalLayout_5",
                    {"labelTitlePixmap", "labelTitle", "stretch", "pushButtonClose"}},
                {"the modes", "verticalLayout_3", {"horizontalLayout_6", "horizontalLayout_7"}},
                {"the word before the modes", "horizontalLayout_6", {"space 20x20", "labelMode", "stretch"}},
                {"the two modes", "horizontalLayout_7",
                    {"space 20x20", "radioButtonPDF", "radioButtonExcel", "stretch"}},
                {"the buttons", "horizontalLayout_8", {"stretch", "pushButtonCancel", "pushButtonOK"}},
            });
    }

    void layoutsOfTheDialog()
    {
        QFETCH(QString, layout);
        TempResultExportWidget dialog(nullptr);
        auto *found = dialog.findChild<QLayout *>(layout);
        QVERIFY(found);
        QTEST(itemsOf(found), "items");
    }

    void sizesOfTheDialog()
    {
        TempResultExportWidget dialog(nullptr);
        QCOMPARE(dialog.layout()->objectName(), u"verticalLayout"_s);
        const QMargins title = dialog.findChild<QLayout *>(u"horizontalLayout_5"_s)->contentsMargins();
        QCOMPARE(title.top(), 0);
        QCOMPARE(title.right(), 10);
        auto *buttons = dialog.findChild<QLayout *>(u"horizontalLayout_8"_s);
        QCOMPARE(buttons->contentsMargins().right(), 10);
        QCOMPARE(buttons->spacing(), 10);
        auto *rows = dialog.findChild<QLayout *>(u"verticalLayout_2"_s);
        for (const int index : {1, 3}) {
            const QLayoutItem *space = rows->itemAt(index);
            QCOMPARE(space->sizeHint(), QSize(20, 30));
            QCOMPARE(space->expandingDirections(), Qt::Vertical);
        }
        for (const char *name : {"pushButtonOK", "pushButtonCancel"}) {
            const auto *button = dialog.findChild<ZrPushButton *>(QString::fromLatin1(name));
            QVERIFY(button);
            QCOMPARE(button->minimumSize(), QSize(80, 28));
            QCOMPARE(button->maximumWidth(), 100);
        }
        QVERIFY(dialog.findChild<ZrPushButton *>(u"pushButtonClose"_s));
        const auto *mark = dialog.findChild<QLabel *>(u"labelTitlePixmap"_s);
        QVERIFY(mark);
        const QPixmap picture(u":/images/home/common/common_16/export_16.png"_s);
        QVERIFY(!picture.isNull());
        QCOMPARE(mark->pixmap().toImage(), picture.toImage());
    }

    void textsOfTheDialog_data()
    {
        table<QByteArray, QByteArray, QString, int>({"widget", "use", "key", "capital"},
            {
                {"the title", "labelTitle", "text", "TK_Export", 1},
                {"the word before the modes", "labelMode", "text", "TK_ExportMode", 1},
                {"Excel", "radioButtonExcel", "text", "Excel", 1},
                {"PDF", "radioButtonPDF", "text", "PDF", 1},
                {"OK", "pushButtonOK", "text", "TK_OK", 1},
                {"cancel", "pushButtonCancel", "text", "TK_Cancel", 2},
                {"close is a tip", "pushButtonClose", "toolTip", "TK_Close", 1},
                {"close has no text", "pushButtonClose", "text", "", 1},
            });
    }

    void textsOfTheDialog()
    {
        QFETCH(QByteArray, widget);
        QFETCH(QByteArray, use);
        QFETCH(QString, key);
        QFETCH(int, capital);
        TempResultExportWidget dialog(nullptr);
        const auto *part = dialog.findChild<QWidget *>(QString::fromLatin1(widget));
        QVERIFY(part);
        QCOMPARE(part->property(use.constData()).toString(), key);

        QVERIFY(HostSettings::setLanguage(u"x-long"_s));
        const QString translated =
            AppLanguageTr::instance()->translate(key, static_cast<AppLanguageTr::CaptitalType>(capital), -1);
        if (key.startsWith("TK_"_L1))
            QVERIFY(translated != key);
        QCoreApplication::processEvents();
        QCOMPARE(part->property(use.constData()).toString(), translated);
    }

    void theDialogStartsWithPdf()
    {
        TempResultExportWidget dialog(nullptr);
        QCOMPARE(dialog.getExportMode(), 0);
        auto *pdf = dialog.findChild<QRadioButton *>(u"radioButtonPDF"_s);
        auto *excel = dialog.findChild<QRadioButton *>(u"radioButtonExcel"_s);
        QVERIFY(pdf->isChecked());
        excel->click();
        QCOMPARE(dialog.getExportMode(), 1);
        QVERIFY(!pdf->isChecked());
        pdf->click();
        QCOMPARE(dialog.getExportMode(), 0);
        pdf->setAutoExclusive(false);
        pdf->setChecked(false);
        QCOMPARE(dialog.getExportMode(), 1);
    }

    void initFormGoesBackToPdfAndRenewsTheTexts()
    {
        CountingDialog dialog(nullptr);
        dialog.findChild<QRadioButton *>(u"radioButtonExcel"_s)->click();
        auto *title = dialog.findChild<QLabel *>(u"labelTitle"_s);
        title->clear();
        dialog.renewals = 0;
        dialog.initForm();
        QCOMPARE(dialog.getExportMode(), 0);
        QCOMPARE(dialog.renewals, 1);
        QCOMPARE(title->text(), u"TK_Export"_s);
    }

    void buttonsOfTheDialogHaveTheirStyles()
    {
        TempResultExportWidget dialog(nullptr);
        ZrPushButton confirm;
        AppStyleHelper::updateWidgetStyle(&confirm, AppStyleHelper::ConfirmButton);
        ZrPushButton cancel;
        AppStyleHelper::updateWidgetStyle(&cancel, AppStyleHelper::CancelButton);
        QVERIFY(dynamicPropertiesOf(&confirm) != dynamicPropertiesOf(&cancel));
        auto *ok = dialog.findChild<ZrPushButton *>(u"pushButtonOK"_s);
        auto *no = dialog.findChild<ZrPushButton *>(u"pushButtonCancel"_s);
        QCOMPARE(dynamicPropertiesOf(ok), dynamicPropertiesOf(&confirm));
        QCOMPARE(dynamicPropertiesOf(no), dynamicPropertiesOf(&cancel));

        AppStyleHelper::updateWidgetStyle(ok, AppStyleHelper::ToolButton);
        AppStyleHelper::updateWidgetStyle(no, AppStyleHelper::ToolButton);
        dialog.initForm();
        QCOMPARE(dynamicPropertiesOf(ok), dynamicPropertiesOf(&confirm));
        QCOMPARE(dynamicPropertiesOf(no), dynamicPropertiesOf(&cancel));
    }

    void buttonsCloseTheDialogAndThenAnswer_data()
    {
        table<QByteArray, int>({"button", "code"},
            {
                {"OK", "pushButtonOK", 1},
                {"cancel", "pushButtonCancel", 0},
                {"close", "pushButtonClose", 0},
            });
    }

    void buttonsCloseTheDialogAndThenAnswer()
    {
        QFETCH(QByteArray, button);
        QFETCH(int, code);
        QWidget page;
        page.show();
        TempResultExportWidget dialog(&page);
        dialog.showZrDialog();
        QVERIFY(dialog.isVisible());
        QList<std::pair<int, bool>> answers;
        connect(&dialog, &TempResultExportWidget::signalConfirm, this, [&](int answer) {
            answers.append({answer, dialog.isVisible()});
        });
        User::press(dialog, button.constData());
        QCOMPARE(answers, (QList<std::pair<int, bool>>({{code, false}})));
        QVERIFY(!dialog.isVisible());
    }

    void theSignalsCodeIsOneUnlessGiven()
    {
        TempResultExportWidget dialog(nullptr);
        QSignalSpy spy(&dialog, &TempResultExportWidget::signalConfirm);
        Q_EMIT dialog.signalConfirm();
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.first().first().toInt(), 1);
    }

    void theWindowSystemsCloseIsAnsweredOnce()
    {
        QWidget page;
        page.show();
        TempResultExportWidget dialog(&page);
        QList<int> answers;
        connect(&dialog, &TempResultExportWidget::signalConfirm, this,
            [&answers](int answer) { answers.append(answer); });
        for (int time = 1; time <= 2; ++time) {
            dialog.showZrDialog();
            QCloseEvent close;
            // Sent in the usual way, an event comes from the program itself.
            QSpontaneKeyEvent::setSpontaneous(&close);
            qApp->notify(&dialog, &close);
            QCOMPARE(answers, QList<int>(time, 0));
            QVERIFY(!dialog.isVisible());
        }
    }

    void marginsOfTheDialog_data()
    {
        table<QString, QMargins>({"layout", "margins"},
            {
                {"the title", "horizontalLayout_5", QMargins(-1, 0, 10, -1)},
                {"the buttons", "horizontalLayout_8", QMargins(-1, -1, 10, -1)},
            });
    }

    // -1 is the default of the style, as it holds for a layout in that place.
    void marginsOfTheDialog()
    {
        QFETCH(QString, layout);
        QFETCH(QMargins, margins);
        TempResultExportWidget dialog(nullptr);
        auto *likewise = new QHBoxLayout;
        likewise->setContentsMargins(margins);
        dialog.findChild<QVBoxLayout *>(u"verticalLayout_2"_s)->addLayout(likewise);
        QCOMPARE(dialog.findChild<QLayout *>(layout)->contentsMargins(), likewise->contentsMargins());
    }

    // Pages without the dialog
    void aPageExportsWithoutModeDialogAndWaitCursor_data() { kinds({1, 2, 3, 4, 5, 6, 7, 8}); }

    void aPageExportsWithoutModeDialogAndWaitCursor()
    {
        QFETCH(int, type);
        QTemporaryDir directory;
        StatisticsScene scene(type);
        User user;
        bool cursorWasSet = true;
        user.inFileDialog([&](QFileDialog &dialog) {
            cursorWasSet = QGuiApplication::overrideCursor() != nullptr;
            User::save(dialog, directory.filePath(u"report"_s));
        });
        QVERIFY(user.exports(scene));
        QVERIFY(!cursorWasSet);
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!scene.page.m_pExportWidget);
        QCOMPARE(filesIn(directory), QStringList({"report.pdf"}));
        QVERIFY(messageIsShown(scene.page, successText));
        QCOMPARE(scene.tips(), QStringList());
    }

    void theFileDialogProposesANameWithoutSuffix_data()
    {
        table<QDateTime, QString>({"moment", "name"},
            {
                {"the afternoon", testMoment(), "StatisticCharts_2024-05-03 17-20-30"},
                {"the night of a leap day", QDateTime(QDate(2024, 2, 29), QTime(3, 4, 5)),
                    "StatisticCharts_2024-02-29 03-04-05"},
            });
    }

    void theFileDialogProposesANameWithoutSuffix()
    {
        QFETCH(QDateTime, moment);
        StatisticsScene scene(1);
        setPresentMoment(moment);
        User user;
        QString name;
        QString title;
        QString suffix = u"unread"_s;
        QStringList filters;
        const QWidget *parent = nullptr;
        bool saves = false;
        bool asksBeforeReplacing = false;
        user.inFileDialog([&](QFileDialog &dialog) {
            name = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s)->text();
            title = dialog.windowTitle();
            suffix = dialog.defaultSuffix();
            filters = dialog.nameFilters();
            parent = dialog.parentWidget();
            saves = dialog.acceptMode() == QFileDialog::AcceptSave;
            asksBeforeReplacing = !dialog.testOption(QFileDialog::DontConfirmOverwrite);
            dialog.reject();
        });
        QVERIFY(user.exports(scene));
        QTEST(name, "name");
        QCOMPARE(title, u"TK_SaveImportResult"_s);
        QCOMPARE(suffix, QString());
        QCOMPARE(filters, QStringList({"*.pdf"}));
        QCOMPARE(parent, &scene.page);
        QVERIFY(saves);
        QVERIFY(asksBeforeReplacing);
    }

    void theNameDecidesTheSuffix_data()
    {
        table<QString, QString>({"typed", "written"},
            {
                {"no suffix gets one", "report", "report.pdf"},
                {"the suffix stays", "report.pdf", "report.pdf"},
                {"capitals stay", "REPORT.PDF", "REPORT.PDF"},
                {"another suffix stays", "report.txt", "report.txt"},
                {"a version number is a suffix", "report v1.2", "report v1.2"},
                {"a dot at the end is no suffix", "report.", "report..pdf"},
                {"a hidden name is a suffix", ".report", ".report"},
                {"a name of any script", QString::fromUtf8("Übersicht 温度"),
                    QString::fromUtf8("Übersicht 温度.pdf")},
            });
    }

    void theNameDecidesTheSuffix()
    {
        QFETCH(QString, typed);
        QFETCH(QString, written);
        QTemporaryDir directory;
        StatisticsScene scene(1);
        User user;
        user.savesAs(directory.filePath(typed));
        QVERIFY(user.exports(scene));
        QCOMPARE(filesIn(directory), QStringList({written}));
        QVERIFY(isPdf(directory.filePath(written)));
        QVERIFY(messageIsShown(scene.page, successText));
    }

    void anExistingFileOfTheNameIsReplaced()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath(u"report.pdf"_s);
        write(path, QByteArray(3000000, 'x'));
        StatisticsScene scene(1);
        User user;
        user.savesAs(path);
        user.agreesToReplace();
        QVERIFY(user.exports(scene));
        QCOMPARE(filesIn(directory), QStringList({"report.pdf"}));
        QVERIFY(isPdf(path));
    }

    void anExistingFileWithoutSuffixIsDeletedAndItsNamesakeReplaced()
    {
        QTemporaryDir directory;
        write(directory.filePath(u"report"_s), "notes");
        write(directory.filePath(u"report.pdf"_s), QByteArray(3000000, 'x'));
        write(directory.filePath(u"report.txt"_s), "kept");
        StatisticsScene scene(1);
        User user;
        user.savesAs(directory.filePath(u"report"_s));
        user.agreesToReplace();
        QVERIFY(user.exports(scene));
        QCOMPARE(filesIn(directory), QStringList({"report.pdf", "report.txt"}));
        QVERIFY(isPdf(directory.filePath(u"report.pdf"_s)));
        QCOMPARE(contentOf(directory.filePath(u"report.txt"_s)), "kept"_ba);
    }

    void aNamesakeWithSuffixIsReplacedWithoutAQuestion()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath(u"report.pdf"_s);
        write(path, QByteArray(3000000, 'x'));
        StatisticsScene scene(1);
        User user;
        user.savesAs(directory.filePath(u"report"_s));
        QVERIFY(user.exports(scene));
        QCOMPARE(filesIn(directory), QStringList({"report.pdf"}));
        QVERIFY(isPdf(path));
    }

    void aCancelledFileDialogWritesNothing()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath(u"report.pdf"_s);
        write(path, "kept");
        StatisticsScene scene(1);
        User user;
        user.inFileDialog([&](QFileDialog &dialog) {
            dialog.findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(path);
            dialog.reject();
        });
        QVERIFY(user.exports(scene));
        QVERIFY(!messageIsShown(scene.page, successText));
        QCOMPARE(filesIn(directory), QStringList({"report.pdf"}));
        QCOMPARE(contentOf(path), "kept"_ba);
        QCOMPARE(scene.tips(), QStringList());

        QTimer::singleShot(0, this, [] {
            if (auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget()))
                dialog->reject();
        });
        QVERIFY(!scene.page.createPdf());
    }

    void aPlaceThatCannotBeWrittenIsNotNoticed_data()
    {
        table<QString>({"place"},
            {
                {"a directory that is not there", "missing/report"},
                {"a directory that is a file", "file/report"},
            });
    }

    void aPlaceThatCannotBeWrittenIsNotNoticed()
    {
        QFETCH(QString, place);
        QTemporaryDir directory;
        write(directory.filePath(u"file"_s), "kept");
        StatisticsScene scene(1);
        LogCapture log;
        User user;
        user.savesAs(directory.filePath(place));
        QVERIFY(user.exports(scene));
        QCOMPARE(filesIn(directory), QStringList({"file"}));
        QCOMPARE(contentOf(directory.filePath(u"file"_s)), "kept"_ba);
        QVERIFY(messageIsShown(scene.page, successText));
        QCOMPARE(scene.tips(), QStringList());
    }

    void theMessageOfAnExportLooksLikeASuccess()
    {
        QTemporaryDir directory;
        StatisticsScene scene(1);
        User user;
        user.savesAs(directory.filePath(u"report"_s));
        QVERIFY(user.exports(scene));
        const QList<int> time = timesOfMessage(scene.page);
        QCOMPARE(time.size(), 1);
        const std::optional<QRgb> told = colourOfMessage(scene.page);
        QVERIFY(told);

        using Message = ZrMessageBoxFlowDownWidget;
        for (const auto kind : {Message::Success, Message::Warning, Message::Failure}) {
            QWidget page;
            page.resize(scene.page.size());
            page.show();
            Message::showMessage(successText, &page, kind, 0);
            if (kind == Message::Success)
                QCOMPARE(timesOfMessage(page), time);
            QCOMPARE(colourOfMessage(page) == told, kind == Message::Success);
        }
    }

    void anExportAsksTheServerNothing()
    {
        QTemporaryDir directory;
        StatisticsScene scene(1);
        User user;
        user.savesAs(directory.filePath(u"report"_s));
        QVERIFY(user.exports(scene));
        QCOMPARE(scene.manager.calls, QStringList());
        QCOMPARE(scene.client.calls, QStringList());
    }

    void aSecondExportWritesAgain()
    {
        QTemporaryDir directory;
        StatisticsScene scene(1);
        for (const char *name : {"first", "second"}) {
            User user;
            user.savesAs(directory.filePath(QString::fromLatin1(name)));
            QVERIFY(user.exports(scene));
        }
        QCOMPARE(filesIn(directory), QStringList({"first.pdf", "second.pdf"}));
        QVERIFY(isPdf(directory.filePath(u"second.pdf"_s)));
    }

    // The picture
    void theSheetHoldsOnePictureOfThePage_data()
    {
        table<QSize>(
            {"size"}, {{"a page in its first size", QSize(1136, 648)}, {"a wide page", QSize(1500, 700)}});
    }

    void theSheetHoldsOnePictureOfThePage()
    {
        if (!popplerIsThere())
            QSKIP("poppler's tools are not installed");
        QFETCH(QSize, size);
        QTemporaryDir directory;
        const QString file = directory.filePath(u"report.pdf"_s);
        StatisticsScene scene(1);
        scene.page.resize(size);
        QCOMPARE(scene.page.size(), size);
        User user;
        user.savesAs(file);
        QVERIFY(user.exports(scene));

        // The painter starts on the writer's default sheet, and a sheet that has begun keeps its size.
        const QString info = outputOf("pdfinfo", {file}).value_or(QString());
        QVERIFY(info.contains(QRegularExpression(u"Pages:\\s+1\n"_s)));
        QVERIFY2(info.contains(QRegularExpression(u"Page size:\\s+595 x 842 pts"_s)), qPrintable(info));

        const QStringList images =
            outputOf("pdfimages", {"-list", file}).value_or(QString()).split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(images.size(), 3);
        const QStringList image = images.last().simplified().split(u' ');
        QCOMPARE(image.at(3).toInt(), size.width());
        QCOMPARE(image.at(4).toInt(), size.height());

        // 595 points less two margins of 10 for the width of the picture; 10 across and 1000 down in its own
        // pixels.
        // Fine enough to tell one of them from the next.
        constexpr int fineness = 4;
        const double width = 575.0 * fineness;
        const double pixel = width / size.width();
        const double left = 10 * fineness + 10 * pixel;
        const double top = 10 * fineness + 1000 * pixel;
        const QString sheetFile = directory.filePath(u"sheet"_s);
        const QString resolution = QString::number(72 * fineness);
        QVERIFY(outputOf("pdftoppm", {"-r", resolution, "-png", "-singlefile", file, sheetFile}));
        const QImage sheet(sheetFile + u".png"_s);
        QVERIFY((sheet.size() - QSize(595, 842) * fineness).width() <= fineness);
        const QRect ink = inkOf(sheet);
        QVERIFY2(std::abs(ink.left() - left) <= 1.5, qPrintable(QString::number(ink.left())));
        QVERIFY2(std::abs(ink.right() + 1 - (left + width)) <= 1.5, qPrintable(QString::number(ink.right())));
        QVERIFY2(std::abs(ink.top() - top) <= 1.5, qPrintable(QString::number(ink.top())));
        QVERIFY2(
            std::abs(ink.bottom() + 1 - std::min<double>(sheet.height(), top + size.height() * pixel)) <= 1.5,
            qPrintable(QString::number(ink.bottom())));
    }

    void thePictureShowsThePageAsItStands_data()
    {
        table<bool>({"charts"}, {{"with charts", true}, {"without charts", false}});
    }

    void thePictureShowsThePageAsItStands()
    {
        if (!popplerIsThere())
            QSKIP("poppler's tools are not installed");
        QFETCH(bool, charts);
        QTemporaryDir directory;
        const QString file = directory.filePath(u"report.pdf"_s);
        StatisticsScene scene(7);
        if (charts) {
            answerOrgas(scene.manager.trafficsStatisticsOfOrgas,
                {{41, "", {{4, 90, 0}, {2, 60, 0}}}, {42, "", {{4, 50, 0}, {2, 30, 0}}}});
            answerOrgas(scene.manager.trafficsStatisticsOfOrga,
                {{0, "2024-05-03 01", {{4, 10, 0}}}, {0, "2024-05-03 02", {{4, 80, 0}}}});
            answerDetails(scene.manager, {{1, {{-700, 5}}}}, {});
            scene.page.slotSearch();
            QCOMPARE(scene.page.m_chartViewList.size(), 3);
            for (ZrChartView *view : std::as_const(scene.page.m_chartViewList))
                view->chart()->setAnimationOptions(QChart::NoAnimation);
        }
        QCoreApplication::processEvents();
        const QImage expected =
            scene.page.grab(scene.page.rect()).toImage().convertToFormat(QImage::Format_RGB32);

        User user;
        user.savesAs(file);
        QVERIFY(user.exports(scene));
        const QString prefix = directory.filePath(u"picture"_s);
        QVERIFY(outputOf("pdfimages", {"-png", file, prefix}));
        const QImage picture(prefix + u"-000.png"_s);
        QCOMPARE(picture.size(), expected.size());

        // The writer compresses with loss; what it loses is far below what a wrong picture would differ by.
        const double lost = difference(picture, expected);
        QVERIFY2(lost < 1.5, qPrintable(QString::number(lost)));
        QImage blank(expected.size(), QImage::Format_RGB32);
        blank.fill(expected.pixel(2, 2));
        QVERIFY(difference(picture, blank) > 2 * lost + 0.5);
        QVERIFY(difference(picture, expected.transformed(QTransform::fromScale(1, -1))) > 2 * lost + 0.5);
    }

    void theSheetHasNoTitle()
    {
        if (!popplerIsThere())
            QSKIP("poppler's tools are not installed");
        QTemporaryDir directory;
        const QString file = directory.filePath(u"report.pdf"_s);
        StatisticsScene scene(1);
        User user;
        user.savesAs(file);
        QVERIFY(user.exports(scene));
        const QString info = outputOf("pdfinfo", {file}).value_or(QString());
        QVERIFY2(info.contains(QRegularExpression(u"Title:[ ]*\n"_s)), qPrintable(info));
        QVERIFY2(info.contains(QRegularExpression(u"Creator:[ ]*\n"_s)), qPrintable(info));
    }

    // Pages of device groups
    void deviceGroupsAskForTheModeFirst()
    {
        StatisticsScene scene(9);
        QVERIFY(!scene.page.m_pExportWidget);
        User user;
        bool cursorWasSet = true;
        bool fileDialogWasThere = true;
        const QWidget *parent = nullptr;
        const QWidget *shown = nullptr;
        user.inModeDialog([&](TempResultExportWidget &dialog) {
            cursorWasSet = QGuiApplication::overrideCursor() != nullptr;
            fileDialogWasThere = shownWindow<QFileDialog>() != nullptr;
            parent = dialog.parentWidget();
            shown = &dialog;
            User::press(dialog, "pushButtonCancel");
        });
        QVERIFY(user.exports(scene));
        QVERIFY(!cursorWasSet);
        QVERIFY(!fileDialogWasThere);
        QCOMPARE(parent, &scene.page);
        QCOMPARE(shown, scene.page.m_pExportWidget);
    }

    void confirmedPdfIsWrittenUnderAWaitCursor()
    {
        QTemporaryDir directory;
        StatisticsScene scene(9);
        User user;
        bool waited = false;
        bool modeDialogWasClosed = false;
        user.choosesMode("radioButtonPDF", "pushButtonOK");
        bool toldUnderTheCursor = false;
        TextRecorder texts;
        texts.whenAsked = [&](const QString &key) {
            if (key == successText)
                toldUnderTheCursor = hasWaitCursor();
        };
        user.inFileDialog([&](QFileDialog &dialog) {
            waited = hasWaitCursor();
            modeDialogWasClosed = !scene.page.m_pExportWidget->isVisible();
            User::save(dialog, directory.filePath(u"report"_s));
        });
        QVERIFY(user.exports(scene));
        QVERIFY(waited);
        QVERIFY(toldUnderTheCursor);
        QVERIFY(texts.asked.contains(u"TK_SaveImportResult 1"_s));
        QVERIFY(texts.asked.contains(u"TK_ExportSuccess 1"_s));
        QVERIFY(modeDialogWasClosed);
        QVERIFY(!QGuiApplication::overrideCursor());
        QCOMPARE(filesIn(directory), QStringList({"report.pdf"}));
        QVERIFY(isPdf(directory.filePath(u"report.pdf"_s)));
        QVERIFY(messageIsShown(scene.page, successText));
    }

    void confirmedPdfWithoutAFileShowsNoMessage()
    {
        StatisticsScene scene(9);
        User user;
        user.choosesMode("radioButtonPDF", "pushButtonOK");
        user.cancelsFileDialog();
        QVERIFY(user.exports(scene));
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!messageIsShown(scene.page, successText));
    }

    void confirmedExcelDoesNothing()
    {
        QTemporaryDir directory;
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(directory.path()));
        StatisticsScene scene(9);
        User user;
        user.choosesMode("radioButtonExcel", "pushButtonOK");
        const bool played = user.exports(scene);
        QVERIFY(QDir::setCurrent(before));
        QVERIFY(played);
        QVERIFY(!shownWindow<QFileDialog>());
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!messageIsShown(scene.page, successText));
        QCOMPARE(scene.tips(), QStringList());
        QCOMPARE(filesIn(directory), QStringList());
        QVERIFY(!scene.page.m_pExportWidget->isVisible());
    }

    void aDismissedModeDialogDoesNothing_data()
    {
        table<QByteArray>({"way"},
            {
                {"cancel", "pushButtonCancel"},
                {"close", "pushButtonClose"},
                {"the escape key", "escape"},
                {"the window's own closing", "window"},
            });
    }

    void aDismissedModeDialogDoesNothing()
    {
        QFETCH(QByteArray, way);
        StatisticsScene scene(9);
        User user;
        user.inModeDialog([&way](TempResultExportWidget &dialog) {
            if (way == "escape")
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else if (way == "window")
                dialog.close();
            else
                User::press(dialog, way.constData());
        });
        QVERIFY(user.exports(scene));
        QVERIFY(!scene.page.m_pExportWidget->isVisible());
        QVERIFY(!shownWindow<QFileDialog>());
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(!messageIsShown(scene.page, successText));
    }

    void aSecondExportReusesTheDialogWithAFreshConnection()
    {
        QTemporaryDir directory;
        StatisticsScene scene(9);
        TempResultExportWidget *first = nullptr;
        int strayAnswers = 0;
        for (const char *name : {"first", "second", "third"}) {
            User user;
            user.choosesMode("radioButtonPDF", "pushButtonOK");
            user.savesAs(directory.filePath(QString::fromLatin1(name)));
            QVERIFY(user.exports(scene));
            QVERIFY(!QGuiApplication::overrideCursor());
            if (!first)
                first = scene.page.m_pExportWidget;
            QCOMPARE(scene.page.m_pExportWidget, first);
            connect(first, &TempResultExportWidget::signalConfirm, this, [&strayAnswers] { ++strayAnswers; });
        }
        QCOMPARE(filesIn(directory), QStringList({"first.pdf", "second.pdf", "third.pdf"}));
        QCOMPARE(strayAnswers, 0);
        QCOMPARE(scene.page.findChildren<TempResultExportWidget *>().size(), 1);
    }

    void aDismissedExportDoesNotSpoilTheNextOne()
    {
        QTemporaryDir directory;
        StatisticsScene scene(9);
        for (const char *button : {"pushButtonCancel", "pushButtonClose"}) {
            User user;
            user.choosesMode("radioButtonPDF", button);
            QVERIFY(user.exports(scene));
        }
        {
            User user;
            user.choosesMode("radioButtonExcel", "pushButtonOK");
            QVERIFY(user.exports(scene));
        }
        QCOMPARE(filesIn(directory), QStringList());
        User user;
        user.choosesMode("radioButtonPDF", "pushButtonOK");
        user.savesAs(directory.filePath(u"report"_s));
        QVERIFY(user.exports(scene));
        QCOMPARE(filesIn(directory), QStringList({"report.pdf"}));
        QVERIFY(messageIsShown(scene.page, successText));
    }

    void searchesRunWhileTheModeDialogIsOpen()
    {
        QTemporaryDir directory;
        StatisticsScene scene(9);
        answerHandling(scene.manager, {{2, 5, "2024-05-03 01"}});
        User user;
        user.inModeDialog([&](TempResultExportWidget &dialog) {
            scene.page.slotSearch();
            User::press(dialog, "pushButtonOK");
        });
        user.savesAs(directory.filePath(u"report"_s));
        QVERIFY(user.exports(scene));
        QCOMPARE(scene.page.barDataList, LabelledValues({{"Company", 5}}));
        QCOMPARE(filesIn(directory), QStringList({"report.pdf"}));
    }

    void aPageThatGoesAwayEndsItsExport()
    {
        FakeKrxClient client;
        ScriptedStatisticsManager manager;
        QPointer<ProbePage> page = new ProbePage(9);
        page->show();
        User user;
        user.inModeDialog([page](TempResultExportWidget &) { delete page.data(); });
        QVERIFY(user.plays([page] { page->on_pushButtonExport_clicked(); }));
        QVERIFY(!page);
        QVERIFY(!shownWindow<QFileDialog>());
        QVERIFY(!QGuiApplication::overrideCursor());
    }
};

TALVIX_TEST_MAIN(TestExport)
#include "tst_export.moc"
