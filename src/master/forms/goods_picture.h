#pragma once

#include "ui/form.h"

#include <QPixmap>

class QLabel;
class QPushButton;

namespace jxc {

/// The picture of a goods while the goods is edited: chosen, shown in full, taken away. The file
/// is copied when the goods is stored, since a new one has no code before.
class GoodsPicture : public QWidget {
    Q_OBJECT
public:
    GoodsPicture(const FormContext &context, QWidget *parent);

    /// Shows what is kept for a code; nothing for a new goods.
    void load(const QString &goods);
    [[nodiscard]] bool isChanged() const { return m_changed; }
    /// Copies or removes what was changed. Tells what went wrong.
    void store(const QString &goods);
    /// Takes a file as the goods' picture; tells when it is none.
    void take(const QString &file);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void choose();
    void showLarge();
    void clear();
    void draw();

    FormContext m_context;
    QLabel *m_label;
    QPushButton *m_show, *m_clear;
    QString m_file;
    QPixmap m_pixmap;
    bool m_changed = false;
};

} // namespace jxc
