#pragma once

#include "FakeKrxClient.h"
#include "LogCapture.h"
#include "ProbePage.h"
#include "ScriptedStatisticsManager.h"

#include <QtCore/QStringList>

class ZrComboBoxWithTree;

/// What stands behind a page under test: a company with two plants, and figures for every kind of statistics.
///
/// Organisation bars come as Company 5, Plant North 9, Plant South 7; device bars as Gate 4, Yard 8. Paged
/// answers give the page that was asked for, of `totalPages`.
/// Declare it before the page, so that it outlives it.
class PageScene
{
public:
    PageScene();

    FakeKrxClient client;
    ScriptedStatisticsManager manager;
    int totalPages = 5;

    /// Calls that ask for the bars of a page, without those that ask for one bar's detail.
    QStringList wholeLevelCalls() const;
    /// How often the organisation tree was fetched.
    qsizetype treeLoads() const { return client.calls.count(QStringLiteral("getOrgaList")); }
    void forgetCalls();

    /// Puts the tree into a page that has fetched none by itself, with the root current.
    void fillTree(ProbePage &page);
    /// Puts a tree into the page of which no node is current.
    void fillTreeWithoutCurrent(ProbePage &page);
};

/// Shows the page at the size of its form and waits until it is on the screen.
void showPage(QWidget &page);

/// The organisation tree's combo box of a page.
ZrComboBoxWithTree *organisationCombo(const QWidget &page);

/// Picks a node of the opened tree with the mouse; false when it is not there or did not become current.
bool chooseOrganisation(ZrComboBoxWithTree *combo, const QString &name);

/// Number of the tree's current organisation, 0 for none.
int currentOrganisation(ZrComboBoxWithTree *combo);

/// What was written to the log, without the remarks of the display platform.
QStringList writtenLines(const LogCapture &log);

/// The lines that are one of \a wanted, in their order.
QStringList onlyLines(const QStringList &lines, const QStringList &wanted);
