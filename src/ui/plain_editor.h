#pragma once

#include "ui/form.h"

#include <functional>

class QBoxLayout;
class QFormLayout;
class QPushButton;

namespace jxc {

/// A small dialog of fields: Enter goes on, F5 stores, Esc leaves and asks when something was
/// changed. It closes when its content is stored.
class PlainEditor : public Form {
    Q_OBJECT
public:
    PlainEditor(const FormContext &context, const QString &className, const QString &title,
                QWidget *parent);

    /// Begins at the first field.
    void FormActivate() override;
    bool mayLeave() override;
    /// F5.
    void accept() override;
    /// Nothing may be typed: only Esc is left.
    virtual void setReadOnly();
    /// F6: stores and begins another one; of editors that can.
    void saveAndContinue();

Q_SIGNALS:
    /// Something was stored under this number; approved at once, or not.
    void stored(const QString &number, bool approved);

protected:
    /// Stores what the fields hold; on a refusal it has been told and the dialog stays.
    virtual bool save() = 0;
    /// What the fields hold, to see whether something was changed.
    [[nodiscard]] virtual QStringList content() const = 0;

    /// Empties the fields for another one, of editors that allow F6.
    virtual void startAnew() {}
    void allowContinuing();
    /// A further button before the usual ones, with its key.
    void addButton(const QString &name, const QString &caption, Qt::Key key,
                   const std::function<void()> &run);
    [[nodiscard]] bool isReadOnly() const { return m_readOnly; }
    /// Enter goes on even in a field that would take it otherwise.
    void goOn() { focusNextChild(); }

    void keyPressEvent(QKeyEvent *event) override;

    [[nodiscard]] QFormLayout *fields() const { return m_fields; }
    /// Room between the fields and the buttons.
    void addBelowFields(QWidget *widget);
    /// Right of the fields, as wide as there is room.
    void addBesideFields(QWidget *widget);

private:
    [[nodiscard]] QList<QWidget *> inOrder() const;

    QBoxLayout *m_top;
    QFormLayout *m_fields;
    QWidget *m_beside = nullptr;
    QWidget *m_below = nullptr;
    QBoxLayout *m_buttons;
    QPushButton *m_ok, *m_cancel;
    QPushButton *m_more = nullptr;
    QList<std::pair<Qt::Key, QPushButton *>> m_own;
    QStringList m_shown;
    bool m_readOnly = false;
};

} // namespace jxc
