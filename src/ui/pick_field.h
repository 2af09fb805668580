#pragma once

#include "ui/pick_list.h"

#include <QLineEdit>

class QTimer;

namespace jxc {

/// A field that stores a code and shows a name, and finds both while one types. ↑ ↓ choose, Enter
/// takes, Esc closes, F2 or ↓ shows everything, Ctrl+Ins adds a new one where the source can.
class PickField : public QLineEdit {
    Q_OBJECT
public:
    PickField(PickSource source, const Formats &formats, QWidget *parent = nullptr);
    ~PickField() override;

    [[nodiscard]] QString code() const { return m_code; }
    [[nodiscard]] QString name() const { return m_name; }
    /// Shows the name of a code, asking the source for it.
    void setCode(const QString &code);
    /// Shows a name that is known already.
    void setChoice(const QString &code, const QString &name);
    void setSource(PickSource source);
    /// An empty text takes the choice away; otherwise it comes back on leaving.
    void setClearable(bool on) { m_clearable = on; }
    /// Takes what was typed now, as Enter does: true when the field holds a choice afterwards.
    bool commitTyped();
    [[nodiscard]] bool isListOpen() const;
    /// Whether there is something that commitTyped() would take.
    [[nodiscard]] bool isTyped() const { return m_dirty || isListOpen(); }
    /// What was typed when the last choice was taken.
    [[nodiscard]] QString typedText() const { return m_typed; }
    void openList();

Q_SIGNALS:
    void chosen(const jxc::Row &row);
    /// Nothing fits what was typed.
    void notFound(const QString &typed);
    void cleared();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void search(const QString &typed);
    void take(const Row &row);
    void restoreName();
    void ensureList();

    PickSource m_source;
    Formats m_formats;
    PickList *m_list = nullptr; ///< made at the first key
    QTimer *m_pending;
    QString m_code, m_name, m_typed;
    bool m_clearable = false;
    bool m_dirty = false; ///< typed since the last choice
};

} // namespace jxc
