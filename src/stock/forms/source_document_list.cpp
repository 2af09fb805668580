#include "stock/forms/source_document_list.h"

#include "core/session.h"
#include "stock/close_rest.h"
#include "stock/source_entry.h"
#include "stock/sources.h"
#include "ui/document_editor.h"
#include "ui/list_form.h"
#include "ui/row_list.h"

namespace jxc {

SourceDocumentList::SourceDocumentList(const FormContext &context, const DocumentFormSpec &spec,
                                       QWidget *parent)
    : DocumentList(context, spec, parent) {
    actionBar().goToPlace();
    actionBar().addSeparator();
    const QString way = isGoodsIn() ? QStringLiteral("入库") : QStringLiteral("出库");
    addAction(QStringLiteral("btnZdrk"), QStringLiteral("自动") + way, Qt::Key_F6,
              [this] { btnZdrkClick(); });
    addAction(QStringLiteral("btn_Qxck"), QStringLiteral("取消") + way, Qt::Key_F7,
              [this] { btn_QxckClick(); });
    addOwnTab(QStringLiteral("待") + way);
}

ColumnSpecs SourceDocumentList::ownColumns() const {
    const bool in = isGoodsIn();
    return {text(u"number", in ? u"进货单号" : u"销售单号", 140),
            column(u"date", in ? u"进货日期" : u"销售日期", ValueKind::date),
            text(u"partner", in ? u"供货商" : u"客户", 200),
            summed(column(u"ordered", in ? u"采购数量" : u"销售数量", ValueKind::quantity)),
            summed(column(u"done", in ? u"入库数量" : u"出库数量", ValueKind::quantity)),
            summed(column(u"cancelled", u"取消数量", ValueKind::quantity)),
            summed(column(u"open", in ? u"未入数量" : u"未出数量", ValueKind::quantity))};
}

Rows SourceDocumentList::ownRows() {
    RowList list(
        {u"number", u"date", u"partner", u"partnerNo", u"ordered", u"done", u"cancelled", u"open"});
    for (const OpenDocument &d : openDocuments(session(), spec().code(), warehouse()))
        list.add(
            {d.number, d.date, d.partnerName, d.partner, d.ordered, d.done, d.cancelled, d.open});
    return list.take();
}

QString SourceDocumentList::neededSource() {
    const QString number = isOnOwnTab() ? currentNumber() : QString();
    if (number.isEmpty())
        tellNoRow(prompter());
    return number;
}

/// Opens a new document with the open lines of the source, to be checked against what came.
void SourceDocumentList::openOwnRow() {
    const QString source = neededSource();
    if (source.isEmpty() || refuseWithout(spec().kind->entryRight, spec().title()))
        return;
    DocumentEditor *made = makeEditor();
    made->showModal();
    made->startNew();
    made->takeSource(source);
}

void SourceDocumentList::btnZdrkClick() {
    const QString source = neededSource();
    if (source.isEmpty() || refuseWithout(spec().kind->entryRight, spec().title()))
        return;
    QString made;
    if (!show(fillFromSource(session(), prompter(), source, session().today(), &made)))
        return;
    goToAfterRefresh(made);
    showApproved(false);
}

void SourceDocumentList::btn_QxckClick() {
    const QString source = neededSource();
    if (source.isEmpty())
        return;
    QString made;
    const Outcome outcome = closeRest(session(), prompter(), source, &made);
    if (show(outcome) && outcome.text.isEmpty())
        prompter().inform(QStringLiteral("已生成退货单：") + made, informCaption);
    refresh();
}

} // namespace jxc
