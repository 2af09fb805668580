#pragma once

#include <QWidget>
#include <functional>

class QHeaderView;

namespace jxc {

/// The line below a grid: how many rows, and the sums, each under its column.
class SumsRow : public QWidget {
    Q_OBJECT
public:
    SumsRow(QHeaderView *columns, QWidget *parent);

    /// `label` stands at the left; `textOf` gives each column's sum, empty for none.
    void setContents(const QString &label, std::function<QString(int)> textOf);
    [[nodiscard]] QString text(int column) const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QHeaderView *m_columns;
    QString m_label;
    std::function<QString(int)> m_textOf;
};

} // namespace jxc
