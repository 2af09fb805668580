#include "stock/draft_file.h"

#include "core/backup.h"
#include "core/session.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace jxc {

namespace {

// One list of members each, so that what is written is what is read. A visitor gets every member
// with its name; figures travel as text.

template<typename Visitor, typename Line>
void eachOfLine(Visitor &visit, Line &line) {
    visit(u"goods", line.goods);
    visit(u"unit", line.unit);
    visit(u"factor", line.factor);
    visit(u"quantity", line.quantity);
    visit(u"price", line.price);
    visit(u"discount", line.discount);
    visit(u"batch", line.batch.number);
    visit(u"expiry", line.batch.expiry);
    visit(u"produced", line.batch.produced);
    visit(u"note", line.note);
    visit(u"gift", line.gift);
    visit(u"buyer", line.buyer);
    visit(u"identityNo", line.identityNo);
    visit(u"mobile", line.mobile);
    visit(u"use", line.use);
    visit(u"address", line.address);
    visit(u"prescription", line.prescription);
    visit(u"barcode", line.barcode);
    visit(u"taxRate", line.taxRate);
    visit(u"total", line.total);
    visit(u"cost", line.cost);
    visit(u"sourceNumber", line.sourceNumber);
    visit(u"sourceLine", line.sourceLine);
    visit(u"id", line.id);
    visit(u"closedLine", line.closedLine);
}

template<typename Visitor, typename Header>
void eachOfHeader(Visitor &visit, Header &draft) {
    visit(u"code", draft.code);
    visit(u"date", draft.date);
    visit(u"partner", draft.partner);
    visit(u"warehouse", draft.warehouse);
    visit(u"clerk", draft.clerk);
    visit(u"note", draft.note);
    visit(u"paid", draft.paid);
    visit(u"restForgiven", draft.restForgiven);
    visit(u"account", draft.account);
    visit(u"supplierNumber", draft.supplierNumber);
    visit(u"invoiceNo", draft.invoiceNo);
    visit(u"invoiced", draft.invoiced);
    visit(u"freight", draft.freight);
    visit(u"packing", draft.packing);
    visit(u"freightTerms", draft.freightTerms);
    visit(u"laterInOut", draft.laterInOut);
    visit(u"newTotal", draft.newTotal);
    visit(u"contract", draft.contract);
    visit(u"member", draft.member);
    visit(u"reminderDate", draft.reminderDate);
    visit(u"tenderMethod", draft.tenders.method);
    visit(u"tenderCash", draft.tenders.cash);
    visit(u"tenderStoredValue", draft.tenders.storedValue);
    visit(u"tenderBankCard", draft.tenders.bankCard);
    visit(u"tenderVoucher", draft.tenders.voucher);
    visit(u"number", draft.number);
    visit(u"fingerprint", draft.fingerprint);
}

/// What is empty is left out, since most of a line is: it is written anew after every cell.
struct Writer {
    QJsonObject object{};
    void operator()(const char16_t *name, const QString &text) {
        if (!text.isEmpty())
            put(name, text);
    }
    void operator()(const char16_t *name, Decimal figure) { put(name, figure.toText()); }
    void operator()(const char16_t *name, const std::optional<Decimal> &figure) {
        if (figure)
            put(name, figure->toText());
    }
    void operator()(const char16_t *name, bool flag) { put(name, flag); }
    void operator()(const char16_t *name, int number) { put(name, number); }
    void operator()(const char16_t *name, qint64 number) {
        if (number != 0)
            put(name, number);
    }

private:
    void put(const char16_t *name, const QJsonValue &value) {
        object.insert(QStringView(name), value);
    }
};

/// What is left out keeps the value that a new line has.
struct Reader {
    const QJsonObject &object;
    void operator()(const char16_t *name, QString &text) const { text = get(name).toString(text); }
    void operator()(const char16_t *name, Decimal &figure) const {
        if (const QJsonValue value = get(name); value.isString())
            figure = Decimal::fromText(value.toString());
    }
    void operator()(const char16_t *name, std::optional<Decimal> &figure) const {
        figure.reset();
        if (const QJsonValue value = get(name); value.isString())
            figure = Decimal::fromText(value.toString());
    }
    void operator()(const char16_t *name, bool &flag) const { flag = get(name).toBool(flag); }
    void operator()(const char16_t *name, int &number) const { number = get(name).toInt(number); }
    void operator()(const char16_t *name, qint64 &number) const {
        number = get(name).toInteger(number);
    }

private:
    [[nodiscard]] QJsonValue get(const char16_t *name) const {
        return object.value(QStringView(name));
    }
};

} // namespace

QByteArray draftToJson(const Draft &draft) {
    Writer header;
    eachOfHeader(header, draft);
    QJsonArray lines;
    for (const DraftLine &line : draft.lines) {
        Writer writer;
        eachOfLine(writer, line);
        lines.append(writer.object);
    }
    header.object.insert(QStringLiteral("lines"), lines);
    return QJsonDocument(header.object).toJson(QJsonDocument::Compact);
}

std::optional<Draft> draftFromJson(const QByteArray &json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return {};
    const QJsonObject object = document.object();
    try {
        Draft draft;
        Reader header{object};
        eachOfHeader(header, draft);
        for (const QJsonValue &value : object.value(QStringLiteral("lines")).toArray()) {
            const QJsonObject lineObject = value.toObject();
            Reader reader{lineObject};
            DraftLine line;
            eachOfLine(reader, line);
            draft.lines.push_back(line);
        }
        return draft;
    } catch (const std::exception &) {
        return {}; // figures that are none: the file is not ours any more
    }
}

DraftFile::DraftFile(const QString &folder, const Session &session, const QString &code)
    : m_file(QDir(folder).filePath(
          QStringLiteral("%1-%2-%3.json")
              .arg(accountSetName(session), session.currentOperatorNo, code))) {
    m_writer.setMaxThreadCount(1);
}

DraftFile::~DraftFile() {
    m_writer.waitForDone();
}

void DraftFile::keep(const Draft &draft) {
    const QMutexLocker locked(&m_lock);
    const bool isWriting = m_waiting.has_value();
    m_waiting = draft;
    if (!isWriting)
        m_writer.start([this] { writeWaiting(); });
}

void DraftFile::writeWaiting() {
    std::optional<Draft> draft;
    {
        const QMutexLocker locked(&m_lock);
        draft.swap(m_waiting);
    }
    QSaveFile file(m_file);
    if (draft && QDir().mkpath(QFileInfo(m_file).path()) && file.open(QIODevice::WriteOnly)) {
        file.write(draftToJson(*draft));
        file.commit();
    }
}

std::optional<Draft> DraftFile::read() {
    m_writer.waitForDone();
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return draftFromJson(file.readAll());
}

void DraftFile::forget() {
    m_writer.waitForDone();
    QFile::remove(m_file);
}

} // namespace jxc
