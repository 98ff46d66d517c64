#include "Fuzzing.h"

#include <QCoreApplication>
#include <QLoggingCategory>

int LLVMFuzzerInitialize(int* argc, char*** argv) {
    static const QCoreApplication application(*argc, *argv);
    QLoggingCategory::setFilterRules(QStringLiteral("lantern.*=false"));
    return 0;
}
