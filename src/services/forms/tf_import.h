#pragma once

#include "services/import.h"
#include "ui/form.h"

class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QStackedWidget;
class QTableWidget;

namespace jxc {

class Grid;
class ImportColumns;
class PathField;

/// Takes a list from a spreadsheet in, step by step: file and sheet, columns, check, import. F5
/// goes on, F4 back.
class TF_Import : public Form {
    Q_OBJECT
public:
    TF_Import(const FormContext &context, const ImportTarget &target, const QString &className,
              QWidget *parent);

    void FormActivate() override;
    bool mayLeave() override;

    /// Reads a file and goes to the columns unless it cannot be read, which has been told.
    void openFile(const QString &file);
    [[nodiscard]] int step() const;
    [[nodiscard]] Grid &checkList() const { return *m_list; }
    /// The box that chooses the column of the sheet for a field.
    [[nodiscard]] QComboBox *columnBox(const QString &field) const;

public Q_SLOTS:
    void btnNextClick();
    void btnBackClick();
    void btnTemplateClick();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *makeFilePage();
    QWidget *makeMappingPage();
    QWidget *makeCheckPage();
    QWidget *makeButtons();
    void showStep(int step);
    [[nodiscard]] const Sheet *sheet() const;
    [[nodiscard]] size_t headerRow() const;
    [[nodiscard]] QStringList header() const;
    [[nodiscard]] bool readFile();
    void showSheet();
    void showPreview();
    void takeMapping();
    bool check();
    void showRows();
    void import();

    const ImportTarget &m_target;
    QStackedWidget *m_steps;
    QLabel *m_title;
    PathField *m_file;
    QString m_readFile;
    QComboBox *m_sheet;
    QSpinBox *m_header;
    QTableWidget *m_preview;
    ImportColumns *m_columns;
    QRadioButton *m_skip, *m_update;
    Grid *m_list;
    QLabel *m_summary;
    QPushButton *m_back, *m_next;

    std::vector<Sheet> m_sheets;
    std::vector<ImportField> m_fields;
    ImportRequest m_request;
    std::vector<ImportRow> m_rows;
    bool m_done = false; ///< imported; what is shown is the result
};

} // namespace jxc
