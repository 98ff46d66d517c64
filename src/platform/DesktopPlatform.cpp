#include "DesktopPlatform.h"

#include "foundation/Files.h"
#include "platform/Attachments.h"
#include "platform/Launch.h"
#include "platform/Mail.h"
#include "platform/Print.h"

#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QUrl>
#include <QWindow>

#include <gio/gio.h>

namespace {

// A program's argument may not be longer than 128 KiB.
constexpr qsizetype longestAddress = 120'000;

bool hasHandler(const char* scheme) {
    GAppInfo* handler = g_app_info_get_default_for_uri_scheme(scheme);
    if (!handler)
        return false;
    g_object_unref(handler);
    return true;
}

/** What prints a job in steps, and tells in the end what has come of it. */
struct Printing {
    LongWork::Step step;
    std::function<Outcome()> end;
};

Printing printingOn(const std::shared_ptr<QPrinter>& printer, const PrintJob& job) {
    if (printer->outputFormat() == QPrinter::PdfFormat) {
        const QString path = printer->outputFileName();
        const auto pdf =
            std::make_shared<PdfPrinter>(job, path, printer->pageLayout(), printer->pageRanges());
        return {[pdf] { return pdf->step(); },
                [pdf, path]() -> Outcome {
                    if (const auto failure = pdf->end())
                        return {Outcome::Failed, failure->description};
                    return {Outcome::Done, QStringLiteral("PDF written to %1").arg(path)};
                }};
    }
    const auto pages = std::make_shared<PagePrinter>(job, *printer);
    return {[pages] { return pages->step(); },
            [pages, printer]() -> Outcome {
                if (pages->end())
                    return {};
                return {Outcome::Failed,
                        QStringLiteral("The printer \"%1\" does not take the pages.")
                            .arg(printer->printerName())};
            }};
}

void printOn(const std::shared_ptr<QPrinter>& printer, const PrintJob& job, LongWork& work,
             const Answer& answer) {
    const auto printing = printingOn(printer, job);
    work.run(QStringLiteral("Printing"), printing.step,
             [end = printing.end, printer, answer](bool isCancelled) {
                 if (isCancelled)
                     printer->abort();
                 answer(isCancelled ? Outcome{Outcome::Cancelled} : end());
             });
}

} // namespace

DesktopPlatform::DesktopPlatform() {
    sweepAttachments();
}

DesktopPlatform::~DesktopPlatform() = default;

bool DesktopPlatform::canSendText() const {
    return hasMessages() || canSendMail();
}

bool DesktopPlatform::hasMessages() const {
    return hasHandler("sms");
}

bool DesktopPlatform::canSendMail() const {
    return hasHandler("mailto");
}

void DesktopPlatform::open(const QUrl& address, const Answer& answer) {
    const QString text = QString::fromLatin1(address.toEncoded());
    if (address.isValid() && !address.scheme().isEmpty())
        launch(QStringLiteral("xdg-open"), {text},
               QStringLiteral("No program opens \"%1\".").arg(text.left(100)), &m_requests, answer);
    else
        answer({Outcome::Failed, QStringLiteral("\"%1\" is no address.").arg(text.left(100))});
}

void DesktopPlatform::copy(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

void DesktopPlatform::message(const QString& text, const Answer& answer) {
    const QString body = QString::fromLatin1(QUrl::toPercentEncoding(text));
    if (body.size() > longestAddress)
        answer({Outcome::Failed, QStringLiteral("The text is too long for a text message.")});
    else
        open(QUrl(QStringLiteral("sms:?body=") + body, QUrl::StrictMode), answer);
}

void DesktopPlatform::mail(const MailMessage& message, const Answer& answer) {
    if (mailtoAddress(message).toEncoded().size() > longestAddress) {
        MailMessage shorter = message;
        shorter.attachments.push_back(
            {message.body.toUtf8(), QStringLiteral("text/plain"), QStringLiteral("Message.txt")});
        shorter.body.clear();
        mail(shorter, answer);
        return;
    }
    const auto written = writeAttachments(message);
    if (const auto* failure = std::get_if<WriteFailure>(&written)) {
        answer({Outcome::Failed, failure->description});
        return;
    }
    const auto attachments = std::get<QStringList>(written);
    const QUrl address = mailtoAddress(message);
    const auto withoutAttachments = [this, answer, address, attachments](const Outcome& outcome) {
        if (outcome.kind != Outcome::NoProgram) {
            answer(outcome);
            return;
        }
        open(address, [answer, attachments](const Outcome& opened) {
            const bool isBare = opened.kind == Outcome::Done && !attachments.isEmpty();
            answer(isBare ? Outcome{Outcome::Done,
                                    QStringLiteral("The mail has no attachment: without the "
                                                   "program xdg-email it cannot be attached.")}
                          : opened);
        });
    };
    const auto withoutPortal = [this, attachments, address, withoutAttachments] {
        // As an address, the message reaches the script whole: its options lose backslashes.
        QStringList arguments{QString::fromLatin1(address.toEncoded())};
        for (const QString& attachment : attachments)
            arguments << QStringLiteral("--attach") << attachment;
        launch(QStringLiteral("xdg-email"), arguments, QStringLiteral("No program opens mail."),
               &m_requests, withoutAttachments);
    };
    new PortalMail(message, attachments, answer, withoutPortal, &m_requests);
}

void DesktopPlatform::print(const PrintJob& job, LongWork& work, const Answer& answer) {
    const auto printer = std::make_shared<QPrinter>();
    printer->setResolution(printResolution);
    printer->setDocName(job.jobName);
    if (QPrinterInfo::defaultPrinterName().isEmpty())
        printer->setOutputFileName(documentsFolder() + QStringLiteral("/Quotes.pdf"));
    auto dialog = std::make_unique<QPrintDialog>(printer.get());
    QObject::connect(dialog.get(), &QDialog::finished, &m_requests,
                     [printer, job, &work, answer](int result) {
                         if (result == QDialog::Accepted)
                             printOn(printer, job, work, answer);
                         else
                             answer({Outcome::Cancelled});
                     });
    show(std::move(dialog));
}

void DesktopPlatform::saveToFiles(const std::vector<ActivityItem>& items, const Answer& answer) {
    std::vector<NamedFile> files;
    if (const auto text = textOf(items))
        files.push_back({QStringLiteral("Quotes.txt"), text->toUtf8()});
    for (const ActivityItem& item : items) {
        const auto* file = std::get_if<SharedFile>(&item);
        if (!file)
            continue;
        auto bytes = readOwnFile(file->path);
        if (!bytes) {
            answer({Outcome::Failed, QStringLiteral("\"%1\" cannot be read.").arg(file->path)});
            return;
        }
        files.push_back({QFileInfo(file->path).fileName(), std::move(*bytes)});
    }
    askWhereToSave(std::move(files), Outcome::Cancelled, answer);
}

void DesktopPlatform::askWhereToSave(std::vector<NamedFile> files, Outcome::Kind kind,
                                     const Answer& answer) {
    if (files.empty()) {
        answer({kind});
        return;
    }
    auto dialog = std::make_unique<QFileDialog>();
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setOption(QFileDialog::DontUseNativeDialog, !m_fileChooser.isThere());
    dialog->setDirectory(documentsFolder());
    dialog->selectFile(files.front().name);
    const auto goOn = [this, dialog = dialog.get(), files = std::move(files), kind,
                       answer](int result) mutable {
        if (result == QDialog::Accepted) {
            if (const auto failure = writeFileAtomically(dialog->selectedFiles().constFirst(),
                                                         files.front().bytes)) {
                answer({Outcome::Failed, failure->description});
                return;
            }
            kind = Outcome::Done;
        }
        files.erase(files.begin());
        askWhereToSave(std::move(files), kind, answer);
    };
    QObject::connect(dialog.get(), &QDialog::finished, &m_requests, goOn);
    show(std::move(dialog));
}

void DesktopPlatform::show(std::unique_ptr<QDialog> dialog) {
    if (m_dialog) {
        m_dialog->hide();
        m_dialog.release()->deleteLater(); // whose signal may be what has called
    }
    m_dialog = std::move(dialog);
    m_dialog->winId();
    m_dialog->windowHandle()->setTransientParent(QGuiApplication::focusWindow());
    m_dialog->open();
}
