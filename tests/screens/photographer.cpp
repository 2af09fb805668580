#include "screens/photographer.h"

#include "ui/theme.h"

#include <QApplication>
#include <QHash>
#include <QPainter>
#include <QSet>
#include <QTest>
#include <algorithm>

namespace jxc::test {

namespace {

constexpr int titleHeight = 32;

/// What a list, a timer, a layout still has to do before it looks as it stays.
void settle() {
    for (int i = 0; i < 5; ++i)
        QTest::qWait(30);
}

/// 256 colours: the commonest of every shade first, that a single red figure stays red, then the
/// commonest of all. A third of the bytes, and no eye sees it.
QList<QRgb> paletteOf(const QHash<QRgb, int> &uses) {
    QList<QRgb> colours = uses.keys(), first, rest;
    std::sort(colours.begin(), colours.end(),
              [&](QRgb a, QRgb b) { return std::pair(-uses[a], a) < std::pair(-uses[b], b); });
    QSet<QRgb> shades;
    for (const QRgb colour : colours) {
        const QRgb shade = colour & 0xe0e0e0U;
        (shades.contains(shade) ? rest : first) << colour;
        shades << shade;
    }
    return (first + rest).mid(0, 256);
}

QImage withPalette(const QImage &picture) {
    const QImage plain = picture.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> uses;
    for (int y = 0; y < plain.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(plain.constScanLine(y));
        for (int x = 0; x < plain.width(); ++x)
            ++uses[line[x]];
    }
    return plain.convertToFormat(QImage::Format_Indexed8, paletteOf(uses),
                                 Qt::ThresholdDither | Qt::AvoidDither);
}

bool belongsTo(const QObject *dialog, const QObject *window) {
    for (; dialog != nullptr; dialog = dialog->parent())
        if (dialog == window)
            return true;
    return false;
}

bool isPopup(const QWidget *window) {
    return window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip;
}

/// A dialog with the title that a window manager would give it.
void paintDialog(QPainter &painter, QWidget *dialog, const QPoint &at) {
    const Theme &theme = Theme::current();
    const int above = isPopup(dialog) ? 0 : titleHeight;
    const QRect frame(at.x() - 1, at.y() - above - 1, dialog->width() + 1,
                      dialog->height() + above + 1);
    painter.fillRect(frame.translated(6, 6), QColor(0, 0, 0, 40));
    painter.fillRect(frame, theme.surface);
    painter.drawPixmap(at, dialog->grab());
    painter.setPen(theme.textQuiet);
    painter.drawRect(frame);
    if (!isPopup(dialog))
        painter.drawText(frame.adjusted(12, 0, -12, titleHeight - frame.height()),
                         int(Qt::AlignLeft | Qt::AlignVCenter), dialog->windowTitle());
}

} // namespace

Photographer::Photographer(const QString &folder, const QStringList &only)
    : m_folder(folder)
    , m_only(only) {
    m_folder.mkpath(QStringLiteral("."));
}

void Photographer::take(QWidget *window, const QString &name) {
    if (!wants(name))
        return;
    settle();
    keep(window->grab().toImage(), name);
}

void Photographer::takeDesk(QWidget *window, const QString &name) {
    if (!wants(name))
        return;
    settle();
    QPixmap desk = window->grab();
    QPainter painter(&desk);
    painter.setFont(QApplication::font());
    QWidgetList above;
    for (QWidget *other : QApplication::topLevelWidgets())
        if (other != window && other->isVisible() && belongsTo(other, window))
            above << other;
    std::stable_sort(above.begin(), above.end(),
                     [](QWidget *a, QWidget *b) { return isPopup(a) < isPopup(b); });
    for (QWidget *other : above) {
        QPoint at = other->mapToGlobal(QPoint()) - window->mapToGlobal(QPoint());
        if (!isPopup(other)) // where a window manager would put it
            at = QPoint((window->width() - other->width()) / 2,
                        (window->height() - other->height()) / 2);
        paintDialog(painter, other, at);
    }
    painter.end();
    keep(desk.toImage(), name);
}

void Photographer::keep(const QImage &picture, const QString &name) {
    if (!withPalette(picture).save(m_folder.filePath(name + QStringLiteral(".png")), "PNG", 0))
        qFatal("cannot write %s", qPrintable(name));
}

} // namespace jxc::test
