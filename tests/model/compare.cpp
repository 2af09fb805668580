#include "model/compare.h"

#include "db/database.h"
#include "db/schema.h"

namespace jxc::test {

namespace {

struct Compared {
    QString table;
    bool byKey; ///< sorted by what stands first in the columns, else by id
    QStringList columns;
};

const std::vector<Compared> &comparedTables() {
    static const auto tables = [] {
        const auto of = [](const char16_t *table, bool byKey, const char16_t *columns) {
            return Compared{QString::fromUtf16(table), byKey,
                            QString::fromUtf16(columns).split(u',')};
        };
        return std::vector<Compared>{
            of(u"jxc_goodslist", false,
               u"gl_djh,gl_flag,gl_kdrq,g_sn,ck_sn,gl_sl,gl_dj,gl_zje,gl_je,gl_lr,gl_sqsl,"
               u"gl_sqje,gl_kc,gl_pjjj,gl_kczje,ghs_sn,id2,t_ph,t_yxq,t_scrq"),
            of(u"jxc_kcsp", true, u"g_sn,ck_sn,kc_sl,kc_zsl,kc_cbj,kc_xssl"),
            of(u"jxc_tkc", true, u"g_sn,ck_sn,t_ph,t_yxq,t_scrq,t_sl,t_jhrq"),
            of(u"jxc_goods", false, u"g_sn,g_kc,g_pjjj,g_scjj,g_cgpl,g_xspl,ghs_sn"),
            of(u"jxc_kcjs", true,
               u"js_rq,ck_sn,js_sl,js_zje,js_xssl,js_xsje,js_cgsl,js_cgje,js_xslr,js_xscb"),
            of(u"jxc_ysyfk", false,
               u"gl_djh,k_rq,k_type,k_ghskh,k_yfje,k_sfje,k_yhje,k_qcje,k_ljje,k_fkfs,k_djlx,"
               u"k_djtxt,k_note,gl_djh2"),
            of(u"jxc_khxx", false, u"kh_sn,kh_lwje"),
            of(u"jxc_ghsxx", false, u"ghs_sn,ghs_lwje"),
            of(u"jxc_xjyh", false,
               u"gl_djh,xj_rq,xj_dlx,xj_kmmc,xj_je,xj_ljje,xj_chk,xj_note,ghs_sn"),
            of(u"jxc_yyfy", false, u"fy_rq,fy_lx,fy_je,fy_kmmc,fy_note"),
            of(u"jxc_fpdjb", false,
               u"gl_djh,fp_rq,fp_type,fp_ghskh,fp_djlx,fp_djtxt,fp_yfje,fp_kpje,fp_ljje"),
            of(u"jxc_ysyfk_dj", false, u"gl_djh,k_check,k_checker,k_chkrq"),
            of(u"jxc_fkmx", false, u"fk_sn,gl_djh,fk_je"),
            of(u"jxc_yhzh", false, u"yh_name"),
            of(u"jxc_ckxx", false, u"ck_sn"),
            of(u"jxc_jhd", false, u"j_sn,j_status,j_checker,j_chkrq,j_hkje"),
            of(u"jxc_thd", false,
               u"gl_djh,th_thrq,th_yfje,th_sfje,th_status,th_checker,th_chkrq,th_hkje,th_note"),
            of(u"jxc_lsxsd", false, u"gl_djh,ls_status,ls_checker,ls_chkrq,ls_hkje,ls_dhbz"),
            of(u"jxc_xsthd", false,
               u"gl_djh,th_xsrq,th_yfje,th_sfje,th_status,th_checker,th_chkrq,th_hkje,th_qk,"
               u"th_note"),
            of(u"jxc_rkd", false, u"gl_djh,rk_status,rk_checker,rk_chkrq"),
            of(u"jxc_ckd", false, u"gl_djh,ck_status,ck_checker,ck_chkrq"),
            of(u"jxc_jhsp", false, u"j_sn,g_sn,id2,jh_sl,jh_zsl,jh_rksl,jh_qxsl"),
            of(u"jxc_thsp", false,
               u"gl_djh,g_sn,id2,th_dj,th_sl,th_zsl,th_zje,th_je,th_taxje,t_ph,t_yxq,t_scrq"),
            of(u"jxc_lsxssp", false, u"gl_djh,g_sn,id2,ls_sl,ls_zsl,ls_cksl,ls_qxsl"),
            of(u"jxc_xsthsp", false,
               u"gl_djh,g_sn,id2,th_dj,th_sl,th_zsl,th_zje,th_je,th_taxje,th_cbj,th_zcb,t_ph,"
               u"t_yxq,t_scrq"),
            of(u"jxc_rksp", false, u"gl_djh,g_sn,id2,rk_sl,rk_zsl"),
            of(u"jxc_cksp", false, u"gl_djh,g_sn,id2,ck_sl,ck_zsl")};
    }();
    return tables;
}

QString described(const QStringList &columns, const QStringList &fields) {
    QStringList pairs;
    for (qsizetype i = 0; i < columns.size(); ++i)
        pairs << columns[i] + u'=' + fields[i];
    return pairs.join(u' ');
}

std::vector<QStringList> stored(Database &db, const Compared &compared) {
    std::vector<bool> isText;
    for (const QString &name : compared.columns)
        isText.push_back(column(compared.table, name)->isText());
    std::vector<QStringList> rows;
    for (const Row &row : db.rows(QStringLiteral("select %1 from %2 order by id")
                                      .arg(compared.columns.join(u','), compared.table))) {
        QStringList fields;
        for (size_t i = 0; i < isText.size(); ++i)
            fields << (isText[i] ? row.text(i) : row.decimal(i).toText());
        rows.push_back(fields);
    }
    return rows;
}

std::vector<QStringList> expected(ReferenceBooks &books, const Compared &compared) {
    std::vector<QStringList> rows;
    for (const Record &row : books.table(compared.table).rows()) {
        QStringList fields;
        for (const QString &name : compared.columns) {
            const Cell &cell = row.cell(name);
            const Decimal *figure = std::get_if<Decimal>(&cell);
            fields << (figure != nullptr ? figure->toText() : std::get<QString>(cell));
        }
        rows.push_back(fields);
    }
    return rows;
}

} // namespace

void loadTables(Database &db, ReferenceBooks &books) {
    for (const Compared &compared : comparedTables()) {
        const Table &described = jxc::table(compared.table);
        Cells blank;
        for (const Column &c : described.columns)
            blank[c.name] = c.isText() ? Cell(QString()) : Cell(Decimal());
        MemoryTable &table = books.table(compared.table);
        table.setBlank(blank);
        for (const Row &row :
             db.rows(QStringLiteral("select * from %1 order by id").arg(compared.table))) {
            Cells cells;
            for (const Column &c : described.columns)
                cells[c.name] = c.isText() ? Cell(row.text(c.name)) : Cell(row.decimal(c.name));
            table.insert(cells, row.integer(u"id"));
        }
    }
}

QString firstDifference(Database &db, ReferenceBooks &books) {
    for (const Compared &compared : comparedTables()) {
        auto program = stored(db, compared);
        auto reference = expected(books, compared);
        if (compared.byKey) {
            std::sort(program.begin(), program.end());
            std::sort(reference.begin(), reference.end());
        }
        if (program == reference)
            continue;
        for (size_t i = 0; i < std::max(program.size(), reference.size()); ++i) {
            const QString here = i < program.size() ? described(compared.columns, program[i])
                                                    : QStringLiteral("(no row)");
            const QString there = i < reference.size() ? described(compared.columns, reference[i])
                                                       : QStringLiteral("(no row)");
            if (here != there)
                return QStringLiteral("%1, row %2\n  program:   %3\n  reference: %4")
                    .arg(compared.table)
                    .arg(i + 1)
                    .arg(here, there);
        }
    }
    return {};
}

} // namespace jxc::test
