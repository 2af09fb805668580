#pragma once

#include "stock/amounts.h"
#include "stock/draft.h"
#include "stock/proposals.h"
#include "ui/formats.h"
#include "ui/line_columns.h"

#include <QAbstractTableModel>

namespace jxc {

class Session;

/// A line while it is typed: what will be stored, and what the eye wants beside it.
struct EditLine {
    DraftLine typed;
    LineProposal info;
    LineAmounts amounts;
    std::vector<BatchChoice> batches; ///< of outbound kinds, first to expire first

    [[nodiscard]] bool isBlank() const { return typed.goods.isEmpty(); }
};

/// What a document's lines are proposed for.
struct LineSetting {
    QString code, partner, warehouse, date;
};

/// The lines of a document in a grid. One blank line at the end waits for the next goods.
class DocumentLines : public QAbstractTableModel {
    Q_OBJECT
public:
    DocumentLines(Session &session, std::vector<LineColumn> columns, QObject *parent = nullptr);

    void setColumns(std::vector<LineColumn> columns);
    /// Prices already typed stay; stock and batches are read anew for another warehouse.
    void setSetting(const LineSetting &setting);
    void setReadOnly(bool on) { m_readOnly = on; }
    /// Whether lines come from a source document alone: there is no blank line.
    void setFollowsSource(bool on) { m_followsSource = on; }

    void setLines(const std::vector<DraftLine> &lines);
    /// Without the blank one.
    [[nodiscard]] std::vector<DraftLine> lines() const;
    [[nodiscard]] const EditLine &at(int row) const { return m_lines[static_cast<size_t>(row)]; }
    [[nodiscard]] bool isBlank(int row) const { return at(row).isBlank(); }
    [[nodiscard]] int blankRow() const;
    /// The row that has the goods in this unit and batch already; -1 when none has.
    [[nodiscard]] int find(const QString &goods, const QString &unit, const Batch *batch) const;

    /// Puts a goods into a row, with its proposals. False when there is no such goods.
    bool putGoods(int row, const QString &goods, const QString &barcode);
    void append(const DraftLine &line);
    void insertAfter(int row, const DraftLine &line);
    void remove(int row);
    /// Changes a line and computes it anew.
    void change(int row, const std::function<void(DraftLine &)> &edit);
    /// Takes a unit of the goods; the price is proposed anew.
    void setUnit(int row, const QString &unit);
    void nextUnit(int row);
    void setGift(int row, bool on);
    void setBatch(int row, const Batch &batch);
    /// What the other lines take of a goods' batches, in base units.
    [[nodiscard]] std::vector<BatchChoice> takenBesides(int row) const;
    /// Takes a line's quantity from several batches, first to expire first: makes further lines.
    void splitOverBatches(int row);

    [[nodiscard]] Decimal quantity() const;
    [[nodiscard]] Decimal total() const;
    [[nodiscard]] int count() const; ///< lines with goods

    [[nodiscard]] const std::vector<LineColumn> &columns() const { return m_columns; }
    [[nodiscard]] int columnOf(LineField field) const; ///< -1 when not shown
    [[nodiscard]] const LineColumn &columnAt(int column) const {
        return m_columns[static_cast<size_t>(column)];
    }
    [[nodiscard]] const Parameters &formatsOf() const;
    [[nodiscard]] QString today() const;
    /// What an editor of the cell starts with.
    [[nodiscard]] QString typedText(int row, LineField field) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    void edited(); ///< something that will be stored changed

private:
    [[nodiscard]] bool isOutbound() const;
    [[nodiscard]] bool isSale() const;
    EditLine complete(const DraftLine &line);
    void readBatches(EditLine &line);
    void compute(EditLine &line) const;
    void touched(int row);
    void keepBlankLine();
    [[nodiscard]] QString shown(const EditLine &line, const LineColumn &column) const;
    [[nodiscard]] Decimal figure(const EditLine &line, LineField field) const;
    [[nodiscard]] bool isAlarming(const EditLine &line, LineField field) const;
    [[nodiscard]] bool isEditable(const EditLine &line, const LineColumn &column) const;
    void typeInto(DraftLine &line, const LineProposal &info, LineField field,
                  const QString &text) const;
    LineRequest request(const DraftLine &line) const;

    Session &m_session;
    std::vector<LineColumn> m_columns;
    LineSetting m_setting;
    std::vector<EditLine> m_lines;
    bool m_readOnly = false;
    bool m_followsSource = false;
};

} // namespace jxc
