#pragma once

#include "EventStore.h"
#include "ProbePage.h"

#include <devhost/client/ClientInstances.h>

#include <memory>

/// The base of tests whose pages show the figures of a store.
class StorePageTest : public QObject
{
protected:
    std::unique_ptr<EventStore> store;
    std::unique_ptr<SqlKrxClient> client;
    std::unique_ptr<ProbePage> page;

    /// Makes the store what pages ask, once it is filled.
    void installStore()
    {
        client = std::make_unique<SqlKrxClient>(store->store);
        installKrxClient(client.get());
        installStatisticsManager(&store->service);
    }

    void removeStore()
    {
        installKrxClient(nullptr);
        installStatisticsManager(nullptr);
        client.reset();
        store.reset();
    }

    void showPageOf(int service)
    {
        page = std::make_unique<ProbePage>(service);
        page->resize(1136, 648);
        page->show();
        QVERIFY(QTest::qWaitForWindowExposed(page.get()));
    }
};
