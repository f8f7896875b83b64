#pragma once

#include <page/LabelledValues.h>

#include <QtCharts/QChartView>
#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

#include <array>
#include <memory>
#include <vector>

struct LabelStance;
struct UserData;

/// What three charts show, ready to be drawn.
struct ChartFigures
{
    bool dual = false;     ///< two sets of bars and two lines, as traffic has them
    bool devices = false;  ///< cameras and recorders in two sets, here cameras alone
    QString lineName;      ///< legend of a single line
    QStringList lineNames; ///< legends of two lines
    LabelledValues bars;
    LabelledValues bars2;
    LabelledValues line;
    LabelledValues line2;
    LabelledValues pie;
};

/// The floor of all comparisons: bare Qt Charts in bare views, by the recipe of the page's charts and in its
/// order, the way in which it is written down when nothing is done for speed. It gives the same pictures.
class FloorCharts : public QWidget
{
public:
    using Views = std::array<QChartView *, 3>;

    /// Views get the geometries that the page's views have in their window of \a windowSize.
    FloorCharts(QSize windowSize, const std::array<QRect, 3> &places);
    ~FloorCharts() override;

    /// Chooses the fonts of labels before charts are laid out, as the page does. Written down plainly, the
    /// floor does so when they have their size.
    void setFitFirst(bool first) { m_fitFirst = first; }
    /// Makes the views with their charts, or replaces all three charts.
    void reload(const ChartFigures &figures);
    /// Replaces line and pie alone, as a drill-down does.
    void reloadLineAndPie(const ChartFigures &figures);

    const Views &views() const { return m_views; }
    const std::array<QRect, 3> &places() const { return m_places; }

private:
    void show(std::size_t place, QChart *chart);
    void finish();
    QSizeF labelSize(std::size_t place) const;

    std::array<QRect, 3> m_places;
    Views m_views{};
    bool m_fitFirst = false;
    std::vector<std::unique_ptr<UserData>> m_barItems;
    std::shared_ptr<LabelStance> m_barStance;
    std::shared_ptr<LabelStance> m_lineStance;
};
