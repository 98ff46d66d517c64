#include "DocumentPickerViewController.h"

DocumentPickerViewController::DocumentPickerViewController(const QStringList& contentTypes)
    : m_contentTypes(contentTypes) {}

void DocumentPickerViewController::pick(const QUrl& file) {
    const auto tell = didPickDocumentAtURL;
    dismiss();
    if (tell)
        tell(file);
}

void DocumentPickerViewController::cancel() {
    const auto tell = wasCancelled;
    dismiss();
    if (tell)
        tell();
}
