#include "ui/box_prompter.h"

#include "ui/icons.h"
#include "ui/theme.h"

#include <QApplication>
#include <QGridLayout>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QTranslator>
#include <clocale>

namespace jxc {

namespace {

/// The texts of the system hold "\r\n"; a box would show the first of them as a blank.
QString shown(QString text) {
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

QWidget *windowInFront() {
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}

void dress(QMessageBox &box, const QString &text, const QString &caption, const QString &icon) {
    box.setIconPixmap(iconPixmap(icon, Theme::current().accent, 32, box.devicePixelRatioF()));
    box.setWindowTitle(caption);
    box.setTextFormat(Qt::PlainText); // a goods name may hold what looks like markup
    box.setText(shown(text));
    // A short sentence would leave no room for the caption.
    if (auto *grid = qobject_cast<QGridLayout *>(box.layout()))
        grid->addItem(new QSpacerItem(300, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

void BoxPrompter::inform(const QString &text, const QString &caption) {
    QMessageBox box(windowInFront());
    dress(box, text, caption, QStringLiteral("info"));
    auto *button = box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
    box.setDefaultButton(button);
    box.setEscapeButton(button);
    box.exec();
}

bool BoxPrompter::confirm(const QString &text, const QString &caption) {
    QMessageBox box(windowInFront());
    dress(box, text, caption, QStringLiteral("help"));
    auto *yes = box.addButton(QStringLiteral("是(&Y)"), QMessageBox::YesRole);
    auto *no = box.addButton(QStringLiteral("否(&N)"), QMessageBox::NoRole);
    box.setDefaultButton(yes);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes;
}

void useChineseWords() {
    auto *words = new QTranslator(QCoreApplication::instance());
    if (words->load(QStringLiteral("qtbase_zh_CN"),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(words);
}

void useFixedLocale() {
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    // The toolkit takes the workstation's at its start; libraries in C would then write "1,5".
    std::setlocale(LC_NUMERIC, "C");
}

} // namespace jxc
