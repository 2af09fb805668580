#pragma once

#include "app/application.h"
#include "core/clock.h"
#include "core/session.h"
#include "db/database.h"
#include "ui/box_prompter.h"

#include <memory>

namespace jxc {

class FormRegistry;
class TF_Loading;
class TF_MainForm;

/// What stands on the command line.
struct ProgramOptions {
    QString home;
    QString database;     ///< URL or path; empty: the embedded file below home
    bool counter = false; ///< --pos: the counter alone
};

/// Reads the command line; answers help and mistakes itself, and ends the process then.
[[nodiscard]] ProgramOptions readOptions(const QCoreApplication &application);

/// The program from its start to its end: the account set, the splash, the main window.
class Program : public QObject {
    Q_OBJECT
public:
    Program(Application &application, ProgramOptions options);
    ~Program() override;

    /// Opens the account set and shows the splash, or the counter. False when there is nothing to
    /// work on: it has been told why.
    [[nodiscard]] bool start();

private:
    bool openAccountSet();
    bool offerNewAccountSet(const Location &location);
    void showMainForm();
    bool showCounter();

    Application &m_application;
    ProgramOptions m_options;
    QString m_home;
    BoxPrompter m_prompter;
    SystemClock m_clock;
    std::unique_ptr<Database> m_database;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<FormRegistry> m_registry;
    std::unique_ptr<TF_Loading> m_loading;
    std::unique_ptr<TF_MainForm> m_mainForm;
};

} // namespace jxc
