#include "money/forms/tf_yhzh.h"

#include "core/session.h"
#include "money/forms/account_editor.h"

#include <QAction>

namespace jxc {

TF_Yhzh::TF_Yhzh(const FormContext &context, QWidget *parent)
    : ListForm(context, QStringLiteral("TF_Yhzh"), QStringLiteral("银行账户"), parent) {
    setColumns({text(u"yh_sn", u"编号", 96), text(u"yh_type", u"账户类型", 140),
                text(u"yh_name", u"账户名称", 180),
                summed(column(u"yh_zje", u"期初金额", ValueKind::amount, 120)),
                summed(column(u"balance", u"当前余额", ValueKind::amount, 120)),
                text(u"yh_note", u"备注", 240)},
               QStringLiteral("yh_sn"));
    addAction(QStringLiteral("btnAdd"), QStringLiteral("增加"), Qt::Key_Insert,
              [this] { btnAddClick(); });
    addAction(
        QStringLiteral("btnModi"), QStringLiteral("修改"), Qt::Key_F4, [this] { btnModiClick(); },
        true);
    addAction(
        QStringLiteral("btnDele"), QStringLiteral("删除"), Qt::Key_Delete,
        [this] { btnDeleClick(); }, true);
    addAction(
        QStringLiteral("btnQcjz"), QStringLiteral("期初金额"), Qt::Key_F6,
        [this] { btnQcjzClick(); }, true);
    addCommonActions();
    connect(&grid(), &Grid::activated, this, &TF_Yhzh::btnModiClick);
    setFillsParent(false);
    resize(960, 480);
}

Rows TF_Yhzh::read(const QString &search) {
    Rows found;
    for (const Row &row : listAccounts(session()))
        if (row.text(u"yh_name").contains(search, Qt::CaseInsensitive) ||
            row.text(u"yh_type").contains(search, Qt::CaseInsensitive) ||
            row.text(u"yh_sn").contains(search))
            found.push_back(row);
    return found;
}

void TF_Yhzh::openEditor(PlainEditor *editor) {
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &QDialog::accepted, this, &TF_Yhzh::refresh);
    connect(editor, &QDialog::finished, this, [this] {
        activateWindow();
        grid().setFocus();
    });
    editor->showModal();
}

void TF_Yhzh::btnAddClick() {
    openEditor(new AccountEditor(context(), {}, this));
}

void TF_Yhzh::btnModiClick() {
    const Row *row = grid().current();
    if (row == nullptr)
        return;
    AccountDraft draft;
    draft.id = row->integer(u"id");
    draft.type = row->text(u"yh_type").trimmed();
    draft.name = row->text(u"yh_name");
    draft.note = row->text(u"yh_note");
    openEditor(new AccountEditor(context(), draft, this));
}

void TF_Yhzh::btnDeleClick() {
    if (show(deleteAccount(session(), prompter(), grid().current()->integer(u"id"))))
        refresh();
}

void TF_Yhzh::btnQcjzClick() {
    const Row *row = grid().current();
    openEditor(new OpeningEditor(context(), row->integer(u"id"), row->text(u"yh_name"),
                                 row->decimal(u"yh_zje"), this));
}

} // namespace jxc
