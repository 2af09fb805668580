#pragma once

#include "db/row.h"

namespace jxc {

/// Makes rows for a grid of what is no query's result.
class RowList {
public:
    explicit RowList(const std::vector<const char16_t *> &names) {
        std::vector<QString> texts;
        for (const char16_t *name : names)
            texts.push_back(QString::fromUtf16(name));
        m_columns = std::make_shared<const Columns>(std::move(texts));
    }

    void add(std::vector<Cell> cells) { m_rows.emplace_back(m_columns, std::move(cells)); }
    [[nodiscard]] Rows take() { return std::move(m_rows); }
    /// The rows that have the text in one of their texts, large and small letters alike; for lists
    /// that are short enough to search in memory.
    [[nodiscard]] Rows takeMatching(const QString &search) {
        const auto matches = [&](const Row &row) {
            for (size_t i = 0; i < row.columns().names().size(); ++i)
                if (const auto *text = std::get_if<QString>(&row.cell(i)))
                    if (text->contains(search, Qt::CaseInsensitive))
                        return true;
            return false;
        };
        if (!search.isEmpty())
            std::erase_if(m_rows, [&](const Row &row) { return !matches(row); });
        return take();
    }

private:
    std::shared_ptr<const Columns> m_columns;
    Rows m_rows;
};

} // namespace jxc
