#include "foundation/TextFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unicode/unistr.h>

namespace {

QByteArray encoded(const QString& text, const char* encoding) {
    const icu::UnicodeString source(QStringView(text).utf16(), int32_t(text.size()));
    QByteArray bytes(4 * text.size(), '\0');
    bytes.truncate(
        source.extract(0, source.length(), bytes.data(), uint32_t(bytes.size()), encoding));
    return bytes;
}

const QString french =
    QString::fromUtf8("[QUOTECOLLECTION]\nHugo^Été^^^Où êtes-vous allé, l'été passé? À Orléans, "
                      "près du fleuve; ça m'a plu, la forêt était déjà dorée.\n");
const QString russian =
    QString::fromUtf8("[QUOTECOLLECTION]\nТолстой^Семья^^^Все счастливые семьи похожи друг на "
                      "друга, каждая несчастливая семья несчастлива по-своему.\n");
const QString japanese =
    QString::fromUtf8("[QUOTECOLLECTION]\n漱石^猫^^^"
                      "吾輩は猫である。名前はまだ無い。どこで生れたか頓と見当がつかぬ。\n");

} // namespace

TEST(DecodeText, TellsTheUnicodeFormsApart) {
    for (const QString& text : {french, russian, japanese, QString(), QStringLiteral("a"),
                                QString::fromUtf8("🏮 lantern")}) {
        EXPECT_EQ(decodeText(text.toUtf8()), text);
        EXPECT_EQ(decodeText("\xEF\xBB\xBF" + text.toUtf8()), text);
        for (const char* encoding : {"UTF-16LE", "UTF-16BE"}) {
            EXPECT_EQ(decodeText(encoded(text, encoding)), text) << encoding;
            EXPECT_EQ(decodeText(encoded(u'\uFEFF' + text, encoding)), text) << encoding;
        }
        EXPECT_EQ(decodeText(encoded(u'\uFEFF' + text, "UTF-32LE")), text);
    }
}

TEST(DecodeText, FindsLegacyEncodings) {
    EXPECT_EQ(decodeText("caf\xE9"), QString::fromUtf8("café"));
    EXPECT_EQ(decodeText("\xE9 \xE9 \xE9"), QString::fromUtf8("é é é")) << "too short to judge";
    EXPECT_EQ(decodeText("\x93quoted\x94 \x97 5 \x80"), QString::fromUtf8("“quoted” — 5 €"));
    EXPECT_EQ(decodeText(encoded(french, "ISO-8859-1")), french);
    for (const char* encoding : {"windows-1251", "KOI8-R", "ISO-8859-5"})
        EXPECT_EQ(decodeText(encoded(russian, encoding)), russian) << encoding;
    for (const char* encoding : {"Shift_JIS", "EUC-JP", "GB18030"})
        EXPECT_EQ(decodeText(encoded(japanese, encoding)), japanese) << encoding;
    const QByteArray lateAccents = QByteArray(1'000'000, 'x') + encoded(russian, "KOI8-R");
    EXPECT_TRUE(decodeText(lateAccents).endsWith(russian));
}

TEST(DecodeText, ReplacesStrayBytes) {
    EXPECT_EQ(decodeText(french.toUtf8() + "\xFF!"), french + QString::fromUtf8("\uFFFD!"));
    EXPECT_EQ(decodeText(japanese.toUtf8().chopped(3)),
              japanese.chopped(2) + QChar(QChar::ReplacementCharacter))
        << "cut within a character";
    EXPECT_EQ(decodeText(QByteArray("a\0b\0c", 5)), QStringLiteral("ab\uFFFD"))
        << "half a character";
    const QByteArray halfPair("a\0\x3D\xD8\x62\0", 6);
    EXPECT_EQ(decodeText(halfPair), QStringLiteral("a\uFFFDb"));
    const QByteArray withNuls("[QUOTECOLLECTION]\nA^\xC3\x89t\xC3\xA9^S^^1\0002\0003\0004\0005\n",
                              39);
    EXPECT_EQ(decodeText(withNuls), QString::fromUtf8(withNuls)) << "what is UTF-8 is no UTF-16";
}

TEST(ReadTextFile, ReadsRegularFilesOnly) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Zitate ü.csv"));
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(russian.toUtf8());
    file.close();
    const auto read = readTextFile(path);
    ASSERT_TRUE(std::holds_alternative<QString>(read));
    EXPECT_EQ(std::get<QString>(read), russian);

    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString huge = folder.filePath(QStringLiteral("huge"));
    QFile sparse(huge);
    ASSERT_TRUE(sparse.open(QFile::WriteOnly) && sparse.resize(qint64(1) << 40));
    for (const QString& unreadable :
         {pipe, huge, folder.path(), folder.filePath(QStringLiteral("absent")),
          QStringLiteral("/dev/zero")}) {
        const auto result = readTextFile(unreadable);
        ASSERT_TRUE(std::holds_alternative<ReadFailure>(result)) << unreadable.toStdString();
        EXPECT_TRUE(std::get<ReadFailure>(result).description.contains(unreadable));
    }
}
