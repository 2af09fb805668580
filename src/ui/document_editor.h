#pragma once

#include "stock/draft_file.h"
#include "ui/document_lines.h"
#include "ui/document_spec.h"
#include "ui/form.h"

class QTimer;

namespace jxc {

class ActionBar;
class HeaderPanel;
class LineTable;
class ScanCatcher;
class SettlementPanel;

/// The one window in which every kind of document is typed, or read. What is typed is kept on the
/// disk from cell to cell until it is saved or given up.
class DocumentEditor : public Form {
    Q_OBJECT
public:
    DocumentEditor(const FormContext &context, const DocumentFormSpec &spec,
                   QWidget *parent = nullptr);
    ~DocumentEditor() override;

    /// Begins a new document, or goes on with one that was kept when the program went down.
    void startNew();
    /// Opens a draft to edit, an approved document to read.
    void open(const Draft &draft);
    void openNumber(const QString &number);
    /// Opens a stored document, draft or approved, to read only. False when it is not there.
    bool openToRead(const QString &number);
    /// Brings the open lines of a receipt or sale, as F9 does.
    void takeSource(const QString &number);

    [[nodiscard]] HeaderPanel &header() { return *m_header; }
    [[nodiscard]] LineTable &table() { return *m_table; }
    [[nodiscard]] SettlementPanel *settlement() { return m_settlement; }
    [[nodiscard]] const DocumentFormSpec &spec() const { return m_spec; }
    /// What stands in the window now.
    [[nodiscard]] Draft draft() const;
    [[nodiscard]] bool isChanged() const { return m_changed; }

    void FormActivate() override;
    bool mayLeave() override;

public Q_SLOTS:
    void btnSaveClick();
    void btnSaveNewClick();
    void btnSaveCheckClick();
    void btnDiscountClick();
    void btnSourceClick();
    void btnBatchClick();
    void btnPriceHistoryClick();
    void btnNextUnitClick();
    void btnGoodsClick();
    void btnOpenDraftClick();
    void btnPrintClick();
    void btnDeleteLineClick();
    void btnGiftClick();
    void btnBuyerClick();
    void btnCostClick();
    void btnMemberClick();

Q_SIGNALS:
    /// A document was stored, or approved.
    void saved(const QString &number);

private:
    void build();
    void addActions();
    void markChanged();
    void showTotals();
    void applySetting();
    void goodsPicked(int row, const Row &goods, const QString &typed);
    /// A barcode was scanned: one more of its goods.
    void scanned(const QString &barcode);
    void goodsPut(int row);
    void cellDone(int row, LineField field);
    void offerSplit(int row);
    bool refuseRepeated(int row, const QString &goods, const QString &name);
    void stopTyping();
    /// Stores; `approve` in the same action. True when the draft is stored.
    bool store(bool approve);
    void offerApproval();
    void afterApproval();
    void showRefusal(const struct Outcome &outcome);
    bool restartIfKept();
    void addMemberKey();
    void memberChanged();
    /// What comes back of a sale comes back from the sale's member.
    void lockMember();
    /// Whether what the member pays is right, and the member has agreed to what leaves the card.
    bool memberPays(const Draft &typed);
    [[nodiscard]] DocumentLines &lines() const;

    const DocumentFormSpec &m_spec;
    ActionBar *m_actions;
    HeaderPanel *m_header;
    LineTable *m_table;
    SettlementPanel *m_settlement = nullptr; ///< null for kinds without money
    ScanCatcher *m_scanner;
    DraftFile m_file;
    QTimer *m_keeping;
    Draft m_base; ///< what the window does not show goes through unchanged
    std::optional<Decimal> m_newTotal;
    QString m_agreed; ///< the member whose password was typed right
    bool m_changed = false;
    bool m_filling = false;
    bool m_readOnly = false; ///< approved, or opened from a list that only looks
};

} // namespace jxc
