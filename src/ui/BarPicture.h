#pragma once

#include <QByteArray>
#include <QRectF>
#include <QString>

#include <vector>

class QFont;
class QPainter;
class QPalette;

namespace varnow::ui {

/// A stretch of characters with what is written on it.
struct Bar
{
    QString caption;
    QString detail; ///< stands below the caption
    int start = 1;  ///< its first character, counted from 1
    int length = 1; ///< characters
    bool overlaps = false;
};

/// All that a bar tells, in one sentence.
QString textOf(const Bar &bar);

/// Bars along a ruler of character positions, and where each of them stands, in pixels. Bars that overlap
/// stand one below the other; what lies beyond the first million characters is cut off.
class BarPicture
{
public:
    /// Drawn in this font; `zoom` 1 makes a character as wide as a line of it is high.
    BarPicture(std::vector<Bar> bars, const QFont &font, double zoom);

    const std::vector<Bar> &bars() const { return m_bars; }
    QSizeF size() const;
    QRectF rectOf(int bar) const;
    /// The bar at a point, or the nearest within a few pixels, for some are hardly wider; -1 without one.
    int barAt(QPointF point) const;

    /// Width of a character.
    double characterWidth() const { return m_characterWidth; }
    /// Left edge of a character position.
    double leftOf(qint64 character) const;

    /// Paints what is within an area. The painter has the font.
    void paint(QPainter &painter, const QRectF &area, const QPalette &palette, int current) const;

private:
    struct Stretch
    {
        qint64 start;
        qint64 length;
    };

    struct Canvas
    {
        QPainter &painter;
        const QRectF &area;
        const QPalette &palette;
    };

    void placeBars();
    qint64 characterAt(double x) const;
    QRectF rectOf(Stretch stretch, int lane) const;
    void paintRuler(const Canvas &canvas) const;
    void paintGaps(const Canvas &canvas) const;
    void paintBar(const Canvas &canvas, int bar, bool isCurrent) const;
    void writeOn(QPainter &painter, const QRectF &place, const Bar &bar) const;

    std::vector<Bar> m_bars;
    std::vector<int> m_lanes; ///< by bar
    std::vector<Stretch> m_gaps;
    int m_laneCount = 1;
    qint64 m_first = 1; ///< character at the left edge
    qint64 m_last = 0;
    double m_lineHeight;
    double m_characterWidth;
};

/// Pixels of a picture that is made for paper to one of the screen's, of which 96 make an inch.
inline constexpr int paperDensity = 2;

/// A picture of bars on white as a PNG file, to be shown this wide in the screen's pixels; a long line goes
/// on in further rows.
QByteArray pngOf(const std::vector<Bar> &bars, int width);

} // namespace varnow::ui
