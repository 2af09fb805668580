#pragma once

#include "retail/counter_goods.h"
#include "retail/counter_members.h"
#include "retail/receipt_posting.h"
#include "ui/form.h"

#include <QHash>

class QLabel;
class QTimer;

namespace jxc {

class CounterPrinting;
class Grid;
class PickField;

/// 收银台: goods are scanned or typed into one line that always has the keys; everything else is a
/// key of jxc_gnb.
class TF_Posxs : public Form {
    Q_OBJECT
public:
    explicit TF_Posxs(const FormContext &context, QWidget *parent = nullptr)
        : TF_Posxs(context, noCounterMembers(), parent) {}
    TF_Posxs(const FormContext &context, const CounterMembers &members, QWidget *parent);

    void FormActivate() override;
    bool mayLeave() override;

    [[nodiscard]] const Receipt &receipt() const { return m_receipt; }
    [[nodiscard]] CounterPrinting &printing() { return *m_printing; }

    // What the keys do.
    void enterInput();
    void btnPayClick();
    void btnDiscountClick();
    void btnQuantityClick();
    void btnPriceClick();
    void btnDeleteClick();
    void btnDeleteAllClick();
    void btnMemberClick();
    void btnDrawerClick();
    void btnHoldClick();
    void btnRecallClick();
    void btnLockClick();
    void btnGiftClick();
    void btnReturnClick();
    void btnReprintClick();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void build();
    QWidget *makeHead();
    QWidget *makeSide();
    QWidget *makeHints();
    void fillHints();
    void offerRunning();
    void takeInput(const QString &typed);
    void takeLine(const CounterFind &found, const GoodsHit &hit);
    bool chooseHit(CounterFind &found);
    bool registerBuyers();
    bool allowDiscounts();
    bool post(const Tender &tender);
    void startAnew();
    void changed();
    void refresh();
    void say(const QString &text, bool isFault);
    [[nodiscard]] ReceiptLine *currentLine();
    [[nodiscard]] bool runKey(QKeyEvent &event);
    /// Whether the operator has the right (xsgl), or somebody who has it allows it now.
    [[nodiscard]] QString allowedBy(int right, const QString &what);

    const CounterMembers &m_members;
    CounterSettings m_settings;
    Receipt m_receipt;
    std::optional<CounterMember> m_member;
    CounterPrinting *m_printing;
    QHash<QString, std::function<void()>> m_functions;
    QLabel *m_title, *m_total, *m_pieces, *m_memberName, *m_last, *m_message, *m_hints;
    PickField *m_clerk;
    QLineEdit *m_input;
    Grid *m_grid;
    QTimer *m_keep; ///< stores the running receipt once the keys rest
    int m_line = -1;
};

} // namespace jxc
