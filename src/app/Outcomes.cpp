#include "Outcomes.h"

#include "toolkit/AlertController.h"

#include <QLoggingCategory>
#include <QPointer>

Q_DECLARE_LOGGING_CATEGORY(lcApp)

Answer tellOn(ViewController& screen, const AppDelegate& application) {
    return [screen = QPointer(&screen),
            notes = QPointer(&application.services.notes)](const Outcome& outcome) {
        const bool isFailure =
            outcome.kind == Outcome::Failed || outcome.kind == Outcome::NoProgram;
        if (isFailure)
            qCWarning(lcApp) << outcome.text;
        const bool isTold =
            isFailure && screen &&
            presentAlert(*screen, QStringLiteral("That Did Not Work"), outcome.text);
        if (!isTold && notes && !outcome.text.isEmpty())
            notes->say(outcome.text);
    };
}
