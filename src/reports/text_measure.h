#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QStringList>

namespace jxc {

/// Fonts are laid out and drawn in dots of a twentieth of a millimetre, whatever the device, so
/// that every device breaks lines and pages alike.
inline constexpr int dotsPerMm = 20;

[[nodiscard]] QFont printFont(const QString &family, qreal points, bool bold);
/// Of a line of text, in millimetres.
[[nodiscard]] qreal lineHeight(qreal points);

/// Widths of texts on paper, in millimetres.
class TextMeasure {
public:
    explicit TextMeasure(QString family)
        : m_family(std::move(family)) {}

    /// The text in at most so many lines, each within the width; what is left over is cut and ends
    /// in an ellipsis.
    [[nodiscard]] QStringList broken(const QString &text, qreal width, qreal points, bool bold,
                                     int atMost);

    [[nodiscard]] bool fits(const QString &text, qreal width, qreal points, bool bold) {
        return metrics(points, bold).horizontalAdvance(text) <= width * dotsPerMm;
    }
    /// The largest size up to `points`, and not below `least`, in which the text fits on a line.
    [[nodiscard]] qreal fittingSize(const QString &text, qreal width, qreal points, bool bold,
                                    qreal least);

private:
    const QFontMetricsF &metrics(qreal points, bool bold);

    QString m_family;
    QHash<QPair<int, bool>, QFontMetricsF> m_metrics;
};

} // namespace jxc
