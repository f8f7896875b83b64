#pragma once

#include "Options.h"

#include "devhost/data/SqlKrxClient.h"
#include "devhost/data/SqlStatisticsManager.h"
#include "devhost/data/SqlStore.h"

#include <memory>

/// The database that the options name, and the client's services over it. They are installed for as long as
/// this lives, so it must outlive every page.
class Figures
{
public:
    explicit Figures(const Options &options);
    ~Figures();

    /// Opens the database, fills a new one, continues the sample events of an older one and does what else
    /// the options ask. Tells its progress on standard error. Throws devdata::StoreError.
    void open();

    /// Continues the sample events to the present moment.
    void keepUp();

    SqlStatisticsManager &service() { return *m_service; }
    /// For the user; never with a password.
    QString displayName();

private:
    Q_DISABLE_COPY_MOVE(Figures)

    QString place() const;
    void fillAsAsked();
    void importFile();

    Options m_options;
    SqlStore m_store;
    std::unique_ptr<SqlKrxClient> m_client;
    std::unique_ptr<SqlStatisticsManager> m_service;
};
