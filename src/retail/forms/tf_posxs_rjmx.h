#pragma once

#include "ui/form.h"

class QTabWidget;

namespace jxc {

class CounterPrinting;
class ListPage;

/// POS日结明细: what a settlement sums up, by goods and day, and the receipts that it settled.
class TF_Posxs_Rjmx : public Form {
    Q_OBJECT
public:
    TF_Posxs_Rjmx(const FormContext &context, const QString &number, QWidget *parent);

    void FormActivate() override;
    [[nodiscard]] ListPage &lines() const { return *m_lines; }
    [[nodiscard]] ListPage &receipts() const { return *m_receipts; }
    [[nodiscard]] CounterPrinting &printing() const { return *m_printing; }

public Q_SLOTS:
    /// Prints the current receipt again.
    void printPos();

private:
    void makeLines();
    void makeReceipts();

    QString m_number;
    QTabWidget *m_pages;
    ListPage *m_lines = nullptr, *m_receipts = nullptr;
    CounterPrinting *m_printing;
};

} // namespace jxc
