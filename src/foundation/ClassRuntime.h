#pragma once

#include <QHash>
#include <QString>

/** The names of the classes that a program makes at run-time, each with its superclass. */
class ClassRuntime {
public:
    /** Whether a class of this name is registered. */
    bool getClass(const QString& name) const;

    /** Makes an unregistered class; false when the name is taken or the superclass unknown. */
    bool allocateClassPair(const QString& superclass, const QString& name);

    /** Makes an allocated class known to getClass. */
    void registerClassPair(const QString& name);

private:
    QHash<QString, QString> m_allocated;
    QHash<QString, QString> m_registered{{QStringLiteral("View"), QString()}};
};
