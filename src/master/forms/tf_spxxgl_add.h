#pragma once

#include "master/goods_record.h"
#include "ui/record_editor.h"

namespace jxc {

class GoodsPicture;
class Grid;
class RecordTable;

/// The editor of a goods: its row, its units, barcodes and further prices, its picture; batches and
/// stock to read.
class TF_Spxxgl_Add : public RecordEditor {
    Q_OBJECT
public:
    TF_Spxxgl_Add(const FormContext &context, QWidget *parent);

    /// New goods begin in this class.
    void setClassNumber(qint64 number) { m_class = number; }
    [[nodiscard]] RecordTable *table(QStringView name) const;
    [[nodiscard]] GoodsPicture &picture() const { return *m_picture; }

protected:
    void makeNew() override;
    bool load(qint64 id) override;
    bool loadCopy(qint64 id) override;
    Record &record() override { return m_goods.goods; }
    bool isChanged() override;
    Outcome store(QString *field) override;
    void fill() override;
    bool collect() override;
    [[nodiscard]] bool isFixed(const MasterField &field) const override;
    void focusRefused(const QString &column) override;

private:
    void addGrids();
    void addDetails();
    void addHints();
    void takeTables();
    void proposeCode();

    GoodsRecord m_goods;
    GoodsField m_refused;
    std::vector<RecordTable *> m_tables; ///< as goodsGrids()
    GoodsPicture *m_picture = nullptr;
    Grid *m_batches = nullptr, *m_stock = nullptr;
    qint64 m_class = 0;
    QString m_proposed; ///< the code that the program proposed
};

} // namespace jxc
