#pragma once

#include "app/dispatch.h"

#include <QAbstractButton>

namespace jxc {

/// A button of the main window: drawing, caption and the letter that presses it.
class FunctionCard : public QAbstractButton {
    Q_OBJECT
public:
    /// `note` stands small below the caption; empty for none.
    FunctionCard(const FunctionButton &button, const QString &note, const QString &key,
                 QWidget *parent);

    [[nodiscard]] const FunctionButton &button() const { return m_button; }
    [[nodiscard]] QString key() const { return m_key; }

    static constexpr int leastWidth = 196;
    static constexpr int cardHeight = 64;
    static constexpr int gap = 12;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    [[nodiscard]] QRect paintKey(QPainter &painter, const QRect &room) const;
    void paintWords(QPainter &painter, const QRect &room) const;

    const FunctionButton &m_button;
    QString m_note, m_key;
};

} // namespace jxc
