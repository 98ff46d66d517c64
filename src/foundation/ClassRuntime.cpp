#include "ClassRuntime.h"

bool ClassRuntime::getClass(const QString& name) const {
    return m_registered.contains(name);
}

bool ClassRuntime::allocateClassPair(const QString& superclass, const QString& name) {
    if (!getClass(superclass) || getClass(name) || m_allocated.contains(name))
        return false;
    m_allocated.insert(name, superclass);
    return true;
}

void ClassRuntime::registerClassPair(const QString& name) {
    if (m_allocated.contains(name))
        m_registered.insert(name, m_allocated.take(name));
}
