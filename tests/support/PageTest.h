#pragma once

#include "FakeKrxClient.h"
#include "ProbePage.h"
#include "ScriptedStatisticsManager.h"

#include <memory>

/// The base of tests whose functions each have a client, a service and a page of their own.
class PageTest : public QObject
{
    Q_OBJECT

protected:
    std::unique_ptr<FakeKrxClient> client;
    std::unique_ptr<ScriptedStatisticsManager> service;
    std::unique_ptr<ProbePage> page;

    /// Shows a page of the kind and forgets what its show did.
    bool open(int type) { return open(std::make_unique<ProbePage>(type)); }
    bool open(std::unique_ptr<ProbePage> newPage);
    /// Forgets calls, requests and tips so far; answers and the page's data stay.
    void forget();
    void press(const char *button);
    /// Writes \a span into the page as if the user had chosen it, without a search.
    void setSpanInSilence(const QString &span);

private Q_SLOTS:
    /// Root 42 "Company", below it 2 "Plant North" and 3 "Plant South".
    void init();
    void cleanup();
};
