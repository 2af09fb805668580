// Lists of goods and partners that come from spreadsheets.
#include "core/rights.h"
#include "money/partner_ledger.h"
#include "services/import.h"
#include "support/shop.h"

#include <QTest>

using namespace jxc;
using namespace jxc::test;

namespace {

using Fate = ImportRow::Fate;

Sheet sheetOf(const QString &lines) {
    Sheet sheet{u"表"_qs, {}};
    for (const QString &line : lines.split(u'\n'))
        sheet.rows.push_back(line.split(u'|'));
    return sheet;
}

/// A shop whose clerk brings lists along: header and rows, cells parted by bars.
struct ImportShop : Shop {
    ImportRequest request(const QString &word, const QString &lines,
                          KnownRows known = KnownRows::skip) {
        ImportRequest r;
        r.target = findImportTarget(word);
        r.sheet = sheetOf(lines);
        const auto fields = importFields(session, *r.target);
        r.headerRow = findHeaderRow(fields, r.sheet);
        r.mapping = proposeMapping(session, fields, r.sheet.rows.at(r.headerRow));
        r.known = known;
        return r;
    }
    QStringList states(const ImportRequest &r) {
        std::vector<ImportRow> rows;
        demand(checkImport(session, user, r, &rows));
        QStringList states;
        for (const ImportRow &row : rows)
            states << row.status;
        return states;
    }
    /// The result text, then what failed.
    QStringList take(const ImportRequest &r) {
        ImportResult result;
        const Outcome outcome = runImport(session, user, r, &result);
        QStringList said{outcome.text};
        for (const ImportRow &row : result.rows)
            if (row.fate == Fate::bad)
                said << row.status;
        return said;
    }
    QString balance(Partner::Kind kind, const QString &number) {
        return CurrentBalance(db, {kind, number}).toText();
    }
};

QString done(int good, int bad = 0) {
    return u"导入完成，成功%1条，失败%2条！"_qs.arg(good).arg(bad);
}

} // namespace

class TestImport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void findsColumns_data() { addEngineRows(); }
    void findsColumns();
    void tellsWhatIsWrong_data() { addEngineRows(); }
    void tellsWhatIsWrong();
    void takesGoodsIn_data() { addEngineRows(); }
    void takesGoodsIn();
    void knowsGoodsAgain_data() { addEngineRows(); }
    void knowsGoodsAgain();
    void uniqueAndOwnBarcodes_data() { addEngineRows(); }
    void uniqueAndOwnBarcodes();
    void opensBalances_data() { addEngineRows(); }
    void opensBalances();
    void membersComeIn_data() { addEngineRows(); }
    void membersComeIn();
    void allOrNothing_data() { addEngineRows(); }
    void allOrNothing();
};

void TestImport::findsColumns() {
    ImportShop shop;
    ImportRequest r = shop.request(
        u"goods"_qs, u"丰收农资商品表\n\n序号|*品 名：|规格|登记证号|单 位|厂家|价"_qs);
    QCOMPARE(r.headerRow, size_t(2));
    QCOMPARE(r.mapping, (ImportMapping{{u"g_name"_qs, 1},
                                       {u"gg_name"_qs, 2},
                                       {u"color_name"_qs, 3},
                                       {u"dw_name"_qs, 4},
                                       {u"g_sccs"_qs, 5}}));
    // A caption goes before another field's usual word; a column serves one field.
    r = shop.request(u"customers"_qs, u"名称|客户名称|手机|G_SN|kh_note"_qs);
    QCOMPARE(r.mapping,
             (ImportMapping{{u"kh_name"_qs, 1}, {u"kh_tele"_qs, 2}, {u"kh_note"_qs, 4}}));
    // What was chosen by hand is proposed the next time.
    r = shop.request(u"goods"_qs, u"品名|单位|价\n草甘膦|瓶|3"_qs);
    r.mapping[u"g_lsj"_qs] = 2;
    QCOMPARE(shop.states(r), QStringList{u"可导入"_qs});
    QCOMPARE(shop.request(u"goods"_qs, u"价|品名"_qs).mapping.at(u"g_lsj"_qs), 0);
    // A sheet to fill in has exactly the columns that are found again.
    const SheetTable empty = importTemplate(shop.session, *r.target);
    QStringList header;
    for (const SheetColumn &column : empty.columns)
        header << column.caption;
    QCOMPARE(shop.request(u"goods"_qs, header.join(u'|')).mapping.size(), size_t(header.size()));
}

void TestImport::tellsWhatIsWrong() {
    ImportShop shop;
    shop.addGoods(u"00000007"_qs);
    const ImportRequest r =
        shop.request(u"goods"_qs, u"商品编号|商品名称|单位|预设进价|最低库存|备注\n"
                                  "00000001|草甘膦|瓶|￥1,234.50|5|\n"
                                  "00000002||瓶|1|1|\n"
                                  "00000003|吡虫啉||1|1|\n"
                                  "00000004|吡虫啉|瓶|三块|1|\n"
                                  "00000005|吡虫啉|瓶|-1|1|\n"
                                  "00000006|吡虫啉|瓶|1|1.5|\n"
                                  "\n"
                                  "00000001|多菌灵|瓶|1|1|\n"
                                  "00000007|多菌灵|瓶|1|1|\n"
                                  "00000000|优惠|瓶|1|1|\n"
                                  "00000008|吡虫啉|瓶|1|1|"_qs +
                                      QString(300, u'长'));
    QCOMPARE(shop.states(r),
             QStringList({u"可导入"_qs, u"商品名称必须填写"_qs, u"单位必须填写"_qs,
                          u"预设进价不是数字"_qs, u"预设进价格式不正确"_qs,
                          u"最低库存格式不正确"_qs, u"商品编号重复"_qs, u"已存在，跳过"_qs,
                          u"商品编号格式不正确"_qs, u"备注格式不正确"_qs}));
    QCOMPARE(shop.texts(u"select id_exceldata,id_status,id_sele from jxc_importdata order by id"_qs)
                 .mid(0, 2),
             QStringList({u"草甘膦|可导入|1"_qs, u"|商品名称必须填写|0"_qs}));
    QCOMPARE(shop.take(r).first(), done(1, 8));
    QCOMPARE(shop.figures(u"select g_jj,g_zdkc from jxc_goods where g_sn='00000001'"_qs),
             u"1234.5 5"_qs);
}

void TestImport::takesGoodsIn() {
    ImportShop shop;
    ImportRequest r = shop.request(u"goods"_qs, u"编码|品名|规格|单位|登记证号|剂型|零售价\n"
                                                "A-1.5|草甘膦|200ml(瓶)|桶装|PD20200001|水剂|9.5\n"
                                                "|吡虫啉|100g|桶装|||\n"
                                                "|多菌灵|100g|瓶|||\n"
                                                "|代森锰锌|100g|瓶|||"_qs);
    r.unticked = {3};
    QCOMPARE(shop.take(r), QStringList{done(3)});
    QCOMPARE(shop.lastLog(), u"导入商品，共3条"_qs);
    QCOMPARE(shop.texts(u"select g_name,g_jm,gg_name,dw_name,color_name,g_yjlx,gc_cid,ghs_sn,"
                        "g_yhlx from jxc_goods where g_sn<>'00000000' order by id"_qs),
             QStringList({u"草甘膦|CGL|200ml(瓶)|桶装|PD20200001|水剂|2|100001|不养护"_qs,
                          u"吡虫啉|BCL|100g|桶装|||2|100001|不养护"_qs,
                          u"代森锰锌|DSMX|100g|瓶|||2|100001|不养护"_qs}));
    // Codes of the file stay; the others follow one another.
    const QStringList codes =
        shop.texts(u"select g_sn from jxc_goods where g_sn<>'00000000' order by id"_qs);
    QCOMPARE(codes[0], u"A-1.5"_qs);
    QCOMPARE(codes[2].toInt(), codes[1].toInt() + 1);
    QCOMPARE(codes[2].size(), codes[1].size());
    // Lists behind the fields learn each new name once.
    QCOMPARE(shop.figures(u"select count(*) from jxc_dw where dw_name='桶装'"_qs), u"1"_qs);
    QCOMPARE(shop.figures(u"select count(*) from jxc_color where color_name='PD20200001'"_qs),
             u"1"_qs);
    QCOMPARE(shop.figures(u"select count(*) from jxc_ggxh where gg_name='100g'"_qs), u"1"_qs);
    // The new goods can be traded at once.
    DraftLine line{.goods = codes[1]};
    line.quantity = 3;
    line.price = 2;
    shop.post(u"CJ"_qs, day(1), {line});
    QCOMPARE(shop.stock(codes[1]), u"3 3 0 2"_qs);
}

void TestImport::knowsGoodsAgain() {
    ImportShop shop;
    shop.addGoods(u"G1"_qs, {{u"gg_name"_qs, u"100g"}, {u"g_sccs"_qs, u"江南农化"}});
    shop.addGoods(u"G2"_qs, {{u"gg_name"_qs, u"200g"}});
    // By code, by barcode, by name and specification; another specification is another goods.
    const QString lines = u"编码|品名|条码|规格|单位|厂家|售价\n"
                          "G1|改名|||瓶||5\n"
                          "|农药G2|690G2||瓶|江北农化|6\n"
                          "|农药G2||200g|瓶||7\n"
                          "|农药G2||300g|瓶||8"_qs;
    QCOMPARE(
        shop.states(shop.request(u"goods"_qs, lines)),
        QStringList({u"已存在，跳过"_qs, u"已存在，跳过"_qs, u"已存在，跳过"_qs, u"可导入"_qs}));
    QCOMPARE(shop.take(shop.request(u"goods"_qs, lines, KnownRows::update)), QStringList{done(4)});
    // Empty cells change nothing; the mnemonic code follows the name.
    QCOMPARE(shop.texts(u"select g_sn,g_name,gg_name,g_sccs from jxc_goods where g_sn in "
                        "('G1','G2') order by g_sn"_qs),
             QStringList({u"G1|改名|100g|江南农化"_qs, u"G2|农药G2|200g|江北农化"_qs}));
    QCOMPARE(shop.figures(u"select g_sj from jxc_goods where g_sn in ('G1','G2') order by g_sn"_qs),
             u"5"_qs);
    // A row that a rule refuses stays out alone.
    DraftLine line{.goods = u"G1"_qs};
    line.quantity = line.price = 1;
    shop.post(u"CJ"_qs, day(1), {line});
    QCOMPARE(shop.take(shop.request(u"goods"_qs, u"编码|品名|单位\nG1|改名|箱\nG2|又改名|瓶"_qs,
                                    KnownRows::update)),
             QStringList({done(1, 1), u"该商品已有业务发生，不能修改单位！"_qs}));
}

void TestImport::uniqueAndOwnBarcodes() {
    ImportShop shop;
    shop.addGoods(u"G1"_qs);
    shop.addGoods(u"G2"_qs);
    shop.addUnit(u"G2"_qs, u"箱"_qs, 20, {{u"g_sptm"_qs, u"1690"}});
    shop.set(u"cs_barunique"_qs, 1);
    shop.set(u"cs_tmzdsc"_qs, 1);
    const ImportRequest r = shop.request(u"goods"_qs, u"编码|品名|单位|条码\n"
                                                      "N1|甲|瓶|690G1\n"
                                                      "N2|乙|瓶|1690\n"
                                                      "N3|丙|瓶|777\n"
                                                      "N4|丁|瓶|777\n"
                                                      "N5|戊|瓶|"_qs);
    QCOMPARE(shop.states(r), QStringList({u"商品条码重复"_qs, u"商品条码重复"_qs, u"可导入"_qs,
                                          u"商品条码重复"_qs, u"可导入"_qs}));
    QCOMPARE(shop.take(r).first(), done(2, 3));
    const QString own = shop.db.scalar(u"select g_sptm from jxc_goods where g_sn='N5'"_qs);
    QCOMPARE(own.size(), 13);
    QVERIFY(own.startsWith(u'2'));
}

void TestImport::opensBalances() {
    ImportShop shop;
    const QString lines = u"客户|手机|类型|地区|欠款\n"
                          "王大田|13800000001|种植大户|东村|1200.5\n"
                          "李四|13800000002|零售客户|东村|\n"
                          "王大田|1|||9"_qs;
    QCOMPARE(shop.take(shop.request(u"customers"_qs, lines)),
             QStringList({done(2, 1), u"客户名称重复"_qs}));
    const QStringList codes =
        shop.texts(u"select kh_sn from jxc_khxx where kh_name in ('王大田','李四') order by id"_qs);
    QCOMPARE(shop.balance(Partner::Kind::customer, codes[0]), u"1200.5"_qs);
    QCOMPARE(shop.texts(u"select kh_jm,kh_tele,kt_name,z_name,ck_sn,kh_lwje from jxc_khxx where "
                        "kh_sn='"_qs +
                        codes[0] + u'\'')
                 .first()
                 .section(u'|', 0, 4),
             u"WDT|13800000001|种植大户|东村|-1"_qs);
    QCOMPARE(shop.texts(u"select k_djlx,k_djtxt,k_rq from jxc_ysyfk where k_ghskh='"_qs + codes[0] +
                        u'\''),
             QStringList{u"QC|期初数|2026-03-31"_qs});
    QCOMPARE(shop.figures(u"select count(*) from jxc_khtype where kt_name='种植大户'"_qs), u"1"_qs);

    // Corrected while nothing else stands in the ledger, left alone afterwards.
    const auto correct = [&](const QString &amount) {
        shop.take(
            shop.request(u"customers"_qs, u"客户|欠款\n王大田|"_qs + amount, KnownRows::update));
        return shop.balance(Partner::Kind::customer, codes[0]);
    };
    QCOMPARE(correct(u"1000"_qs), u"1000"_qs);
    shop.addGoods(u"G1"_qs);
    DraftLine line{.goods = u"G1"_qs};
    line.quantity = line.price = 2;
    shop.post(u"XS"_qs, day(31), {line}, [&](Draft &d) {
        d.partner = codes[0];
        d.paid = Decimal();
    });
    QCOMPARE(correct(u"5"_qs), u"1004"_qs);
    QCOMPARE(shop.take(shop.request(u"suppliers"_qs, u"供应商|期初\n江南农化|300"_qs)),
             QStringList{done(1)});
    QCOMPARE(shop.balance(Partner::Kind::supplier, u"100002"_qs), u"300"_qs);
}

/// A member is known again by the card, else by name and mobile; cards without a number get one.
void TestImport::membersComeIn() {
    ImportShop shop;
    const QString list = u"卡号|姓名|手机|生日|积分|储值余额|入会日期\n"
                         "100001|王大田|138|1980/3/5|120|50.5|20200131\n"
                         "|李四|139||||\n"
                         "|李四|137||||\n"
                         "|李四|139||||\n"
                         "A9|赵六||三月五日|||\n"
                         "A8|钱七|||12.5||\n"
                         "A7|孙八||||-1|"_qs;
    QCOMPARE(shop.take(shop.request(u"members"_qs, list)),
             QStringList({done(3, 4), u"会员姓名重复"_qs, u"出生日期格式不正确"_qs,
                          u"会员积分格式不正确"_qs, u"卡内金额格式不正确"_qs}));
    QCOMPARE(shop.texts(u"select hy_sn,hy_bh,hy_name,hy_jm,hy_sr,hy_jrrq,hl_sn,hh_sn,hy_sj from "
                        "jxc_hyxx where hy_bh<>'0000' order by id"_qs),
             QStringList({u"100002|100001|王大田|WDT|1980-03-05|2020-01-31|100001|100001|1"_qs,
                          u"100003|100002|李四|LS||2026-03-31|100001|100001|1"_qs,
                          u"100004|100003|李四|LS||2026-03-31|100001|100001|1"_qs}));
    QCOMPARE(shop.figures(u"select hy_jf,hy_zjf,hy_zhje,hy_zje,hy_cs from jxc_hyxx where "
                          "hy_bh='100001'"_qs),
             u"120 120 50.5 0 0"_qs);
    // Figures of members who are there are the shop's own.
    QCOMPARE(shop.take(shop.request(u"members"_qs, u"卡号|姓名|手机|积分\n100001|王大田|136|9"_qs,
                                    KnownRows::update)),
             QStringList{done(1)});
    QCOMPARE(shop.texts(u"select hy_mobile from jxc_hyxx where hy_bh='100001'"_qs),
             QStringList{u"136"_qs});
    QCOMPARE(shop.figures(u"select hy_jf from jxc_hyxx where hy_bh='100001'"_qs), u"120"_qs);
}

void TestImport::allOrNothing() {
    ImportShop shop;
    ImportRequest r = shop.request(u"goods"_qs, u"品名|单位|规格\n草甘膦|桶装|新规格"_qs);
    const QStringList before = shop.everything();
    const Outcome stopped =
        runImport(shop.session, shop.user, r, nullptr, [](int, int) { return false; });
    QCOMPARE(stopped.kind, Outcome::Kind::refused);
    QCOMPARE(shop.everything(), before);
    r.mapping.erase(u"g_name"_qs);
    const Outcome unmapped = runImport(shop.session, shop.user, r, nullptr);
    QCOMPARE(unmapped.text, u"“商品名称”必须选择对应的列！"_qs);
    QCOMPARE(shop.everything(), before);
}

QTEST_GUILESS_MAIN(TestImport)
#include "test_import.moc"
