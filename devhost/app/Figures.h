#pragma once

#include "Options.h"

#include "devhost/data/SqlKrxClient.h"
#include "devhost/data/SqlStatisticsManager.h"
#include "devhost/data/SqlStore.h"

#include <QtCore/QDateTime>

#include <functional>
#include <memory>

/// When the sample world lives if nothing else is asked for: at 17:00 of the last day that had one, so that
/// every kind of statistics is full at any hour.
QDateTime momentOfSamples(const QDateTime &now);

/// The database that the options name, and the client's services over it. They are installed for as long as
/// this lives, so it must outlive every page.
class Figures
{
public:
    using Clock = std::function<QDateTime()>;

    explicit Figures(const Options &options, Clock clock = &QDateTime::currentDateTime);
    ~Figures();

    /// Opens the database, fills a new one, continues the sample events of an older one and does what else
    /// the options ask. Tells its progress on standard error. Throws devdata::StoreError.
    void open();

    /// Continues the sample events to the present moment.
    void keepUp();

    /// The moment that figures and pages live at once the database is open; invalid when it is the present.
    QDateTime moment() const { return m_moment; }
    /// Whether that moment is the one of the sample world, which nobody has asked for.
    bool isMomentOfSamples() const { return m_moment.isValid() && !m_options.now.isValid(); }

    SqlStatisticsManager &service() { return *m_service; }
    /// For the user; never with a password.
    QString displayName();

private:
    Q_DISABLE_COPY_MOVE(Figures)

    QString place() const;
    void chooseMoment();
    void fillAsAsked();
    void importFile();

    Options m_options;
    Clock m_clock;
    QDateTime m_moment;
    SqlStore m_store;
    std::unique_ptr<SqlKrxClient> m_client;
    std::unique_ptr<SqlStatisticsManager> m_service;
};
