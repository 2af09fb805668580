#include "ui/document_list.h"

#include "core/rights.h"
#include "core/session.h"
#include "stock/documents.h"
#include "stock/draft.h"
#include "stock/posting.h"
#include "ui/document_dialogs.h"
#include "ui/document_editor.h"
#include "ui/document_print.h"
#include "ui/grid_msg.h"
#include "ui/line_table.h"
#include "ui/list_form.h"
#include "ui/period_bar.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"
#include "ui/piece_reader.h"
#include "ui/progress.h"
#include "ui/row_list.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QSplitter>
#include <QTabBar>
#include <QTimer>

namespace jxc {

DocumentList::DocumentList(const FormContext &context, const DocumentFormSpec &spec,
                           QWidget *parent)
    : Form(context, spec.formClass, spec.title(), parent)
    , m_spec(spec)
    , m_actions(new ActionBar(this))
    , m_tabs(new QTabBar(this))
    , m_period(new PeriodBar(context.session.today(), PeriodChoice::allTime, this))
    , m_search(new QLineEdit(this))
    , m_warehouse(
          new PickField(warehouseSource(context), Formats(context.session.parameters), this))
    , m_partner(new PickField(partnerSource(context, spec.kind->partnerKind),
                              Formats(context.session.parameters), this))
    , m_goods(new PickField(goodsSource(context, spec.isSale(), [] { return QString(); }),
                            Formats(context.session.parameters), this))
    , m_grid(new Grid(context, spec.formClass, headColumns(), this))
    , m_lines(new Grid(context, spec.formClass + QStringLiteral("_Detail"), lineColumnsOfKind(),
                       this)) {
    build();
    connect(&m_grid->pieces(), &PieceReader::whole, this, &DocumentList::showCount);
    // Kinds of their own add tabs and actions once they are whole.
    QTimer::singleShot(0, this, [this] { m_grid->setOwnActions(actions()); });
}

void DocumentList::build() {
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    m_tabs->setUsesScrollButtons(false);
    m_tabs->setElideMode(Qt::ElideNone);
    m_tabs->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred); // never cut off
    m_tabs->addTab(QStringLiteral("待审核"));
    m_tabs->addTab(QStringLiteral("已审核"));
    m_search->setPlaceholderText(QStringLiteral("查找 F3：单号、备注"));
    m_search->setMinimumWidth(152);
    m_search->setMaximumWidth(320);
    m_search->setClearButtonEnabled(true);
    m_search->setMaxLength(100);
    for (auto [field, hint] :
         {std::pair(m_warehouse, QStringLiteral("仓库")), std::pair(m_partner, m_spec.partnerWord),
          std::pair(m_goods, QStringLiteral("商品"))}) {
        field->setPlaceholderText(hint);
        field->setClearable(true);
        field->setFixedWidth(88);
        connect(field, &PickField::chosen, this, &DocumentList::refresh);
        connect(field, &PickField::cleared, this, &DocumentList::refresh);
    }
    m_grid->setTitle(m_spec.title());
    m_grid->model().setTone([](const Row &row, const ColumnSpec &column) {
        return column.field == u"rest" && row.decimal(u"rest").isPositive() ? Tone::danger
                                                                            : Tone::plain;
    });
    m_lines->setTitle(m_spec.title() + QStringLiteral("明细"));
    addActions();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(m_actions);
    // One line, or two on a screen that is small at its scale.
    constexpr int oneLine = 1100;
    const bool narrow = QGuiApplication::primaryScreen()->availableSize().width() < oneLine;
    auto *line = new QBoxLayout(narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    line->setSpacing(8);
    auto *which = new QHBoxLayout;
    which->setSpacing(8);
    which->addWidget(m_tabs);
    which->addWidget(m_period);
    if (narrow)
        which->addStretch(1);
    line->addLayout(which);
    auto *filters = new QHBoxLayout;
    filters->setSpacing(8);
    filters->addWidget(m_warehouse);
    filters->addWidget(m_partner);
    filters->addWidget(m_goods);
    filters->addWidget(m_search, 1);
    filters->addStretch(0);
    line->addLayout(filters, 1);
    layout->addLayout(line);
    auto *split = new QSplitter(Qt::Vertical, this);
    split->setChildrenCollapsible(false);
    split->setHandleWidth(8);
    split->addWidget(m_grid);
    split->addWidget(m_lines);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 2);
    layout->addWidget(split, 1);

    connect(m_tabs, &QTabBar::currentChanged, this, [this] {
        // Approved documents are many: this month's at first.
        if (tab() == 1)
            m_period->choose(PeriodChoice::thisMonth);
        else
            m_period->choose(PeriodChoice::allTime);
    });
    connect(m_period, &PeriodBar::periodChanged, this, &DocumentList::refresh);
    connect(m_search, &QLineEdit::returnPressed, this, [this] {
        refresh();
        m_grid->setFocus();
    });
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (text.isEmpty())
            refresh();
    });
    connect(m_grid, &Grid::activated, this, &DocumentList::btnModifyClick);
    // The lines follow once the selection rests.
    auto *rest = new QTimer(this);
    rest->setSingleShot(true);
    rest->setInterval(30);
    connect(m_grid, &Grid::currentChanged, rest, qOverload<>(&QTimer::start));
    connect(rest, &QTimer::timeout, this, &DocumentList::refreshLines);
    resize(1280, 720);
    setFillsParent(true);
}

QAction *DocumentList::addAction(const QString &name, const QString &caption,
                                 const QKeySequence &key, std::function<void()> run) {
    return m_actions->add(name, caption, key, std::move(run));
}

void DocumentList::addActions() {
    const auto add = [this](const char *name, const QString &caption, const QKeySequence &key,
                            void (DocumentList::*run)()) {
        return addAction(QString::fromLatin1(name), caption, key, [this, run] { (this->*run)(); });
    };
    add("btnAdd", QStringLiteral("新增"), Qt::Key_Insert, &DocumentList::btnAddClick);
    add("btnModify", QStringLiteral("修改"), Qt::Key_F4, &DocumentList::btnModifyClick);
    add("btnDelete", QStringLiteral("删除"), Qt::Key_Delete, &DocumentList::btnDeleteClick);
    if (!m_spec.followsSource)
        add("btnCopy", QStringLiteral("复制单据"), QKeySequence(QStringLiteral("Ctrl+D")),
            &DocumentList::btnCopyClick);
    m_actions->addSeparator();
    add("btnCheck", QStringLiteral("审核"), Qt::Key_F8, &DocumentList::btnCheckClick);
    add("btnCheckAll", QStringLiteral("全部审核"), QKeySequence(QStringLiteral("Shift+F8")),
        &DocumentList::btnCheckAllClick);
    add("btnCancel", QStringLiteral("取消审核"), Qt::Key_F9, &DocumentList::btnCancelClick);
    m_actions->markPlace();
    m_actions->addSeparator();
    add("btnPrint", QStringLiteral("打印"), Qt::Key_F12, &DocumentList::btnPrintClick);
    addAction(QStringLiteral("btnExport"), QStringLiteral("导出"),
              QKeySequence(QStringLiteral("Ctrl+E")), [this] { m_grid->chooseExport(); });
    addAction(QStringLiteral("btnExit"), QStringLiteral("退出"), {}, [this] { reject(); });
    if (m_spec.hasMoney) {
        auto *history = new QAction(QStringLiteral("历史价格"), this);
        history->setShortcut(Qt::Key_F10);
        connect(history, &QAction::triggered, this, &DocumentList::btnPriceHistoryClick);
        QWidget::addAction(history);
        m_lines->setOwnActions({history});
    }
    auto *find = new QAction(this);
    find->setShortcut(Qt::Key_F3);
    connect(find, &QAction::triggered, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    QWidget::addAction(find);
}

ColumnSpecs DocumentList::headColumns() const {
    ColumnSpecs columns = {text(u"number", u"单据号", 132),
                           column(u"date", u"日期", ValueKind::date),
                           text(u"partner", m_spec.isSale() ? u"客户" : u"供货商", 152),
                           text(u"warehouse", u"仓库", 88)};
    if (m_spec.hasMoney) {
        columns.push_back(
            summed(column(u"due", m_spec.isSale() ? u"应收金额" : u"应付金额", ValueKind::amount)));
        columns.push_back(summed(
            column(u"paid", m_spec.isSale() ? u"实收金额" : u"实付金额", ValueKind::amount)));
        columns.push_back(summed(column(u"off", u"优惠金额", ValueKind::amount, 88)));
        columns.push_back(summed(
            column(u"rest", m_spec.isSale() ? u"未收金额" : u"未付金额", ValueKind::amount)));
    } else {
        columns.push_back(summed(column(u"quantity", u"数量", ValueKind::quantity)));
    }
    columns.push_back(text(u"clerk", u"经手人", 76));
    columns.push_back(text(u"operator", u"操作员", 72));
    columns.push_back(text(u"note", u"备注", 100));
    columns.push_back(text(u"checker", u"审核人", 72));
    columns.push_back(text(u"checkDate", u"审核时间", 104));
    return columns;
}

ColumnSpecs DocumentList::lineColumnsOfKind() const {
    ColumnSpecs columns = {text(u"g_sn", u"商品编号", 92),
                           text(u"g_name", u"商品名称", 176),
                           text(u"g_tym", u"有效成分", 88),
                           hidden(text(u"g_yjlx", u"剂型", 72)),
                           text(u"gg_name", u"规格", 72),
                           text(u"dw_name", u"单位", 52),
                           summed(column(u"quantity", u"数量", ValueKind::quantity, 76))};
    if (m_spec.hasMoney) {
        const Parameters &p = context().session.parameters;
        columns.push_back(p.pricesIncludeTax
                              ? column(u"taxPrice", u"含税单价", ValueKind::price, 80)
                              : column(u"price", u"单价", ValueKind::price, 80));
        if (m_spec.isSale())
            columns.push_back(column(u"discount", u"折扣", ValueKind::factor, 56));
        columns.push_back(summed(column(u"total", u"金额", ValueKind::amount, 96)));
        if (p.pricesIncludeTax || !p.taxRate.isZero())
            columns.push_back(summed(column(u"taxAmount", u"税额", ValueKind::amount, 88)));
        if (m_spec.isSale()) {
            columns.push_back(
                hidden(sellingPriceOnly(column(u"retailPrice", u"零售价", ValueKind::price))));
            columns.push_back(hidden(costOnly(column(u"cost", u"成本", ValueKind::price))));
            columns.push_back(
                hidden(costOnly(summed(column(u"profit", u"毛利", ValueKind::amount)))));
            columns.push_back(hidden(text(u"gift", u"赠品", 64)));
        }
        if (!m_spec.isReturn) {
            columns.push_back(hidden(
                column(u"done", m_spec.isSale() ? u"已出数量" : u"已入数量", ValueKind::quantity)));
            columns.push_back(hidden(column(u"cancelled", u"取消数量", ValueKind::quantity)));
        }
    }
    columns.push_back(text(u"batch", u"批号", 100));
    columns.push_back(column(u"produced", u"生产日期", ValueKind::date, 96));
    columns.push_back(column(u"expiry", u"有效期至", ValueKind::date, 96));
    if (m_spec.followsSource || m_spec.isReturn)
        columns.push_back(text(u"source", u"原单号", 124));
    columns.push_back(text(u"maker", u"生产厂商", 120));
    columns.push_back(text(u"note", u"备注", 72));
    return columns;
}

void DocumentList::addOwnTab(const QString &caption) {
    const QSignalBlocker quiet(m_tabs);
    m_tabs->insertTab(m_ownTabs++, caption);
    m_tabs->setCurrentIndex(0);
}

void DocumentList::useColumnsOfTab() {
    if (m_ownColumns == isOnOwnTab())
        return;
    m_ownColumns = isOnOwnTab();
    m_grid->setName(m_spec.formClass + (m_ownColumns ? QStringLiteral("_Source") : QString()));
    m_grid->setColumns(m_ownColumns ? ownColumns() : headColumns());
}

QString DocumentList::warehouse() const {
    return m_warehouse->code();
}

int DocumentList::tab() const {
    return m_tabs->currentIndex() - m_ownTabs;
}

bool DocumentList::showsApproved() const {
    return tab() == 1;
}

void DocumentList::showApproved(bool approved) {
    m_tabs->setCurrentIndex(m_ownTabs + (approved ? 1 : 0));
}

void DocumentList::FormActivate() {
    m_lines->setColumns(lineColumnsOfKind());
    refresh();
    m_grid->setFocus();
}

void DocumentList::refresh() {
    useColumnsOfTab();
    if (isOnOwnTab()) {
        const QString stay = currentNumber();
        m_grid->setRows(ownRows());
        m_grid->goTo(u"number", stay);
        return;
    }
    const QString stay = m_goTo.isEmpty() ? currentNumber() : std::exchange(m_goTo, {});
    m_grid->pieces().start(
        [this](int most, const Row *last) { return readPiece(most, last == nullptr); });
    m_grid->goTo(u"number", stay);
    showCount();
}

bool DocumentList::isReading() const {
    return m_grid->pieces().isReading();
}

void DocumentList::showCount() {
    m_tabs->setTabText(m_tabs->currentIndex(),
                       (showsApproved() ? QStringLiteral("已审核 %1") : QStringLiteral("待审核 %1"))
                           .arg(m_grid->model().rows().size()));
}

Rows DocumentList::readPiece(int most, bool isFirst) {
    if (isFirst)
        m_lastId = 0;
    DocumentFilter filter;
    filter.code = m_spec.code();
    filter.approved = showsApproved();
    filter.fromDate = m_period->period().from;
    filter.toDate = m_period->period().to;
    filter.warehouse = m_warehouse->code();
    filter.partner = m_partner->code();
    filter.goods = m_goods->code();
    filter.search = m_search->text().trimmed();
    filter.most = most;
    filter.afterDate = m_lastDate;
    filter.afterId = m_lastId;
    RowList list({u"number", u"date", u"partner", u"partnerNo", u"warehouse", u"due", u"paid",
                  u"off", u"rest", u"quantity", u"clerk", u"operator", u"note", u"checker",
                  u"checkDate"});
    for (DocumentRow &r : listDocuments(session(), filter)) {
        m_lastId = r.id;
        m_lastDate = r.date;
        list.add({std::move(r.number), std::move(r.date), std::move(r.partnerName),
                  std::move(r.partner), std::move(r.warehouseName), r.due, r.paid, r.off, r.rest,
                  r.quantity, std::move(r.clerkName), std::move(r.operatorName), std::move(r.note),
                  std::move(r.checker), std::move(r.checkDate)});
    }
    return list.take();
}

void DocumentList::refreshLines() {
    RowList list({u"g_sn",        u"g_name",   u"g_tym",    u"g_yjlx",   u"gg_name", u"dw_name",
                  u"quantity",    u"price",    u"taxPrice", u"discount", u"total",   u"taxAmount",
                  u"retailPrice", u"cost",     u"profit",   u"gift",     u"done",    u"cancelled",
                  u"batch",       u"produced", u"expiry",   u"source",   u"maker",   u"note"});
    if (const QString number = currentNumber(); !number.isEmpty())
        for (const DocumentLineRow &r : documentLines(session(), number))
            list.add({r.goods,  r.name,         r.commonName,  r.dosageForm, r.specification,
                      r.unit,   r.quantity,     r.price,       r.taxPrice,   r.discount,
                      r.total,  r.taxAmount,    r.retailPrice, r.cost,       r.profit,
                      r.gift,   r.done,         r.cancelled,   r.batch,      r.produced,
                      r.expiry, r.sourceNumber, r.maker,       r.note});
    m_lines->setRows(list.take());
}

QString DocumentList::currentNumber() const {
    return m_grid->currentText(u"number");
}

QString DocumentList::neededNumber() {
    const QString number = currentNumber();
    if (number.isEmpty() || isOnOwnTab()) {
        tellNoRow(prompter());
        return {};
    }
    return number;
}

bool DocumentList::may(int right) const {
    return hasRight(session(), m_spec.kind->rightGroup, right);
}

bool DocumentList::refuseWithout(int right, const QString &action) {
    if (may(right))
        return false;
    showNoRightMessage(prompter(), action + QStringLiteral("！"));
    return true;
}

DocumentEditor *DocumentList::editor() const {
    return m_editor;
}

DocumentEditor *DocumentList::makeEditor() {
    auto *editor = new DocumentEditor(context(), m_spec, this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &DocumentEditor::saved, this, &DocumentList::afterChange);
    connect(editor, &QDialog::finished, this, [this] {
        activateWindow();
        m_grid->setFocus();
    });
    m_editor = editor;
    return editor;
}

void DocumentList::afterChange(const QString &number) {
    m_goTo = number;
    refresh();
}

void DocumentList::btnAddClick() {
    if (refuseWithout(m_spec.kind->entryRight, m_spec.title()))
        return;
    DocumentEditor *editor = makeEditor();
    editor->showModal();
    editor->startNew();
}

void DocumentList::edit(const QString &number) {
    DocumentEditor *editor = makeEditor();
    editor->showModal();
    editor->openNumber(number);
    editor->FormActivate();
}

void DocumentList::btnModifyClick() {
    if (isOnOwnTab()) {
        openOwnRow();
        return;
    }
    const QString number = neededNumber();
    if (number.isEmpty())
        return;
    // Reading an approved document needs no right beyond this form's.
    if (!showsApproved() && refuseWithout(m_spec.kind->entryRight, m_spec.title()))
        return;
    edit(number);
}

void DocumentList::btnDeleteClick() {
    const QString number = neededNumber();
    if (!number.isEmpty() && show(deleteDraft(session(), prompter(), number)))
        refresh();
}

void DocumentList::btnCheckClick() {
    const QString number = neededNumber();
    if (number.isEmpty())
        return;
    const Outcome outcome = approveDocument(session(), prompter(), number);
    if (show(outcome) && session().parameters.printsAfterApproval)
        printDocumentNow(context(), number, this);
    refresh();
}

/// All that the list shows, one by one; what is refused is told at the end.
void DocumentList::btnCheckAllClick() {
    if (showsApproved() || isOnOwnTab())
        return;
    if (refuseWithout(m_spec.kind->approveRight, m_spec.title() + QStringLiteral("审核")))
        return;
    m_grid->pieces().finish();
    QStringList numbers;
    for (int line = 0; line < m_grid->model().rowCount(); ++line)
        numbers.prepend(m_grid->model().at(line).text(u"number")); // oldest first
    if (numbers.isEmpty()) {
        tellNoRow(prompter());
        return;
    }
    Progress progress(QStringLiteral("正在审核"), numbers.size(), this);
    RowList refused({u"number", u"text"});
    bool any = false;
    for (const ApprovedNumber &done :
         approveAll(session(), prompter(), numbers, [&](qsizetype n) { return progress.reach(n); }))
        if (!done.outcome.isDone()) {
            any = true;
            refused.add(
                {done.number,
                 QString(done.outcome.text).replace(QStringLiteral("\r\n"), QStringLiteral(" "))});
        }
    progress.finish();
    refresh();
    if (!any)
        return;
    TF_GridMsg message(context(), QStringLiteral("TF_GridMsg"), QStringLiteral("未能审核的单据"),
                       {text(u"number", u"单据号", 140), text(u"text", u"原因", 520)},
                       refused.take(), this);
    message.exec();
}

void DocumentList::btnCancelClick() {
    const QString number = neededNumber();
    if (number.isEmpty())
        return;
    show(cancelDocument(session(), prompter(), number));
    refresh();
}

void DocumentList::btnCopyClick() {
    const QString number = neededNumber();
    if (number.isEmpty() || refuseWithout(m_spec.kind->entryRight, m_spec.title()))
        return;
    const std::optional<Draft> copy = copyDraft(session(), number);
    if (!copy)
        return;
    DocumentEditor *editor = makeEditor();
    editor->showModal();
    editor->open(*copy);
    editor->table().setFocus();
}

void DocumentList::btnPrintClick() {
    const QString number = neededNumber();
    if (!number.isEmpty())
        printDocument(context(), number, this);
}

void DocumentList::btnPriceHistoryClick() {
    const GoodsName goods{m_lines->currentText(u"g_sn"), m_lines->currentText(u"g_name")};
    if (!goods.code.isEmpty())
        showPastPrices(context(), m_spec, goods, m_grid->currentText(u"partnerNo"), this);
}

} // namespace jxc
