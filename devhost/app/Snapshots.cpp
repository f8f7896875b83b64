#include "Snapshots.h"

#include "DateOfPdf.h"

#include "plugin/preview/StatisticsPreview.h"

#include <TalvixWidgets/BaseWidget.h>

#include <QtCharts/QAbstractBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QSaveFile>
#include <QtCore/QThread>
#include <QtGui/QImage>
#include <QtGui/QPageLayout>
#include <QtGui/QPageSize>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr QSize pictureSize(1600, 900);
constexpr int pdfScale = 2;
constexpr double millimetresPerPixel = 0.2;
constexpr int longestWait = 5000;
constexpr int step = 20;

void runFor(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        QCoreApplication::processEvents(QEventLoop::AllEvents, step);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QThread::msleep(1);
    } while (timer.elapsed() < milliseconds);
}

int longestAnimation(const QWidget &page)
{
    int longest = 0;
    for (const QChartView *view : page.findChildren<QChartView *>()) {
        if (view->chart()->animationOptions() != QChart::NoAnimation)
            longest = std::max(longest, view->chart()->animationDuration());
    }
    return longest;
}

QImage pictureOf(QWidget &page)
{
    return page.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// The page at rest: charts do not tell when their animations have ended.
QImage finalPictureOf(QWidget &page)
{
    runFor(longestAnimation(page) + 2 * step);
    QImage picture = pictureOf(page);
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < longestWait) {
        runFor(5 * step);
        QImage next = pictureOf(page);
        const bool atRest = next == picture;
        picture = std::move(next);
        if (atRest)
            break;
    }
    return picture;
}

QByteArray pngOf(const QImage &picture)
{
    QBuffer buffer;
    static_cast<void>(buffer.open(QIODevice::WriteOnly));
    picture.save(&buffer, "PNG");
    return buffer.data();
}

/// A picture twice as fine as the screen. Legends of charts lose entries when they are drawn into a PDF as
/// drawings.
QByteArray pdfOf(QWidget &page, const QString &title, const QDateTime &moment)
{
    QImage picture(page.size() * pdfScale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(pdfScale);
    page.render(&picture);

    QBuffer buffer;
    static_cast<void>(buffer.open(QIODevice::WriteOnly));
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(title);
        writer.setPageSize(
            QPageSize(QSizeF(page.size()) * millimetresPerPixel, QPageSize::Millimeter, title));
        writer.setPageMargins(QMarginsF());
        QPainter painter(&writer);
        painter.setRenderHint(QPainter::LosslessImageRendering);
        painter.drawImage(QRect(0, 0, writer.width(), writer.height()), picture);
    }
    QByteArray pdf = buffer.data();
    setDateOfPdf(pdf, moment);
    clearIdOfPdf(pdf);
    return pdf;
}

bool write(const QString &fileName, const QByteArray &content, QString *error)
{
    QSaveFile file(fileName);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
        return true;
    *error = QStringLiteral("\"%1\" cannot be written: %2.").arg(fileName, file.errorString());
    return false;
}

void countBars(const QWidget &page, Snapshot &snapshot)
{
    for (const QChartView *view : page.findChildren<QChartView *>()) {
        if (!view->chart()->isVisible())
            continue;
        for (const QAbstractSeries *series : view->chart()->series()) {
            const auto *bars = qobject_cast<const QAbstractBarSeries *>(series);
            if (!bars)
                continue;
            for (const QBarSet *set : bars->barSets()) {
                snapshot.bars = std::max(snapshot.bars, static_cast<int>(set->count()));
                snapshot.sum += std::llround(set->sum());
            }
        }
    }
}

bool writeSnapshot(Snapshot &snapshot, const QDir &folder, const QDateTime &moment, QString *error)
{
    QWidget frame;
    auto *layout = new QVBoxLayout(&frame);
    layout->setContentsMargins(0, 0, 0, 0);
    frame.resize(pictureSize);
    frame.show();
    runFor(step);
    // Only now, so that the page finds a window that is on the screen, as in the program.
    BaseWidget *page = createStatisticsPage(snapshot.kind.service, &frame);
    layout->addWidget(page);
    page->show();

    const QString name = QStringLiteral("%1-%2").arg(snapshot.kind.service).arg(snapshot.kind.name);
    const QImage picture = finalPictureOf(frame);
    countBars(*page, snapshot);
    snapshot.file = folder.filePath(name + QStringLiteral(".png"));
    return write(snapshot.file, pngOf(picture), error)
        && write(folder.filePath(name + QStringLiteral(".pdf")), pdfOf(frame, name, moment), error);
}

} // namespace

bool writeSnapshots(const std::vector<Kind> &kinds, const QString &folder, const QDateTime &moment,
    const std::function<void(const Snapshot &)> &done, QString *error)
{
    if (!QDir().mkpath(folder)) {
        *error = QStringLiteral("The folder \"%1\" cannot be made.").arg(folder);
        return false;
    }
    for (const Kind &kind : kinds) {
        Snapshot snapshot{kind, 0, 0, {}};
        if (!writeSnapshot(snapshot, QDir(folder), moment, error))
            return false;
        done(snapshot);
    }
    return true;
}
