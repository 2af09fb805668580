#include "core/forms/tf_viewlog.h"

#include "base/dates.h"
#include "core/log_viewer.h"
#include "core/rights.h"
#include "core/session.h"
#include "ui/command_bar.h"

#include <QAbstractTableModel>
#include <QDateEdit>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QToolButton>

namespace jxc {

/// A log of years has hundreds of thousands of lines: they are shown as they are asked for.
class LogModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setEntries(std::vector<LogEntry> entries) {
        beginResetModel();
        m_entries = std::move(entries);
        endResetModel();
    }
    int rowCount(const QModelIndex &parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
    }
    int columnCount(const QModelIndex & = {}) const override { return 3; }
    QVariant data(const QModelIndex &index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
            return {};
        const LogEntry &entry = m_entries[static_cast<size_t>(index.row())];
        return index.column() == 0   ? entry.time
               : index.column() == 1 ? entry.operatorName
                                     : entry.note;
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        return QStringList{QStringLiteral("日志日期"), QStringLiteral("操作员"),
                           QStringLiteral("备注")}[section];
    }

private:
    std::vector<LogEntry> m_entries;
};

namespace {

QDateEdit *dateField(const QString &name) {
    auto *field = new QDateEdit;
    field->setObjectName(name);
    field->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    field->setCalendarPopup(true);
    return field;
}

} // namespace

TF_ViewLog::TF_ViewLog(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_ViewLog"), QStringLiteral("查看日志"), parent)
    , m_model(new LogModel(this))
    , m_from(dateField(QStringLiteral("dateFrom")))
    , m_to(dateField(QStringLiteral("dateTo")))
    , m_text(new QLineEdit)
    , m_count(new QLabel) {
    m_text->setObjectName(QStringLiteral("edtFind"));
    m_text->setPlaceholderText(QStringLiteral("内容或操作员"));
    m_count->setObjectName(QStringLiteral("lblCount"));
    m_count->setProperty("quiet", true);
    auto *view = new QTableView;
    view->setModel(m_model);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setAlternatingRowColors(true);
    view->setShowGrid(false);
    view->verticalHeader()->hide();
    view->verticalHeader()->setDefaultSectionSize(28);
    view->horizontalHeader()->setStretchLastSection(true);
    view->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    view->setColumnWidth(0, 184);
    view->setColumnWidth(1, 136);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 12);
    column->addWidget(makeBar());
    column->addWidget(view);
    column->addWidget(m_count);
    resize(960, 560);
    connect(m_text, &QLineEdit::returnPressed, this, &TF_ViewLog::btnFindClick);
}

QWidget *TF_ViewLog::makeBar() {
    auto *bar = new CommandBar;
    bar->addWidget(new QLabel(QStringLiteral("日期")));
    bar->addWidget(m_from);
    bar->addWidget(new QLabel(QStringLiteral("至")));
    bar->addWidget(m_to);
    bar->addWidget(m_text);
    bar->add(QStringLiteral("查询"), Qt::Key_F5, QStringLiteral("search"),
             [this] { btnFindClick(); });
    bar->add(QStringLiteral("全部时间"), {}, {}, [this] { btnAllTimeClick(); });
    bar->addStretch();
    m_clear = bar->add(QStringLiteral("清除日志"), {}, QStringLiteral("broom"),
                       [this] { btnClearClick(); });
    m_clear->setObjectName(QStringLiteral("btnClear"));
    return bar;
}

void TF_ViewLog::setRange(QDate from, QDate to) {
    m_from->setDate(from);
    m_to->setDate(to);
}

void TF_ViewLog::FormActivate() {
    m_clear->setVisible(mayClearLog(session()));
    const QDate today = session().now().date();
    setRange(QDate(today.year(), today.month(), 1), today);
    m_text->clear();
    btnFindClick();
    m_text->setFocus();
}

void TF_ViewLog::btnFindClick() {
    m_model->setEntries(
        searchLog(session(), toDateText(m_from->date()), toDateText(m_to->date()), m_text->text()));
    m_count->setText(QStringLiteral("记录数：%1").arg(m_model->rowCount()));
}

void TF_ViewLog::btnAllTimeClick() {
    setRange(QDate(2000, 1, 1), QDate(9999, 12, 31));
    btnFindClick();
}

void TF_ViewLog::btnClearClick() {
    if (!mayClearLog(session())) {
        showNoRightMessage(prompter(), QStringLiteral("清除日志！"));
        return;
    }
    if (m_model->rowCount() > 0 && show(clearLog(session(), prompter())))
        btnFindClick();
}

} // namespace jxc
