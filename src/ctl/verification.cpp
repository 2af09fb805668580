#include "ctl/verification.h"

#include "ctl/console.h"

namespace jxc::ctl {

ExitCode sayVerification(Database &db, const VerifyOptions &options) {
    int differences = 0;
    for (const Difference &difference : verifyBooks(db, options)) {
        say(oneLine(difference.text));
        if (!difference.information)
            ++differences;
    }
    say(QStringLiteral("%1 differences").arg(differences));
    return differences == 0 ? done : failed;
}

} // namespace jxc::ctl
