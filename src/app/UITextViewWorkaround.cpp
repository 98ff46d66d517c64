#include "UITextViewWorkaround.h"

#include "foundation/FatalError.h"

void UITextViewWorkaround::executeWorkaround(ClassRuntime& classes, const SystemVersion& version) {
    const auto name = QStringLiteral("_UITextLayoutView");
    if (version >= SystemVersion{13, 2} || classes.getClass(name))
        return;
    if (!classes.allocateClassPair(QStringLiteral("View"), name))
        fatalError(QStringLiteral("The class %1 cannot be made").arg(name));
    classes.registerClassPair(name);
}
