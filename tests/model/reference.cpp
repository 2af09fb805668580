#include "model/reference.h"

#include <set>
#include <tuple>

namespace jxc::test {

namespace {

const QString discountGoods = QStringLiteral("00000000");
const QString journal = QStringLiteral("jxc_goodslist");

std::tuple<QString, QString, QString> batchOf(const Record &row) {
    return {row.text(u"t_ph"), row.text(u"t_yxq"), row.text(u"t_scrq")};
}

} // namespace

const ReferenceBooks::Names *ReferenceBooks::namesOf(const QString &number) {
    static const auto names = [] {
        const auto s = [](const char16_t *text) { return QString::fromUtf16(text); };
        return std::vector<Names>{{s(u"CJ"),
                                   s(u"采购进货单"),
                                   s(u"jxc_jhd"),
                                   s(u"jxc_jhsp"),
                                   s(u"j_sn"),
                                   s(u"j_jhrq"),
                                   s(u"j"),
                                   s(u"jh"),
                                   s(u"ghs_sn"),
                                   s(u"ghs"),
                                   s(u"jh_rksl"),
                                   s(u"jh_qxsl"),
                                   {}},
                                  {s(u"CT"),
                                   s(u"采购退货单"),
                                   s(u"jxc_thd"),
                                   s(u"jxc_thsp"),
                                   s(u"gl_djh"),
                                   s(u"th_thrq"),
                                   s(u"th"),
                                   s(u"th"),
                                   s(u"ghs_sn"),
                                   s(u"ghs"),
                                   {},
                                   {},
                                   s(u"退货")},
                                  {s(u"XS"), s(u"商品销售单"), s(u"jxc_lsxsd"), s(u"jxc_lsxssp"),
                                   s(u"gl_djh"), s(u"ls_xsrq"), s(u"ls"), s(u"ls"), s(u"kh_sn"),
                                   s(u"kh"), s(u"ls_cksl"), s(u"ls_qxsl"), s(u"销售")},
                                  {s(u"XT"),
                                   s(u"顾客退货单"),
                                   s(u"jxc_xsthd"),
                                   s(u"jxc_xsthsp"),
                                   s(u"gl_djh"),
                                   s(u"th_xsrq"),
                                   s(u"th"),
                                   s(u"th"),
                                   s(u"kh_sn"),
                                   s(u"kh"),
                                   {},
                                   {},
                                   {}},
                                  {s(u"RK"),
                                   s(u"商品入库单"),
                                   s(u"jxc_rkd"),
                                   s(u"jxc_rksp"),
                                   s(u"gl_djh"),
                                   s(u"rk_rq"),
                                   s(u"rk"),
                                   s(u"rk"),
                                   {},
                                   {},
                                   s(u"jh_rksl"),
                                   s(u"jh_qxsl"),
                                   {}},
                                  {s(u"CK"),
                                   s(u"商品出库单"),
                                   s(u"jxc_ckd"),
                                   s(u"jxc_cksp"),
                                   s(u"gl_djh"),
                                   s(u"ck_rq"),
                                   s(u"ck"),
                                   s(u"ck"),
                                   {},
                                   {},
                                   s(u"ls_cksl"),
                                   s(u"ls_qxsl"),
                                   s(u"出库")}};
    }();
    for (const Names &n : names)
        if (number.startsWith(n.code))
            return &n;
    throw std::logic_error("unknown kind: " + number.toStdString());
}

Verdict ReferenceBooks::run(const std::function<void(QStringList &)> &action) {
    Verdict verdict;
    // Only the check of an account comes after something was written.
    const auto before = settings.refusesShortAccount ? m_tables : decltype(m_tables)();
    try {
        action(verdict.questions);
    } catch (const Refused &refused) {
        verdict.refusal = refused.text;
        if (settings.refusesShortAccount)
            m_tables = before;
    }
    return verdict;
}

Verdict ReferenceBooks::approve(const QString &number) {
    return run([&](QStringList &questions) {
        const Names &names = *namesOf(number);
        const Record &header = *table(names.header).first(names.number, number);
        if (header.number(names.ofHeader(u"_status")) == 1)
            throw Refused{QStringLiteral("单据已被其他操作员修改或审核，请刷新后重试！")};
        if (names.code == u"XS")
            checkLimit(number);
        if (names.isAgainstSource())
            checkOpen(names, number);
        if (!names.shortage.isEmpty())
            checkShortage(names, number, questions);
        post(names, number);
    });
}

Verdict ReferenceBooks::cancel(const QString &number) {
    return run([&](QStringList &questions) {
        const Names &names = *namesOf(number);
        if (table(names.header).first(names.number, number)->number(names.ofHeader(u"_status")) !=
            1)
            throw Refused{QStringLiteral("单据“%1”还没有审核！").arg(number)};
        checkFollowers(names, number);
        questions << QStringLiteral("您的操作将取消当前选中的已审核单据：%1，确认吗？").arg(number);
        unpost(names, number);
    });
}

void ReferenceBooks::checkLimit(const QString &number) {
    std::map<QString, Decimal> sold; // the smallest number that is over its limit is named
    for (const Record *line : table(QStringLiteral("jxc_lsxssp")).where(u"gl_djh", number))
        sold[line->text(u"g_sn")] += line->number(u"ls_sl");
    for (const auto &[goodsNo, quantity] : sold) {
        const Record &goods = *table(QStringLiteral("jxc_goods")).first(u"g_sn", goodsNo);
        const Decimal limit = goods.number(u"g_xzsl");
        if (limit > 0 && limit < quantity)
            throw Refused{
                QStringLiteral("其中的药品“%1 每次最多销售数量为%2”，\r\n\r\n不能超过这个数量！")
                    .arg(goods.text(u"g_name"), limit.toText())};
    }
}

void ReferenceBooks::checkOpen(const Names &names, const QString &number) {
    const bool isIn = names.code == u"RK";
    const Names &source = *namesOf(isIn ? QStringLiteral("CJ") : QStringLiteral("XS"));
    const QString sourceNumber = isIn ? QStringLiteral("j_sn") : QStringLiteral("gl_djh2");
    const QString text =
        isIn ? QStringLiteral("采购进货单【%1】的商品【%2】\r\n\r\n"
                              "已经完成入库或入库数量大于采购数量或已经取消入库，不能重复入库，"
                              "请检查！")
             : QStringLiteral("商品销售单【%1】的商品【%2】\r\n\r\n"
                              "已经完成出库或出库数量大于销售数量或已经取消出库，不能重复出库，"
                              "请检查！");
    const QString warehouse = table(names.header).first(names.number, number)->text(u"ck_sn");
    std::map<Decimal, Decimal> taken;
    for (const Record *line : table(names.lines).where(names.number, number)) {
        const Decimal key = line->number(u"id2");
        taken[key] += line->number(names.ofLine(u"_sl"));
        bool isOpen = false;
        for (const Record &from : table(source.lines).rows()) {
            if (from.number(u"id2") != key || from.text(u"g_sn") != line->text(u"g_sn"))
                continue;
            const Record &header =
                *table(source.header).first(source.number, from.text(source.number));
            isOpen = header.number(source.ofHeader(u"_status")) == 1 &&
                     header.text(u"ck_sn") == warehouse &&
                     from.number(source.ofLine(u"_sl")) >=
                         from.number(source.done) + from.number(source.cancelled) + taken[key];
        }
        if (!isOpen)
            throw Refused{QString(text).arg(line->text(sourceNumber), line->text(u"g_sn"))};
    }
}

void ReferenceBooks::checkShortage(const Names &names, const QString &number,
                                   QStringList &questions) {
    const QString warehouse = table(names.header).first(names.number, number)->text(u"ck_sn");
    std::set<QString> goodsInOrder;
    std::map<std::tuple<QString, QString, QString, QString>, Decimal> taken;
    for (const Record *line : table(names.lines).where(names.number, number))
        if (line->text(u"g_sn") != discountGoods)
            taken[std::tuple_cat(std::tuple(line->text(u"g_sn")), batchOf(*line))] +=
                line->number(names.ofLine(u"_zsl"));
    for (const Record &batch : table(QStringLiteral("jxc_tkc")).rows()) {
        const auto found =
            taken.find(std::tuple_cat(std::tuple(batch.text(u"g_sn")), batchOf(batch)));
        if (batch.text(u"ck_sn") == warehouse && batch.number(u"t_sl") > 0 &&
            found != taken.end() && found->second > batch.number(u"t_sl"))
            goodsInOrder.insert(batch.text(u"g_sn"));
    }
    if (goodsInOrder.empty())
        return;
    const QString opening =
        QStringLiteral("该单据对应的批号、有效期中至少一种商品库存不足，\r\n\r\n“%1”：")
            .arg(*goodsInOrder.begin());
    if (!settings.shortageAsks)
        throw Refused{opening + QStringLiteral("不能%1！").arg(names.shortage)};
    questions << opening + QStringLiteral("%1将会出现负库存，是否继续？").arg(names.shortage);
}

void ReferenceBooks::checkFollowers(const Names &names, const QString &number) {
    const auto isOfDocument = [&](Decimal id2) {
        const auto lines = table(names.lines).where(names.number, number);
        return id2 != 0 && std::ranges::any_of(lines, [&](const Record *line) {
                   return line->number(u"id2") == id2;
               });
    };
    const bool isPurchase = names.code == u"CJ" || names.code == u"RK";
    const Names &returns = *namesOf(isPurchase ? QStringLiteral("CT") : QStringLiteral("XT"));
    const QString in = isPurchase ? QStringLiteral("入库") : QStringLiteral("出库");
    if (names.code == u"CJ" || names.code == u"XS") {
        const Names &moves = *namesOf(isPurchase ? QStringLiteral("RK") : QStringLiteral("CK"));
        const QString column = isPurchase ? QStringLiteral("j_sn") : QStringLiteral("gl_djh2");
        if (table(moves.lines).first(column, number) != nullptr)
            throw Refused{QStringLiteral("该单据%1已有%2信息，不能取消审核！\r\n\r\n"
                                         "请在商品%2单中删除该单据的所有信息，"
                                         "然后再取消审核！")
                              .arg(number, in)};
    } else if (!names.isAgainstSource()) {
        return;
    }
    for (const Record &line : table(returns.lines).rows()) {
        if (!isOfDocument(line.number(u"id2")))
            continue;
        const QString &other = line.text(u"gl_djh");
        if (names.isAgainstSource())
            throw Refused{QStringLiteral("%2单：%1，至少有一种商品做了取消%2，\r\n\r\n"
                                         "请先取消审核退货单：%3，然后才能取消审核该%2单！")
                              .arg(number, in, other)};
        if (table(returns.header).first(u"gl_djh", other)->number(u"th_status") == 1)
            throw Refused{QStringLiteral("该单据%1已做取消%2，不能取消审核！\r\n\r\n"
                                         "请先取消审核退货单：%3")
                              .arg(number, in, other)};
    }
}

void ReferenceBooks::post(const Names &names, const QString &number) {
    Record &header = *table(names.header).first(names.number, number);
    const auto lines = table(names.lines).where(names.number, number);
    if (names.isAgainstSource()) {
        moveAgainstSource(names, number, 1);
    } else {
        postMoney(names, header);
        std::vector<Record> rows;
        for (Record *line : lines) {
            if (!names.isReturn()) {
                line->set(u"id2", Decimal::fromInteger(line->id()));
                line->set(names.cancelled, Decimal());
            }
            const Record &row = table(journal).insert(journalRow(names, header, *line));
            if (row.text(u"g_sn") != discountGoods)
                rows.push_back(row);
        }
        moveStock(names, rows, 1);
    }
    header.set(names.ofHeader(u"_status"), Decimal(1));
    header.set(names.ofHeader(u"_checker"), operatorName);
    header.set(names.ofHeader(u"_chkrq"), today);
    updateMonth(header.text(names.date).left(7));
}

void ReferenceBooks::unpost(const Names &names, const QString &number) {
    Record &header = *table(names.header).first(names.number, number);
    if (names.isAgainstSource()) {
        moveAgainstSource(names, number, -1);
    } else {
        std::vector<Record> rows;
        for (const Record *row : table(journal).where(u"gl_djh", number))
            if (row->text(u"g_sn") != discountGoods)
                rows.push_back(*row);
        table(journal).erase(u"gl_djh", number);
        moveStock(names, rows, -1);
        removeMoney(names, number);
        header.set(names.ofHeader(u"_hkje"), Decimal());
    }
    if (names.code == u"XS")
        header.set(u"ls_dhbz", Decimal());
    if (names.code == u"XT")
        header.set(u"th_qk", Decimal());
    if (names.isReturn()) {
        const Names &source =
            *namesOf(names.isSales() ? QStringLiteral("XS") : QStringLiteral("CJ"));
        for (Record *line : table(names.lines).where(names.number, number)) {
            if (line->number(u"id2") == 0)
                continue;
            for (Record *closed : table(source.lines).where([&](const Record &row) {
                     return row.number(u"id2") == line->number(u"id2");
                 }))
                closed->set(source.cancelled, Decimal());
            line->set(u"id2", Decimal());
        }
        header.set(u"th_note", QString());
    }
    header.set(names.ofHeader(u"_status"), Decimal());
    header.set(names.ofHeader(u"_checker"), QString());
    header.set(names.ofHeader(u"_chkrq"), QString());
    updateMonth(header.text(names.date).left(7));
}

} // namespace jxc::test
