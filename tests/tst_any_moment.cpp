#include "support/EverySlot.h"
#include "support/LogCapture.h"
#include "support/PageScene.h"
#include "support/ProbePage.h"
#include "support/TestMain.h"

#include <export/TempResultExportWidget.h>
#include <TalvixWidgets/ZrCalendarWidget.h>
#include <TalvixWidgets/ZrChartView.h>

#include <QtCore/QPointer>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QPushButton>

#include <memory>

namespace {

constexpr int kinds = 9;

/// Closes whatever waits for the user, for as long as it lives.
class Dismisser : public QObject
{
public:
    Dismisser() { startTimer(1); }

protected:
    void timerEvent(QTimerEvent *) override
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (!window->isVisible())
                continue;
            if (auto *mode = qobject_cast<TempResultExportWidget *>(window))
                mode->on_pushButtonCancel_clicked();
            else if (auto *dialog = qobject_cast<QFileDialog *>(window))
                dialog->reject();
        }
    }
};

void callAll(ProbePage &page)
{
    for (const auto &call : everySlot()) {
        call(page);
        while (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
    }
    const Dismisser dismisser;
    page.on_pushButtonExport_clicked();
}

} // namespace

/// Whatever is called on a page, and whenever: nothing breaks, and a page that was touched before its first
/// show shows what any page shows.
class AnyMomentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beforeTheFirstShow_data() { kindRows(); }
    void beforeTheFirstShow();
    void whileHidden_data() { kindRows(); }
    void whileHidden();
    void withoutATree_data() { kindRows(); }
    void withoutATree();
    void betweenDeleteLaterAndDeath_data() { kindRows(); }
    void betweenDeleteLaterAndDeath();
    void afterEveryViewIsGone_data() { kindRows(); }
    void afterEveryViewIsGone();

private:
    static void kindRows()
    {
        QTest::addColumn<int>("kind");
        for (int kind = 0; kind <= kinds; ++kind)
            QTest::addRow("kind %d", kind) << kind;
    }
};

void AnyMomentTest::beforeTheFirstShow()
{
    QFETCH(int, kind);
    const auto shown = [kind](bool touched) {
        PageScene scene;
        ProbePage page(kind);
        if (touched)
            callAll(page);
        scene.forgetCalls();
        page.resize(1136, 648);
        showPage(page);
        QStringList result = scene.wholeLevelCalls();
        result << page.part<QLineEdit>("lineEditTime")->text() << QString::number(page.m_nTimeType)
               << QString::number(page.barDataList.size()) << page.m_strSelectedBar
               << QString::number(page.sortFlag) << QString::number(page.m_nCurPage);
        return result;
    };
    QCOMPARE(shown(true), shown(false));
}

void AnyMomentTest::whileHidden()
{
    QFETCH(int, kind);
    PageScene scene;
    ProbePage page(kind);
    showPage(page);
    page.hide();
    callAll(page);
    QVERIFY(!page.isVisible());
    page.show();
    QCOMPARE(page.part<QPushButton>("pushButtonDesc")->property("highlight").toBool(), true);
}

void AnyMomentTest::withoutATree()
{
    QFETCH(int, kind);
    PageScene scene;
    scene.client.setTree(QString());
    ProbePage page(kind);
    showPage(page);
    scene.forgetCalls();
    callAll(page);
    QCOMPARE(scene.wholeLevelCalls(), QStringList());
}

void AnyMomentTest::betweenDeleteLaterAndDeath()
{
    QFETCH(int, kind);
    PageScene scene;
    QPointer<ProbePage> page = new ProbePage(kind);
    showPage(*page);
    page->deleteLater();
    callAll(*page);
    delete page.data();
    QVERIFY(page.isNull());
    QCoreApplication::processEvents();
}

void AnyMomentTest::afterEveryViewIsGone()
{
    QFETCH(int, kind);
    PageScene scene;
    ProbePage page(kind);
    showPage(page);
    scene.fillTree(page);
    page.slotSearch();
    const auto views = page.m_chartViewList;
    for (ZrChartView *view : views)
        delete view;
    callAll(page);
}

TALVIX_TEST_MAIN(AnyMomentTest)
#include "tst_any_moment.moc"
