#include "model/reference.h"

namespace jxc::test {

namespace {

const QString cashAccount = QStringLiteral("现金");

/// In order of date, then of entry.
void sortByDate(std::vector<Record *> &rows, QStringView date) {
    std::stable_sort(rows.begin(), rows.end(), [&](const Record *a, const Record *b) {
        return a->text(date) < b->text(date);
    });
}

QString accountOf(const QString &account) {
    return account.isEmpty() ? cashAccount : account;
}

QStringList feeNotes(const QString &code, const QString &number) {
    if (code == u"CJ")
        return {QStringLiteral("采购单%1产生的运费").arg(number),
                QStringLiteral("采购单%1产生的包装费").arg(number)};
    if (code == u"XS")
        return {QStringLiteral("销售单%1产生的运费").arg(number),
                QStringLiteral("销售单%1产生的包装费").arg(number)};
    return {};
}

} // namespace

void ReferenceBooks::balanceAccount(const QString &account) {
    auto rows = table(QStringLiteral("jxc_xjyh")).where([&](const Record &row) {
        return row.text(u"xj_chk") == u"1" && row.text(u"xj_kmmc") == account;
    });
    sortByDate(rows, u"xj_rq");
    Decimal balance;
    for (Record *row : rows) {
        balance += row->number(u"xj_je");
        row->set(u"xj_ljje", balance);
    }
}

void ReferenceBooks::balancePartner(const QString &type, const QString &partner) {
    auto rows = table(QStringLiteral("jxc_ysyfk")).where([&](const Record &row) {
        return row.text(u"k_type") == type && row.text(u"k_ghskh") == partner;
    });
    sortByDate(rows, u"k_rq");
    Decimal balance;
    for (Record *row : rows) {
        balance += row->number(u"k_qcje") + row->number(u"k_yfje") - row->number(u"k_sfje");
        row->set(u"k_ljje", balance);
    }
    if (type == u"kh")
        table(QStringLiteral("jxc_khxx")).first(u"kh_sn", partner)->set(u"kh_lwje", balance);
    else
        table(QStringLiteral("jxc_ghsxx")).first(u"ghs_sn", partner)->set(u"ghs_lwje", balance);
}

void ReferenceBooks::balanceInvoices(const QString &type, const QString &partner) {
    auto rows = table(QStringLiteral("jxc_fpdjb")).where([&](const Record &row) {
        return row.text(u"fp_type") == type && row.text(u"fp_ghskh") == partner;
    });
    sortByDate(rows, u"fp_rq");
    Decimal balance;
    for (Record *row : rows) {
        balance += row->number(u"fp_qcje") + row->number(u"fp_yfje") - row->number(u"fp_kpje");
        row->set(u"fp_ljje", balance);
    }
}

void ReferenceBooks::addCash(Cells row) {
    const QString account = std::get<QString>(row[QStringLiteral("xj_kmmc")]);
    const Decimal amount = std::get<Decimal>(row[QStringLiteral("xj_je")]);
    if (settings.refusesShortAccount && amount < 0) {
        Decimal balance;
        for (const Record &other : table(QStringLiteral("jxc_xjyh")).rows())
            if (other.text(u"xj_chk") == u"1" && other.text(u"xj_kmmc") == account)
                balance += other.number(u"xj_je");
        if (balance + amount < 0)
            throw Refused{QStringLiteral("账户“%1”余额不足，不能付款！").arg(account)};
    }
    row[QStringLiteral("xj_chk")] = QStringLiteral("1");
    table(QStringLiteral("jxc_xjyh")).insert(row);
    balanceAccount(account);
}

void ReferenceBooks::addPartnerRow(Cells row) {
    const QString type = std::get<QString>(row[QStringLiteral("k_type")]);
    const QString partner = std::get<QString>(row[QStringLiteral("k_ghskh")]);
    table(QStringLiteral("jxc_ysyfk")).insert(row);
    balancePartner(type, partner);
}

void ReferenceBooks::postMoney(const Names &names, const Record &header) {
    const auto figure = [&](const char16_t *column) {
        return header.number(names.ofHeader(column));
    };
    const auto text = [&](const char16_t *column) { return header.text(names.ofHeader(column)); };
    const QString number = header.text(names.number);
    const QString date = header.text(names.date);
    const QString partner = header.text(names.partner);
    const Decimal sign = names.isReturn() ? Decimal(-1) : Decimal(1);
    const Decimal discount = names.isReturn() ? Decimal() : figure(u"_yhje");
    const Decimal due = ((figure(u"_yfje") - discount) * sign).rounded(6);
    const Decimal settled = (figure(u"_sfje") * sign).rounded(6);
    const QString account = accountOf(text(u"_kmmc"));
    const QString note = text(u"_note");

    // A sale brings money, its return (negative) takes it; with suppliers the other way round.
    const Decimal cash = names.isSales() ? settled : -settled;
    const QString cashKind = names.code == u"CJ"   ? QStringLiteral("采购进货")
                             : names.code == u"CT" ? QStringLiteral("采购退货")
                             : names.code == u"XS" ? QStringLiteral("商品销售")
                                                   : QStringLiteral("顾客退货");
    if (cash != 0)
        addCash({{QStringLiteral("xj_rq"), date},
                 {QStringLiteral("gl_djh"), number},
                 {QStringLiteral("xj_dlx"), cashKind},
                 {QStringLiteral("xj_je"), cash},
                 {QStringLiteral("xj_kmmc"), account},
                 {QStringLiteral("xj_note"), note},
                 {QStringLiteral("ghs_sn"), partner}});
    addPartnerRow({{QStringLiteral("gl_djh"), number},
                   {QStringLiteral("k_type"), names.partnerType},
                   {QStringLiteral("k_ghskh"), partner},
                   {QStringLiteral("k_rq"), date},
                   {QStringLiteral("k_fkfs"), account},
                   {QStringLiteral("k_yfje"), due},
                   {QStringLiteral("k_sfje"), settled},
                   {QStringLiteral("k_yhje"), discount},
                   {QStringLiteral("k_djlx"), names.code},
                   {QStringLiteral("k_djtxt"), names.title},
                   {QStringLiteral("k_note"), note}});
    if (settings.keepsInvoices) {
        table(QStringLiteral("jxc_fpdjb"))
            .insert({{QStringLiteral("gl_djh"), number},
                     {QStringLiteral("fp_rq"), date},
                     {QStringLiteral("fp_type"), names.partnerType},
                     {QStringLiteral("fp_ghskh"), partner},
                     {QStringLiteral("fp_djlx"), names.code},
                     {QStringLiteral("fp_djtxt"), names.title},
                     {QStringLiteral("fp_yfje"), due},
                     {QStringLiteral("fp_kpje"), (figure(u"_fpje") * sign).rounded(6)}});
        balanceInvoices(names.partnerType, partner);
    }
    if (!names.isReturn() && text(u"_yffs") == u"我方付运费")
        postFees(names, header);
}

void ReferenceBooks::postFees(const Names &names, const Record &header) {
    const QString &date = header.text(names.date);
    const QStringList notes = feeNotes(names.code, header.text(names.number));
    const QStringList kinds = {QStringLiteral("运费"), QStringLiteral("包装费")};
    const std::vector<Decimal> amounts = {header.number(names.ofHeader(u"_yf")),
                                          header.number(names.ofHeader(u"_bzf"))};
    for (qsizetype i = 0; i < kinds.size(); ++i) {
        const Decimal amount = amounts[static_cast<size_t>(i)];
        if (amount == 0)
            continue;
        table(QStringLiteral("jxc_yyfy"))
            .insert({{QStringLiteral("fy_rq"), date},
                     {QStringLiteral("fy_lx"), kinds[i]},
                     {QStringLiteral("fy_je"), amount},
                     {QStringLiteral("fy_kmmc"), cashAccount},
                     {QStringLiteral("fy_note"), notes[i]}});
        addCash({{QStringLiteral("xj_rq"), date},
                 {QStringLiteral("xj_dlx"), QStringLiteral("费用付款")},
                 {QStringLiteral("xj_je"), -amount},
                 {QStringLiteral("xj_kmmc"), cashAccount},
                 {QStringLiteral("xj_note"), notes[i]},
                 {QStringLiteral("ghs_sn"), header.text(names.partner)}});
    }
}

void ReferenceBooks::removeMoney(const Names &names, const QString &number) {
    const QStringList notes = feeNotes(names.code, number);
    table(QStringLiteral("jxc_xjyh")).erase([&](const Record &row) {
        return row.text(u"gl_djh") == number ||
               (row.text(u"xj_dlx") == u"费用付款" && notes.contains(row.text(u"xj_note")));
    });
    for (const Record &account : table(QStringLiteral("jxc_yhzh")).rows())
        balanceAccount(account.text(u"yh_name"));
    table(QStringLiteral("jxc_yyfy")).erase([&](const Record &row) {
        return notes.contains(row.text(u"fy_note"));
    });
    table(QStringLiteral("jxc_ysyfk")).erase([&](const Record &row) {
        return row.text(u"gl_djh") == number || row.text(u"gl_djh2") == number;
    });
    for (const QString &name :
         {QStringLiteral("jxc_ysyfk_dj"), QStringLiteral("jxc_fkmx"), QStringLiteral("jxc_fpdjb")})
        table(name).erase(u"gl_djh", number);
    for (const Record &customer : table(QStringLiteral("jxc_khxx")).rows()) {
        balancePartner(QStringLiteral("kh"), customer.text(u"kh_sn"));
        balanceInvoices(QStringLiteral("kh"), customer.text(u"kh_sn"));
    }
    for (const Record &supplier : table(QStringLiteral("jxc_ghsxx")).rows()) {
        balancePartner(QStringLiteral("ghs"), supplier.text(u"ghs_sn"));
        balanceInvoices(QStringLiteral("ghs"), supplier.text(u"ghs_sn"));
    }
}

void ReferenceBooks::settle(const QString &number, int direction) {
    for (const Record *part : table(QStringLiteral("jxc_fkmx")).where(u"fk_sn", number)) {
        const QString document = part->text(u"gl_djh");
        const Names &names = *namesOf(document);
        for (Record *header : table(names.header).where(names.number, document))
            header->add(names.ofHeader(u"_hkje"),
                        direction < 0 ? -part->number(u"fk_je") : part->number(u"fk_je"));
    }
}

/// What a receipt or payment puts on documents must be open there, of the same partner.
void ReferenceBooks::checkParts(const Record &document) {
    for (const Record *part :
         table(QStringLiteral("jxc_fkmx")).where(u"fk_sn", document.text(u"gl_djh"))) {
        const QString number = part->text(u"gl_djh");
        const Names &names = *namesOf(number);
        const Record &header = *table(names.header).first(names.number, number);
        Decimal open = header.number(names.ofHeader(u"_yfje")) -
                       header.number(names.ofHeader(u"_sfje")) -
                       header.number(names.ofHeader(u"_hkje"));
        if (!names.isReturn())
            open -= header.number(names.ofHeader(u"_yhje"));
        if (header.text(names.partner) != document.text(u"k_ghskh") ||
            header.number(names.ofHeader(u"_status")) == 0 || part->number(u"fk_je") > open)
            throw Refused{QStringLiteral("单据“%1”的未结金额已变化，请重新分配！").arg(number)};
    }
}

Verdict ReferenceBooks::approveSettlement(const QString &number) {
    return run([&](QStringList &) {
        Record &document = *table(QStringLiteral("jxc_ysyfk_dj")).first(u"gl_djh", number);
        if (document.number(u"k_check") != 0)
            throw Refused{QStringLiteral("单据已被其他操作员修改或审核，请刷新后重试！")};
        checkParts(document);
        Cells row;
        for (const char16_t *column :
             {u"gl_djh", u"gl_djh2", u"k_type", u"k_ghskh", u"k_rq", u"k_fkfs", u"k_qcje",
              u"k_yfje", u"k_sfje", u"k_yhje", u"k_djlx", u"k_djtxt", u"k_note"})
            row[QString::fromUtf16(column)] = document.cell(column);
        addPartnerRow(row);
        document.set(u"k_check", Decimal(1));
        document.set(u"k_checker", operatorName);
        document.set(u"k_chkrq", today);
        const Decimal amount = document.number(u"k_sfje");
        const bool isReceipt = number.startsWith(u"SK");
        if (isReceipt || number.startsWith(u"FK"))
            addCash({{QStringLiteral("xj_rq"), document.text(u"k_rq")},
                     {QStringLiteral("gl_djh"), number},
                     {QStringLiteral("xj_dlx"),
                      isReceipt ? QStringLiteral("收款单") : QStringLiteral("付款单")},
                     {QStringLiteral("xj_je"), isReceipt ? amount : -amount},
                     {QStringLiteral("xj_kmmc"), document.text(u"k_fkfs")},
                     {QStringLiteral("xj_note"), document.text(u"k_note")},
                     {QStringLiteral("ghs_sn"), document.text(u"k_ghskh")}});
        settle(number, 1);
    });
}

Verdict ReferenceBooks::cancelSettlement(const QString &number) {
    return run([&](QStringList &questions) {
        Record &document = *table(QStringLiteral("jxc_ysyfk_dj")).first(u"gl_djh", number);
        if (document.number(u"k_check") == 0)
            throw Refused{QStringLiteral("单据“%1”还没有审核！").arg(number)};
        questions << QStringLiteral("您的操作将取消当前选中的已审核单据：%1，确认吗？").arg(number);
        settle(number, -1);
        table(QStringLiteral("jxc_xjyh")).erase(u"gl_djh", number);
        balanceAccount(document.text(u"k_fkfs"));
        table(QStringLiteral("jxc_ysyfk")).erase(u"gl_djh", number);
        balancePartner(document.text(u"k_type"), document.text(u"k_ghskh"));
        document.set(u"k_check", Decimal());
        document.set(u"k_checker", QString());
        document.set(u"k_chkrq", QString());
    });
}

} // namespace jxc::test
