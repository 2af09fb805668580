#pragma once

#include "app/function_card.h"

#include <QScrollArea>
#include <functional>

namespace jxc {

/// The cards of one group, or those that a search found, in as many columns as fit.
class CardBoard : public QScrollArea {
    Q_OBJECT
public:
    explicit CardBoard(QWidget *parent = nullptr);

    struct Item {
        const FunctionButton *button;
        QString note, key;
        bool isKnown; ///< whether what it opens is part of this program
    };
    void setItems(const std::vector<Item> &items);

    /// Lays the cards out anew, for the width that there is.
    void setBtnPosition();

    [[nodiscard]] const std::vector<FunctionCard *> &cards() const { return m_cards; }
    /// The card that a letter presses; null when no card that can be pressed has it.
    [[nodiscard]] FunctionCard *cardOfKey(const QString &key) const;
    /// The first card that can be pressed; null when there is none.
    [[nodiscard]] FunctionCard *firstCard() const;
    void focusFirst();

Q_SIGNALS:
    void pressed(const jxc::FunctionButton &button);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void moveFocus(int by);
    [[nodiscard]] int columnCount() const;

    QWidget *m_sheet;
    std::vector<FunctionCard *> m_cards;
};

} // namespace jxc
