#pragma once

#include "toolkit/ViewController.h"

#include <QStringList>
#include <QUrl>

#include <functional>

/** The system's file chooser. Gone before it tells what was chosen. */
class DocumentPickerViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Controllers make their document pickers")

public:
    /** Content types in the system's uniform form, such as "public.item". */
    explicit DocumentPickerViewController(const QStringList& contentTypes);

    QStringList contentTypes() const { return m_contentTypes; }
    std::function<void(const QUrl&)> didPickDocumentAtURL;
    std::function<void()> wasCancelled;

    Q_INVOKABLE void pick(const QUrl& file);
    Q_INVOKABLE void cancel();

private:
    QStringList m_contentTypes;
};
