// What the buttons and keys of the document editor do.
#include "core/prompter.h"
#include "core/session.h"
#include "stock/new_draft.h"
#include "ui/cost_story_window.h"
#include "ui/document_dialogs.h"
#include "ui/document_editor.h"
#include "ui/document_print.h"
#include "ui/header_panel.h"
#include "ui/line_table.h"

namespace jxc {

void DocumentEditor::btnSaveClick() {
    const bool approve = session().parameters.savingApproves;
    if (!store(approve))
        return;
    if (!approve)
        offerApproval();
    accept();
}

void DocumentEditor::btnSaveNewClick() {
    const bool approve = session().parameters.savingApproves;
    if (!store(approve))
        return;
    if (!approve)
        offerApproval();
    open(newDraft(session(), m_spec.code()));
    m_header->start();
}

void DocumentEditor::btnSaveCheckClick() {
    if (store(true))
        accept();
}

void DocumentEditor::btnDiscountClick() {
    const std::optional<Decimal> wanted = askNewTotal(context(), lines().total(), m_newTotal, this);
    if (!wanted)
        return;
    m_newTotal.reset();
    if (*wanted != lines().total())
        m_newTotal = *wanted;
    markChanged();
    showTotals();
}

void DocumentEditor::btnSourceClick() {
    chooseSource(context(), m_spec, lines(), *m_header, m_base, this);
    if (m_spec.followsSource)
        m_header->fillPartner(m_base.partner);
    markChanged();
    if (lines().count() > 0)
        m_table->edit(0, LineField::quantity);
}

void DocumentEditor::btnBatchClick() {
    const int row = m_table->currentRow();
    if (row >= 0 && !lines().isBlank(row))
        chooseBatch(context(), lines(), row, this);
    m_table->setFocus();
}

void DocumentEditor::btnPriceHistoryClick() {
    const int row = m_table->currentRow();
    if (row < 0 || lines().isBlank(row))
        return;
    const std::optional<Decimal> price =
        choosePastPrice(context(), m_spec, lines().at(row), m_header->partner(), this);
    if (price && session().parameters.pricesEditable && !m_readOnly)
        lines().change(row, [&](DraftLine &line) {
            line.price = *price;
            line.total.reset();
        });
    m_table->setFocus();
}

void DocumentEditor::btnNextUnitClick() {
    const int row = m_table->currentRow();
    if (row >= 0 && !lines().isBlank(row))
        lines().nextUnit(row);
}

void DocumentEditor::btnGoodsClick() {
    for (const GoodsChoice &choice : chooseGoods(context(), m_spec, m_header->warehouse(), this)) {
        const int row = lines().blankRow();
        if (row < 0 || refuseRepeated(row, choice.goods, choice.name))
            continue;
        if (!lines().putGoods(row, choice.goods, {}))
            continue;
        lines().change(row, [&](DraftLine &line) { line.quantity = choice.quantity; });
        if (lines().at(row).info.restricted && m_spec.code() == u"XS")
            registerBuyer(context(), lines(), row, m_header->partner(), this);
    }
    m_table->startNextLine();
}

void DocumentEditor::btnOpenDraftClick() {
    if (m_changed && !mayLeave())
        return;
    const QString number = chooseDraft(context(), m_spec, this);
    if (!number.isEmpty())
        openNumber(number);
}

void DocumentEditor::btnPrintClick() {
    if (m_base.number.isEmpty() || m_changed) {
        prompter().inform(QStringLiteral("请先保存单据，再打印！"), informCaption);
        return;
    }
    printDocument(context(), m_base.number, this);
}

void DocumentEditor::btnDeleteLineClick() {
    const int row = m_table->currentRow();
    if (row < 0 || lines().isBlank(row) || m_readOnly)
        return;
    lines().remove(row);
    m_table->setCurrentIndex(lines().index(qMin(row, lines().rowCount() - 1),
                                           qMax(0, lines().columnOf(LineField::goods))));
}

void DocumentEditor::btnGiftClick() {
    const int row = m_table->currentRow();
    if (row >= 0 && !lines().isBlank(row))
        lines().setGift(row, lines().at(row).typed.gift.isEmpty());
}

void DocumentEditor::btnBuyerClick() {
    const int row = m_table->currentRow();
    if (row >= 0 && !lines().isBlank(row))
        registerBuyer(context(), lines(), row, m_header->partner(), this);
}

void DocumentEditor::btnCostClick() {
    const int row = m_table->currentRow();
    if (row >= 0 && !lines().isBlank(row))
        showCostStory(context(), {lines().at(row).typed.goods, m_header->warehouse()},
                      {m_header->date()}, this);
}

} // namespace jxc
