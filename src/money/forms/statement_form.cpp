#include "money/forms/statement_form.h"

#include "core/session.h"
#include "ui/list_form.h"
#include "ui/period_bar.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"
#include "ui/statement_preview.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTimer>

namespace jxc {

namespace {

constexpr int searchDelay = 120;

/// What is bought is known to those alone who may see cost prices.
ColumnSpec priced(ColumnSpec spec, Partner::Kind kind) {
    return kind == Partner::Kind::supplier ? costOnly(std::move(spec)) : spec;
}

} // namespace

StatementForm::StatementForm(const FormContext &context, const QString &className,
                             const QString &title, Partner::Kind kind, QWidget *parent)
    : LedgerTabs(context, className, title, kind, static_cast<int>(PeriodChoice::thisMonth), parent)
    , m_newestFirst(addBox("chkNewest", QStringLiteral("新单在前"), false)) {
    m_warehouse = new PickField(warehouseSource(context), Formats(session().parameters), this);
    m_warehouse->setObjectName(QStringLiteral("edtWarehouse"));
    m_warehouse->setPlaceholderText(QStringLiteral("全部仓库"));
    m_warehouse->setClearable(true);
    m_warehouse->setFixedWidth(112);
    m_number = new QLineEdit(this);
    m_number->setObjectName(QStringLiteral("edtNumber"));
    m_number->setPlaceholderText(QStringLiteral("单据号"));
    m_number->setClearButtonEnabled(true);
    m_number->setMaxLength(16);
    m_number->setFixedWidth(136);
    auto *delay = new QTimer(this);
    delay->setSingleShot(true);
    delay->setInterval(searchDelay);
    connect(m_number, &QLineEdit::textChanged, delay, qOverload<>(&QTimer::start));
    connect(delay, &QTimer::timeout, this, &StatementForm::refresh);
    connect(m_warehouse, &PickField::chosen, this, &StatementForm::refresh);
    connect(m_warehouse, &PickField::cleared, this, &StatementForm::refresh);
    actionBar().add(QStringLiteral("btnStatement"), QStringLiteral("对账单"), Qt::Key_F11,
                    [this] { btnStatementClick(); });
    addPages();
    addCommonActions();
    auto *filters = new QWidget(this);
    auto *line = new QHBoxLayout(filters);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(8);
    line->addWidget(m_warehouse);
    line->addWidget(m_number);
    actionBar().addRight(filters);
    gridOf(documents).model().setTone([](const Row &row, const ColumnSpec &spec) {
        return spec.field == u"wfje" && !row.decimal(u"wfje").isZero() ? Tone::danger : Tone::plain;
    });
}

void StatementForm::addPages() {
    const bool customer = kind() == Partner::Kind::customer;
    const auto money = [this](const char16_t *field, const char16_t *caption) {
        return priced(summed(column(field, caption, ValueKind::amount, 96)), kind());
    };
    const ColumnSpec name = text(u"partner_name", customer ? u"客户" : u"供货商", 140);
    const ColumnSpec quantity = summed(column(u"gl_sl", u"数量", ValueKind::quantity));
    addLongPage(QStringLiteral("往来单据"),
                {column(u"rq", u"开单日期", ValueKind::date), text(u"djh", u"单据号", 132), name,
                 text(u"fktype", u"类型", 104),
                 money(u"yfje", customer ? u"应收金额" : u"应付金额"),
                 money(u"sfje", customer ? u"实收金额" : u"实付金额"), money(u"yhje", u"优惠金额"),
                 money(u"hkje", u"已还金额"), money(u"wfje", customer ? u"未收金额" : u"未付金额"),
                 hidden(money(u"yf", u"运费")), hidden(money(u"bzf", u"包装费")),
                 hidden(text(u"yffs", u"运费付款方式", 104)), text(u"ck_name", u"仓库", 88),
                 text(u"u_name", u"经手人", 72), text(u"dnote", u"备注", 120),
                 hidden(text(u"a_name", u"操作员", 72)), hidden(text(u"checker", u"审核人", 72)),
                 hidden(text(u"chkrq", u"审核日期", 96))},
                [this](int most, const Row *last) {
                    return statementDocuments(session(), pieceOfQuery(most, last));
                });
    addPage(QStringLiteral("商品汇总"),
            {text(u"g_sn", u"商品编号", 96), text(u"g_name", u"商品名称", 200),
             text(u"gg_name", u"规格", 112), text(u"dw_name", u"单位", 56), quantity,
             money(u"gl_je", u"金额"), money(u"gl_taxje", u"税额"), money(u"gl_zje", u"价税合计")},
            [this] { return statementGoods(session(), query()); });
    ColumnSpecs ofLines = {column(u"gl_kdrq", u"开单日期", ValueKind::date),
                           text(u"gl_djh", u"单据号", 132),
                           name,
                           text(u"g_sn", u"商品编号", 88),
                           text(u"g_name", u"商品名称", 160),
                           text(u"gg_name", u"规格", 88),
                           text(u"dw_name", u"单位", 48),
                           quantity,
                           priced(column(u"gl_taxdj", u"单价", ValueKind::price), kind()),
                           money(u"gl_je", u"金额"),
                           hidden(money(u"gl_taxje", u"税额")),
                           money(u"gl_zje", u"价税合计")};
    if (customer) {
        ofLines.push_back(costOnly(summed(column(u"gl_lr", u"毛利", ValueKind::amount))));
        ofLines.push_back(costOnly(column(u"lrl", u"毛利率%", ValueKind::percent, 80)));
    }
    ofLines.push_back(text(u"t_ph", u"批号", 96));
    ofLines.push_back(text(u"gl_bz", u"备注", 120));
    addLongPage(QStringLiteral("商品明细"), ofLines, [this](int most, const Row *last) {
        return statementLines(session(), pieceOfQuery(most, last));
    });
    ColumnSpecs ofMonths = {text(u"month", u"月份", 96), quantity, money(u"gl_je", u"金额"),
                            money(u"gl_taxje", u"税额"), money(u"gl_zje", u"价税合计")};
    if (customer)
        ofMonths.push_back(costOnly(summed(column(u"gl_lr", u"毛利", ValueKind::amount))));
    addPage(QStringLiteral("按月汇总"), ofMonths,
            [this] { return statementMonths(session(), query()); });
    addPage(QStringLiteral("运费汇总"),
            {text(u"partner", u"编号", 96), name, text(u"yffs", u"运费付款方式", 112),
             summed(column(u"count", u"单据数", ValueKind::integer, 72)),
             summed(column(u"sl", u"数量", ValueKind::quantity)),
             money(u"yfje", customer ? u"应收金额" : u"应付金额"),
             money(u"sfje", customer ? u"实收金额" : u"实付金额"), money(u"yhje", u"优惠金额"),
             money(u"yf", u"运费"), money(u"bzf", u"包装费")},
            [this] { return statementFreight(session(), query()); });
}

StatementQuery StatementForm::query() const {
    StatementQuery query;
    query.kind = kind();
    query.partner = partner();
    query.from = period().from;
    query.to = period().to;
    query.warehouse = m_warehouse->code();
    query.number = m_number->text().trimmed();
    query.netted = true;
    query.newestFirst = m_newestFirst->isChecked();
    return query;
}

StatementQuery StatementForm::pieceOfQuery(int most, const Row *last) const {
    StatementQuery piece = query();
    piece.most = most;
    if (last != nullptr)
        piece.after = *last;
    return piece;
}

void StatementForm::btnStatementClick() {
    const QString number = currentPartner();
    if (number.isEmpty())
        tellNoRow(prompter());
    else
        previewStatement(context(), {kind(), number}, period().from, period().to, this);
}

} // namespace jxc
