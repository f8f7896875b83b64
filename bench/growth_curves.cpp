#include <QtCharts/QChart>
#include <QtCharts/QLineSeries>
#include <QtCharts/QLogValueAxis>
#include <QtCharts/QValueAxis>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMap>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>

#include <cmath>
#include <cstdio>

namespace {

constexpr QSize pictureSize(800, 420);

/// Nanoseconds for each row by what grows, for one measure.
using Curve = QMap<double, double>;

// The measures are named "name/rows/labels"; `varying` tells which of the two numbers grows, `fixed` is the
// other.
Curve curveOf(const QJsonArray &measures, const QString &name, int varying, const QString &fixed)
{
    Curve curve;
    for (const QJsonValue &value : measures) {
        const QJsonObject measure = value.toObject();
        const QStringList parts = measure.value(QStringLiteral("name")).toString().split(QLatin1Char('/'));
        if (parts.size() != 3 || parts.at(0) != name || parts.at(varying == 1 ? 2 : 1) != fixed)
            continue;
        const double perSecond = measure.value(QStringLiteral("items_per_second")).toDouble();
        curve.insert(parts.at(varying).toDouble(), 1e9 / perSecond);
    }
    return curve;
}

bool draw(const QString &file, const QString &what, const QMap<QString, Curve> &curves)
{
    auto *chart = new QChart;
    auto *axisX = new QLogValueAxis;
    axisX->setTitleText(what);
    axisX->setLabelFormat(QStringLiteral("%d"));
    auto *axisY = new QValueAxis;
    axisY->setTitleText(QStringLiteral("nanoseconds for each row"));
    axisY->setLabelFormat(QStringLiteral("%d"));
    chart->addAxis(axisX, Qt::AlignBottom);
    chart->addAxis(axisY, Qt::AlignLeft);
    double highest = 0;
    for (auto curve = curves.cbegin(); curve != curves.cend(); ++curve) {
        auto *series = new QLineSeries(chart);
        series->setName(curve.key());
        for (auto point = curve.value().cbegin(); point != curve.value().cend(); ++point) {
            series->append(point.key(), point.value());
            highest = std::max(highest, point.value());
        }
        if (series->count() == 0)
            return false;
        series->setPointsVisible(true);
        chart->addSeries(series);
        series->attachAxis(axisX);
        series->attachAxis(axisY);
    }
    axisY->setRange(0, std::ceil(highest / 50) * 50);

    QGraphicsScene scene;
    scene.addItem(chart);
    chart->resize(pictureSize);
    QCoreApplication::processEvents();
    QImage image(pictureSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    scene.render(&painter, QRectF(QPointF(), pictureSize), chart->geometry());
    return image.save(file);
}

} // namespace

// growth-curves FIGURES.json FOLDER: draws what talvix-bench-growth measured.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QFile figures(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    if (!figures.open(QIODevice::ReadOnly)) {
        std::fputs("usage: growth-curves FIGURES.json FOLDER\n", stderr);
        return 2;
    }
    const QJsonArray measures =
        QJsonDocument::fromJson(figures.readAll()).object().value(QStringLiteral("benchmarks")).toArray();
    const QDir folder(QString::fromLocal8Bit(argv[2]));
    const auto pair = [&measures](int varying, const QString &fixed) {
        return QMap<QString, Curve>{{QStringLiteral("folded into a list"),
                                        curveOf(measures, QStringLiteral("foldRows"), varying, fixed)},
            {QStringLiteral("into a bare hash"),
                curveOf(measures, QStringLiteral("hashRows"), varying, fixed)}};
    };
    const bool drawn = draw(folder.filePath(QStringLiteral("growth-with-rows.png")),
                           QStringLiteral("rows, of 24 labels"), pair(1, QStringLiteral("24")))
        && draw(folder.filePath(QStringLiteral("growth-with-labels.png")),
            QStringLiteral("labels, in a million rows"), pair(2, QStringLiteral("1000000")));
    if (!drawn)
        std::fputs("the figures have not all that is to be drawn\n", stderr);
    return drawn ? 0 : 1;
}
