#pragma once

#include <QString>

/**
 * A folder for files that go with the program, readable by its user alone. What a program left that
 * was killed goes when the next one makes its own.
 */
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    QString path() const { return m_path; }

private:
    QString m_path;
    int m_lock; ///< held as long as the program lives
};
