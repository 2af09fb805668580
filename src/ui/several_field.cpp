#include "ui/several_field.h"

#include "master/record_list.h"
#include "master/record_values.h"
#include "ui/grid_msg.h"
#include "ui/row_list.h"

#include <QKeyEvent>

namespace jxc {

SeveralField::SeveralField(const FormContext &context, const MasterField &field, QWidget *parent)
    : QLineEdit(parent)
    , m_context(context)
    , m_field(field) {
    setReadOnly(true); // by typing; it is no dead field, and does not look like one
    setStyleSheet(QStringLiteral("QLineEdit:enabled { color: palette(text); "
                                 "background: palette(base); }"));
    setPlaceholderText(QStringLiteral("F2 选择"));
}

void SeveralField::setChoice(const QString &codes, const QString &names) {
    m_codes = codes;
    setText(listValues(names).join(u'，'));
    setToolTip(text());
    setCursorPosition(0);
}

void SeveralField::openList() {
    RowList list({u"sn", u"name"});
    for (const PickRow &row : listPicks(m_context.session, m_field.pick))
        list.add({row.value, row.name});
    TF_GridMsg dialog(m_context, QStringLiteral("TF_Select_%1").arg(m_field.column),
                      QStringLiteral("选择%1").arg(m_field.caption),
                      {jxc::text(u"sn", u"编号", 96), jxc::text(u"name", u"名称", 200)},
                      list.take(), window());
    dialog.setTickable();
    dialog.setMessage(QStringLiteral("空格勾选，Ctrl+A 全选，回车确定。"));
    const QStringList before = listValues(m_codes);
    RowsModel &model = dialog.grid().model();
    for (int line = 0; line < model.rowCount(); ++line)
        model.tick(line, before.contains(model.at(line).text(u"sn")));
    dialog.resize(480, 420);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QString codes, names;
    for (const Row *row : model.tickedRows()) {
        codes += row->text(u"sn") + u',';
        names += row->text(u"name") + u',';
    }
    setChoice(codes, names);
    Q_EMIT changed();
}

void SeveralField::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_F2:
    case Qt::Key_Down:
    case Qt::Key_Space:
        openList();
        return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        setChoice({}, {});
        Q_EMIT changed();
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void SeveralField::mouseReleaseEvent(QMouseEvent *event) {
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        openList();
}

} // namespace jxc
