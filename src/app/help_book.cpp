#include "app/help_book.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <algorithm>

// Outside of any namespace, as the resource compiler wants it.
static void loadHelp() {
    Q_INIT_RESOURCE(help);
}

namespace jxc {

namespace {

QString meta(const QString &html, QStringView name) {
    const QRegularExpression expression(
        QStringLiteral("<meta name=\"%1\" content=\"([^\"]*)\">").arg(name));
    return expression.match(html).captured(1);
}

HelpPage readPage(const QString &path) {
    static const QRegularExpression title(QStringLiteral("<title>(.*)</title>"));
    QFile file(path);
    HelpPage page;
    if (!file.open(QIODevice::ReadOnly))
        return page;
    page.name = QFileInfo(path).completeBaseName();
    page.html = QString::fromUtf8(file.readAll());
    page.title = title.match(page.html).captured(1);
    const QStringList place = meta(page.html, u"place").split(u' ');
    page.chapter = place.value(0);
    page.place = place.value(1).toInt();
    page.forms = meta(page.html, u"forms").split(u' ', Qt::SkipEmptyParts);
    page.plain = QTextDocumentFragment::fromHtml(page.html).toPlainText();
    return page;
}

/// Beginners first.
qsizetype chapterPlace(const QString &chapter) {
    static const QStringList order = {QStringLiteral("入门"), QStringLiteral("采购"),
                                      QStringLiteral("销售"), QStringLiteral("库存"),
                                      QStringLiteral("往来"), QStringLiteral("资金"),
                                      QStringLiteral("系统")};
    const qsizetype place = order.indexOf(chapter);
    return place < 0 ? order.size() : place;
}

std::vector<HelpPage> readPages() {
    loadHelp();
    std::vector<HelpPage> pages;
    const QDir folder(QStringLiteral(":/help"));
    for (const QString &file : folder.entryList({QStringLiteral("*.html")}))
        pages.push_back(readPage(folder.filePath(file)));
    std::ranges::sort(pages, {}, [](const HelpPage &page) {
        return std::pair(chapterPlace(page.chapter), page.place);
    });
    return pages;
}

} // namespace

const std::vector<HelpPage> &helpPages() {
    static const std::vector<HelpPage> pages = readPages();
    return pages;
}

const HelpPage *findHelpPage(QStringView name) {
    const auto found = std::ranges::find(helpPages(), name, &HelpPage::name);
    return found == helpPages().end() ? nullptr : &*found;
}

const HelpPage *helpPageOf(const QString &formClass) {
    for (QString name = formClass; name.size() > 3; name = name.left(name.lastIndexOf(u'_')))
        for (const HelpPage &page : helpPages())
            if (page.forms.contains(name))
                return &page;
    return nullptr;
}

bool isAbout(const HelpPage &page, const QString &words) {
    const QStringList wanted = words.split(u' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(wanted, [&](const QString &word) {
        return page.plain.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace jxc
