#pragma once

#include "retail/member.h"
#include "retail/points_exchange.h"
#include "ui/plain_editor.h"

class QLabel;
class QLineEdit;

namespace jxc {

class DateField;
class PickField;
class RecordRows;
class RecordTable;
class Row;

/// Enters an exchange of points for gifts; it counts as soon as it is stored.
class TF_Dhzp_Add : public PlainEditor {
    Q_OBJECT
public:
    explicit TF_Dhzp_Add(const FormContext &context, QWidget *parent = nullptr);

    [[nodiscard]] RecordTable &table() { return *m_table; }

protected:
    bool save() override;
    void startAnew() override;
    [[nodiscard]] QStringList content() const override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addFields();
    void addLines();
    void takeMember();
    void completeLine(int row);
    void showSums();
    [[nodiscard]] bool commit();
    [[nodiscard]] bool askPassword();
    [[nodiscard]] PointsExchange exchange() const;
    void focusRefused(const QString &text);

    DateField *m_date;
    PickField *m_member, *m_warehouse;
    QLineEdit *m_note;
    QLabel *m_points, *m_sums;
    RecordRows *m_rows;
    RecordTable *m_table;
    std::optional<Member> m_chosen;
    QString m_password; ///< of the chosen member's card, once it was typed right
    bool m_completing = false;
};

} // namespace jxc
