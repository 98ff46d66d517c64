#include "DesktopPlatform.h"

#include "foundation/Files.h"
#include "platform/Mail.h"
#include "platform/Print.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QWindow>

#include <gio/gio.h>

Q_LOGGING_CATEGORY(lcPlatform, "lantern.platform")

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

std::optional<WriteFailure> printOn(QPrinter& printer, const PrintJob& job) {
    if (printer.outputFormat() == QPrinter::PdfFormat)
        return printToPdf(job, printer.outputFileName(), printer.pageLayout(),
                          printer.pageRanges());
    if (!printPages(job, printer))
        return WriteFailure{QStringLiteral("The printer \"%1\" does not take the pages.")
                                .arg(printer.printerName())};
    return std::nullopt;
}

} // namespace

DesktopPlatform::DesktopPlatform() = default;
DesktopPlatform::~DesktopPlatform() = default;

bool DesktopPlatform::canSendText() const {
    return hasHandler("sms");
}

bool DesktopPlatform::canSendMail() const {
    return hasHandler("mailto");
}

bool DesktopPlatform::open(const QUrl& address) {
    if (!address.isValid() || address.scheme().isEmpty())
        return false;
    return QProcess::startDetached(QStringLiteral("xdg-open"),
                                   {QString::fromLatin1(address.toEncoded())});
}

void DesktopPlatform::copy(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

void DesktopPlatform::message(const QString& text) {
    const QString body = QString::fromLatin1(QUrl::toPercentEncoding(text));
    if (body.size() > longestAddress)
        tellFailure(QStringLiteral("The text is too long for a text message."));
    else if (!open(QUrl(QStringLiteral("sms:?body=") + body, QUrl::StrictMode)))
        tellFailure(QStringLiteral("No program opens text messages."));
}

void DesktopPlatform::mail(const MailMessage& message) {
    if (mailtoAddress(message).toEncoded().size() > longestAddress) {
        MailMessage shorter = message;
        shorter.attachments.push_back(
            {message.body.toUtf8(), QStringLiteral("text/plain"), QStringLiteral("Message.txt")});
        shorter.body.clear();
        mail(shorter);
        return;
    }
    const QStringList attachments = writeAttachments(message);
    const QUrl address = mailtoAddress(message);
    const auto withoutPortal = [this, attachments, address] {
        // As an address, the message reaches the script whole: its options lose backslashes.
        QStringList arguments{QString::fromLatin1(address.toEncoded())};
        for (const QString& attachment : attachments)
            arguments << QStringLiteral("--attach") << attachment;
        if (QProcess::startDetached(QStringLiteral("xdg-email"), arguments))
            return;
        qCWarning(lcPlatform) << "no xdg-email; the mail opens without its attachments";
        if (!open(address))
            tellFailure(QStringLiteral("No program opens mail."));
    };
    new PortalMail(message, attachments, withoutPortal, &m_requests);
}

QStringList DesktopPlatform::writeAttachments(const MailMessage& message) {
    QStringList paths;
    for (const MailAttachment& attachment : message.attachments) {
        // A folder for each: a mail program may not have read the last one of this name yet.
        QTemporaryDir folder(m_attachments.filePath(QStringLiteral("XXXXXX")));
        folder.setAutoRemove(false);
        const QString path = folder.filePath(QFileInfo(attachment.fileName).fileName());
        if (const auto failure = writeTemporaryFile(path, attachment.data))
            qCWarning(lcPlatform) << failure->description;
        else
            paths.append(path);
    }
    return paths;
}

void DesktopPlatform::print(const PrintJob& job) {
    const auto printer = std::make_shared<QPrinter>();
    printer->setResolution(printResolution);
    printer->setDocName(job.jobName);
    if (QPrinterInfo::defaultPrinterName().isEmpty())
        printer->setOutputFileName(documentsFolder() + QStringLiteral("/Quotes.pdf"));
    auto dialog = std::make_unique<QPrintDialog>(printer.get());
    QObject::connect(dialog.get(), &QDialog::accepted, &m_requests, [this, printer, job] {
        if (const auto failure = printOn(*printer, job))
            tellFailure(failure->description);
    });
    show(std::move(dialog));
}

void DesktopPlatform::saveToFiles(const std::vector<ActivityItem>& items) {
    std::vector<NamedFile> files;
    if (const auto text = textOf(items))
        files.push_back({QStringLiteral("Quotes.txt"), text->toUtf8()});
    for (const ActivityItem& item : items) {
        const auto* file = std::get_if<SharedFile>(&item);
        if (!file)
            continue;
        auto bytes = readOwnFile(file->path);
        if (!bytes) {
            tellFailure(QStringLiteral("\"%1\" cannot be read.").arg(file->path));
            return;
        }
        files.push_back({QFileInfo(file->path).fileName(), std::move(*bytes)});
    }
    askWhereToSave(std::move(files));
}

void DesktopPlatform::askWhereToSave(std::vector<NamedFile> files) {
    if (files.empty())
        return;
    auto dialog = std::make_unique<QFileDialog>();
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDirectory(documentsFolder());
    dialog->selectFile(files.front().name);
    QObject::connect(dialog.get(), &QDialog::finished, &m_requests,
                     [this, dialog = dialog.get(), files = std::move(files)](int result) mutable {
                         std::optional<WriteFailure> failure;
                         if (result == QDialog::Accepted)
                             failure = writeFileAtomically(dialog->selectedFiles().constFirst(),
                                                           files.front().bytes);
                         files.erase(files.begin());
                         if (failure)
                             tellFailure(failure->description);
                         else
                             askWhereToSave(std::move(files));
                     });
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

void DesktopPlatform::tellFailure(const QString& description) {
    qCWarning(lcPlatform) << description;
    show(std::make_unique<QMessageBox>(QMessageBox::Warning, QGuiApplication::applicationName(),
                                       description));
}
