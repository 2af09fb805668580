#include "money/forms/settlement_list.h"

#include "core/session.h"
#include "money/forms/settlement_editor.h"
#include "money/settlement.h"

namespace jxc {

namespace {

struct ListFacts {
    QStringView code, form, title;
    int entryRight; ///< of group wlzk
    const char16_t *amountCaption;
};

constexpr std::array<ListFacts, 4> facts = {{{u"SK", u"TF_Ysksk", u"收款登记", 2, u"收款金额"},
                                             {u"FK", u"TF_Yfkfk", u"付款登记", 5, u"付款金额"},
                                             {u"YS", u"TF_Yskdj", u"应收登记", 1, u"应收金额"},
                                             {u"YF", u"TF_Yfkdj", u"应付登记", 4, u"应付金额"}}};

ColumnSpecs columnsOf(const SettlementKind &kind, const char16_t *amountCaption) {
    const bool customer = kind.partner == Partner::Kind::customer;
    ColumnSpecs columns = {text(u"number", u"单据号", 132),
                           column(u"rq", u"开单日期", ValueKind::date),
                           text(u"partner_name", customer ? u"客户" : u"供货商", 180),
                           summed(column(u"amount", amountCaption, ValueKind::amount))};
    if (kind.settles()) {
        columns.push_back(summed(column(u"k_yhje", u"优惠金额", ValueKind::amount)));
        columns.push_back(text(u"k_fkfs", customer ? u"收款方式" : u"付款方式", 104));
    }
    for (ColumnSpec spec : {text(u"u_name", u"经手人", 80), text(u"k_note", u"备注", 200),
                            text(u"a_name", u"操作员", 80), text(u"k_checker", u"审核人", 80),
                            column(u"k_chkrq", u"审核日期", ValueKind::date)})
        columns.push_back(std::move(spec));
    return columns;
}

} // namespace

ApprovalSpec settlementSpec(QStringView code) {
    const SettlementKind &kind = *findSettlementKind(code);
    ApprovalSpec spec;
    for (const ListFacts &fact : facts)
        if (fact.code == code) {
            spec.formClass = fact.form.toString();
            spec.title = fact.title.toString();
            spec.entryRight = fact.entryRight;
            spec.columns = columnsOf(kind, fact.amountCaption);
        }
    spec.rightGroup = QStringLiteral("wlzk");
    spec.read = [code = code.toString()](const Session &session, const ApprovalQuery &query) {
        return listSettlements(session, code, query);
    };
    spec.approve = approveSettlement;
    spec.cancel = cancelSettlement;
    spec.remove = deleteSettlement;
    spec.makeEditor = [&kind](const FormContext &context, const QString &number,
                              QWidget *parent) -> PlainEditor * {
        return makeSettlementEditor(context, kind, number, parent);
    };
    if (kind.settles()) {
        spec.lowerColumns = {text(u"number", u"结算单据", 140),
                             summed(column(u"part", u"本次结算", ValueKind::amount, 120))};
        spec.lower = [](const Session &session, const Rows &, const Row *current) {
            return current == nullptr ? Rows() : settlementParts(session, current->text(u"number"));
        };
    }
    return spec;
}

} // namespace jxc
