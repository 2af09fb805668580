#include "base/identity_number.h"
#include "core/session.h"
#include "db/schema.h"
#include "stock/buyers.h"
#include "ui/document_dialogs.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

namespace jxc {

namespace {

/// 购买人登记: who buys restricted goods, and for what.
class BuyerDialog : public QDialog {
public:
    BuyerDialog(const FormContext &context, const QString &goodsName, QWidget *parent)
        : QDialog(parent)
        , m_context(context)
        , m_form(new QFormLayout(this)) {
        setWindowTitle(QStringLiteral("购买人登记"));
        setMinimumWidth(440);
        m_form->setContentsMargins(16, 16, 16, 16);
        m_form->setSpacing(8);
        auto *note = new QLabel(
            QStringLiteral(
                "“%1”属限制使用商品，按实名登记。\n手机或身份证号已登记过的，填好后按 F6 调出。")
                .arg(goodsName),
            this);
        note->setProperty("quiet", true);
        m_form->addRow(note);
        m_name = add(QStringLiteral("姓名"), u"ls_xm");
        m_identity = add(QStringLiteral("身份证号"), u"ls_cardno");
        m_mobile = add(QStringLiteral("手机"), u"t_mobile");
        m_address = add(QStringLiteral("地址"), u"t_addr");
        m_use = add(QStringLiteral("用途"), u"t_cfsm");
        m_prescription = add(QStringLiteral("处方号"), u"t_cfhm");
        auto *buttons = new QDialogButtonBox(this);
        buttons->addButton(QStringLiteral("确定 F5"), QDialogButtonBox::AcceptRole)
            ->setAutoDefault(false);
        buttons->addButton(QStringLiteral("取消 Esc"), QDialogButtonBox::RejectRole)
            ->setAutoDefault(false);
        m_form->addRow(buttons);
        connect(buttons, &QDialogButtonBox::accepted, this, [this] { ok(); });
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, this, [this] { ok(); });
        connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, this, [this] { lookUp(); });
    }

    void fill(const BuyerRecord &buyer) {
        m_name->setText(buyer.name);
        m_identity->setText(buyer.identityNo);
        m_mobile->setText(buyer.mobile);
        m_address->setText(buyer.address);
        m_use->setText(buyer.use);
        m_prescription->setText(buyer.prescription);
    }

    [[nodiscard]] BuyerRecord buyer() const {
        return {m_name->text().trimmed(),   m_identity->text().trimmed().toUpper(),
                m_mobile->text().trimmed(), m_address->text().trimmed(),
                m_use->text().trimmed(),    m_prescription->text().trimmed()};
    }

protected:
    /// Enter goes from field to field; it is no click on the default button.
    void keyPressEvent(QKeyEvent *event) override {
        if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
            QDialog::keyPressEvent(event);
    }

private:
    QLineEdit *add(const QString &caption, const char16_t *storedIn) {
        auto *field = new QLineEdit(this);
        field->setMaxLength(column(u"jxc_lsxssp", QStringView(storedIn))->length);
        field->setObjectName(caption);
        m_form->addRow(caption, field);
        connect(field, &QLineEdit::returnPressed, this, [this, field] {
            if (field == m_prescription)
                ok();
            else
                focusNextChild();
        });
        return field;
    }

    void lookUp() {
        const QString key = m_mobile->text().trimmed().isEmpty() ? m_identity->text().trimmed()
                                                                 : m_mobile->text().trimmed();
        if (const auto found = findBuyer(m_context.session, key))
            fill(*found);
        else
            m_context.prompter.inform(QStringLiteral("没有找到该购买人的登记！"), informCaption);
    }

    void ok() {
        if (m_name->text().trimmed().isEmpty()) {
            m_context.prompter.inform(QStringLiteral("姓名必须填写！"), informCaption);
            m_name->setFocus();
        } else if (!isIdentityNumber(m_identity->text().trimmed())) {
            m_context.prompter.inform(QStringLiteral("身份证号不正确！"), informCaption);
            m_identity->setFocus();
        } else {
            accept();
        }
    }

    FormContext m_context;
    QFormLayout *m_form;
    QLineEdit *m_name, *m_identity, *m_mobile, *m_address, *m_use, *m_prescription;
};

void put(DraftLine &line, const BuyerRecord &buyer) {
    line.buyer = buyer.name;
    line.identityNo = buyer.identityNo;
    line.mobile = buyer.mobile;
    line.address = buyer.address;
    line.use = buyer.use;
    line.prescription = buyer.prescription;
}

BuyerRecord buyerOf(const DraftLine &line) {
    return {line.buyer, line.identityNo, line.mobile, line.address, line.use, line.prescription};
}

} // namespace

void registerBuyer(const FormContext &context, DocumentLines &lines, int row,
                   const QString &customer, QWidget *parent) {
    BuyerRecord proposed = buyerOf(lines.at(row).typed);
    // Who is registered on this document already, else whoever bought for this customer last.
    for (int other = 0; other < lines.rowCount() && proposed.name.isEmpty(); ++other)
        proposed = buyerOf(lines.at(other).typed);
    if (proposed.name.isEmpty())
        proposed = lastBuyerOf(context.session, customer).value_or(BuyerRecord{});
    BuyerDialog dialog(context, lines.at(row).info.name, parent);
    dialog.fill(proposed);
    if (dialog.exec() != QDialog::Accepted)
        return;
    for (int other = 0; other < lines.rowCount(); ++other) {
        const EditLine &line = lines.at(other);
        if (other == row || (line.info.restricted && line.typed.buyer.isEmpty()))
            lines.change(other, [&](DraftLine &changed) { put(changed, dialog.buyer()); });
    }
}

} // namespace jxc
