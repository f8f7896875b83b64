#include "support/EverySlot.h"
#include "support/LogCapture.h"
#include "support/ProbePage.h"
#include "support/ScenePage.h"
#include "support/TestMain.h"
#include "support/TestTable.h"

#include <export/TempResultExportWidget.h>
#include <TalvixWidgets/ZrCalendarWidget.h>
#include <TalvixWidgets/ZrChartView.h>

#include <QtCore/QPointer>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QPushButton>

#include <memory>

namespace {

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
    void beforeTheFirstShow_data() { kinds({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}); }
    void beforeTheFirstShow()
    {
        const int kind = kindOfRow();
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

    void whileHidden_data() { kinds({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}); }
    void whileHidden()
    {
        ShownPage page(kindOfRow());
        page.hide();
        callAll(page);
        QVERIFY(!page.isVisible());
        page.show();
        QCOMPARE(page.part<QPushButton>("pushButtonDesc")->property("highlight").toBool(), true);
    }

    void withoutATree_data() { kinds({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}); }
    void withoutATree()
    {
        const int kind = kindOfRow();
        PageScene scene;
        scene.client.setTree(QString());
        ProbePage page(kind);
        showPage(page);
        scene.forgetCalls();
        callAll(page);
        QCOMPARE(scene.wholeLevelCalls(), QStringList());
    }

    void betweenDeleteLaterAndDeath_data() { kinds({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}); }
    void betweenDeleteLaterAndDeath()
    {
        const int kind = kindOfRow();
        PageScene scene;
        QPointer<ProbePage> page = new ProbePage(kind);
        showPage(*page);
        page->deleteLater();
        callAll(*page);
        delete page.data();
        QVERIFY(page.isNull());
        QCoreApplication::processEvents();
    }

    void afterEveryViewIsGone_data() { kinds({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}); }
    void afterEveryViewIsGone()
    {
        ShownPage page(kindOfRow());
        page.fillTree(page);
        page.slotSearch();
        const auto views = page.m_chartViewList;
        for (ZrChartView *view : views)
            delete view;
        callAll(page);
    }
};

TALVIX_TEST_MAIN(AnyMomentTest)
#include "tst_any_moment.moc"
