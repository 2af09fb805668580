#pragma once

#include <QDialog>
#include <QString>

namespace jxc {

class Database;
class Form;
class GoodsFinder;
class Prompter;
class Session;

/// Opens forms for each other, so that a row of one leads to the form behind it. The program's
/// registry implements it.
class FormStage {
public:
    virtual ~FormStage() = default;
    /// Whether the form is part of this program; what opens another one is disabled without.
    [[nodiscard]] virtual bool isKnown(const QString &className) const {
        return !className.isEmpty();
    }
    /// Shows the one kept instance of a form ("TF_Kccx"), made at its first use. Null when the
    /// form is not part of this program.
    virtual Form *openForm(const QString &className, const QString &caption) = 0;
    /// A new instance of a form, not shown yet, for whoever asked to be its only owner. Null when
    /// the form is not part of this program.
    virtual Form *makeForm(const QString &className, QWidget *parent) {
        Q_UNUSED(className)
        Q_UNUSED(parent)
        return nullptr;
    }
    /// Shows a stored document of any kind, to read.
    virtual void openDocument(const QString &number) = 0;
};

/// What every form is opened with.
struct FormContext {
    Session &session;
    Prompter &prompter;
    FormStage &stage;
    GoodsFinder &goods; ///< of this connection; it keeps what it has read
    QString home;       ///< the folder that holds data/, Layout/ and report/
};

/// A function form or a dialog. The class name is also its object name: layouts are kept and help
/// is found under it.
class Form : public QDialog {
    Q_OBJECT
public:
    Form(const FormContext &context, const QString &className, const QString &title,
         QWidget *parent = nullptr);

    [[nodiscard]] const FormContext &context() const { return m_context; }
    [[nodiscard]] Session &session() const { return m_context.session; }
    [[nodiscard]] Database &db() const;
    [[nodiscard]] Prompter &prompter() const { return m_context.prompter; }

    /// Shows an outcome's text, if it has one, in the box it belongs in; true when it was done.
    bool show(const struct Outcome &outcome);
    using QDialog::show;

    /// Brings the form to the front, modal, and calls FormActivate.
    void showModal();
    /// The same, and waits until it is closed: true when it was accepted.
    bool runModal();

    /// Forms to work in all day are as large as the window behind them.
    void setFillsParent(bool on) { m_fillsParent = on; }

    /// The caption that the dispatch gives may choose what the form shows first.
    virtual void setCaption(const QString &caption);

    /// Each time the form is shown: reads anew what it shows.
    virtual void FormActivate() {}
    /// Whether the form may go; asks about what was typed and not saved.
    virtual bool mayLeave() { return true; }

    /// Also what closing the window by its frame comes to.
    void reject() override;

private:
    FormContext m_context;
    bool m_fillsParent = false;
};

} // namespace jxc
