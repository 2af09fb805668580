// jxc: the desktop program.
#include "app/program.h"
#include "ui/icons.h"
#include "ui/theme.h"

using namespace jxc;

int main(int argc, char **argv) {
    Application application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("jxc"));
    QApplication::setQuitOnLastWindowClosed(false); // between the splash and the login is none
    useFixedLocale();
    useChineseWords();
    applyTheme(application, Theme::light());
    QApplication::setWindowIcon(
        iconPixmap(QStringLiteral("product"), Theme::light().accent, 64, 1.0));
    Program program(application, readOptions(application));
    if (!program.start())
        return 1;
    return QApplication::exec();
}
