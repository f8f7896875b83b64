#pragma once

#include "plugin/DataStaticsPlugin.h"

#include <QtCore/QDateTime>
#include <QtCore/QHash>
#include <QtWidgets/QMainWindow>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QListWidget;
class QSettings;
class QSpinBox;
class BaseWidget;
class SqlStatisticsManager;
class Stage;
class ZrPushButton;

/// The window of the development host: the plug-in's tab widget, the kinds of statistics that it does not
/// open on pages of their own, and a bar for trying languages, dates, slow answers and failures.
///
/// A page is made when it is chosen, the first one when the window is on the screen: a page asks its
/// questions while it is being shown, and what it paints meanwhile would otherwise not be seen.
class HostWindow : public QMainWindow
{
    Q_OBJECT

public:
    HostWindow(SqlStatisticsManager &service, QSettings &settings, QWidget *parent = nullptr);
    ~HostWindow() override;

    /// Who has chosen the moment that the host lives at.
    enum class MomentOf { Choice, Samples };

    /// What the window says of its figures; \a moment is invalid when the host lives in the present.
    void setSource(const QString &database, const QDateTime &moment, MomentOf chosenBy);
    /// Opens a kind of statistics, 1 to 9; other numbers change nothing.
    void openKind(int service);

protected:
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *makeSide();
    QWidget *makeBar();
    QWidget *makeStage();
    void addHeading(const char *key);
    void addEntry(const QString &key, int service);
    void retranslate();
    QString textOfMoment() const;
    void restore();
    void arrangeSide();
    void openDrawer(bool open);
    bool leavesDrawer(QObject *watched, QEvent *event) const;
    void nameMenu();
    void showChosenPage();
    QWidget *pageOf(int service);
    BaseWidget *makeTabs();
    int chosenService() const;
    void uncover();
    void chooseLanguage();
    void chooseDateOrder();

    SqlStatisticsManager &m_service;
    QSettings &m_settings;
    DataStaticsPlugin m_plugin;
    int m_tabsNumber = 0;
    int m_tabAtFirst = 0;
    bool m_exposed = false;
    QHash<int, QWidget *> m_pages;
    bool m_docked = true;
    QString m_database;
    QDateTime m_moment;
    MomentOf m_momentOf = MomentOf::Choice;

    QHBoxLayout *m_columns;
    QWidget *m_side;
    QWidget *m_bar;
    Stage *m_stage;
    ZrPushButton *m_menu;
    QLabel *m_title;
    QLabel *m_subtitle;
    QListWidget *m_list;
    QLabel *m_source;
    QComboBox *m_language;
    QComboBox *m_dateOrder;
    QLabel *m_latencyLabel;
    QSpinBox *m_latency;
    QLabel *m_failureLabel;
    QSpinBox *m_failureRate;
    ZrPushButton *m_failNext;
};
