#include "ui/BarPicture.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <queue>

namespace varnow::ui {

namespace {

constexpr qint64 mostCharacters = 1'000'000;
constexpr int mostLanes = 40;
constexpr double inset = 3; // between a bar's edge and its text
constexpr double reach = 3; // a click so near a bar hits it
constexpr double tick = 5;  // longest

qint64 startOf(const Bar &bar)
{
    return std::clamp<qint64>(bar.start, 0, mostCharacters);
}

qint64 lengthOf(const Bar &bar)
{
    return std::clamp<qint64>(bar.length, 0, mostCharacters + 1 - startOf(bar));
}

QColor mixed(const QColor &a, const QColor &b, double share)
{
    const auto mix = [share](float x, float y) { return static_cast<float>(x + (y - x) * share); };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()), mix(a.blueF(), b.blueF()));
}

/// A red that stands out from the background.
QColor redOn(const QPalette &palette)
{
    return palette.color(QPalette::Base).lightness() < 128 ? QColor(255, 120, 110) : QColor(190, 0, 30);
}

/// The least of 1, 2, 5, 10, 20, 50 … that is not smaller.
qint64 roundStep(double least)
{
    for (qint64 power = 1;; power *= 10) {
        for (const qint64 step : {power, 2 * power, 5 * power}) {
            if (static_cast<double>(step) >= least)
                return step;
        }
    }
}

} // namespace

QString textOf(const Bar &bar)
{
    QStringList parts{bar.caption};
    if (bar.length < 1)
        parts += QStringLiteral("from character %1, without a length").arg(bar.start);
    else if (bar.length == 1)
        parts += QStringLiteral("character %1").arg(bar.start);
    else
        parts += QStringLiteral("characters %1 to %2, length %3")
                     .arg(bar.start)
                     .arg(qint64{bar.start} + bar.length - 1)
                     .arg(bar.length);
    if (!bar.detail.isEmpty())
        parts += bar.detail;
    if (bar.overlaps)
        parts += QStringLiteral("overlaps another one");
    return parts.join(QLatin1String(", "));
}

BarPicture::BarPicture(std::vector<Bar> bars, const QFont &font, double zoom)
    : m_bars(std::move(bars))
    , m_lanes(m_bars.size())
    , m_lineHeight(std::ceil(QFontMetricsF(font).height()))
    , m_characterWidth(m_lineHeight * zoom)
{
    placeBars();
}

/// Gives every bar the first lane that is free, and finds what no bar fills.
void BarPicture::placeBars()
{
    std::vector<int> order(m_bars.size());
    std::iota(order.begin(), order.end(), 0);
    const auto barOf = [this](int index) -> const Bar & { return m_bars[static_cast<std::size_t>(index)]; };
    std::ranges::stable_sort(order, {}, [&](int index) { return startOf(barOf(index)); });
    std::vector<qint64> ends; // of the lanes
    for (const int index : order) {
        const qint64 start = startOf(barOf(index));
        const qint64 end = start + std::max<qint64>(lengthOf(barOf(index)), 1);
        m_first = std::min(m_first, start);
        if (start > m_last + 1)
            m_gaps.push_back({m_last + 1, start - m_last - 1});
        m_last = std::max(m_last, end - 1);
        auto lane = std::ranges::find_if(ends, [start](qint64 laneEnd) { return laneEnd <= start; });
        if (lane == ends.end())
            lane = ends.size() < mostLanes ? ends.insert(lane, 0) : std::prev(lane);
        *lane = std::max(*lane, end);
        m_lanes[static_cast<std::size_t>(index)] = static_cast<int>(lane - ends.begin());
    }
    m_laneCount = std::max(1, static_cast<int>(ends.size()));
}

double BarPicture::leftOf(qint64 character) const
{
    return static_cast<double>(character - m_first) * m_characterWidth;
}

qint64 BarPicture::characterAt(double x) const
{
    return m_first + static_cast<qint64>(std::floor(x / m_characterWidth));
}

QSizeF BarPicture::size() const
{
    const QRectF last = rectOf({m_last, 1}, m_laneCount - 1);
    return {leftOf(m_last + 1) + 1, last.bottom() + inset};
}

QRectF BarPicture::rectOf(Stretch stretch, int lane) const
{
    const double height = 3 * m_lineHeight + 2 * inset;
    const double top = m_lineHeight + 2 * tick + lane * (height + inset);
    const double width = std::max(static_cast<double>(stretch.length) * m_characterWidth, 2.0);
    return {leftOf(stretch.start), top, width, height};
}

QRectF BarPicture::rectOf(int bar) const
{
    const auto index = static_cast<std::size_t>(bar);
    return rectOf({startOf(m_bars[index]), lengthOf(m_bars[index])}, m_lanes[index]);
}

int BarPicture::barAt(QPointF point) const
{
    int nearest = -1;
    double least = reach;
    for (int bar = 0; bar < static_cast<int>(m_bars.size()); ++bar) {
        const QRectF place = rectOf(bar);
        if (point.y() < place.top() || point.y() > place.bottom())
            continue;
        if (point.x() >= place.left() && point.x() < place.right())
            return bar;
        const double distance = std::max(place.left() - point.x(), point.x() - place.right());
        if (distance < least) {
            least = distance;
            nearest = bar;
        }
    }
    return nearest;
}

void BarPicture::paint(QPainter &painter, const QRectF &area, const QPalette &palette, int current) const
{
    const Canvas canvas{painter, area, palette};
    paintRuler(canvas);
    paintGaps(canvas);
    for (int bar = 0; bar < static_cast<int>(m_bars.size()); ++bar) {
        if (bar != current && rectOf(bar).adjusted(-2, -2, 2, 2).intersects(area))
            paintBar(canvas, bar, false);
    }
    if (current >= 0 && current < static_cast<int>(m_bars.size()))
        paintBar(canvas, current, true); // above its neighbours
}

void BarPicture::paintRuler(const Canvas &canvas) const
{
    const auto &[painter, area, palette] = canvas;
    const double bottom = m_lineHeight + 2 * tick - 2;
    const qint64 from = std::max(m_first, characterAt(area.left() - 100));
    const qint64 to = std::min(m_last, characterAt(area.right() + 100));
    painter.setPen(palette.color(QPalette::Text));
    painter.drawLine(QPointF(std::max(0.0, area.left()), bottom),
                     QPointF(std::min(leftOf(m_last + 1), area.right()), bottom));
    const double widest = QFontMetricsF(painter.font()).horizontalAdvance(QString::number(to)) + 8;
    const qint64 step = roundStep(widest / m_characterWidth);
    const qint64 small = roundStep(4 / m_characterWidth);
    const auto centreOf = [this](qint64 character) { return leftOf(character) + m_characterWidth / 2; };
    for (qint64 character = from - from % small; character <= to; character += small) {
        if (character < from)
            continue;
        const double length = character % step == 0 ? tick : tick / 2;
        const double x = centreOf(character);
        painter.drawLine(QPointF(x, bottom - length), QPointF(x, bottom));
    }
    for (qint64 character = from - from % step; character <= to; character += step) {
        // The first one keeps its number unless the next number comes too near.
        const bool isNearFirst = leftOf(character) - leftOf(m_first) < widest;
        const qint64 shown = character == 0 || character < from ? from : character;
        if (shown != m_first && isNearFirst)
            continue;
        const QRectF place(centreOf(shown) - widest / 2, 0, widest, m_lineHeight);
        const double shift = std::max(0.0, -place.left());
        painter.drawText(place.translated(shift, 0), Qt::AlignCenter, QString::number(shown));
    }
}

void BarPicture::paintGaps(const Canvas &canvas) const
{
    const auto &[painter, area, palette] = canvas;
    const QColor grey = mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.45);
    painter.setPen(QPen(grey, 1, Qt::DashLine));
    painter.setBrush(QBrush(grey, Qt::Dense6Pattern));
    for (const Stretch &gap : m_gaps) {
        const QRectF place = rectOf(gap, 0).adjusted(0.5, 0.5, -0.5, -0.5);
        if (place.intersects(area))
            painter.drawRect(place &
                             area.adjusted(-5, 0, 5, 0)); // a dash a pixel over a million would take long
    }
}

/// Paints a bar and writes on the part of it that is within the area.
void BarPicture::paintBar(const Canvas &canvas, int bar, bool isCurrent) const
{
    const auto &[painter, area, palette] = canvas;
    const Bar &shown = m_bars[static_cast<std::size_t>(bar)];
    const QRectF place = rectOf(bar).adjusted(0.5, 0.5, -0.5, -0.5);
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const QColor highlight = palette.color(QPalette::Highlight);
    painter.setPen(QPen(shown.overlaps ? redOn(palette) : text, shown.overlaps ? 2 : 1));
    painter.setBrush(shown.overlaps ? base : mixed(base, highlight, isCurrent ? 0.4 : 0.15));
    painter.drawRect(place);
    if (shown.overlaps) {
        painter.setBrush(QBrush(redOn(palette), Qt::BDiagPattern));
        painter.drawRect(place);
    }
    if (isCurrent) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(text, 3));
        painter.drawRect(place.adjusted(1, 1, -1, -1));
        const double x = place.center().x();
        const QPointF mark[] = {
            {x - tick, place.top() - tick}, {x + tick, place.top() - tick}, {x, place.top() + 1}};
        painter.setBrush(text);
        painter.setPen(Qt::NoPen);
        painter.drawPolygon(mark, 3);
    }
    painter.setPen(text);
    painter.setBrush(shown.overlaps ? QBrush(base) : QBrush(Qt::NoBrush)); // behind letters on hatching
    writeOn(painter, (place & area).adjusted(inset, inset, -inset, -inset), shown);
}

/// Writes on a bar what has room: three lines, the caption alone from bottom to top, or nothing.
void BarPicture::writeOn(QPainter &painter, const QRectF &place, const Bar &bar) const
{
    const QFontMetricsF metrics(painter.font());
    const auto write = [&](const QRectF &line, const QString &text, Qt::TextElideMode elide) {
        const QString shown = metrics.elidedText(text, elide, line.width());
        if (painter.brush().style() != Qt::NoBrush)
            painter.fillRect(QRectF(line.topLeft(), QSizeF(metrics.horizontalAdvance(shown), line.height())),
                             painter.brush());
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    };
    painter.save();
    painter.setClipRect(place.adjusted(-1, -1, 1, 1), Qt::IntersectClip);
    if (place.width() >= 3 * metrics.averageCharWidth()) {
        const QString numbers = QStringLiteral("%1 to %2 (%3)")
                                    .arg(bar.start)
                                    .arg(qint64{bar.start} + bar.length - 1)
                                    .arg(bar.length);
        QRectF line(place.topLeft(), QSizeF(place.width(), m_lineHeight));
        for (const QString &text : {bar.caption, numbers, bar.detail}) {
            if (!text.isEmpty())
                write(line, text, Qt::ElideRight);
            line.translate(0, m_lineHeight);
        }
    } else if (place.width() + 2 * inset >= m_lineHeight * 0.75) {
        painter.translate(place.center().x(), place.bottom());
        painter.rotate(-90);
        write({0, -m_lineHeight / 2, place.height(), m_lineHeight}, bar.caption, Qt::ElideRight);
    }
    painter.restore();
}

QByteArray pngOf(const std::vector<Bar> &bars, int width)
{
    constexpr int margin = 8;
    constexpr qint64 mostRows = 60;
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Highlight, QColor(60, 120, 200));
    const QFont font = QGuiApplication::font();
    const double room = std::max(width - 2 * margin, 100);
    const BarPicture unscaled(bars, font, 1);
    const double whole = unscaled.size().width();
    const double zoom = std::min(1.0, room * mostRows / whole);
    const BarPicture picture(bars, font, zoom);
    // Rows begin where a character does, with full tens where there is room for ten.
    const auto inRow = std::max<qint64>(1, static_cast<qint64>(room / picture.characterWidth()));
    const double rowWidth =
        static_cast<double>(inRow < 10 ? inRow : inRow - inRow % 10) * picture.characterWidth();
    const int rows = std::max(1, static_cast<int>(std::ceil((picture.size().width() - 1) / rowWidth)));
    const double rowHeight = picture.size().height() + margin;
    const QSize size(static_cast<int>(room) + 2 * margin, static_cast<int>(rows * rowHeight) + margin);
    QImage image(size * paperDensity, QImage::Format_RGB32);
    image.setDevicePixelRatio(paperDensity);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font);
    for (int row = 0; row < rows; ++row) {
        const QRectF area(row * rowWidth, 0, rowWidth + 1, picture.size().height());
        painter.save();
        painter.translate(margin - area.left(), margin + row * rowHeight);
        painter.setClipRect(area);
        picture.paint(painter, area, palette, -1);
        painter.restore();
    }
    painter.end();
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    image.save(&file, "PNG");
    return file.data();
}

} // namespace varnow::ui
