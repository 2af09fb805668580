#include "services/forms/import_columns.h"

#include "core/session.h"

#include <QComboBox>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace jxc {

namespace {

constexpr int notImported = -1;
/// What a cell of a sheet shows of a long text.
constexpr int shownLetters = 200;

} // namespace

QTableWidget *importTable(const char16_t *name, QWidget *parent) {
    auto *table = new QTableWidget(parent);
    table->setObjectName(QString::fromUtf16(name));
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setAlternatingRowColors(true);
    table->setWordWrap(false);
    table->verticalHeader()->setDefaultSectionSize(30);
    table->horizontalHeader()->setHighlightSections(false);
    table->setTabKeyNavigation(false);
    return table;
}

ImportColumns::ImportColumns(const FormContext &context, QWidget *parent)
    : QWidget(parent)
    , m_context(context)
    , m_table(importTable(u"mapping", this)) {
    m_table->setColumnCount(3);
    m_table->setHorizontalHeaderLabels(
        {QStringLiteral("导入到"), QStringLiteral("文件中的列"), QStringLiteral("第一行内容")});
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->verticalHeader()->hide();
    m_table->setColumnWidth(0, 160);
    m_table->setColumnWidth(1, 240);
    m_table->horizontalHeader()->setStretchLastSection(true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_table);
}

void ImportColumns::clear() {
    m_header.clear();
}

QComboBox *ImportColumns::boxAt(int row) const {
    return static_cast<QComboBox *>(m_table->cellWidget(row, 1));
}

QComboBox *ImportColumns::box(const QString &field) const {
    for (int row = 0; row < m_table->rowCount(); ++row)
        if (boxAt(row)->objectName() == field)
            return boxAt(row);
    return nullptr;
}

void ImportColumns::show(const std::vector<ImportField> &fields, const QStringList &header,
                         const QStringList &firstRow) {
    m_firstRow = firstRow;
    if (header == m_header) {
        showSamples();
        return;
    }
    m_header = header;
    const ImportMapping proposed = proposeMapping(m_context.session, fields, header);
    m_table->setRowCount(static_cast<int>(fields.size()));
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const ImportField &field = fields[static_cast<size_t>(row)];
        m_table->setItem(row, 0, new QTableWidgetItem(field.caption));
        m_table->setItem(row, 2, new QTableWidgetItem);
        auto *choice = new QComboBox(m_table);
        choice->setObjectName(field.id);
        choice->addItem(QStringLiteral("（不导入）"), notImported);
        for (qsizetype column = 0; column < header.size(); ++column)
            if (!header[column].trimmed().isEmpty())
                choice->addItem(header[column].simplified().left(60), column);
        const auto found = proposed.find(field.id);
        const int index = found == proposed.end() ? 0 : choice->findData(found->second);
        choice->setCurrentIndex(qMax(0, index));
        connect(choice, &QComboBox::currentIndexChanged, this, &ImportColumns::showSamples);
        m_table->setCellWidget(row, 1, choice);
    }
    setFocusProxy(fields.empty() ? nullptr : boxAt(0));
    showSamples();
}

void ImportColumns::showSamples() {
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const int column = boxAt(row)->currentData().toInt();
        m_table->item(row, 2)->setText(
            column == notImported ? QString() : m_firstRow.value(column).left(shownLetters));
    }
}

ImportMapping ImportColumns::mapping() const {
    ImportMapping mapping;
    for (int row = 0; row < m_table->rowCount(); ++row)
        if (const int column = boxAt(row)->currentData().toInt(); column != notImported)
            mapping[boxAt(row)->objectName()] = column;
    return mapping;
}

} // namespace jxc
