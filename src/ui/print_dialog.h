#pragma once

#include "reports/document_form.h"
#include "ui/form.h"
#include "ui/printer_memory.h"

#include <memory>

class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPrinter;
class QPrintPreviewWidget;
class QPushButton;
class QSpinBox;

namespace jxc {

/// Sends pages to a printer, moved by so many millimetres. False when it does not take them.
[[nodiscard]] bool sendToPrinter(const Pages &pages, QPointF offset, QPrinter &printer);

/// A document before it is printed.
class PrintDialog : public Form {
    Q_OBJECT
public:
    PrintDialog(const FormContext &context, const DocumentForm &document,
                QWidget *parent = nullptr);
    ~PrintDialog() override;

private:
    void build();
    QWidget *buildChoices();
    QDoubleSpinBox *offsetField();
    void fillPrinters();
    void fillTemplates();

    void chooseTemplate();
    void choosePrinter();
    void moveOffset();
    void print();
    void savePdf();
    void say(const QString &words, bool isFault);
    void updateButtons();

    [[nodiscard]] QString templateFile() const;
    [[nodiscard]] QPointF offset() const;

    const DocumentForm &m_document;
    PrinterMemory m_memory;
    Pages m_pages; ///< empty while the template is broken
    std::unique_ptr<QPrinter> m_printer;
    QComboBox *m_printers, *m_templates;
    QSpinBox *m_copies;
    QDoubleSpinBox *m_right, *m_down;
    QLabel *m_message;
    QPushButton *m_print, *m_pdf;
    QPrintPreviewWidget *m_preview;
};

} // namespace jxc
