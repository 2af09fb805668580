#include "app/document_opener.h"

#include "core/prompter.h"
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

} // namespace

void openDocumentToRead(const FormContext &context, const QString &number, QWidget *owner) {
    const auto tell = [&](const QString &text) { context.prompter.inform(text, informCaption); };
    if (number.isEmpty()) {
        tell(QStringLiteral("期初库存没有单据！"));
        return;
    }
    const QString code = number.left(2);
    if (!hasEditor(code)) {
        const DocumentSource *source = findDocumentSource(code);
        tell(source == nullptr
                 ? QStringLiteral("单据“%1”不能在这里打开！").arg(number)
                 : QStringLiteral("%1的界面尚未提供，单据号：%2").arg(source->title, number));
        return;
    }
    QWidget *front = QApplication::activeModalWidget();
    auto *editor =
        new DocumentEditor(context, documentFormSpec(code), front != nullptr ? front : owner);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    if (!editor->openToRead(number)) {
        delete editor;
        tell(QStringLiteral("单据“%1”不存在！").arg(number));
        return;
    }
    editor->showModal();
}

} // namespace jxc
