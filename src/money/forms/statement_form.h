#pragma once

#include "money/forms/ledger_tabs.h"
#include "money/partner_statement.h"

class QLineEdit;

namespace jxc {

/// 往来账务: a partner's documents, what is unpaid on each, and the goods behind them.
class StatementForm : public LedgerTabs {
    Q_OBJECT
public:
    StatementForm(const FormContext &context, const QString &className, const QString &title,
                  Partner::Kind kind, QWidget *parent);

    enum Page { documents, goods, lines, months, freight };

public Q_SLOTS:
    /// The statement of one partner as it is handed to him.
    void btnStatementClick();

private:
    [[nodiscard]] StatementQuery query() const;
    [[nodiscard]] StatementQuery pieceOfQuery(int most, const Row *last) const;
    void addPages();

    QCheckBox *m_newestFirst;
    QLineEdit *m_number;
    PickField *m_warehouse;
};

} // namespace jxc
