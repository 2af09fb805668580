#include "reports/template_files.h"

#include "db/database.h"
#include "stock/document_kind.h"

#include <QDir>
#include <QFile>

// A resource in a static library has to be asked for, outside of any namespace.
static void needTemplates() {
    Q_INIT_RESOURCE(templates);
}

namespace jxc {

namespace {

const auto ownTemplates = QStringLiteral(":/report/");

/// The kind's templates and what each shows. Sales: by tax and retail price; purchases: with and
/// without prices.
struct KindTemplates {
    QString base;
    QStringList names;
};

KindTemplates templatesOf(const DocumentKind &kind) {
    const QStringList purchase = {u"含价格"_qs, u"不含价格"_qs};
    const QStringList sale = {u"普通"_qs, u"含税"_qs, u"含零售价"_qs, u"含税和零售价"_qs};
    const QStringList plain = {u"普通"_qs};
    static const QHash<QString, KindTemplates> known = {
        {u"CJ"_qs, {u"cgjh"_qs, purchase}}, {u"CT"_qs, {u"cgth"_qs, purchase}},
        {u"RK"_qs, {u"cgrk"_qs, plain}},    {u"XS"_qs, {u"spxs"_qs, sale}},
        {u"XT"_qs, {u"xsth"_qs, sale}},     {u"CK"_qs, {u"spck"_qs, plain}},
    };
    return known.value(kind.code);
}

/// The row of a kind in the list of registered templates.
int kindNumber(const DocumentKind &kind) {
    int number = 1;
    for (const DocumentKind &each : documentKinds()) {
        if (each.code == kind.code)
            return number;
        ++number;
    }
    return 0;
}

bool hasTax(const PrintData &data, const DocumentKind &kind) {
    const QString column = kind.quantityColumn.section(u'_', 0, 0) + QStringLiteral("_taxje");
    return std::any_of(data.lines.begin(), data.lines.end(), [&](const PrintFields &line) {
        return !line.value(column).figure.isZero();
    });
}

/// Which of the kind's templates fits, from 0.
qsizetype fitting(const Session &session, const DocumentKind &kind, const PrintData &data,
                  qsizetype count) {
    if (count == 2)
        return session.rights.showCostPrice ? 0 : 1;
    if (count == 4)
        return (hasTax(data, kind) ? 1 : 0) + (session.parameters.showsRetailPrice ? 2 : 0);
    return 0;
}

QString fileOf(const KindTemplates &templates, qsizetype index) {
    const QString variant = index == 0 ? QString() : QString::number(index + 1);
    return templates.base + variant + QStringLiteral(".fr3");
}

} // namespace

void installTemplates(const QString &home) {
    needTemplates();
    const QDir folder(QDir(home).filePath(QStringLiteral("report")));
    if (!folder.mkpath(QStringLiteral(".")))
        return;
    for (const QString &file : QDir(ownTemplates).entryList(QDir::Files)) {
        const QString target = folder.filePath(file);
        if (QFile::exists(target) || !QFile::copy(ownTemplates + file, target))
            continue;
        // Copies of what the program holds are read-only at first.
        QFile::setPermissions(target, QFile::permissions(target) | QFile::WriteOwner);
    }
}

Template loadTemplate(const QString &home, const QString &file) {
    needTemplates();
    const QString name = QFileInfo(file).fileName(); // never outside of the folder
    const QString edited = QDir(home).filePath(QStringLiteral("report/") + name);
    QFile source(QFile::exists(edited) ? edited : ownTemplates + name);
    if (!source.open(QIODevice::ReadOnly))
        throw TemplateError(QStringLiteral("打不开报表模板“%1”！").arg(name));
    try {
        return readTemplate(source.readAll());
    } catch (const TemplateError &error) {
        throw TemplateError(QStringLiteral("%1：%2").arg(name, error.text()));
    }
}

std::vector<TemplateChoice> templateChoices(const Session &session, const DocumentKind &kind,
                                            const PrintData &data) {
    const KindTemplates own = templatesOf(kind);
    const qsizetype first = fitting(session, kind, data, own.names.size());
    std::vector<TemplateChoice> choices;
    const auto add = [&](const TemplateChoice &choice) {
        const auto same = [&](const TemplateChoice &other) { return other.file == choice.file; };
        if (std::none_of(choices.begin(), choices.end(), same))
            choices.push_back(choice);
    };
    if (!own.names.isEmpty())
        add({fileOf(own, first), own.names[first]});
    if (own.names.size() == 2 && first == 1)
        return choices;
    for (qsizetype i = 0; i < own.names.size(); ++i)
        add({fileOf(own, i), own.names[i]});
    for (const Row &row : session.db().rows(
             QStringLiteral("select b_file,b_name from jxc_bbgl where b_lx=? and b_file<>'' "
                            "order by id"),
             {kindNumber(kind)}))
        add({row.text(u"b_file"), row.text(u"b_name")});
    return choices;
}

} // namespace jxc
