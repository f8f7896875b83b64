// Draws the theme's icons into the folder of this file: talvix-draw-icons FOLDER.
// The drawings are kept beside it, so that a build needs neither this program nor a vector format.

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QTextStream>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <functional>

namespace {

const QColor plain(0xB8, 0xBD, 0xCB);
const QColor bright(0xFF, 0xFF, 0xFF);
const QColor accent(0x9D, 0xAC, 0xFD);
const QColor faint(0x6B, 0x70, 0x7E);

struct Icon
{
    QString file;
    QSize size;
    /// Draws on a field of 16 by 16.
    std::function<void(QPainter &)> draw;
};

void usePen(QPainter &painter, const QColor &color, double width = 1.4)
{
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
}

void drawDot(QPainter &painter)
{
    painter.setPen(Qt::NoPen);
    QColor ring = accent;
    ring.setAlphaF(0.28F);
    painter.setBrush(ring);
    painter.drawEllipse(QPointF(8, 8), 8, 8);
    painter.setBrush(accent);
    painter.drawEllipse(QPointF(8, 8), 4.6, 4.6);
}

std::function<void(QPainter &)> exportArrow(const QColor &color)
{
    return [color](QPainter &painter) {
        usePen(painter, color);
        painter.drawPolyline(QPolygonF{{2.5, 9.5}, {2.5, 13.5}, {13.5, 13.5}, {13.5, 9.5}});
        painter.drawLine(QPointF(8, 10.2), QPointF(8, 2.6));
        painter.drawPolyline(QPolygonF{{4.8, 5.6}, {8, 2.4}, {11.2, 5.6}});
    };
}

void drawCalendar(QPainter &painter)
{
    usePen(painter, plain);
    painter.drawRoundedRect(QRectF(2, 3.2, 12, 10.8), 1.6, 1.6);
    painter.drawLine(QPointF(2, 6.6), QPointF(14, 6.6));
    painter.drawLine(QPointF(5, 1.6), QPointF(5, 4.2));
    painter.drawLine(QPointF(11, 1.6), QPointF(11, 4.2));
    painter.setPen(Qt::NoPen);
    painter.setBrush(accent);
    painter.drawRoundedRect(QRectF(8.8, 9.2, 3, 2.8), 0.6, 0.6);
}

std::function<void(QPainter &)> sortBars(const QColor &color, bool ascending)
{
    return [color, ascending](QPainter &painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        for (int i = 0; i < 4; ++i) {
            const double height = 3.0 + 3.2 * (ascending ? i : 3 - i);
            painter.drawRoundedRect(QRectF(1.6 + 3.4 * i, 14.2 - height, 2.4, height), 0.7, 0.7);
        }
    };
}

std::function<void(QPainter &)> stroke(const QColor &color, const QPolygonF &points, double width = 1.6)
{
    return [=](QPainter &painter) {
        usePen(painter, color, width);
        painter.drawPolyline(points);
    };
}

std::function<void(QPainter &)> cross(const QColor &color)
{
    return [color](QPainter &painter) {
        usePen(painter, color, 1.5);
        painter.drawLine(QPointF(4, 4), QPointF(12, 12));
        painter.drawLine(QPointF(4, 12), QPointF(12, 4));
    };
}

std::function<void(QPainter &)> radio(const QColor &ring, bool on)
{
    return [ring, on](QPainter &painter) {
        usePen(painter, ring, 1.4);
        painter.drawEllipse(QPointF(8, 8), 6.4, 6.4);
        if (!on)
            return;
        painter.setPen(Qt::NoPen);
        painter.setBrush(accent);
        painter.drawEllipse(QPointF(8, 8), 3.4, 3.4);
    };
}

std::function<void(QPainter &)> checkBox(const QColor &ring, bool on)
{
    return [ring, on](QPainter &painter) {
        usePen(painter, ring, 1.4);
        painter.drawRoundedRect(QRectF(1.8, 1.8, 12.4, 12.4), 2.6, 2.6);
        if (!on)
            return;
        usePen(painter, accent, 2);
        painter.drawPolyline(QPolygonF{{4.6, 8.2}, {7.1, 10.7}, {11.6, 5.4}});
    };
}

QList<Icon> icons()
{
    const QPolygonF left{{10, 3}, {5, 8}, {10, 13}};
    const QPolygonF right{{6, 3}, {11, 8}, {6, 13}};
    const QPolygonF down{{3, 6}, {8, 11}, {13, 6}};
    const QPolygonF up{{3, 10}, {8, 5}, {13, 10}};
    const QString images = QStringLiteral("images/");
    const QString parts = QStringLiteral("parts/");
    return {
        {images + QStringLiteral("nav_dot"), {10, 10}, drawDot},
        {images + QStringLiteral("export"), {16, 16}, exportArrow(plain)},
        {images + QStringLiteral("export_16"), {16, 16}, exportArrow(accent)},
        {images + QStringLiteral("date_16"), {16, 16}, drawCalendar},
        {parts + QStringLiteral("sort_asc"), {16, 16}, sortBars(plain, true)},
        {parts + QStringLiteral("sort_asc_on"), {16, 16}, sortBars(bright, true)},
        {parts + QStringLiteral("sort_desc"), {16, 16}, sortBars(plain, false)},
        {parts + QStringLiteral("sort_desc_on"), {16, 16}, sortBars(bright, false)},
        {parts + QStringLiteral("page_previous"), {24, 24}, stroke(plain, left, 1.3)},
        {parts + QStringLiteral("page_previous_on"), {24, 24}, stroke(bright, left, 1.3)},
        {parts + QStringLiteral("page_next"), {24, 24}, stroke(plain, right, 1.3)},
        {parts + QStringLiteral("page_next_on"), {24, 24}, stroke(bright, right, 1.3)},
        {parts + QStringLiteral("previous"), {16, 16}, stroke(plain, left)},
        {parts + QStringLiteral("next"), {16, 16}, stroke(plain, right)},
        {parts + QStringLiteral("down"), {12, 12}, stroke(plain, down, 1.9)},
        {parts + QStringLiteral("down_faint"), {12, 12}, stroke(faint, down, 1.9)},
        {parts + QStringLiteral("up"), {12, 12}, stroke(plain, up, 1.9)},
        {parts + QStringLiteral("branch_closed"), {12, 12}, stroke(plain, right, 1.9)},
        {parts + QStringLiteral("branch_open"), {12, 12}, stroke(plain, down, 1.9)},
        {parts + QStringLiteral("close"), {16, 16}, cross(plain)},
        {parts + QStringLiteral("close_on"), {16, 16}, cross(bright)},
        {parts + QStringLiteral("radio"), {16, 16}, radio(plain, false)},
        {parts + QStringLiteral("radio_on"), {16, 16}, radio(accent, true)},
        {parts + QStringLiteral("check"), {16, 16}, checkBox(plain, false)},
        {parts + QStringLiteral("check_on"), {16, 16}, checkBox(accent, true)},
    };
}

bool save(const Icon &icon, const QDir &folder, int scale)
{
    QImage image(icon.size * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(image.width() / 16.0, image.height() / 16.0);
    icon.draw(painter);
    painter.end();
    const QString suffix = scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale);
    const QString file = folder.filePath(icon.file + suffix + QStringLiteral(".png"));
    return QDir().mkpath(QFileInfo(file).path()) && image.save(file);
}

} // namespace

int main(int argc, char **argv)
{
    QTextStream errors(stderr);
    if (argc != 2) {
        errors << "usage: talvix-draw-icons FOLDER\n";
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const QList<Icon> all = icons();
    for (const Icon &icon : all) {
        for (const int scale : {1, 2}) {
            if (!save(icon, folder, scale)) {
                errors << "cannot write " << icon.file << '\n';
                return 1;
            }
        }
    }
    return 0;
}
