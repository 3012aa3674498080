#include "render/FontRegistry.h"
#include "sensors/systemInfor.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/TestFonts.h"

#include <QFile>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

/// Font files on the platform that users of Windows have, where the system takes part.
class tst_FontRegistry_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsTheStyleOfAFile();
    void listsAllStylesOfAnInstalledFamily();
    void refusesBrokenFiles_data();
    void refusesBrokenFiles();

private:
    QTemporaryDir m_folder;
};

namespace {

QStringList listedStyles()
{
    QStringList styles;
    for (const FontRecord &record : qAsConst(systemInfor::fontlist_one))
        styles.append(record.style);
    return styles;
}

} // namespace

void tst_FontRegistry_windows::init()
{
    systemInfor::fontlist_one.clear();
}

/// Nobody else has this family, and its file has one style.
void tst_FontRegistry_windows::listsTheStyleOfAFile()
{
    QFile file(testfonts::find(QStringLiteral("Roboto-Bold.ttf")));
    if (!file.open(QIODevice::ReadOnly))
        QSKIP("this machine has no Roboto fonts");
    QByteArray font = file.readAll();
    for (const bool wide : {false, true}) {
        // As fonts have their names: by bytes and in UTF-16.
        const auto encoded = [wide](const char *text) {
            QByteArray bytes;
            for (const char *letter = text; *letter; ++letter)
                bytes += (wide ? QByteArray(1, '\0') : QByteArray()) + *letter;
            return bytes;
        };
        font.replace(encoded("Roboto"), encoded("Nobody"));
    }
    const QString path = m_folder.filePath(QStringLiteral("nobody.ttf"));
    QFile copy(path);
    QVERIFY(copy.open(QIODevice::WriteOnly));
    QCOMPARE(copy.write(font), qint64(font.size()));
    copy.close();
    fontregistry::loadFont(path);
    QCOMPARE(listedStyles(), QStringList{QStringLiteral("Bold")});
}

/// Of a family that is installed, the system names all styles that it can show, and not those of
/// this file alone; the plugin lists them all. Some versions make up slanted ones where no file has
/// them.
void tst_FontRegistry_windows::listsAllStylesOfAnInstalledFamily()
{
    const QString file = testfonts::find(QStringLiteral("DejaVuSans.ttf"));
    if (file.isEmpty())
        QSKIP("this machine has no DejaVu fonts");
    fontregistry::loadFont(file);
    const QStringList styles = listedStyles();
    QVERIFY2(styles.size() > 1, qPrintable(styles.join(QLatin1Char(','))));
    QVERIFY(styles.contains(QStringLiteral("Book")));
    QVERIFY(styles.contains(QStringLiteral("Bold")));
}

void tst_FontRegistry_windows::refusesBrokenFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QByteArray random(100000, '\0');
    QRandomGenerator(1).fillRange(reinterpret_cast<quint32 *>(random.data()), random.size() / 4);
    QTest::newRow("random") << random;
    QTest::newRow("header and random") << QByteArray("\0\1\0\0", 4) + random;
    QTest::newRow("collection and random") << QByteArray("ttcf\0\1\0\0", 8) + random;
    QFile file(testfonts::find(QStringLiteral("DejaVuSans.ttf")));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray font = file.readAll();
    for (const int size : {12, 100, 1000, 20000, font.size() / 2})
        QTest::newRow(qPrintable(QStringLiteral("cut after %1").arg(size))) << font.left(size);
}

void tst_FontRegistry_windows::refusesBrokenFiles()
{
    QFETCH(QByteArray, content);
    const QString path = m_folder.filePath(QStringLiteral("%1.ttf").arg(content.size()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    const MessageCapture capture;
    fontregistry::loadFont(path);
    QVERIFY(systemInfor::fontlist_one.isEmpty());
    QCOMPARE(MessageCapture::count(MessageCapture::quoted(path + QStringLiteral(" loaded failed"))),
             1);
}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "windows");
    const QGuiApplication application(argc, argv);
    tst_FontRegistry_windows test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_fontregistry_windows.moc"
