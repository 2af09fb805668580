#pragma once

#include <QIcon>
#include <QPixmap>

namespace jxc {

// Line drawings of our own, 24 by 24, in the folder icons/. They are drawn in the colour that is
// asked for, so that one drawing serves both shades.

/// Makes the drawings known; a style sheet names them as ":/icons/NAME.svg".
void loadIcons();

/// Sharp at any scale of the screen; empty for a name that is not drawn.
[[nodiscard]] QPixmap iconPixmap(const QString &name, const QColor &colour, int size,
                                 qreal pixelRatio);
/// In the text colour of the shade in use, quiet where disabled.
[[nodiscard]] QIcon themedIcon(const QString &name);
[[nodiscard]] bool hasIcon(const QString &name);

} // namespace jxc
