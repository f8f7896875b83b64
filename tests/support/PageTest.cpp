#include "PageTest.h"

#include "TestMain.h"

#include <QtCore/QSignalBlocker>
#include <QtTest/QtTest>
#include <QtWidgets/QLineEdit>

bool PageTest::open(std::unique_ptr<ProbePage> newPage)
{
    page = std::move(newPage);
    page->resize(1136, 648);
    page->show();
    const bool exposed = QTest::qWaitForWindowExposed(page.get());
    forget();
    return exposed;
}

void PageTest::forget()
{
    forgetRequests(*service);
    page->tips.clear();
}

void PageTest::press(const char *button)
{
    QTest::mouseClick(page->part<QWidget>(button), Qt::LeftButton);
}

void PageTest::setSpanInSilence(const QString &span)
{
    auto *const edit = page->part<QLineEdit>("lineEditTime");
    const QSignalBlocker quiet(edit);
    edit->setText(span);
}

void PageTest::init()
{
    client = std::make_unique<FakeKrxClient>();
    client->setTree(QStringLiteral("42 Company\n  2 Plant North\n  3 Plant South"));
    service = std::make_unique<ScriptedStatisticsManager>();
}

void PageTest::cleanup()
{
    page.reset();
    service.reset();
    client.reset();
    resetHostSettings();
}
