#pragma once

#include "retail/counter_member.h"
#include "retail/receipt.h"
#include "ui/form.h"

class QLabel;
class QLineEdit;

namespace jxc {

class Formats;
class Grid;
class PickField;
struct TenderOutcome;

/// What the counter shows: the lines of the running receipt, its total in large figures, the
/// member, the last receipt, and the one line that takes what is typed or scanned.
class CounterScreen : public QWidget {
    Q_OBJECT
public:
    CounterScreen(const FormContext &context, QWidget *parent);

    /// Shows the receipt with the line at `line` current.
    void showReceipt(const Receipt &receipt, int decimals, int line);
    void showMember(const std::optional<CounterMember> &member);
    void showLast(const QString &number, const TenderOutcome &outcome);
    void setHints(const QStringList &hints);
    void say(const QString &text, bool isFault);

    [[nodiscard]] QLineEdit &input() { return *m_input; }
    [[nodiscard]] PickField &clerk() { return *m_clerk; }
    void goToLine(int line);

Q_SIGNALS:
    /// A line was made the current one, by key or mouse; -1 without lines.
    void lineChosen(int line);

private:
    QWidget *makeHead();
    QWidget *makeSide();

    const FormContext &m_context;
    QLabel *m_title, *m_total, *m_pieces, *m_member, *m_last, *m_message, *m_hints;
    PickField *m_clerk;
    QLineEdit *m_input;
    Grid *m_grid;
};

} // namespace jxc
