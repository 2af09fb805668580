#include "stock/forms/document_lookup.h"

#include "core/session.h"
#include "stock/document_sources.h"
#include "ui/cost_story_window.h"
#include "ui/document_dialogs.h"
#include "ui/goods_columns.h"
#include "ui/list_form.h"
#include "ui/period_bar.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"
#include "ui/row_list.h"
#include "ui/tab_order.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QSplitter>
#include <QTimer>

namespace jxc {

namespace {

constexpr int searchDelay = 120;
constexpr int restDelay = 30;

/// What the shop pays is known to those alone who may see cost prices; only what customers pay is
/// on the counter for all to see.
bool showsMoney(const Session &session, QStringView code) {
    const DocumentSource *source = findDocumentSource(code);
    return session.rights.showCostPrice || (source != nullptr && source->partnerType == u"kh");
}

ColumnSpecs columnsOfAll() {
    return {text(u"title", u"类型", 96),
            text(u"number", u"单据号", 132),
            column(u"rq", u"日期", ValueKind::date),
            text(u"partner_name", u"往来单位", 168),
            text(u"ck_name", u"仓库", 112),
            summed(column(u"amount", u"金额", ValueKind::amount)),
            text(u"u_name", u"经手人", 80),
            text(u"a_name", u"操作员", 80),
            column(u"state", u"状态", ValueKind::status),
            text(u"checker", u"审核人", 80),
            text(u"note", u"备注", 160)};
}

ColumnSpecs columnsOfTrade(Trade trade) {
    const bool sale = trade == Trade::sale;
    const auto money = [sale](const char16_t *field, const char16_t *caption) {
        const ColumnSpec spec = summed(column(field, caption, ValueKind::amount, 104));
        return sale ? spec : costOnly(spec);
    };
    return {text(u"title", u"类型", 96),
            text(u"number", u"单据号", 132),
            column(u"rq", u"日期", ValueKind::date),
            text(u"partner_name", sale ? u"客户" : u"供货商", 160),
            text(u"ck_name", u"仓库", 88),
            money(u"yfje", sale ? u"应收金额" : u"应付金额"),
            money(u"sfje", sale ? u"实收金额" : u"实付金额"),
            money(u"yhje", u"优惠金额"),
            money(u"wfje", sale ? u"未收金额" : u"未付金额"),
            text(u"u_name", u"经手人", 80),
            text(u"a_name", u"操作员", 72),
            text(u"note", u"备注", 104),
            text(u"checker", u"审核人", 72),
            hidden(text(u"chkrq", u"审核时间", 150))};
}

ColumnSpecs lineColumns(const Parameters &parameters) {
    const bool taxed = parameters.pricesIncludeTax || !parameters.taxRate.isZero();
    return afterGoodsName(
        {summed(column(u"sl", u"数量", ValueKind::quantity)),
         column(u"dj", taxed ? u"含税单价" : u"单价", ValueKind::price),
         summed(column(u"zje", u"金额", ValueKind::amount)), text(u"t_ph", u"批号", 112),
         column(u"t_scrq", u"生产日期", ValueKind::date),
         column(u"t_yxq", u"有效期至", ValueKind::date), text(u"bz", u"备注", 140)});
}

} // namespace

DocumentLookup::DocumentLookup(const FormContext &context, const QString &className,
                               const QString &title, std::optional<Trade> trade, QWidget *parent)
    : Form(context, className, title, parent)
    , m_trade(trade)
    , m_actions(new ActionBar(this))
    , m_period(new PeriodBar(context.session.today(), PeriodChoice::thisMonth, this))
    , m_search(new QLineEdit(this))
    , m_batch(new QLineEdit(this))
    , m_kind(trade ? nullptr : new QComboBox(this))
    , m_state(trade ? nullptr : new QComboBox(this)) {
    const Formats formats(context.session.parameters);
    m_warehouse = new PickField(warehouseSource(context), formats, this);
    m_supplier =
        trade == Trade::sale
            ? nullptr
            : new PickField(partnerSource(context, Partner::Kind::supplier), formats, this);
    m_customer =
        trade == Trade::purchase
            ? nullptr
            : new PickField(partnerSource(context, Partner::Kind::customer), formats, this);
    m_clerk = new PickField(employeeSource(context, EmployeeDuty::any, {}), formats, this);
    m_goods = new PickField(
        goodsSource(context, trade == Trade::sale, [this] { return m_warehouse->code(); }), formats,
        this);
    m_grid = new Grid(context, className, trade ? columnsOfTrade(*trade) : columnsOfAll(), this);
    m_lines = new Grid(context, className + QStringLiteral("_Detail"),
                       lineColumns(context.session.parameters), this);
    m_rest = new QTimer(this);
    m_delay = new QTimer(this);
    m_grid->setTitle(title);
    m_lines->setTitle(title + QStringLiteral("明细"));
    build();
    addActions();
}

void DocumentLookup::build() {
    auto *split = new QSplitter(Qt::Vertical, this);
    split->setChildrenCollapsible(false);
    split->setHandleWidth(8);
    split->addWidget(m_grid);
    split->addWidget(m_lines);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 2);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(m_actions);
    layout->addLayout(makeFirstLine());
    layout->addLayout(makeSecondLine());
    layout->addWidget(split, 1);

    setTabsThrough({m_period, m_kind, m_state, m_search, m_warehouse, m_supplier, m_customer,
                    m_clerk, m_goods, m_batch, &m_grid->view(), &m_lines->view()});
    m_rest->setSingleShot(true);
    m_rest->setInterval(restDelay);
    m_delay->setSingleShot(true);
    m_delay->setInterval(searchDelay);
    connect(m_rest, &QTimer::timeout, this, &DocumentLookup::refreshLines);
    connect(m_delay, &QTimer::timeout, this, &DocumentLookup::refresh);
    connect(m_grid, &Grid::currentChanged, m_rest, qOverload<>(&QTimer::start));
    connect(m_grid, &Grid::activated, this, &DocumentLookup::btnOpenClick);
    connect(m_lines, &Grid::activated, this, &DocumentLookup::btnOpenClick);
    connect(m_period, &PeriodBar::periodChanged, this, &DocumentLookup::refresh);
    for (QLineEdit *box : {m_search, m_batch}) {
        box->setClearButtonEnabled(true);
        box->setMaxLength(100);
        connect(box, &QLineEdit::textChanged, m_delay, qOverload<>(&QTimer::start));
        connect(box, &QLineEdit::returnPressed, this, [this] {
            m_delay->stop();
            refresh();
            m_grid->setFocus();
        });
    }
    m_grid->model().setTone([](const Row &row, const ColumnSpec &column) {
        return column.field == u"wfje" && !row.decimal(u"wfje").isZero() ? Tone::danger
                                                                         : Tone::plain;
    });
    resize(1280, 720);
}

QLayout *DocumentLookup::makeFirstLine() {
    auto *line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(m_period);
    if (!m_trade) {
        m_kind->setObjectName(QStringLiteral("cbbKind"));
        m_kind->addItem(QStringLiteral("全部类型"), QString());
        for (const DocumentSource &source : documentSources())
            m_kind->addItem(source.title, source.code);
        m_kind->setMaxVisibleItems(m_kind->count());
        m_state->setObjectName(QStringLiteral("cbbState"));
        m_state->addItem(QStringLiteral("全部状态"), static_cast<int>(DocumentState::any));
        m_state->addItem(QStringLiteral("未审核"), static_cast<int>(DocumentState::draft));
        m_state->addItem(QStringLiteral("已审核"), static_cast<int>(DocumentState::approved));
        for (QComboBox *box : {m_kind, m_state}) {
            line->addWidget(box);
            connect(box, &QComboBox::currentIndexChanged, this, &DocumentLookup::refresh);
        }
    }
    line->addStretch(1);
    return line;
}

QLayout *DocumentLookup::makeSecondLine() {
    auto *line = new QHBoxLayout;
    line->setSpacing(8);
    // On a small screen at a large scale the fields give way, not the window.
    const auto room = [&](QLineEdit *field, int width) {
        field->setMinimumWidth(width / 2);
        field->setMaximumWidth(width);
        line->addWidget(field, width);
    };
    const auto add = [&](PickField *field, const char *name, const QString &hint, int width) {
        if (field == nullptr)
            return;
        setUp(field, QString::fromLatin1(name), hint);
        room(field, width);
    };
    m_search->setObjectName(QStringLiteral("edtSearch"));
    m_search->setPlaceholderText(QStringLiteral("查找 F3：单号、备注"));
    room(m_search, 208);
    add(m_warehouse, "edtWarehouse", QStringLiteral("仓库"), 112);
    add(m_supplier, "edtSupplier", QStringLiteral("供货商"), 152);
    add(m_customer, "edtCustomer", QStringLiteral("客户"), 152);
    add(m_clerk, "edtClerk", QStringLiteral("经手人"), 104);
    add(m_goods, "edtGoods", QStringLiteral("商品：含有它的单据"), 200);
    m_batch->setObjectName(QStringLiteral("edtBatch"));
    m_batch->setPlaceholderText(QStringLiteral("批号"));
    room(m_batch, 128);
    line->addStretch(1);
    return line;
}

void DocumentLookup::setUp(PickField *field, const QString &name, const QString &hint) {
    field->setObjectName(name);
    field->setPlaceholderText(hint);
    field->setClearable(true);
    connect(field, &PickField::chosen, this, [this, field](const Row &row) {
        if (field == m_goods)
            field->setChoice(row.text(u"g_sn"), row.text(u"g_name"));
        // A document has one partner: the other field would leave nothing.
        if (field == m_supplier && m_customer != nullptr)
            m_customer->setChoice({}, {});
        if (field == m_customer && m_supplier != nullptr)
            m_supplier->setChoice({}, {});
        refresh();
    });
    connect(field, &PickField::cleared, this, &DocumentLookup::refresh);
}

void DocumentLookup::addActions() {
    const auto add = [this](const char *name, const QString &caption, const QKeySequence &key,
                            std::function<void()> run) {
        return m_actions->add(QString::fromLatin1(name), caption, key, std::move(run));
    };
    QAction *open =
        add("btnOpen", QStringLiteral("打开单据"), Qt::Key_F4, [this] { btnOpenClick(); });
    QAction *history = add("btnPriceHistory", QStringLiteral("历史价"), Qt::Key_F10,
                           [this] { btnPriceHistoryClick(); });
    QList<QAction *> ofLines = {open, history};
    if (session().rights.showCostPrice)
        ofLines << add("btnCost", QStringLiteral("为什么是这个成本？"),
                       QKeySequence(QStringLiteral("Ctrl+Y")), [this] { btnCostClick(); });
    m_actions->addSeparator();
    add("btnRefresh", QStringLiteral("刷新"), Qt::Key_F5, [this] { refresh(); });
    add("btnPrint", QStringLiteral("打印"), Qt::Key_F12, [this] { m_grid->print(); });
    add("btnExport", QStringLiteral("导出"), QKeySequence(QStringLiteral("Ctrl+E")),
        [this] { m_grid->chooseExport(); });
    add("btnExit", QStringLiteral("退出"), {}, [this] { reject(); });
    m_grid->setOwnActions({open});
    m_lines->setOwnActions(ofLines);
    auto *find = new QAction(this);
    find->setShortcut(Qt::Key_F3);
    connect(find, &QAction::triggered, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    addAction(find);
}

void DocumentLookup::FormActivate() {
    refresh();
    m_grid->setFocus();
}

PickField *DocumentLookup::partnerField() const {
    const bool byCustomer = m_customer != nullptr && !m_customer->code().isEmpty();
    return byCustomer || m_supplier == nullptr ? m_customer : m_supplier;
}

DocumentQuery DocumentLookup::query() const {
    DocumentQuery query;
    const Period period = m_period->period();
    query.from = period.from;
    query.to = period.to;
    query.partner = partnerField()->code();
    query.partnerType = partnerField() == m_customer ? QStringLiteral("kh") : QStringLiteral("ghs");
    query.warehouse = m_warehouse->code();
    query.clerk = m_clerk->code();
    query.goods = m_goods->code();
    query.batch = m_batch->text().trimmed();
    query.search = m_search->text().trimmed();
    if (!m_trade) {
        if (const QString code = m_kind->currentData().toString(); !code.isEmpty())
            query.codes = {code};
        query.state = static_cast<DocumentState>(m_state->currentData().toInt());
    }
    return query;
}

/// The filters in words, for paper and export.
QStringList DocumentLookup::notes() const {
    const Period period = m_period->period();
    QStringList notes = {QStringLiteral("日期：%1 至 %2").arg(period.from, period.to)};
    for (const auto &[field, word] :
         {std::pair(m_warehouse, u"仓库"), std::pair(m_supplier, u"供货商"),
          std::pair(m_customer, u"客户"), std::pair(m_clerk, u"经手人"),
          std::pair(m_goods, u"商品")})
        if (field != nullptr && !field->code().isEmpty())
            notes << QStringLiteral("%1：%2").arg(QString::fromUtf16(word), field->name());
    if (const QString batch = m_batch->text().trimmed(); !batch.isEmpty())
        notes << QStringLiteral("批号：") + batch;
    return notes;
}

Rows DocumentLookup::readAll() const {
    RowList list({u"code", u"title", u"number", u"rq", u"partner_sn", u"partner_name", u"ck_sn",
                  u"ck_name", u"amount", u"u_name", u"a_name", u"state", u"checker", u"note"});
    for (const Row &row : findDocuments(session(), query())) {
        const QString code = row.text(u"code");
        list.add({code, row.text(u"title"), row.text(u"number"), row.text(u"rq"),
                  row.text(u"partner_sn"), row.text(u"partner_name"), row.text(u"ck_sn"),
                  row.text(u"ck_name"),
                  showsMoney(session(), code) ? Cell(row.decimal(u"amount")) : Cell(),
                  row.text(u"u_name"), row.text(u"a_name"), row.integer(u"state"),
                  row.text(u"checker"), row.text(u"note")});
    }
    return list.take();
}

void DocumentLookup::refresh() {
    const QString stay = m_grid->currentText(u"number");
    m_grid->setNotes(notes());
    m_grid->setRows(m_trade ? findTrade(session(), *m_trade, query()) : readAll());
    m_grid->goTo(u"number", stay);
}

void DocumentLookup::refreshLines() {
    const QString code = m_grid->currentText(u"code");
    if (code.isEmpty()) {
        m_lines->setRows({});
        return;
    }
    const bool money = showsMoney(session(), code);
    RowList list({u"g_sn", u"g_name", u"g_tym", u"g_yjlx", u"gg_name", u"dw_name", u"g_sccs",
                  u"color_name", u"sl", u"dj", u"zje", u"bz", u"t_ph", u"t_scrq", u"t_yxq"});
    for (const Row &row : documentLines(session(), code, m_grid->currentText(u"number")))
        list.add({row.text(u"g_sn"), row.text(u"g_name"), row.text(u"g_tym"), row.text(u"g_yjlx"),
                  row.text(u"gg_name"), row.text(u"dw_name"), row.text(u"g_sccs"),
                  row.text(u"color_name"), row.decimal(u"sl"),
                  money ? Cell(row.decimal(u"dj")) : Cell(),
                  money ? Cell(row.decimal(u"zje")) : Cell(), row.text(u"bz"), row.text(u"t_ph"),
                  row.text(u"t_scrq"), row.text(u"t_yxq")});
    m_lines->setRows(list.take());
    // The goods that was asked for is what the reader looks at.
    m_lines->goTo(u"g_sn", m_goods->code());
}

void DocumentLookup::btnOpenClick() {
    if (m_grid->current() == nullptr)
        tellNoRow(prompter());
    else
        context().stage.openDocument(m_grid->currentText(u"number"));
}

void DocumentLookup::btnPriceHistoryClick() {
    if (m_lines->current() == nullptr) {
        tellNoRow(prompter());
        return;
    }
    const QString code = m_grid->currentText(u"code");
    const bool sale = findDocumentSource(code)->partnerType == u"kh";
    showPastPrices(context(), documentFormSpec(sale ? QStringLiteral("XS") : QStringLiteral("CJ")),
                   {m_lines->currentText(u"g_sn"), m_lines->currentText(u"g_name")},
                   m_grid->currentText(u"partner_sn"), this);
}

void DocumentLookup::btnCostClick() {
    if (m_lines->current() == nullptr)
        tellNoRow(prompter());
    else
        showCostStory(context(), {m_lines->currentText(u"g_sn"), m_grid->currentText(u"ck_sn")},
                      {m_grid->currentText(u"rq")}, this);
}

} // namespace jxc
