#pragma once

#include "ui/form.h"

class QLineEdit;
class QPlainTextEdit;
class QPrinter;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;
class QUrl;

namespace jxc {

struct HelpPage;

/// 软件帮助: the pages of the help with their search, notes that the whole shop shares, and what
/// program this is.
class TF_Rjbz : public Form {
    Q_OBJECT
public:
    explicit TF_Rjbz(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;
    bool mayLeave() override;

    /// Shows the page of a window, the first one when it has none.
    void showPageOf(const QString &formClass);
    /// Of the page that is shown.
    [[nodiscard]] QString pageName() const;

    void btnPrintClick();
    void btnKeysClick();

private:
    QWidget *makeHelp();
    QWidget *makeNotes();
    QWidget *makeAbout();
    void addActions();
    void find(const QString &words);
    void showPage(const HelpPage *page);
    void showCurrent();
    void openLink(const QUrl &link);
    void printPreview(const HelpPage &page);

    QTabWidget *m_tabs;
    QLineEdit *m_search;
    QTreeWidget *m_topics;
    QTextBrowser *m_text;
    QPlainTextEdit *m_notes;
    QString m_stored; ///< the notes as they were read
};

/// Draws a help page on A4; the sheet of keys fits on one.
void printHelpPage(const HelpPage &page, QPrinter &printer);
/// On how many sheets of A4 it goes.
[[nodiscard]] int sheetsOf(const HelpPage &page);

} // namespace jxc
