#pragma once

#include "FloorCharts.h"
#include "PreparedRows.h"
#include "Settle.h"

#include <tests/support/ProbePage.h>

#include <QtCore/QByteArray>

#include <memory>

/// A page on show and its floor, both with the same bars, at rest.
class ReloadStage
{
public:
    ReloadStage(Kind kind, int bars);

    /// The page searches anew: from the client's answer until nothing is left to paint.
    void reloadPage();
    /// The floor does the same with the figures that the page has drawn.
    void reloadFloor();

    /// The same for line and pie alone: the pointer has rested on another bar.
    void drillDownPage();
    void drillDownFloor();

    /// A page of a paged kind fetches and shows its next page.
    void turnPage();

    /// A new page of the stage's kind, shown and loaded for the first time.
    std::unique_ptr<QWidget> openedPage(Kind kind) const;
    /// A bare form with the floor's charts, likewise.
    std::unique_ptr<QWidget> openedFloor() const;

    /// Whether page and floor show the same, to the pixel. Says on stderr which view differs.
    bool samePictures();
    /// Writes both pictures of each view into the present directory.
    void keepPictures();

    ProbePage &page() { return m_page; }
    FloorCharts &floor() { return *m_floor; }
    FinishedAnimations &animations() { return m_animations; }

private:
    ChartFigures figures() const;

    FinishedAnimations m_animations;
    FakeKrxClient m_client;
    ScriptedStatisticsManager m_manager;
    ProbePage m_page;
    std::unique_ptr<FloorCharts> m_floor;
    ChartFigures m_figures;
    bool m_dual;
    bool m_devices;
};
