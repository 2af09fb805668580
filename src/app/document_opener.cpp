#include "app/document_opener.h"

#include "core/prompter.h"
#include "money/forms/cash_editor.h"
#include "money/forms/expense_editor.h"
#include "money/forms/settlement_editor.h"
#include "stock/document_sources.h"
#include "ui/document_editor.h"

#include <QApplication>

namespace jxc {

namespace {

bool hasEditor(const QString &code) {
    static const QStringList codes = {QStringLiteral("CJ"), QStringLiteral("CT"),
                                      QStringLiteral("RK"), QStringLiteral("XS"),
                                      QStringLiteral("XT"), QStringLiteral("CK")};
    return codes.contains(code);
}

/// The editor of an entry without goods, by its number; null for other documents and for one that
/// is not there.
PlainEditor *moneyEditor(const FormContext &context, const QString &number, QWidget *parent) {
    const auto opened = [&](auto *editor) -> PlainEditor * {
        if (editor->open(number))
            return editor;
        delete editor;
        return nullptr;
    };
    const QString code = number.left(2);
    if (const SettlementKind *kind = findSettlementKind(number))
        return opened(new SettlementEditor(context, *kind, parent));
    if (code == QLatin1String("FY") || code == QLatin1String("SR"))
        return opened(new ExpenseEditor(context, parent));
    if (!cashEntryTitle(code).isEmpty())
        return opened(new CashEditor(context, code, parent));
    return nullptr;
}

} // namespace

void openDocumentToRead(const FormContext &context, const QString &number, QWidget *owner) {
    const auto tell = [&](const QString &text) { context.prompter.inform(text, informCaption); };
    if (number.isEmpty()) {
        tell(QStringLiteral("期初库存没有单据！"));
        return;
    }
    const QString code = number.left(2);
    QWidget *over =
        QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget() : owner;
    if (PlainEditor *editor = moneyEditor(context, number, over)) {
        editor->setReadOnly();
        editor->setAttribute(Qt::WA_DeleteOnClose);
        editor->showModal();
        return;
    }
    if (!hasEditor(code)) {
        const DocumentSource *source = findDocumentSource(code);
        tell(source == nullptr
                 ? QStringLiteral("单据“%1”不能在这里打开！").arg(number)
                 : QStringLiteral("%1的界面尚未提供，单据号：%2").arg(source->title, number));
        return;
    }
    auto *editor = new DocumentEditor(context, documentFormSpec(code), over);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    if (!editor->openToRead(number)) {
        delete editor;
        tell(QStringLiteral("单据“%1”不存在！").arg(number));
        return;
    }
    editor->showModal();
}

} // namespace jxc
