#pragma once

#include "retail/wallet_book.h"
#include "ui/form.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace jxc {

class ListPage;
class PeriodBar;
class WalletGateway;

/// 移动支付: takes a document's money by the code on the customer's telephone. Closes as accepted
/// once the money is there; opened without a document it shows the records.
class TF_Wxfk : public Form {
    Q_OBJECT
public:
    explicit TF_Wxfk(const FormContext &context, QWidget *parent = nullptr);

    /// What is to be paid: the document's number, and yuan in whole fen.
    void setOrder(const QString &number, Decimal amount);
    /// How it was paid, for the receipt to keep.
    [[nodiscard]] const WalletResult &result() const { return m_result; }
    [[nodiscard]] WalletGateway &gateway() { return *m_gateway; }

    /// A sale's number is what is to be paid: the amount that it says was paid, else all of it.
    void setCaption(const QString &caption) override;
    void FormActivate() override;
    bool mayLeave() override;

public Q_SLOTS:
    void btnFkClick();
    void btnFkcxClick();

private:
    QWidget *makePayPage();
    QWidget *makeRecordPage();
    void getFkParsed(const WalletResult &result);
    void closeByHand();
    void query(const QString &number);
    void setBusy(const QString &words);

    WalletGateway *m_gateway;
    QTabWidget *m_pages;
    QLineEdit *m_number, *m_amount, *m_code;
    QLabel *m_state;
    QPushButton *m_pay, *m_ask;
    ListPage *m_records;
    PeriodBar *m_period = nullptr;
    QString m_order;
    Decimal m_due;
    WalletResult m_result;
};

} // namespace jxc
