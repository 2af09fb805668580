#include "retail/print_settings.h"

#include "db/database.h"

#include <algorithm>

namespace jxc {

namespace {

/// Older shops typed anything into these two.
int numberIn(const QString &text, int least, int most, int otherwise) {
    bool isNumber = false;
    const int number = text.trimmed().toInt(&isNumber);
    return isNumber ? std::clamp(number, least, most) : otherwise;
}

} // namespace

PrintSettings PrintSettings::load(Database &db) {
    PrintSettings s;
    const auto row = db.row(QStringLiteral("select * from jxc_posprint"));
    if (!row)
        return s;
    s.usesEscPos = row->integer(u"pp_dyfs") == 1;
    s.printer = static_cast<int>(row->integer(u"pp_dyj"));
    s.isWide = row->integer(u"pp_kd") == 1;
    s.title1 = row->text(u"pp_bt1");
    s.title2 = row->text(u"pp_bt2");
    s.foot1 = row->text(u"pp_jz1");
    s.foot2 = row->text(u"pp_jz2");
    s.emptyLines = numberIn(row->text(u"pp_khs"), 0, 20, 2);
    s.copies = numberIn(row->text(u"pp_fs"), 1, 9, 1);
    s.cuts = row->flag(u"pp_zdqz");
    s.opensDrawer = row->flag(u"pp_dkqx");
    s.printsMember = row->flag(u"pp_xfjf");
    s.printsCapitals = row->flag(u"pp_jedx");
    s.printsTenders = row->flag(u"pp_fkfs");
    s.previews = row->flag(u"pp_zjdy");
    s.printsAfterPaying = row->flag(u"pp_bzxx");
    return s;
}

void PrintSettings::store(Database &db) const {
    db.execute(QStringLiteral("delete from jxc_posprint"));
    db.insertRow(QStringLiteral("jxc_posprint"),
                 {{QStringLiteral("pp_dyfs"), usesEscPos ? 1 : 0},
                  {QStringLiteral("pp_dyj"), printer},
                  {QStringLiteral("pp_kd"), isWide ? 1 : 0},
                  {QStringLiteral("pp_bt1"), title1},
                  {QStringLiteral("pp_bt2"), title2},
                  {QStringLiteral("pp_jz1"), foot1},
                  {QStringLiteral("pp_jz2"), foot2},
                  {QStringLiteral("pp_khs"), QString::number(emptyLines)},
                  {QStringLiteral("pp_fs"), QString::number(copies)},
                  {QStringLiteral("pp_zdqz"), cuts},
                  {QStringLiteral("pp_dkqx"), opensDrawer},
                  {QStringLiteral("pp_xfjf"), printsMember},
                  {QStringLiteral("pp_jedx"), printsCapitals},
                  {QStringLiteral("pp_fkfs"), printsTenders},
                  {QStringLiteral("pp_zjdy"), previews},
                  {QStringLiteral("pp_bzxx"), printsAfterPaying}});
}

} // namespace jxc
