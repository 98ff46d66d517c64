#pragma once

#include "support/PrintText.h"
#include "support/TestFiles.h"

#include <QApplication>
#include <QImage>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <optional>

/**
 * A desktop of the tests' own: a home, a message bus without services, and stand-ins for the
 * programs that open addresses and mails, which record what they were given. Made before the
 * QApplication, since libraries read the environment once.
 */
class Desktop {
public:
    Desktop();
    ~Desktop();

    static QString path(const char* name);
    /** Makes one of the stand-ins the only programs there are. */
    static void provideOnly(const char* program);
    static void provideAll();
    /** Forgets what the stand-ins have recorded. */
    static void clearRecords();
    /** The arguments that a stand-in was called with; waits for the call. */
    static std::optional<QStringList> callOf(const char* program);
    /** Whether a stand-in is called within some tenths of a second. */
    static bool isCalled(const char* program);

private:
    QTemporaryDir m_home;
    QProcess m_bus;
};

/** What pdftotext reads in a PDF file. */
QString textOfPdf(const QString& path, const QStringList& options = {});
/** The first page of a PDF file, a dot for each point. */
QImage pictureOfPdf(const QString& path);

/** The dialog of a kind that is on the screen; null when there is none. */
template <class Dialog>
Dialog* shownDialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<Dialog*>(widget); dialog && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

/** Handles events until the condition holds; false when it does not within seconds. */
bool waitFor(const std::function<bool()>& condition);
