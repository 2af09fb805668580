#include "ui/print_dialog.h"

#include "core/session.h"
#include "reports/pdf.h"
#include "reports/print_log.h"
#include "ui/theme.h"

#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

namespace jxc {

namespace {

/// Paper with holes never sits further off than this.
constexpr int mostOffset = 30;

} // namespace

bool sendToPrinter(const Pages &pages, QPointF offset, QPrinter &printer) {
    setPaper(printer, pages.front());
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    painter.translate(offset * printer.resolution() / 25.4);
    for (size_t i = 0; i < pages.size(); ++i) {
        if (i > 0 && !printer.newPage())
            return false;
        paint(pages[i], painter, printer.resolution());
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

PrintDialog::PrintDialog(const FormContext &context, const DocumentForm &document, QWidget *parent)
    : Form(context, QStringLiteral("PrintDialog"),
           QStringLiteral("打印 － %1 %2").arg(document.title(), document.number()), parent)
    , m_document(document)
    , m_memory(context.home)
    , m_printer(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
    build();
    fillPrinters();
    fillTemplates();
    choosePrinter();
    chooseTemplate();
    (m_print->isEnabled() ? m_print : m_pdf)->setFocus();
}

PrintDialog::~PrintDialog() {
    // The preview draws with the printer until it is gone.
    delete m_preview;
}

void PrintDialog::build() {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(16, 16, 16, 16);
    row->setSpacing(16);
    row->addWidget(buildChoices());
    m_preview = new QPrintPreviewWidget(m_printer.get(), this);
    m_preview->setObjectName(QStringLiteral("preview"));
    m_preview->setViewMode(QPrintPreviewWidget::AllPagesView);
    m_preview->setZoomMode(QPrintPreviewWidget::FitToWidth);
    connect(m_preview, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter *target) {
        if (!m_pages.empty() && !sendToPrinter(m_pages, offset(), *target))
            say(QStringLiteral("无法显示预览！"), true);
    });
    row->addWidget(m_preview, 1);
    resize(1100, 620);
}

QWidget *PrintDialog::buildChoices() {
    auto *side = new QWidget(this);
    side->setFixedWidth(280);
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    auto *fields = new QFormLayout;
    const auto add = [&](const QString &caption, const QString &name, QWidget *field) {
        field->setObjectName(name);
        fields->addRow(caption, field);
    };
    add(QStringLiteral("打印机(&D)"), QStringLiteral("printer"), m_printers = new QComboBox);
    add(QStringLiteral("模板(&T)"), QStringLiteral("template"), m_templates = new QComboBox);
    add(QStringLiteral("份数(&C)"), QStringLiteral("copies"), m_copies = new QSpinBox);
    m_copies->setRange(1, 99);
    add(QStringLiteral("右移（毫米）"), QStringLiteral("right"), m_right = offsetField());
    add(QStringLiteral("下移（毫米）"), QStringLiteral("down"), m_down = offsetField());
    column->addLayout(fields);
    m_message = new QLabel;
    m_message->setObjectName(QStringLiteral("message"));
    m_message->setWordWrap(true);
    column->addWidget(m_message);
    column->addStretch(1);
    const auto button = [&](const QString &name, const QString &caption, auto run) {
        auto *made = new QPushButton(caption);
        made->setObjectName(name);
        connect(made, &QPushButton::clicked, this, run);
        column->addWidget(made);
        return made;
    };
    m_print = button(QStringLiteral("print"), QStringLiteral("打印 Enter"), [this] { print(); });
    m_pdf = button(QStringLiteral("pdf"), QStringLiteral("另存为 PDF(&S)…"), [this] { savePdf(); });
    button(QStringLiteral("leave"), QStringLiteral("关闭 Esc"), [this] { reject(); });
    connect(m_printers, &QComboBox::activated, this, [this] { choosePrinter(); });
    connect(m_templates, &QComboBox::activated, this, [this] { chooseTemplate(); });
    return side;
}

QDoubleSpinBox *PrintDialog::offsetField() {
    auto *field = new QDoubleSpinBox;
    field->setRange(-mostOffset, mostOffset);
    field->setDecimals(1);
    field->setSingleStep(0.5);
    connect(field, &QDoubleSpinBox::valueChanged, this, [this] { moveOffset(); });
    return field;
}

void PrintDialog::fillPrinters() {
    m_printers->addItems(QPrinterInfo::availablePrinterNames());
    m_printers->setCurrentText(m_memory.printerFor(m_document.kind()));
    m_printers->setEnabled(m_printers->count() > 0);
}

/// The template that fits comes first; one that the user chose for this kind is proposed again.
void PrintDialog::fillTemplates() {
    for (const TemplateChoice &choice : m_document.choices())
        m_templates->addItem(QStringLiteral("%1（%2）").arg(choice.name, choice.file), choice.file);
    m_templates->setCurrentIndex(
        m_templates->findData(m_document.proposed(m_memory.templateFor(m_document.kind()))));
}

QString PrintDialog::templateFile() const {
    return m_templates->currentData().toString();
}

QPointF PrintDialog::offset() const {
    return {m_right->value(), m_down->value()};
}

void PrintDialog::chooseTemplate() {
    m_pages.clear();
    try {
        m_pages = m_document.pages(templateFile());
        m_copies->setValue(m_document.copies(templateFile()));
        if (m_printers->count() == 0)
            say(QStringLiteral("没有找到打印机，可以预览，或者另存为 PDF。"), false);
        else if (m_document.isAgain())
            say(QStringLiteral("该单据已打印过，本次打印将注明“补打”。"), false);
        else
            say({}, false);
    } catch (const TemplateError &error) {
        say(error.text() + QStringLiteral("\n\n请选择其它模板，或者修改该模板。"), true);
    }
    updateButtons();
    m_preview->setVisible(!m_pages.empty());
    m_preview->updatePreview();
}

void PrintDialog::choosePrinter() {
    const QString name = m_printers->currentText();
    if (!name.isEmpty())
        m_printer->setPrinterName(name);
    const QPointF kept = m_memory.offset(name);
    for (QDoubleSpinBox *field : {m_right, m_down}) {
        const QSignalBlocker quiet(field);
        field->setValue(field == m_right ? kept.x() : kept.y());
        field->setEnabled(!name.isEmpty());
    }
    updateButtons();
    m_preview->updatePreview();
}

void PrintDialog::moveOffset() {
    m_memory.setOffset(m_printers->currentText(), offset());
    m_preview->updatePreview();
}

void PrintDialog::updateButtons() {
    m_print->setEnabled(!m_pages.empty() && m_printers->count() > 0);
    m_pdf->setEnabled(!m_pages.empty());
    (m_print->isEnabled() ? m_print : m_pdf)->setDefault(true);
}

void PrintDialog::print() {
    m_printer->setCopyCount(m_copies->value());
    m_printer->setDocName(m_document.number());
    if (!sendToPrinter(m_pages, offset(), *m_printer)) {
        say(QStringLiteral("打印机“%1”不能打印，请检查打印机！").arg(m_printer->printerName()),
            true);
        return;
    }
    // Only another template than the one that fits was a choice.
    const bool isOwnChoice = templateFile() != m_document.choices().front().file;
    m_memory.remember(m_document.kind(), m_printers->currentText(),
                      isOwnChoice ? templateFile() : QString());
    PrintLog(context().home).add(m_document.number(), session().timeStamp());
    accept();
}

void PrintDialog::savePdf() {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    const QString file =
        QFileDialog::getSaveFileName(this, QStringLiteral("另存为 PDF"),
                                     folder.filePath(m_document.number() + QStringLiteral(".pdf")),
                                     QStringLiteral("PDF 文件 (*.pdf)"));
    if (file.isEmpty())
        return;
    const QString named = file.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)
                              ? file
                              : file + QStringLiteral(".pdf");
    if (writePdf(m_pages, m_document.number(), named))
        say(QStringLiteral("已保存：%1").arg(QDir::toNativeSeparators(named)), false);
    else
        say(QStringLiteral("文件“%1”不能写入，请检查文件夹和磁盘空间！")
                .arg(QDir::toNativeSeparators(named)),
            true);
}

void PrintDialog::say(const QString &words, bool isFault) {
    m_message->setText(words);
    const Theme &theme = Theme::current();
    QPalette palette = m_message->palette();
    palette.setColor(QPalette::WindowText, isFault ? theme.danger : theme.textQuiet);
    m_message->setPalette(palette);
}

} // namespace jxc
