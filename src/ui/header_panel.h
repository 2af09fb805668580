#pragma once

#include "stock/draft.h"
#include "ui/document_spec.h"
#include "ui/form.h"

#include <QHash>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;

namespace jxc {

class DateField;
class MemberLabel;
class NumberField;
class PickField;

/// The header of a document while it is typed: partner, warehouse, clerk and what the kind adds.
class HeaderPanel : public QWidget {
    Q_OBJECT
public:
    HeaderPanel(const FormContext &context, const DocumentFormSpec &spec, QWidget *parent);

    void fill(const Draft &draft);
    void collect(Draft &draft) const;
    void fillPartner(const QString &partner);
    void fillWarehouse(const QString &warehouse);
    /// Nothing for kinds that name no member.
    void fillMember(const QString &member);
    /// The member is the one of the sale that comes back; nobody else can be named.
    void lockMember(bool on);
    void setReadOnly(bool on);
    /// Where typing begins: the first field that has nothing yet.
    void start();
    void focusField(HeaderField field);
    [[nodiscard]] QWidget *widget(HeaderField field) const {
        return m_widgets.value(static_cast<int>(field));
    }

    [[nodiscard]] QString partner() const;
    [[nodiscard]] QString warehouse() const;
    [[nodiscard]] QString member() const;
    [[nodiscard]] QString date() const;
    /// What the partner owes or is owed now, beside him.
    void showBalance();

Q_SIGNALS:
    void partnerChanged();
    void memberChanged();
    void settingChanged(); ///< partner, warehouse or date: prices and stock follow
    void edited();
    void finished(); ///< Enter on the last field

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// Right click: at which fields Enter stops.
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void build();
    void loadStops();
    void advance(const QWidget *from);
    QWidget *make(HeaderField field);
    QWidget *makeMember();
    PickField *pick(HeaderField field) const;
    void openPhrases();

    FormContext m_context;
    const DocumentFormSpec &m_spec;
    QHash<int, QWidget *> m_widgets;
    QStringList m_stops; ///< captions of the fields where Enter stops
    QLineEdit *m_number;
    QLabel *m_balance;
    MemberLabel *m_memberLabel = nullptr; ///< of kinds that name a member
    bool m_isReadOnly = false;
};

} // namespace jxc
