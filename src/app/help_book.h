#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace jxc {

/// A page of the help.
struct HelpPage {
    QString name; ///< of its file, and of links to it: "kccx"
    QString title;
    QString chapter;
    int place = 0;     ///< within the chapter
    QStringList forms; ///< class names of the windows that it explains
    QString html;
    QString plain; ///< for the search
};

/// Every page, chapter by chapter.
[[nodiscard]] const std::vector<HelpPage> &helpPages();
/// By its name; null for none.
[[nodiscard]] const HelpPage *findHelpPage(QStringView name);
/// The page that explains a window, by its class name; a dialog without one has that of the window
/// it belongs to ("TF_Admin_Add": "TF_Admin"). Null when there is none.
[[nodiscard]] const HelpPage *helpPageOf(const QString &formClass);
/// Whether the page has every blank-separated word.
[[nodiscard]] bool isAbout(const HelpPage &page, const QString &words);

/// The keys, on one sheet of A4.
inline const QString keySheetName = QStringLiteral("keys");

} // namespace jxc
