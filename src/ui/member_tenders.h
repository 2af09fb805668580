#pragma once

#include "stock/draft.h"
#include "ui/document_spec.h"
#include "ui/form.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace jxc {

class NumberField;

/// How a member pays a sale (card, bank card, voucher) or is paid back a return; what they leave of
/// the paid amount is cash, or goes through the document's account. Hidden without a member.
class MemberTenders : public QWidget {
    Q_OBJECT
public:
    MemberTenders(const FormContext &context, const DocumentFormSpec &spec, QWidget *parent);

    /// Another member, or none: then nothing is tendered here.
    void setMember(const QString &key);
    void setPaid(Decimal paid);
    void fill(const Draft &draft);
    [[nodiscard]] Tenders tenders() const;
    void setReadOnly(bool on);
    void focusFirst();

Q_SIGNALS:
    void edited();
    void finished(); ///< Enter on the last field

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    NumberField *add(QHBoxLayout *row, const QString &caption, const QString &name);
    [[nodiscard]] Decimal cash() const;
    void showCash();

    FormContext m_context;
    NumberField *m_value, *m_card, *m_voucher = nullptr; ///< no vouchers are paid back
    QLabel *m_cash;
    Decimal m_paid;
};

} // namespace jxc
