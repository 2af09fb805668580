#pragma once

#include <QTreeWidget>

namespace jxc {

class Session;

/// The tree of goods classes beside a list of goods. The root stands for all goods.
class GoodsClassTree : public QTreeWidget {
    Q_OBJECT
public:
    explicit GoodsClassTree(QWidget *parent = nullptr);

    /// Reads the classes anew; the class that was chosen stays chosen while it is there.
    void load(const Session &session);
    /// Of the chosen class; empty for all goods.
    [[nodiscard]] QString classCode() const;
    void chooseClass(const QString &code);

Q_SIGNALS:
    /// Another class was chosen, not by load().
    void classChosen();
    /// Enter on a class: on to its goods.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace jxc
