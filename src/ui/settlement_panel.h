#pragma once

#include "stock/draft.h"
#include "ui/document_spec.h"
#include "ui/form.h"

#include <QWidget>

class QComboBox;
class QLabel;

namespace jxc {

class NumberField;
class PickField;

/// The foot of a document with money: due, paid, what happens to the rest, the account.
class SettlementPanel : public QWidget {
    Q_OBJECT
public:
    SettlementPanel(const FormContext &context, const DocumentFormSpec &spec, QWidget *parent);

    void fill(const Draft &draft);
    void collect(Draft &draft) const;
    void setReadOnly(bool on);
    /// The sum of the lines, or what a whole-document discount makes of it.
    void setDue(Decimal due, Decimal ofLines);
    void focusPaid();
    [[nodiscard]] bool isPaidTyped() const { return m_paidTyped; }

Q_SIGNALS:
    void edited();
    void finished(); ///< Enter on the last field

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showRest();

    FormContext m_context;
    const DocumentFormSpec &m_spec;
    QLabel *m_due, *m_capitals, *m_restLabel;
    NumberField *m_paid;
    QComboBox *m_rest;
    PickField *m_account;
    Decimal m_dueNow;
    bool m_paidTyped = false; ///< otherwise it follows what is due
};

} // namespace jxc
