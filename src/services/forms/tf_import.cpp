#include "services/forms/tf_import.h"

#include "core/prompter.h"
#include "core/session.h"
#include "master/master_kind.h"
#include "services/forms/import_columns.h"
#include "sheets/read.h"
#include "sheets/write.h"
#include "ui/grid.h"
#include "ui/path_field.h"
#include "ui/progress.h"
#include "ui/row_list.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTableWidget>

namespace jxc {

namespace {

enum Step { fileStep, mappingStep, checkStep };

constexpr int previewRows = 30;
constexpr int previewColumns = 40;

const auto fileFilter = QStringLiteral("表格文件 (*.xlsx *.xls *.csv *.txt)");

QLabel *quietLabel(const QString &text, QWidget *parent) {
    auto *label = new QLabel(text, parent);
    label->setProperty("quiet", true);
    return label;
}

} // namespace

TF_Import::TF_Import(const FormContext &context, const ImportTarget &target,
                     const QString &className, QWidget *parent)
    : Form(context, className, QStringLiteral("导入%1").arg(masterKind(target.table).noun), parent)
    , m_target(target)
    , m_steps(new QStackedWidget(this))
    , m_title(new QLabel(this)) {
    m_title->setProperty("title", true);
    m_steps->addWidget(makeFilePage());
    m_steps->addWidget(makeMappingPage());
    m_steps->addWidget(makeCheckPage());
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 12);
    column->setSpacing(12);
    column->addWidget(m_title);
    column->addWidget(m_steps, 1);
    column->addWidget(makeButtons());
    resize(920, 600);
}

QWidget *TF_Import::makeFilePage() {
    auto *page = new QWidget(this);
    m_file =
        new PathField(PathField::What::file, QStringLiteral("选择要导入的文件"), fileFilter, page);
    m_file->field()->setObjectName(QStringLiteral("edtFile"));
    m_file->field()->setPlaceholderText(QStringLiteral("xlsx、xls 或 csv 文件"));
    m_sheet = new QComboBox(page);
    m_sheet->setObjectName(QStringLiteral("cmbSheet"));
    m_sheet->setMinimumWidth(200);
    m_header = new QSpinBox(page);
    m_header->setObjectName(QStringLiteral("spnHeader"));
    m_header->setMinimum(1);
    m_preview = importTable(u"preview", page);
    auto *templateButton = new QPushButton(QStringLiteral("下载模板…"), page);
    templateButton->setObjectName(QStringLiteral("btnTemplate"));
    templateButton->setAutoDefault(false);
    auto *line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(quietLabel(QStringLiteral("工作表"), page));
    line->addWidget(m_sheet);
    line->addWidget(quietLabel(QStringLiteral("标题在第几行"), page));
    line->addWidget(m_header);
    line->addStretch();
    line->addWidget(templateButton);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(m_file);
    column->addLayout(line);
    column->addWidget(m_preview, 1);
    connect(m_file->field(), &QLineEdit::textChanged, this, [this] {
        if (QFileInfo(m_file->path()).isFile())
            (void)readFile();
    });
    connect(m_sheet, &QComboBox::currentIndexChanged, this, &TF_Import::showSheet);
    connect(m_header, &QSpinBox::valueChanged, this, &TF_Import::showPreview);
    connect(templateButton, &QPushButton::clicked, this, &TF_Import::btnTemplateClick);
    return page;
}

QWidget *TF_Import::makeMappingPage() {
    auto *page = new QWidget(this);
    m_columns = new ImportColumns(context(), page);
    m_skip = new QRadioButton(QStringLiteral("跳过(&S)"), page);
    m_update = new QRadioButton(QStringLiteral("更新(&U)，只改上面选了列的内容"), page);
    m_skip->setObjectName(QStringLiteral("optSkip"));
    m_update->setObjectName(QStringLiteral("optUpdate"));
    m_skip->setChecked(true);
    auto *line = new QHBoxLayout;
    line->addWidget(
        quietLabel(QStringLiteral("%1已存在时").arg(masterKind(m_target.table).noun), page));
    line->addWidget(m_skip);
    line->addWidget(m_update);
    line->addStretch();
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(m_columns, 1);
    column->addLayout(line);
    return page;
}

QWidget *TF_Import::makeCheckPage() {
    auto *page = new QWidget(this);
    m_list = new Grid(context(), objectName() + QStringLiteral("_list"),
                      {column(u"row", u"行号", ValueKind::integer, 88), text(u"name", u"名称", 280),
                       text(u"status", u"状态", 280)},
                      page);
    m_list->model().setTickable(true);
    m_list->setTitle(windowTitle());
    m_list->model().setTone([](const Row &row, const ColumnSpec &spec) {
        if (spec.field != u"status")
            return Tone::plain;
        switch (static_cast<ImportRow::Fate>(row.integer(u"fate"))) {
        case ImportRow::Fate::add:
            return Tone::good;
        case ImportRow::Fate::update:
            return Tone::warning;
        case ImportRow::Fate::skip:
            return Tone::quiet;
        case ImportRow::Fate::bad:
            break;
        }
        return Tone::danger;
    });
    m_summary = quietLabel({}, page);
    m_summary->setObjectName(QStringLiteral("lblSummary"));
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    column->addWidget(m_list, 1);
    column->addWidget(m_summary);
    return page;
}

QWidget *TF_Import::makeButtons() {
    auto *bar = new QWidget(this);
    m_back = new QPushButton(QStringLiteral("上一步 (F4)"), bar);
    m_next = new QPushButton(bar);
    auto *cancel = new QPushButton(QStringLiteral("退出 (Esc)"), bar);
    m_back->setObjectName(QStringLiteral("btnBack"));
    m_next->setObjectName(QStringLiteral("btnNext"));
    cancel->setObjectName(QStringLiteral("btnCancel"));
    for (QPushButton *button : {m_back, m_next, cancel})
        button->setAutoDefault(false);
    m_next->setDefault(true);
    // Shortcuts, since a box that has the focus would take F4 to open its list.
    connect(new QShortcut(Qt::Key_F4, this), &QShortcut::activated, this, &TF_Import::btnBackClick);
    connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, this, &TF_Import::btnNextClick);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch();
    row->addWidget(m_back);
    row->addWidget(m_next);
    row->addWidget(cancel);
    connect(m_back, &QPushButton::clicked, this, &TF_Import::btnBackClick);
    connect(m_next, &QPushButton::clicked, this, &TF_Import::btnNextClick);
    connect(cancel, &QPushButton::clicked, this, &TF_Import::reject);
    return bar;
}

void TF_Import::FormActivate() {
    m_sheets.clear();
    m_readFile.clear();
    m_columns->clear();
    m_file->setPath({});
    m_sheet->clear();
    m_preview->setRowCount(0);
    m_fields = importFields(session(), m_target);
    m_done = false;
    showStep(fileStep);
}

int TF_Import::step() const {
    return m_steps->currentIndex();
}

void TF_Import::showStep(int step) {
    static const QStringList titles{QStringLiteral("1 选择文件"), QStringLiteral("2 对应的列"),
                                    QStringLiteral("3 核对并导入")};
    m_steps->setCurrentIndex(step);
    m_title->setText(titles.at(step));
    m_back->setEnabled(step > fileStep && !m_done);
    m_next->setText(step < checkStep ? QStringLiteral("下一步 (F5)") : QStringLiteral("导入 (F5)"));
    m_next->setEnabled(!m_done);
    if (step == fileStep)
        m_file->setFocus();
    else if (step == mappingStep)
        m_columns->setFocus();
    else
        m_list->setFocus();
}

const Sheet *TF_Import::sheet() const {
    const int index = m_sheet->currentIndex();
    return index < 0 || index >= static_cast<int>(m_sheets.size())
               ? nullptr
               : &m_sheets[static_cast<size_t>(index)];
}

size_t TF_Import::headerRow() const {
    return static_cast<size_t>(m_header->value() - 1);
}

QStringList TF_Import::header() const {
    const Sheet *chosen = sheet();
    return chosen != nullptr && headerRow() < chosen->rows.size() ? chosen->rows[headerRow()]
                                                                  : QStringList();
}

bool TF_Import::readFile() {
    const QString file = m_file->path();
    if (file.isEmpty()) {
        prompter().inform(QStringLiteral("请选择要导入的文件！"), informCaption);
        m_file->setFocus();
        return false;
    }
    if (file == m_readFile)
        return true;
    try {
        m_sheets = readSheets(file);
    } catch (const SheetError &error) {
        prompter().inform(error.userText(), informCaption);
        return false;
    }
    m_readFile = file;
    {
        const QSignalBlocker quiet(m_sheet);
        m_sheet->clear();
        for (const Sheet &read : m_sheets)
            m_sheet->addItem(read.name);
    }
    showSheet();
    return true;
}

void TF_Import::showSheet() {
    const Sheet *chosen = sheet();
    if (chosen == nullptr)
        return;
    const QSignalBlocker quiet(m_header);
    m_header->setMaximum(qMax(1, static_cast<int>(chosen->rows.size())));
    m_header->setValue(static_cast<int>(findHeaderRow(m_fields, *chosen)) + 1);
    showPreview();
}

void TF_Import::showPreview() {
    const Sheet *chosen = sheet();
    if (chosen == nullptr)
        return;
    const int rows = qMin(previewRows, static_cast<int>(chosen->rows.size()));
    int columns = 0;
    for (int row = 0; row < rows; ++row)
        columns = qMax(columns, static_cast<int>(chosen->rows[static_cast<size_t>(row)].size()));
    columns = qMin(columns, previewColumns);
    m_preview->setRowCount(rows);
    m_preview->setColumnCount(columns);
    m_preview->horizontalHeader()->hide();
    QFont bold = font();
    bold.setBold(true);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            auto *item = new QTableWidgetItem(
                chosen->rows[static_cast<size_t>(row)].value(column).left(200));
            if (row == static_cast<int>(headerRow()))
                item->setFont(bold);
            m_preview->setItem(row, column, item);
        }
}

QComboBox *TF_Import::columnBox(const QString &field) const {
    return m_columns->box(field);
}

void TF_Import::takeMapping() {
    m_request = {};
    m_request.target = &m_target;
    m_request.sheet = *sheet();
    m_request.headerRow = headerRow();
    m_request.known = m_update->isChecked() ? KnownRows::update : KnownRows::skip;
    m_request.mapping = m_columns->mapping();
}

bool TF_Import::check() {
    takeMapping();
    if (!show(checkImport(session(), prompter(), m_request, &m_rows)))
        return false;
    showRows();
    return true;
}

void TF_Import::showRows() {
    RowList list({u"row", u"name", u"status", u"fate"});
    int good = 0, skipped = 0, bad = 0;
    for (const ImportRow &row : m_rows) {
        list.add({static_cast<qint64>(row.row + 1), row.name, row.status,
                  static_cast<qint64>(row.fate)});
        good += row.isGood() ? 1 : 0;
        skipped += row.fate == ImportRow::Fate::skip ? 1 : 0;
        bad += row.fate == ImportRow::Fate::bad ? 1 : 0;
    }
    m_list->setRows(list.take());
    for (int line = 0; line < m_list->model().rowCount(); ++line)
        m_list->model().tick(line, m_rows[static_cast<size_t>(line)].ticked);
    m_summary->setText(
        QStringLiteral("可导入 %1 条，跳过 %2 条，有问题 %3 条。空格勾选或取消；没有勾选的不导入。")
            .arg(good)
            .arg(skipped)
            .arg(bad));
}

void TF_Import::import() {
    QSet<size_t> ticked;
    for (const Row *row : m_list->model().tickedRows())
        ticked.insert(static_cast<size_t>(row->integer(u"row") - 1));
    m_request.unticked.clear();
    for (const ImportRow &row : m_rows)
        if (!ticked.contains(row.row))
            m_request.unticked.insert(row.row);
    ImportResult result;
    Progress progress(QStringLiteral("正在导入"), static_cast<qsizetype>(m_rows.size()), this);
    const Outcome outcome = runImport(session(), prompter(), m_request, &result,
                                      [&](int done, int) { return progress.reach(done); });
    progress.finish();
    if (!show(outcome))
        return;
    m_rows = std::move(result.rows);
    m_done = true;
    if (result.failed == 0) {
        accept();
        return;
    }
    showRows(); // what failed, and why
    showStep(checkStep);
}

void TF_Import::openFile(const QString &file) {
    m_file->setPath(file);
    if (step() == fileStep)
        btnNextClick();
}

void TF_Import::btnNextClick() {
    switch (step()) {
    case fileStep:
        if (readFile() && sheet() != nullptr) {
            const size_t first = headerRow() + 1;
            m_columns->show(m_fields, header(),
                            first < sheet()->rows.size() ? sheet()->rows[first] : QStringList());
            showStep(mappingStep);
        }
        break;
    case mappingStep:
        if (check())
            showStep(checkStep);
        break;
    default:
        if (!m_done)
            import();
    }
}

void TF_Import::btnBackClick() {
    if (step() > fileStep && !m_done)
        showStep(step() - 1);
}

void TF_Import::btnTemplateClick() {
    const SheetTable empty = importTemplate(session(), m_target);
    const QString file = QFileDialog::getSaveFileName(
        this, QStringLiteral("下载模板"),
        QDir::home().filePath(empty.sheetName + QStringLiteral("导入模板.xlsx")),
        QStringLiteral("Excel 工作簿 (*.xlsx);;文本表格 (*.csv)"));
    if (file.isEmpty())
        return;
    try {
        writeSheet(empty, file);
        prompter().inform(
            QStringLiteral("模板已保存！\r\n\r\n%1").arg(QDir::toNativeSeparators(file)),
            informCaption);
    } catch (const SheetError &error) {
        prompter().inform(error.userText(), informCaption);
    }
}

bool TF_Import::mayLeave() {
    return m_done || step() != checkStep ||
           prompter().confirm(QStringLiteral("内容已修改，确认放弃吗？"), confirmCaption);
}

void TF_Import::keyPressEvent(QKeyEvent *event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        focusNextChild();
    else
        Form::keyPressEvent(event);
}

} // namespace jxc
