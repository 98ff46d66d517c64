#include "Fuzzing.h"
#include "foundation/TextFile.h"

#include <QStringConverter>

namespace {

QByteArray encode(const QString& text, QStringConverter::Encoding encoding) {
    QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
    return encoder.encode(text);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    const QByteArray input(reinterpret_cast<const char*>(bytes), qsizetype(count));
    const QString text = decodeText(input);
    require(text.size() <= input.size(), "no byte becomes two characters");
    require(text.isValidUtf16(), "the text is text");
    if (text.startsWith(QChar::Null)) // after the mark of UTF-16, that looks like UTF-32
        return 0;
    // What has been read can be written in every Unicode form, and read again.
    for (const auto encoding :
         {QStringConverter::Utf8, QStringConverter::Utf16LE, QStringConverter::Utf16BE,
          QStringConverter::Utf32LE, QStringConverter::Utf32BE})
        require(decodeText(encode(text, encoding)) == text, "a byte-order mark decides");
    return 0;
}
