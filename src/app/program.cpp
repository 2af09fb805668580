#include "app/program.h"

#include "app/form_registry.h"
#include "app/tf_loading.h"
#include "app/tf_mainform.h"
#include "core/account_set.h"
#include "core/action.h"
#include "db/creation.h"
#include "retail/document_posting.h"

#include <QCommandLineParser>

namespace jxc {

ProgramOptions readOptions(const QCoreApplication &application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("农资店的进货、销售、库存、往来帐"));
    const QCommandLineOption home(
        QStringLiteral("home"), QStringLiteral("主文件夹（里面有 data/）"), QStringLiteral("DIR"));
    const QCommandLineOption database(QStringLiteral("database"),
                                      QStringLiteral("帐套：文件，或 postgresql://用户@服务器/库"),
                                      QStringLiteral("URL"));
    parser.addOptions({home, database});
    parser.addHelpOption();
    parser.process(application);
    return {parser.value(home), parser.value(database)};
}

Program::Program(Application &application, ProgramOptions options)
    : m_application(application)
    , m_options(std::move(options))
    , m_home(homeFolder(m_options.home)) {
    m_application.setPrompter(&m_prompter);
    connect(&m_application, &Application::accountSetUnreadable, &m_application,
            [] { QCoreApplication::exit(1); });
}

Program::~Program() {
    m_application.setPrompter(nullptr);
    m_application.setReconnect({});
}

bool Program::start() {
    try {
        if (!openAccountSet())
            return false;
    } catch (...) {
        m_application.tell(std::current_exception());
        return false;
    }
    for (const QString &warning : m_database->warnings())
        m_prompter.inform(warning, informCaption);
    m_session = std::make_unique<Session>(*m_database, m_clock);
    m_session->members = &documentPosting();
    m_application.setReconnect([this] { m_database->reconnectIfLost(); });
    m_registry = std::make_unique<FormRegistry>(*m_session, m_prompter, m_home);
    registerForms(*m_registry);
    m_loading = std::make_unique<TF_Loading>();
    connect(m_loading.get(), &TF_Loading::finished, this, &Program::showMainForm);
    m_loading->FormActivate();
    return true;
}

bool Program::openAccountSet() {
    const Location location = accountSetLocation(m_home, m_options.database);
    if (isAccountSetMissing(location) && !offerNewAccountSet(location))
        return false;
    for (;;) {
        try {
            m_database = std::make_unique<Database>(location);
            return true;
        } catch (const ConnectionLost &error) { // the server may still be starting
            if (!m_prompter.confirm(error.userText() + QStringLiteral("\r\n\r\n是否再试一次？"),
                                    confirmCaption))
                return false;
        }
    }
}

bool Program::offerNewAccountSet(const Location &location) {
    const QString question = QStringLiteral("没有找到帐套：\r\n\r\n%1\r\n\r\n是否新建一个帐套？")
                                 .arg(location.display());
    if (!m_prompter.confirm(question, confirmCaption))
        return false;
    const auto db = openNewAccountSet(location, false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        resetAllTables(*db, m_clock.now().date());
    } catch (...) {
        QApplication::restoreOverrideCursor();
        throw;
    }
    QApplication::restoreOverrideCursor();
    return true;
}

void Program::showMainForm() {
    m_mainForm = std::make_unique<TF_MainForm>(*m_registry);
    m_registry->setOwner(m_mainForm.get());
    connect(m_mainForm.get(), &TF_MainForm::ended, &m_application, &QCoreApplication::quit);
    m_mainForm->FormShow();
}

} // namespace jxc
