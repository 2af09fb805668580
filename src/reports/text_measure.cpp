#include "reports/text_measure.h"

#include <QTextLayout>

namespace jxc {

namespace {

constexpr qreal mmPerPoint = 25.4 / 72;

} // namespace

QFont printFont(const QString &family, qreal points, bool bold) {
    QFont font;
    font.setFamilies({family.isEmpty() ? QStringLiteral("Noto Sans CJK SC") : family,
                      QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("SimSun")});
    font.setPixelSize(qMax(1, qRound(points * mmPerPoint * dotsPerMm)));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

qreal lineHeight(qreal points) {
    return points * mmPerPoint * 1.3;
}

const QFontMetricsF &TextMeasure::metrics(qreal points, bool bold) {
    const QPair<int, bool> key(qRound(points * 100), bold);
    auto found = m_metrics.find(key);
    if (found == m_metrics.end())
        found = m_metrics.insert(key, QFontMetricsF(printFont(m_family, points, bold)));
    return *found;
}

QStringList TextMeasure::broken(const QString &text, qreal width, qreal points, bool bold,
                                int atMost) {
    const qreal dots = width * dotsPerMm;
    const QFontMetricsF &font = metrics(points, bold);
    QStringList lines;
    for (const QString &paragraph : text.split(u'\n')) {
        if (lines.size() == atMost)
            break;
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        QTextLayout layout(paragraph, printFont(m_family, points, bold));
        layout.setTextOption(option);
        layout.beginLayout();
        qsizetype begin = 0;
        while (begin < paragraph.size() && lines.size() < atMost) {
            QTextLine line = layout.createLine();
            line.setLineWidth(dots);
            const bool isLast = lines.size() + 1 == atMost;
            lines << (isLast ? font.elidedText(paragraph.sliced(begin), Qt::ElideRight, dots)
                             : paragraph.sliced(begin, line.textLength()).trimmed());
            begin += line.textLength();
        }
        layout.endLayout();
    }
    return lines;
}

qreal TextMeasure::fittingSize(const QString &text, qreal width, qreal points, bool bold,
                               qreal least) {
    constexpr qreal step = 0.25;
    while (points - step >= least && !fits(text, width, points, bold))
        points -= step;
    return points;
}

} // namespace jxc
