#include "SDK/LanguageFile.h"

#include <QDir>
#include <QFile>
#include <QtTest>

/// The file is beside the program's directory: DIRECTORY + CODE + ".json".
class tst_LanguageFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void readsTheLocalizationMember();
    void isEmptyFor_data();
    void isEmptyFor();
    void isEmptyWithoutAFile();
    void doesNotWaitForAPipe();
    void isCreatedOnce();

private:
    static void write(const QByteArray &content)
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
    }

    static QString code() { return QStringLiteral("-test-language"); }
    static QString path()
    {
        return QCoreApplication::applicationDirPath() + code() + QStringLiteral(".json");
    }
};

void tst_LanguageFile::cleanup()
{
    QFile::remove(path());
    QDir().rmdir(path());
}

void tst_LanguageFile::readsTheLocalizationMember()
{
    write("{\"Localization\":{\"Volume\":\"音量\"},\"Name\":\"x\"}");
    const LanguageFile file(code());
    QCOMPARE(file.content(), (QJsonObject{{QStringLiteral("Volume"), QStringLiteral("音量")}}));
}

void tst_LanguageFile::isEmptyFor_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no member") << QByteArray("{\"Name\":\"x\"}");
    QTest::newRow("member of another type") << QByteArray("{\"Localization\":[1]}");
    QTest::newRow("array") << QByteArray("[{\"Localization\":{}}]");
    QTest::newRow("no JSON") << QByteArray("Localization");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("binary") << QByteArray("\0\xff\xfe{", 4);
}

void tst_LanguageFile::isEmptyFor()
{
    QFETCH(QByteArray, content);
    write(content);
    QVERIFY(LanguageFile(code()).content().isEmpty());
}

void tst_LanguageFile::isEmptyWithoutAFile()
{
    QVERIFY(LanguageFile(code()).content().isEmpty());
    QVERIFY(QDir().mkdir(path()));
    QVERIFY(LanguageFile(code()).content().isEmpty());
}

void tst_LanguageFile::doesNotWaitForAPipe()
{
    if (QProcess::execute(QStringLiteral("mkfifo"), {path()}) != 0)
        QSKIP("mkfifo is missing");
    QVERIFY(LanguageFile(code()).content().isEmpty());
}

void tst_LanguageFile::isCreatedOnce()
{
    write("{\"Localization\":{\"a\":\"b\"}}");
    const LanguageFile &first = LanguageFile::create(code());
    QCOMPARE(first.content().size(), 1);
    QCOMPARE(&LanguageFile::create(QStringLiteral("fr")), &first);
}

QTEST_GUILESS_MAIN(tst_LanguageFile)
#include "tst_languagefile.moc"
