#include "FileChooser.h"

#include "foundation/Files.h"

FileChooser::FileChooser() {
    connect(&m_desktop, &DesktopFileChooser::changed, this, &FileChooser::nativeChanged);
}

QString FileChooser::startFolder() {
    return documentsFolder();
}
