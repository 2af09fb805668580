// Takes a picture of every form of the program, filled with a shop's data, for people to look at.
//   jxc_screens --home SHOP --out FOLDER [--form NAME]… [--theme NAME]
#include "core/account_set.h"
#include "core/clock.h"
#include "core/session.h"
#include "db/database.h"
#include "screens/scenes.h"
#include "services/opening.h"
#include "ui/box_prompter.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCommandLineParser>

using namespace jxc;

namespace {

/// Says yes, except to a document that an earlier round left half typed.
class QuietPrompter : public Prompter {
public:
    void inform(const QString &text, const QString &) override { qWarning("%s", qPrintable(text)); }
    bool confirm(const QString &text, const QString &) override {
        return !text.contains(QStringLiteral("上次有未保存的单据"));
    }
};

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    useFixedLocale();
    useChineseWords();
    QCommandLineParser parser;
    const auto option = [&parser](const char16_t *name, const char16_t *text,
                                  const char16_t *kind) {
        const QCommandLineOption made(QString::fromUtf16(name), QString::fromUtf16(text),
                                      QString::fromUtf16(kind));
        parser.addOption(made);
        return made;
    };
    const auto home = option(u"home", u"shop", u"DIR");
    const auto out = option(u"out", u"pictures", u"DIR");
    const auto form = option(u"form", u"only these", u"NAME");
    const auto theme = option(u"theme", u"shade", u"NAME");
    parser.process(application);
    applyTheme(application, Theme::byName(parser.value(theme)));

    Database db(accountSetLocation(parser.value(home), {}));
    const SystemClock clock;
    Session session(db, clock);
    const QString first = db.scalar(QStringLiteral("select a_name from jxc_admin order by id"));
    if (!openSession(session, first, {}).outcome.isDone())
        return 1;
    QuietPrompter prompter;
    FormRegistry registry(session, prompter, parser.value(home));
    registerForms(registry);
    test::Photographer photographer(parser.value(out), parser.values(form));
    test::takeShell(registry, photographer);
    test::takeTyping(registry, photographer);
    QStringList names = registry.knownForms();
    names.sort();
    for (const QString &name : names)
        test::takeForm(registry, photographer, name);
    return 0;
}
