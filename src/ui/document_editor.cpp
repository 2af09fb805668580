#include "ui/document_editor.h"

#include "core/action.h"
#include "core/session.h"
#include "stock/batches.h"
#include "stock/new_draft.h"
#include "stock/posting.h"
#include "ui/cost_story_window.h"
#include "ui/document_dialogs.h"
#include "ui/document_print.h"
#include "ui/header_panel.h"
#include "ui/line_table.h"
#include "ui/list_form.h"
#include "ui/pick_sources.h"
#include "ui/scan_catcher.h"
#include "ui/settlement_panel.h"

#include <QDir>
#include <QFrame>
#include <QTimer>

namespace jxc {

namespace {

QFrame *card(QWidget *parent, QWidget *content) {
    auto *frame = new QFrame(parent);
    frame->setProperty("card", true);
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    return frame;
}

} // namespace

DocumentEditor::DocumentEditor(const FormContext &context, const DocumentFormSpec &spec,
                               QWidget *parent)
    : Form(context, spec.formClass + QStringLiteral("_Add"), spec.title(), parent)
    , m_spec(spec)
    , m_actions(new ActionBar(this))
    , m_header(new HeaderPanel(context, spec, this))
    , m_table(new LineTable(context, spec.formClass + QStringLiteral("_Lines"),
                            new DocumentLines(context.session,
                                              lineColumns(spec.code(), context.session.parameters,
                                                          context.session.rights),
                                              this),
                            this))
    , m_scanner(new ScanCatcher(this))
    , m_file(QDir(context.home).filePath(QStringLiteral("data/typing")), context.session,
             spec.code())
    , m_keeping(new QTimer(this)) {
    build();
    addActions();
    addMemberKey();
}

DocumentEditor::~DocumentEditor() = default;

DocumentLines &DocumentEditor::lines() const {
    return m_table->lines();
}

void DocumentEditor::build() {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(m_actions);
    layout->addWidget(card(this, m_header));
    auto *middle = new QVBoxLayout;
    middle->setSpacing(0);
    middle->addWidget(m_table, 1);
    middle->addWidget(m_table->sumsRow());
    layout->addLayout(middle, 1);
    lines().setFollowsSource(m_spec.followsSource);
    m_table->setGoodsSource(
        goodsSource(context(), m_spec.isSale(), [this] { return m_header->warehouse(); }));
    if (m_spec.hasMoney) {
        m_settlement = new SettlementPanel(context(), m_spec, this);
        layout->addWidget(card(this, m_settlement));
        connect(m_settlement, &SettlementPanel::edited, this, &DocumentEditor::markChanged);
        connect(m_settlement, &SettlementPanel::finished, this, &DocumentEditor::btnSaveClick);
        connect(m_table, &LineTable::finished, m_settlement, &SettlementPanel::focusPaid);
    } else {
        connect(m_table, &LineTable::finished, this, &DocumentEditor::btnSaveClick);
    }
    m_keeping->setSingleShot(true);
    m_keeping->setInterval(0);
    connect(m_keeping, &QTimer::timeout, this, [this] { m_file.keep(draft()); });
    connect(m_header, &HeaderPanel::edited, this, &DocumentEditor::markChanged);
    connect(m_header, &HeaderPanel::settingChanged, this, &DocumentEditor::applySetting);
    connect(m_header, &HeaderPanel::memberChanged, this, &DocumentEditor::memberChanged);
    connect(m_header, &HeaderPanel::finished, this, [this] {
        if (lines().blankRow() >= 0)
            m_table->startNextLine();
        else if (lines().rowCount() > 0)
            m_table->edit(0, LineField::quantity);
        else
            btnSourceClick();
    });
    connect(&lines(), &DocumentLines::edited, this, [this] {
        markChanged();
        showTotals();
        lockMember();
    });
    connect(m_table, &LineTable::goodsPicked, this, &DocumentEditor::goodsPicked);
    connect(m_table, &LineTable::goodsNotFound, this, [this] {
        prompter().inform(QStringLiteral("没有找到该商品，请检查！"), informCaption);
    });
    connect(m_table, &LineTable::cellDone, this, &DocumentEditor::cellDone);
    m_scanner->setKnows([this](const QString &text) { return isBarcode(context(), text); });
    connect(m_scanner, &ScanCatcher::scanned, this, &DocumentEditor::scanned);
    resize(1280, 720);
    setFillsParent(true);
}

void DocumentEditor::addActions() {
    const auto add = [this](const char *name, const QString &caption, const QKeySequence &key,
                            void (DocumentEditor::*run)()) {
        return m_actions->add(QString::fromLatin1(name), caption, key, [this, run] {
            m_table->commitEditor();
            (this->*run)();
        });
    };
    add("btnSave", QStringLiteral("保存"), Qt::Key_F5, &DocumentEditor::btnSaveClick);
    add("btnSaveNew", QStringLiteral("保存并新单"), Qt::Key_F6, &DocumentEditor::btnSaveNewClick);
    add("btnSaveCheck", QStringLiteral("保存并审核"), Qt::Key_F8,
        &DocumentEditor::btnSaveCheckClick);
    m_actions->addSeparator();
    if (!m_spec.followsSource)
        add("btnGoods", QStringLiteral("选商品"), Qt::Key_F3, &DocumentEditor::btnGoodsClick);
    add("btnBatch", QStringLiteral("批号"), Qt::Key_F4, &DocumentEditor::btnBatchClick);
    if (m_spec.hasMoney && !m_spec.isReturn)
        add("btnDiscount", QStringLiteral("整单优惠"), Qt::Key_F7,
            &DocumentEditor::btnDiscountClick);
    QAction *source =
        add("btnSource", m_spec.sourceWord, Qt::Key_F9, &DocumentEditor::btnSourceClick);
    if (m_spec.hasMoney && !m_spec.isReturn) {
        source->setEnabled(false); // orders are still to come
        source->setToolTip(QStringLiteral("尚未提供"));
    }
    if (m_spec.hasMoney) {
        add("btnPriceHistory", QStringLiteral("历史价"), Qt::Key_F10,
            &DocumentEditor::btnPriceHistoryClick);
        add("btnNextUnit", QStringLiteral("换单位"), Qt::Key_F11,
            &DocumentEditor::btnNextUnitClick);
    }
    m_actions->addSeparator();
    add("btnOpenDraft", QStringLiteral("待审核"), QKeySequence(QStringLiteral("Ctrl+O")),
        &DocumentEditor::btnOpenDraftClick);
    add("btnPrint", QStringLiteral("打印"), Qt::Key_F12, &DocumentEditor::btnPrintClick);

    // Only in the right click and by key.
    const auto quiet = [this](const char *name, const QString &caption, const QKeySequence &key,
                              void (DocumentEditor::*run)()) {
        auto *action = new QAction(caption, m_table);
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, [this, run] {
            m_table->commitEditor();
            (this->*run)();
        });
        m_table->addAction(action);
    };
    quiet("btnDeleteLine", QStringLiteral("删除行"), QKeySequence(QStringLiteral("Ctrl+Del")),
          &DocumentEditor::btnDeleteLineClick);
    if (m_spec.code() == u"XS") {
        quiet("btnGift", QStringLiteral("设为赠品"), QKeySequence(QStringLiteral("Ctrl+G")),
              &DocumentEditor::btnGiftClick);
        quiet("btnBuyer", QStringLiteral("购买人登记"), QKeySequence(QStringLiteral("Ctrl+B")),
              &DocumentEditor::btnBuyerClick);
    }
    if (session().rights.showCostPrice)
        quiet("btnCost", QStringLiteral("为什么是这个成本？"),
              QKeySequence(QStringLiteral("Ctrl+Y")), &DocumentEditor::btnCostClick);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void DocumentEditor::startNew() {
    open(newDraft(session(), m_spec.code()));
    if (restartIfKept())
        m_table->startNextLine();
    else
        m_header->start();
}

/// A power cut, a crash: what was typed is offered again.
bool DocumentEditor::restartIfKept() {
    const std::optional<Draft> kept = m_file.read();
    if (!kept)
        return false;
    if (!prompter().confirm(QStringLiteral("上次有未保存的单据，是否继续录入？"), confirmCaption)) {
        m_file.forget();
        return false;
    }
    open(*kept);
    m_changed = true;
    return true;
}

void DocumentEditor::open(const Draft &draft) {
    m_filling = true;
    m_base = draft;
    m_newTotal = draft.newTotal;
    m_readOnly = m_readOnly || draft.approved;
    lines().setReadOnly(m_readOnly);
    lines().setSetting({m_spec.code(), draft.partner, draft.warehouse, draft.date});
    m_header->fill(draft);
    lines().setLines(draft.lines);
    if (m_settlement != nullptr)
        m_settlement->fill(draft);
    showTotals();
    lockMember();
    setWindowTitle(m_spec.title() + (draft.approved ? QStringLiteral("（已审核）")
                                     : m_readOnly ? QStringLiteral("（未审核，只能查看）")
                                                  : QString()));
    if (m_readOnly)
        stopTyping();
    m_filling = false;
    m_changed = false;
}

void DocumentEditor::openNumber(const QString &number) {
    if (const std::optional<Draft> draft = loadDraft(session(), number))
        open(*draft);
    else
        prompter().inform(QStringLiteral("单据“%1”不存在！").arg(number), informCaption);
}

/// What only looks stays. There is no way back: a window to type in is made anew.
void DocumentEditor::stopTyping() {
    m_header->setReadOnly(true);
    if (m_settlement != nullptr)
        m_settlement->setReadOnly(true);
    static const QStringList looking = {
        QStringLiteral("btnPrint"), QStringLiteral("btnPriceHistory"), QStringLiteral("btnCost")};
    for (QAction *action : actions() + m_table->actions())
        if (!looking.contains(action->objectName()))
            action->setEnabled(false);
}

bool DocumentEditor::openToRead(const QString &number) {
    const std::optional<Draft> draft = loadDraft(session(), number);
    if (!draft)
        return false;
    m_readOnly = true;
    open(*draft);
    return true;
}

void DocumentEditor::takeSource(const QString &number) {
    followSource(context(), m_spec, lines(), *m_header, m_base, number);
    m_header->fillPartner(m_base.partner);
    markChanged();
    if (lines().rowCount() > 0)
        m_table->edit(0, LineField::quantity);
}

Draft DocumentEditor::draft() const {
    Draft draft = m_base;
    m_header->collect(draft);
    draft.lines = lines().lines();
    draft.newTotal = m_newTotal;
    if (m_settlement != nullptr)
        m_settlement->collect(draft);
    return draft;
}

void DocumentEditor::FormActivate() {
    if (m_readOnly)
        m_table->setFocus();
}

void DocumentEditor::markChanged() {
    if (m_filling || m_readOnly)
        return;
    m_changed = true;
    m_keeping->start();
}

void DocumentEditor::showTotals() {
    if (m_settlement == nullptr)
        return;
    const Decimal ofLines = lines().total();
    m_settlement->setDue(m_base.approved ? m_base.due : m_newTotal.value_or(ofLines), ofLines);
}

void DocumentEditor::applySetting() {
    if (m_filling)
        return;
    lines().setSetting(
        {m_spec.code(), m_header->partner(), m_header->warehouse(), m_header->date()});
    markChanged();
}

bool DocumentEditor::refuseRepeated(int row, const QString &goods, const QString &name) {
    if (session().parameters.goodsMayRepeat)
        return false;
    const int other = lines().find(goods, {}, nullptr);
    if (other < 0 || other == row)
        return false;
    prompter().inform(QStringLiteral("商品“%1”已在单据中，不能重复添加！").arg(name),
                      informCaption);
    return true;
}

void DocumentEditor::goodsPicked(int row, const Row &goods, const QString &typed) {
    const QString code = goods.text(u"g_sn");
    const bool isScan = !typed.isEmpty() && isBarcode(context(), typed);
    if (isScan && session().parameters.scanAddsLine) {
        scanned(typed);
        return;
    }
    if (refuseRepeated(row, code, goods.text(u"g_name")))
        return;
    if (lines().putGoods(row, code, isScan ? typed : QString()))
        goodsPut(row);
}

/// What a goods asks for before its quantity: a batch, a buyer.
void DocumentEditor::goodsPut(int row) {
    const EditLine &line = lines().at(row);
    if (line.info.restricted && m_spec.code() == u"XS")
        registerBuyer(context(), lines(), row, m_header->partner(), this);
    if (line.batches.size() >= 2)
        chooseBatch(context(), lines(), row, this);
}

void DocumentEditor::scanned(const QString &barcode) {
    m_table->commitEditor();
    if (m_spec.followsSource) {
        if (!addScanOfSource(context(), m_spec, lines(), m_header->warehouse(), barcode))
            prompter().inform(
                QStringLiteral("没有找到与该条码匹配的商品，\r\n\r\n或%1已完成。请检查！")
                    .arg(m_spec.code() == u"RK" ? QStringLiteral("入库") : QStringLiteral("发货")),
                informCaption);
        return;
    }
    const QString goods = goodsOfBarcode(context(), barcode);
    int row = lines().blankRow();
    if (goods.isEmpty() || row < 0)
        return;
    if (!lines().putGoods(row, goods, barcode))
        return;
    const DraftLine added = lines().at(row).typed;
    const int same = lines().find(added.goods, added.unit, &added.batch);
    if (same >= 0 && same != row) {
        lines().remove(row);
        row = same;
    } else if (refuseRepeated(row, goods, lines().at(row).info.name)) {
        lines().remove(row);
        m_table->startNextLine();
        return;
    }
    lines().change(row, [](DraftLine &line) {
        line.quantity += Decimal(1);
        line.total.reset();
    });
    if (same < 0 || same == row) {
        if (lines().at(row).info.restricted && m_spec.code() == u"XS" &&
            lines().at(row).typed.buyer.isEmpty())
            registerBuyer(context(), lines(), row, m_header->partner(), this);
    }
    offerSplit(row);
    m_table->startNextLine();
}

void DocumentEditor::cellDone(int row, LineField field) {
    if (field == LineField::quantity)
        offerSplit(row);
}

/// More than the chosen batch holds: the rest may come from the next to expire.
void DocumentEditor::offerSplit(int row) {
    const EditLine &line = lines().at(row);
    if (line.batches.size() < 2)
        return;
    Decimal held;
    for (const BatchChoice &batch : line.batches)
        if (batch.batch == line.typed.batch)
            held = batch.quantity;
    if ((line.typed.quantity * line.typed.factor).rounded(6) <= held)
        return;
    if (prompter().confirm(QStringLiteral("该批号库存不足，是否按有效期先后自动拆分到多个批号？"),
                           confirmCaption))
        lines().splitOverBatches(row);
}

bool DocumentEditor::store(bool approve) {
    m_table->commitEditor();
    Draft typed = draft();
    if (!memberPays(typed))
        return false;
    Outcome saved;
    if (approve) {
        const SavedAndApproved both = saveAndApproveDraft(session(), prompter(), typed);
        saved = both.saved;
        if (saved.isDone() && !both.approved.isDone())
            Form::show(both.approved);
        if (both.approved.isDone())
            afterApproval();
    } else {
        saved = saveDraft(session(), prompter(), typed);
    }
    if (!saved.isDone()) {
        showRefusal(saved);
        return false;
    }
    m_base = typed;
    m_changed = false;
    m_keeping->stop();
    m_file.forget();
    Q_EMIT this->saved(typed.number);
    if (session().parameters.printsBeforeSaving && !approve)
        printDocumentNow(context(), typed.number, this);
    return true;
}

void DocumentEditor::afterApproval() {
    if (session().parameters.printsAfterApproval)
        printDocumentNow(context(), m_base.number, this);
}

/// Goes to the line or field that is at fault.
void DocumentEditor::showRefusal(const Outcome &outcome) {
    Form::show(outcome);
    static const QRegularExpression lineNumber(QStringLiteral("^第(\\d+)行"));
    if (const auto match = lineNumber.match(outcome.text); match.hasMatch()) {
        const int row = match.captured(1).toInt() - 1;
        if (row < lines().rowCount())
            m_table->edit(row, outcome.text.contains(QStringLiteral("单价")) ? LineField::price
                                                                             : LineField::quantity);
        return;
    }
    for (const HeaderField field : m_spec.header)
        if (QWidget *widget = m_header->widget(field);
            outcome.text.startsWith(widget->objectName())) {
            m_header->focusField(field);
            return;
        }
    if (m_settlement != nullptr && outcome.text.startsWith(m_spec.paidWord))
        m_settlement->focusPaid();
}

void DocumentEditor::offerApproval() {
    if (!session().parameters.asksToApprove ||
        !prompter().confirm(QStringLiteral("单据保存成功，是否现在审核？"), confirmCaption))
        return;
    if (Form::show(approveDocument(session(), prompter(), m_base.number))) {
        afterApproval();
        Q_EMIT saved(m_base.number);
    }
}

bool DocumentEditor::mayLeave() {
    m_table->commitEditor();
    if (!m_changed)
        return true;
    if (!prompter().confirm(QStringLiteral("单据尚未保存，确认放弃吗？"), confirmCaption))
        return false;
    m_changed = false;
    m_keeping->stop();
    m_file.forget();
    return true;
}

} // namespace jxc
