#pragma once

#include "stock/draft.h"
#include "ui/document_spec.h"
#include "ui/form.h"

#include <QWidget>

class QComboBox;
class QHBoxLayout;
class QLabel;

namespace jxc {

class MemberTenders;
class NumberField;
class PickField;

/// The foot of a document with money: due, paid, what happens to the rest, the account, and how a
/// member pays.
class SettlementPanel : public QWidget {
    Q_OBJECT
public:
    SettlementPanel(const FormContext &context, const DocumentFormSpec &spec, QWidget *parent);

    void fill(const Draft &draft);
    void collect(Draft &draft) const;
    void setReadOnly(bool on);
    /// The sum of the lines, or what a whole-document discount makes of it.
    void setDue(Decimal due, Decimal ofLines);
    [[nodiscard]] Decimal due() const { return m_dueNow; }
    void focusPaid();
    /// Whom the document names; empty: nobody.
    void setMember(const QString &key);
    void focusTenders();
    [[nodiscard]] bool isPaidTyped() const { return m_paidTyped; }

Q_SIGNALS:
    void edited();
    void finished(); ///< Enter on the last field

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showRest();
    QHBoxLayout *addMoneyLine();

    FormContext m_context;
    const DocumentFormSpec &m_spec;
    QLabel *m_due, *m_capitals, *m_restLabel;
    NumberField *m_paid;
    QComboBox *m_rest;
    PickField *m_account;
    MemberTenders *m_tenders = nullptr; ///< of sales and what comes back of them
    Decimal m_dueNow;
    bool m_paidTyped = false; ///< otherwise it follows what is due
};

} // namespace jxc
