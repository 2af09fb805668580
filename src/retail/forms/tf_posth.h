#pragma once

#include "retail/receipt_return.h"
#include "ui/form.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace jxc {

/// 退货: goods of a receipt that is named, or, without one, any goods. Quantities are typed into
/// the table.
class TF_Posth : public Form {
    Q_OBJECT
public:
    TF_Posth(const FormContext &context, QWidget *parent);

    /// `member` (hy_sn, or empty) brings goods back without a receipt; a receipt names its own.
    void start(const CounterSettings &settings, const QString &clerk, const QString &authorisedBy,
               const QString &member);
    /// Of the return that was posted.
    [[nodiscard]] QString number() const { return m_number; }

    /// Enter in the input line: a receipt's number, or goods.
    void enterInput();
    /// F4: the batch of goods without a receipt.
    void btnBatchClick();
    /// F8: everything that is left of the receipt comes back.
    void btnAllClick();
    /// F5: posts and closes.
    void btnOKClick();
    bool mayLeave() override;

private:
    void build();
    void refresh();
    void refreshTotal();
    void takeQuantity(int row);
    bool takeReceipt(const QString &typed);
    void takeGoods(const QString &typed);
    void clearLines();
    [[nodiscard]] Tender refund() const;

    CounterSettings m_settings;
    CounterReturn m_return;
    QString m_number, m_clerk, m_member;
    QLineEdit *m_input;
    QTableWidget *m_table;
    QComboBox *m_way;
    QLabel *m_total, *m_source;
    bool m_filling = false;
};

} // namespace jxc
