#include "TextSharing.h"

#include "app/Outcomes.h"
#include "toolkit/ActivityViewController.h"
#include "toolkit/AlertController.h"

#include <QPointer>

void shareText(ViewController& screen, AppDelegate& application, const QString& text,
               std::vector<ActivityType> excluded) {
    Platform& platform = application.services.platform;
    if (platform.canSendText()) {
        screen.present(makeActivityViewController(platform, application.services.longWork, {text},
                                                  tellOn(screen, application),
                                                  std::move(excluded)));
        return;
    }
    application.services.mainQueue.async([screen = QPointer<ViewController>(&screen)] {
        if (screen)
            presentAlert(*screen, QStringLiteral("Can't Send Text Message"),
                         QStringLiteral("Your device is not able to send text messages."));
    });
}
