#pragma once

#include <TalvixWidgets/TalvixWidgetsGlobal.h>

class KrxClient;
class KRXClientStatisticsManager;

/// Make `KrxClient::instance()` and `KRXClientStatisticsManager::instance()` answer these objects.
///
/// The objects are not owned and must outlive their use; null brings back the built-in ones, which know
/// nothing. Install the client before the first page is shown: pages connect to the client that they find
/// then.
TALVIXWIDGETS_EXPORT void installKrxClient(KrxClient *client);
TALVIXWIDGETS_EXPORT void installStatisticsManager(KRXClientStatisticsManager *manager);
