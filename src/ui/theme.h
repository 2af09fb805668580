#pragma once

#include <QColor>
#include <QString>

class QApplication;

namespace jxc {

/// The program's one look in its two shades. Measures sit on a 4-pixel grid.
struct Theme {
    QString name;
    QColor window;     ///< behind everything
    QColor surface;    ///< fields, grids, cards
    QColor surfaceAlt; ///< every second row, header of a grid
    QColor line;       ///< borders
    QColor text;
    QColor textQuiet;   ///< hints, captions of status
    QColor accent;      ///< the one colour that calls
    QColor accentText;  ///< on the accent
    QColor accentQuiet; ///< selection, hover
    QColor danger;      ///< refusals, debts, overdue
    QColor warning;     ///< soon due
    QColor good;        ///< done

    static const Theme &light();
    static const Theme &dark();
    /// The shade with that name ("浅色", "深色"); light for any other.
    static const Theme &byName(const QString &name);
    /// The shade in use.
    static const Theme &current();
};

/// Dresses the program: font, palette, style sheet. May be called again to change the shade.
void applyTheme(QApplication &application, const Theme &theme);

} // namespace jxc
