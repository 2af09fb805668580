#pragma once

#include <QTableWidget>

namespace jxc {

/// A short list to read and choose from: whole rows, nothing edited, each row with an id.
class PlainTable : public QTableWidget {
    Q_OBJECT
public:
    struct Column {
        QString caption;
        int width = 120;
        bool isNumber = false;
    };
    explicit PlainTable(const QList<Column> &columns, QWidget *parent = nullptr);

    struct Line {
        qint64 id = 0;
        QStringList cells;
    };
    /// Shows these rows; the row that was chosen before stays chosen while it is there.
    void setLines(const QList<Line> &lines);
    /// Of the chosen row; 0 when none is.
    [[nodiscard]] qint64 currentId() const;
    void choose(qint64 id);
    [[nodiscard]] QString currentText(int column) const;

private:
    QList<Column> m_columns;
};

} // namespace jxc
