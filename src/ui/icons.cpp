#include "ui/icons.h"

#include "ui/theme.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

// The room is a library: without this the linker leaves the drawings out.
static void initialise() {
    Q_INIT_RESOURCE(icons);
}

namespace jxc {

namespace {

QString fileOf(const QString &name) {
    loadIcons();
    return QStringLiteral(":/icons/%1.svg").arg(name);
}

} // namespace

void loadIcons() {
    static const bool loaded = (initialise(), true);
    Q_UNUSED(loaded)
}

bool hasIcon(const QString &name) {
    return QFile::exists(fileOf(name));
}

QPixmap iconPixmap(const QString &name, const QColor &colour, int size, qreal pixelRatio) {
    QFile file(fileOf(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray drawing = file.readAll();
    drawing.replace("#000000", colour.name().toLatin1());
    QSvgRenderer renderer(drawing);
    QPixmap pixmap(QSize(size, size) * pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    pixmap.setDevicePixelRatio(pixelRatio);
    return pixmap;
}

QIcon themedIcon(const QString &name) {
    const Theme &theme = Theme::current();
    QIcon icon;
    for (const int size : {16, 20, 24, 32, 48, 64}) {
        icon.addPixmap(iconPixmap(name, theme.text, size, 1), QIcon::Normal);
        icon.addPixmap(iconPixmap(name, theme.textQuiet, size, 1), QIcon::Disabled);
    }
    return icon;
}

} // namespace jxc
