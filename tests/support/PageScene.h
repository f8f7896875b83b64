#pragma once

#include "FakeKrxClient.h"
#include "LogCapture.h"
#include "ProbePage.h"
#include "ScriptedStatisticsManager.h"
#include "StatisticsRows.h"

#include <QtCore/QStringList>
#include <QtTest/QtTest>

#include <limits>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

class ZrComboBoxWithTree;

inline constexpr int largest = std::numeric_limits<int>::max();
inline constexpr int smallest = std::numeric_limits<int>::min();

/// What a page asks for first, in the tests' present.
inline const QString spanStart = QStringLiteral("2024-05-03 00");
inline const QString spanEnd = QStringLiteral("2024-05-03 17");

/// Lines that searches and loads of the tree write.
namespace written {
inline const QString search = QStringLiteral("BasicChart::slotSearch ");
inline const QString combo = QStringLiteral("BasicChart::comboDataExists");
inline const QString load = QStringLiteral("BasicChart::slotOrgaInfoLoad");
inline const QString loadFailed = QStringLiteral("BasicChart::slotOrgaInfoLoad  addTreeView fail");
} // namespace written

/// The client and the service behind pages under test.
class Backend
{
public:
    FakeKrxClient client;
    ScriptedStatisticsManager manager;

    void forgetCalls();
};

/// What stands behind a page under test: a company with two plants, and figures for every kind of statistics.
///
/// Organisation bars come as Company 5, Plant North 9, Plant South 7; device bars as Gate 4, Yard 8. Paged
/// answers give the page that was asked for, of `totalPages`.
/// Declare it before the page, so that it outlives it.
class PageScene : public Backend
{
public:
    PageScene();

    int totalPages = 5;

    /// Calls that ask for the bars of a page, without those that ask for one bar's detail.
    QStringList wholeLevelCalls() const;
    /// How often the organisation tree was fetched.
    qsizetype treeLoads() const { return client.calls.count(QStringLiteral("getOrgaList")); }

    /// Puts the tree into a page that has fetched none by itself, with the root current.
    void fillTree(ProbePage &page);
    /// Puts a tree into the page of which no node is current.
    void fillTreeWithoutCurrent(ProbePage &page);
};

/// Labels with a value of each of two series.
using DualValues = QList<std::tuple<QString, int, int>>;

/// A page on show over a small organisation tree, its first search done and forgotten.
///
/// Pages of types 5 and 6 get no tree of their own; theirs comes from a show as type 1.
class StatisticsScene : public Backend
{
public:
    /// Root 41 "Company", below it 42 "Plant North" and 43 "Plant South".
    static QString smallTree();

    explicit StatisticsScene(int type, const QString &tree = smallTree());

    ProbePage page;

    /// Forgets calls, requests and tips so far. Answers and the page's data stay.
    void forget();
    /// Runs the whole-level query of the page's type and gives its result code.
    int queryWholeLevel();
    /// Presses a button of the page by its object name.
    void press(const char *button);
    /// The tips so far, each as its kind, a blank and its text.
    QStringList tips() const;
    /// Both series of the bars and of the lines. A label that the second series has not, or elsewhere, is
    /// marked as such.
    DualValues bars() const { return dual(page.barDataList, page.barDataList2); }
    DualValues lines() const { return dual(page.lineDataList, page.lineDataList2); }

private:
    static DualValues dual(const LabelledValues &first, const LabelledValues &second);
};

/// Shows the page at the size of its form and waits until it is on the screen.
void showPage(QWidget &page);

/// A page on show and what stands behind it: `auto &&[scene, page] = Shown(1);`
struct Shown
{
    explicit Shown(int type)
        : page(type)
    {
        showPage(page);
    }
    Shown(int type, const QString &tree)
        : page(type)
    {
        scene.client.setTree(tree);
        showPage(page);
    }

    PageScene scene;
    ProbePage page;
};

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

/// UTF-8 as text.
inline QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

/// The lines that begin with one of \a starts, in the order of the log.
QStringList linesStartingWith(const LogCapture &log, const QStringList &starts);

/// How many lines are \a words followed by \a reason, with or without quotation marks around the reason.
int countOfReasonLines(const LogCapture &log, const QString &words, const QString &reason);

/// Whether a request carries the span that a page asks for first, and no command.
template <typename Request>
void checkFirstSpan(const Request &request)
{
    QCOMPARE(request.timeType, 3);
    QCOMPARE(text(request.startTime()), spanStart);
    QCOMPARE(text(request.endTime()), spanEnd);
    QCOMPARE(text(request.cmd()), QString());
}

/// Classes and counts of a distribution, in a form that tests can compare.
QList<std::pair<int, int>> pairs(const std::vector<TempDistributionItem> &items);
