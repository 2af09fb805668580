#include "money/forms/ledger_tabs.h"

#include "core/session.h"
#include "ui/list_form.h"
#include "ui/period_bar.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"

#include <QAction>
#include <QCheckBox>
#include <QTabBar>
#include <QTabWidget>

namespace jxc {

namespace {

bool hasField(const Row &row, QStringView field) {
    const auto &names = row.columns().names();
    return std::find(names.begin(), names.end(), field) != names.end();
}

QString fieldOf(const Row &row, std::initializer_list<QStringView> fields) {
    for (const QStringView field : fields)
        if (hasField(row, field))
            return row.text(field);
    return {};
}

} // namespace

LedgerTabs::LedgerTabs(const FormContext &context, const QString &className, const QString &title,
                       Partner::Kind kind, int firstPeriod, QWidget *parent)
    : Form(context, className, title, parent)
    , m_kind(kind)
    , m_actions(new ActionBar(this))
    , m_filters(new QHBoxLayout)
    , m_tabs(new QTabWidget(this)) {
    build(firstPeriod);
    resize(1280, 680);
    setFillsParent(true);
}

void LedgerTabs::build(int firstPeriod) {
    m_period = new PeriodBar(session().today(), static_cast<PeriodChoice>(firstPeriod), this);
    m_partner =
        new PickField(partnerSource(context(), m_kind), Formats(session().parameters), this);
    m_partner->setObjectName(QStringLiteral("edtPartner"));
    m_partner->setPlaceholderText(m_kind == Partner::Kind::customer
                                      ? QStringLiteral("全部客户 F3")
                                      : QStringLiteral("全部供货商 F3"));
    m_partner->setClearable(true);
    m_partner->setMaximumWidth(200);
    m_filters->setSpacing(12);
    m_filters->addWidget(m_period);
    m_filters->addWidget(m_partner);
    m_filters->addStretch(1);
    m_tabs->setObjectName(QStringLiteral("tabs"));
    m_tabs->setDocumentMode(true);
    m_tabs->tabBar()->setFocusPolicy(Qt::NoFocus);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(m_actions);
    layout->addLayout(m_filters);
    layout->addWidget(m_tabs, 1);

    connect(m_period, &PeriodBar::periodChanged, this, &LedgerTabs::refresh);
    connect(m_partner, &PickField::chosen, this, &LedgerTabs::refresh);
    connect(m_partner, &PickField::cleared, this, &LedgerTabs::refresh);
    connect(m_tabs, &QTabWidget::currentChanged, this, [this] {
        refresh();
        currentGrid().setFocus();
    });
    auto *find = new QAction(this);
    find->setShortcut(Qt::Key_F3);
    connect(find, &QAction::triggered, this, [this] {
        m_partner->setFocus();
        m_partner->selectAll();
    });
    addAction(find);
}

void LedgerTabs::addPage(const QString &caption, const ColumnSpecs &columns,
                         std::function<Rows()> read) {
    addTable(caption, columns, [read = std::move(read)](Grid &grid) { grid.setRows(read()); });
}

void LedgerTabs::addLongPage(const QString &caption, const ColumnSpecs &columns,
                             PieceReader::Source read) {
    addTable(caption, columns, [read = std::move(read)](Grid &grid) { grid.pieces().start(read); });
}

void LedgerTabs::addTable(const QString &caption, const ColumnSpecs &columns,
                          std::function<void(Grid &)> show) {
    auto *grid =
        new Grid(context(), QStringLiteral("%1_%2").arg(objectName()).arg(m_tables.size() + 1),
                 columns, this);
    grid->setTitle(windowTitle() + QStringLiteral(" － ") + caption);
    connect(grid, &Grid::activated, this, &LedgerTabs::btnOpenClick);
    m_tables.push_back({grid, std::move(show)});
    const QSignalBlocker quiet(m_tabs); // the first page is read when the form is shown
    m_tabs->addTab(grid, caption);
}

QCheckBox *LedgerTabs::addBox(const char *name, const QString &caption, bool on) {
    auto *box = new QCheckBox(caption, this);
    box->setObjectName(QString::fromLatin1(name));
    box->setChecked(on);
    m_filters->insertWidget(m_filters->count() - 1, box);
    connect(box, &QCheckBox::toggled, this, &LedgerTabs::refresh);
    return box;
}

void LedgerTabs::addCommonActions() {
    const auto add = [this](const char *name, const QString &caption, const QKeySequence &key,
                            std::function<void()> run) {
        m_actions->add(QString::fromLatin1(name), caption, key, std::move(run));
    };
    add("btnOpen", QStringLiteral("打开单据"), Qt::Key_F4, [this] { btnOpenClick(); });
    m_actions->addSeparator();
    add("btnRefresh", QStringLiteral("刷新"), Qt::Key_F5, [this] { refresh(); });
    add("btnPrint", QStringLiteral("打印"), Qt::Key_F12, [this] { currentGrid().print(); });
    add("btnExport", QStringLiteral("导出"), QKeySequence(QStringLiteral("Ctrl+E")),
        [this] { currentGrid().chooseExport(); });
    add("btnExit", QStringLiteral("退出"), {}, [this] { reject(); });
    for (const Table &table : m_tables)
        table.grid->setOwnActions(actions());
    auto *next = new QAction(this);
    next->setShortcut(QKeySequence(QStringLiteral("Ctrl+Tab")));
    connect(next, &QAction::triggered, this,
            [this] { showPage((m_tabs->currentIndex() + 1) % m_tabs->count()); });
    addAction(next);
}

void LedgerTabs::FormActivate() {
    refresh();
    currentGrid().setFocus();
}

Grid &LedgerTabs::gridOf(int page) const {
    return *m_tables[static_cast<size_t>(page)].grid;
}

Grid &LedgerTabs::currentGrid() const {
    return gridOf(qMax(0, m_tabs->currentIndex()));
}

void LedgerTabs::showPage(int page) {
    m_tabs->setCurrentIndex(page);
}

void LedgerTabs::choosePartner(const QString &partner) {
    m_partner->setCode(partner);
}

QString LedgerTabs::partner() const {
    return m_partner->code();
}

QString LedgerTabs::partnerName() const {
    return m_partner->name();
}

Period LedgerTabs::period() const {
    return m_period->period();
}

QString LedgerTabs::currentPartner() const {
    const Row *row = currentGrid().current();
    const QString own = row == nullptr ? QString() : fieldOf(*row, {u"partner"});
    return own.isEmpty() ? partner() : own;
}

/// The filters in words, for paper and export.
QStringList LedgerTabs::notes() const {
    const bool customer = m_kind == Partner::Kind::customer;
    const QString all = customer ? QStringLiteral("全部客户") : QStringLiteral("全部供货商");
    return {QStringLiteral("%1：%2　日期：%3 至 %4")
                .arg(customer ? QStringLiteral("客户") : QStringLiteral("供货商"),
                     partner().isEmpty() ? all : partnerName(), period().from, period().to)};
}

void LedgerTabs::refresh() {
    const Table &table = m_tables[static_cast<size_t>(qMax(0, m_tabs->currentIndex()))];
    const int line = table.grid->view().currentIndex().row();
    table.grid->setNotes(notes());
    table.show(*table.grid);
    if (line >= 0)
        table.grid->goToLine(line);
}

void LedgerTabs::btnOpenClick() {
    const Row *row = currentGrid().current();
    if (row == nullptr) {
        tellNoRow(prompter());
        return;
    }
    const QString number = fieldOf(*row, {u"djh", u"gl_djh", u"number"});
    if (number.isEmpty() || number.startsWith(QLatin1String("QC")))
        openRow(*row);
    else
        context().stage.openDocument(number);
}

} // namespace jxc
