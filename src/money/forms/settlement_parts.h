#pragma once

#include "money/open_items.h"
#include "ui/formats.h"

#include <QTableWidget>

namespace jxc {

/// What is open of a partner, and how much of it is settled now. Digits type into 本次结算, Space
/// settles all of a row or nothing, Enter goes down.
class SettlementParts : public QTableWidget {
    Q_OBJECT
public:
    explicit SettlementParts(const Formats &formats, QWidget *parent = nullptr);

    /// Shows the items with what is put on them; parts of items that are gone too.
    void setItems(const std::vector<OpenItem> &items, const std::vector<Allocation> &parts);
    [[nodiscard]] std::vector<Allocation> parts() const;
    [[nodiscard]] Decimal sum() const;
    void setParts(const std::vector<Allocation> &parts);
    [[nodiscard]] const std::vector<OpenItem> &items() const { return m_items; }
    void setReadOnly();

Q_SIGNALS:
    void partsChanged();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void setPart(int row, Decimal amount);
    void typed(QTableWidgetItem *item);

    Formats m_formats;
    std::vector<OpenItem> m_items;
    std::vector<Decimal> m_parts; ///< beside the items
    bool m_filling = false;
    bool m_readOnly = false;
};

} // namespace jxc
