#include "foundation/TextFile.h"

#include <QFile>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unicode/ucsdet.h>
#include <unicode/unistr.h>

namespace {

constexpr qint64 longestFile = qint64(1) << 30;

QString decode(const QByteArray& bytes, QStringConverter::Encoding encoding) {
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    // Qt's decoder of UTF-16 lets half a character pass.
    const bool isChecked = encoding == QStringConverter::Utf8;
    return isChecked || text.isValidUtf16() ? text
                                            : QString::fromStdU32String(text.toStdU32String());
}

/** Text without a byte-order mark is UTF-16 when one byte in twenty or more is zero, all (but the
 * odd one) in the upper halves of its characters. Where it could be UTF-8 as well, half of these
 * must be control characters there, as the upper halves of all alphabets are. */
std::optional<QStringConverter::Encoding> utf16Encoding(const QByteArray& bytes) {
    if (!bytes.contains('\0'))
        return std::nullopt;
    std::array<qsizetype, 2> zeros{};
    std::array<qsizetype, 2> controls{};
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        zeros[size_t(i % 2)] += bytes[i] == '\0' ? 1 : 0;
        controls[size_t(i % 2)] += uchar(bytes[i]) < 0x20 ? 1 : 0;
    }
    const auto [fewer, more] = std::minmax(zeros[0], zeros[1]);
    if (more == 0 || more < bytes.size() / 20 || more < 8 * fewer)
        return std::nullopt;
    const size_t upper = zeros[0] > zeros[1] ? 0 : 1;
    if (controls[upper] < bytes.size() / 4 && QUtf8StringView(bytes).isValidUtf8())
        return std::nullopt;
    return upper == 0 ? QStringConverter::Utf16BE : QStringConverter::Utf16LE;
}

/** Whether UTF-8 is a likely reading, even if some of the bytes do not belong to it. */
bool isMostlyValid(const QString& decodedUtf8) {
    if (!decodedUtf8.contains(QChar::ReplacementCharacter))
        return true;
    qsizetype invalid = 0;
    qsizetype valid = 0;
    for (const QChar character : decodedUtf8) {
        if (character == QChar::ReplacementCharacter)
            ++invalid;
        else if (character.unicode() > 0x7F && !character.isLowSurrogate())
            ++valid;
    }
    return valid > 2 * invalid;
}

bool isAscii(char byte) {
    return uchar(byte) < 0x80;
}

/** ICU's name of the legacy encoding that the bytes are most likely in. */
QByteArray legacyEncoding(const QByteArray& bytes) {
    constexpr qsizetype sampleLength = 1 << 16;
    constexpr qsizetype fewestTellingBytes = 12;
    constexpr int32_t leastConfidence = 20;
    const QByteArray fallback = QByteArrayLiteral("windows-1252");

    // The first byte beyond ASCII begins a character in every encoding that is in question here.
    const auto telling = std::find_if_not(bytes.begin(), bytes.end(), isAscii);
    const QByteArray sample = bytes.mid(telling - bytes.begin(), sampleLength);
    // The detector's guess about a short text is no better than chance.
    if (sample.size() - std::count_if(sample.begin(), sample.end(), isAscii) < fewestTellingBytes)
        return fallback;

    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCharsetDetector, decltype(&ucsdet_close)> detector(ucsdet_open(&status),
                                                                              &ucsdet_close);
    ucsdet_setText(detector.get(), sample.constData(), int32_t(sample.size()), &status);
    const UCharsetMatch* match = ucsdet_detect(detector.get(), &status);
    if (U_FAILURE(status) || !match || ucsdet_getConfidence(match, &status) < leastConfidence)
        return fallback;
    const QByteArray name = ucsdet_getName(match, &status);
    // The Unicode forms are ruled out already; Latin-1 has nothing that Windows-1252 lacks.
    if (name.startsWith("UTF-") || name == "ISO-8859-1")
        return fallback;
    return name;
}

ReadFailure failure(const QString& path, const QString& reason) {
    return {QStringLiteral("The file %1 cannot be read: %2.").arg(path, reason)};
}

} // namespace

std::variant<QString, ReadFailure> readTextFile(const QString& path) {
    // Without O_NONBLOCK, opening a pipe would wait for its writer.
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0)
        return failure(path, qt_error_string(errno));
    QFile file;
    file.open(descriptor, QFile::ReadOnly, QFile::AutoCloseHandle);
    struct stat status {};
    if (::fstat(descriptor, &status) != 0)
        return failure(path, qt_error_string(errno));
    if (!S_ISREG(status.st_mode))
        return failure(path, QStringLiteral("it is not a regular file"));
    if (status.st_size > longestFile)
        return failure(path, QStringLiteral("it is longer than a gibibyte"));
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError)
        return failure(path, file.errorString());
    return decodeText(bytes);
}

QString decodeText(const QByteArray& bytes) {
    if (const auto marked = QStringConverter::encodingForData(bytes))
        return decode(bytes, *marked);
    if (const auto utf16 = utf16Encoding(bytes))
        return decode(bytes, *utf16);
    QString utf8 = decode(bytes, QStringConverter::Utf8);
    if (isMostlyValid(utf8))
        return utf8;
    const icu::UnicodeString text(bytes.constData(), int32_t(bytes.size()),
                                  legacyEncoding(bytes).constData());
    return QString::fromUtf16(text.getBuffer(), text.length());
}
