#include "Outcomes.h"

#include "toolkit/AlertController.h"

#include <QPointer>

Answer tellOn(ViewController& screen, const AppDelegate& application) {
    return [screen = QPointer(&screen),
            notes = QPointer(&application.services.notes)](const Outcome& outcome) {
        const bool isFailure =
            outcome.kind == Outcome::Failed || outcome.kind == Outcome::NoProgram;
        const bool isTold =
            isFailure && screen &&
            presentAlert(*screen, QStringLiteral("That Did Not Work"), outcome.text);
        if (!isTold && notes && !outcome.text.isEmpty())
            notes->say(outcome.text);
    };
}
